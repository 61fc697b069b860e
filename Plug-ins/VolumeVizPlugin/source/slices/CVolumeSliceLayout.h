#pragma once

#include "slices/logic/SliceCamera.h"
#include "slices/logic/SliceRange.h"
#include "ui_CVolumeSliceLayout.h"

#include <QDialog>
#include <QPointer>

class CGLVolume;
class CHVMultiVolumeSliceView;
class CHVSProgressBar;
class CHVSSequenceWindow;

/// "Volume Slice Viewer": a montage of slices of a sequence's volume, or one large slice, with range,
/// spacing, slabs, zoom, and export as a picture or a movie. Lengths are millimetres.
class CVolumeSliceLayout : public QDialog, public Ui_CVolumeSliceLayout
{
    Q_OBJECT

public:
    explicit CVolumeSliceLayout(QWidget* parent = nullptr, const char* name = nullptr,
                                Qt::WindowFlags flags = Qt::WindowFlags());
    ~CVolumeSliceLayout() override;

    /// Shows the volume of that window's scene graph. The first call makes the view; null is ignored.
    void bindSequenceWindow(CHVSSequenceWindow* window);
    /// "Coronal", "Transaxial" or "Sagittal", whatever its case; any other text changes nothing.
    void setOrientationText(QString text);
    /// Takes the box of the volume over: whole range, twenty slices.
    void updateFromVolume(CGLVolume* node);

    /// Null before a window was bound.
    CHVMultiVolumeSliceView* view() const;

public slots:
    void onClickThickSliceCB();
    void onLightingToggled(bool bVal);
    void onMIPToggled(bool bVal);
    void onSliceViewComboboxChanged(int index);
    void onChangeMinSpinBox(double value);
    void onChangeMaxSpinBox(double value);
    void onChangeLowerSpan(int value);
    void onChangeUpperSpan(int value);
    void onSliceSpacingChanged(double value);
    void onVolumeSliceViewerSliderChange(int nValue);
    void onChangePositionSpinBox(double value);
    void onClickZoomIn();
    void onClickZoomOut();
    void onClickZoomReset();
    /// Changes between the montage and one slice: the selected one, or that at 0.
    void onDoubleClickSingleSlice();
    /// Does nothing.
    void onClickSelectView() {}
    void onClickClose();
    /// Asks for a file and writes the view into it, as a picture or, for a movie's suffix, as a run through
    /// the range. False where nothing could be written; true also when the user cancels the question.
    bool exportGraphics();

private:
    struct Movie;

    void connectControls();
    void updateOrientation();
    void setAxisRange(double min, double max);
    void updateTotal();
    void updateSlices();
    void showModeOfView();
    SliderRange spanRange() const;
    int spanPosition(double value) const;
    float spanValue(int position) const;

    bool exportPicture(QString path);
    bool exportMovie(const QString& path);
    bool writeFrames(Movie& movie);

    QPointer<CHVMultiVolumeSliceView> m_view;
    SliceBox m_box;
};
