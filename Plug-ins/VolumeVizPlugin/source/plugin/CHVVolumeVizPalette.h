#pragma once

#include "plugin/SVolVizControls.h"
#include "transfer/HoverPoints.h"
#include "ui_CHVVolumeVizPalette.h"

#include <QDialog>
#include <QMap>
#include <QPointer>
#include <QStringList>
#include <array>
#include <memory>

#include "hvimage/HVS_COLORTABLE_TYPES.h"

class C3DSGManager;
class CHistogramViewer;
class CTransferFunction1DWidget;
class CGLVolume;
class CRenderEffectsDlg;
class CHVMultiVolumeSliceView;
class CHVSDataset;
class CHVSPalettePixmapView;
class CHVSResultsTabControl;
class CHVSSequenceDataset;
class CHVSSequenceWindow;
class CVolumeSliceLayout;
class QButtonGroup;
class QGridLayout;
class QMenu;
class RenderMeter;
struct PaletteTarget;
struct S3DControls;

/// The panel that the host docks beside its windows. There is one for the whole application, and it shows the
/// state of one sequence at a time: what the user set for a sequence lies in that sequence's record
/// (SVolVizControls), and updatePaletteControls() is the one way from a record to the widgets.
class CHVVolumeVizPalette : public QDialog, public Ui::CHVVolumeVizPalette
{
    Q_OBJECT

public:
    explicit CHVVolumeVizPalette(QWidget* parent = nullptr, const char* name = nullptr, bool modal = false,
                                 Qt::WindowFlags flags = Qt::WindowFlags());
    ~CHVVolumeVizPalette() override;

    QSize sizeHint() const override;

    virtual void initPalette();
    virtual void cleanupPalette();

    /// The status line of the host; an empty text clears it.
    virtual void clearStatusMessage();
    virtual void showStatusMessage(QString text);

    /// Makes `sequence` the current one and fills the widgets from its record. Nothing for null and for the
    /// sequence that is current already.
    virtual void setCurrentSequence(CHVSSequenceDataset* sequence);
    virtual void onDatasetChanged(CHVSDataset* dataset);
    virtual void onSequenceChanged(CHVSSequenceDataset* sequence);
    /// A sequence came: it starts from a fresh record, whatever was known under its id.
    virtual void onSequenceAdded(CHVSSequenceDataset* sequence);
    /// A sequence is about to go: its record and its temporary data go now.
    virtual void onSequenceRemoved(CHVSSequenceDataset* sequence);
    /// "Display Volume" was switched: shows or hides the volume of the current sequence.
    virtual void onVolumeButtonGroupToggled(bool shown);
    /// Opens the dialog for the light and the filters of the volume.
    virtual void onClickRenderEffectsDlgButton();
    virtual void onMedianFilterDenoiseToggled(bool bVal);
    /// Quality Mode was switched. On, the time of a frame decides, and the user where that is too long; off,
    /// the volume is drawn in Performance Mode.
    virtual void onBestRenderQualityCheckBoxToggled(bool bVal);
    virtual void languageChange();

    /// False when the graphics system can't draw volumes; the palette is a notice then.
    bool is3DCVSupported() const { return m_b3DCVSupported; }
    void setSequenceValidity(bool valid) { m_bSequenceValid = valid; }
    /// Whether the palette can work on the sequence that it was last asked about.
    bool getSequenceValidity() const { return m_bSequenceValid; }
    /// Id of the current sequence; null when there is none.
    QString getCurrentSeqID() const { return m_strSequenceID; }

    /// The record of a sequence, or null when there is none under this id.
    const SVolVizControls* recordOf(const QString& sequenceId) const;
    /// First and last frame of the last load that was given limits, counted from 0; -1 for the whole set.
    int lowerLimit() const { return m_nLowerLimit; }
    int manufacturer() const
    {
        return m_eManufacturer;
    }  ///< number of the maker of the loaded scan, 0 for others
    int upperLimit() const { return m_nUpperLimit; }

    /// Decides anew whether the palette can work on the current sequence.
    void updatePaletteValidity();
    /// The 3D view changed: takes over whether the volume is displayed.
    void update3DViewChange();

    /// The host's number for entry `index` of the colour combo boxes.
    static HVS_COLORTABLE_TYPES getColorTableType(int index);

    /// Draws one frame of `density` percent with every filter and decides on the node's render mode: quality,
    /// and true, unless the frame took longer than `limit`. The time goes to `frameTime`. In seconds.
    bool evaluateRenderPerformance(CHVSSequenceWindow* window, CGLVolume* node, int density, double limit,
                                   double* frameTime);
    /// Where the time of a frame comes from.
    void setRenderMeter(std::unique_ptr<RenderMeter> meter);

    /// The host's tools work on the object of that name now: buttons of the palette's own tools for another
    /// object are released.
    void onTransformObjectChanged(const QString& object);
    /// Brings the slider of the slice viewer to where the scene's slice across `axis` (0 x, 1 y, 2 z) lies.
    void syncSliceSliderToScene(int axis);

    /// The widget that the transfer function is edited on.
    CTransferFunction1DWidget* transferFunctionWidget() const;

public slots:
    /// Loads a volume for the current sequence: from the remembered file list if a load from it is under way,
    /// else from files that the user is asked for. True on success.
    bool onClickLoadVolumeButton();
    /// Loads a volume for the current sequence from the given files; `nMin` and `nMax` are the first and the
    /// last frame, counted from 0, or -1 and -1 for all. True on success.
    bool onLoadVolumeData(QStringList strFilePaths, int nMin, int nMax);
    /// Loads the DICOM file that a result consists of; nothing is left to save then.
    void loadDicomResult(const QString& path);

    void onActiveUserChange();
    void updateUserPreferences();
    /// The sender, a sequence, changed under its id.
    void onUpdateSequnce();
    /// Marks the results of the current sequence as unsaved or as saved.
    void setResultsModifiedForSequence(bool modified);
    /// The host took up or left a tool of the 3D view.
    void onSignalUpdate3DToolButtons(S3DControls* controls);
    /// Density of the drawn slices, in percent.
    void onReleaseLevelOfDetailSlider(int value);
    void onLevelOfDetailReset();
    /// Maximum intensity projection and gradient illumination exclude each other.
    void onMIPToggled(bool bVal);
    void onLightingToggled(bool bVal);
    /// The smoothing of the gradient was switched in the dialog.
    void onFilterDenoiseGradientChanged(bool bVal);
    /// Takes up or leaves the tool that moves the volume, and the one that crops it.
    void onToggleTransformTool(bool used);
    void onToggleCropTool(bool used);
    /// Puts the volume back to where it was loaded.
    void onToggleTransformReset();
    /// Opens the crop box to the whole volume.
    void onCropReset();
    /// Tells the views of the host the unit that values are shown in.
    void onShownUnitChanged(QString unit);
    /// Lets the user change spacing and axis orientation of the loaded volume.
    void onShowVolumeInfoDialog();

    /// How slices are coloured: opacity in percent, the ends of the colour scale in values of the source,
    /// where the colours come from (0 the table below, 1 the transfer function), and that table.
    void onSliceOpacitySliderChanged(int nValue);
    void onChangeSliceMinIntensitySliderValue(int nValue);
    void onChangeSliceMinIntensitySpinBoxValue(double fValue);
    void onChangeSliceMaxInstensitySliderValue(int nValue);
    void onChangeSliceMaxIntensitySpinBoxValue(double fValue);
    void onSliceColorTableOptionChanged(int id);
    void onSelChangeSliceColorTableCombo(int index);
    void onClickSliceColorTableReverseCheckBox();
    /// These three do nothing.
    void onClickSliceColorTableLogrithmicScaleCheckBox() {}
    void onChangeSliceThresholdSliderValue(int) {}
    void onChangeSliceThresholdSpinBoxValue(double) {}
    /// The slice viewer of the Slice tab: takes orientation and place from its controls, whatever the
    /// argument.
    void onVolumeSliceOrientationChange(int);
    void onVolumeSliceViewerSliderChange(int);
    /// Shows the slices in a window of their own.
    void onClickSliceLayoutWindowTB();
    /// The crop box changed: the slice viewer follows it.
    void onCroppingEquationChanged(bool bModified);
    /// The voxels of the loaded volume changed.
    void onVolumeDataChanged();
    /// The first visit of the Slice tab makes its viewer, if no load has made it.
    void onVolumeVizTabChanged(int index);
    /// The transfer function goes to the node as a table, and into the record as points. As a user's edit,
    /// that is from the widget itself, it makes the result a modified one.
    void onTransferFunctionChanged();
    /// The slider of the volume's opacity was let go.
    void onOpacitySliderReleased();
    /// Vertical zoom of the histogram behind the transfer function, above 0 to 1.
    void onHistogramYAxisMaxValueChanged(double value);
    /// Takes over a transfer function that was edited elsewhere, in the pixels of the palette's own widget.
    void onSignalUpdateTransferFunction(const QPolygonF& points, const QVector<QRgb>& colors,
                                        const QVector<HoverPoints::LockType>& locks);
    /// Another colour table, or the same one the other way round: the points stay, their colours change.
    virtual void onSelChangeVolumeColorTableCombo(int index);
    virtual void onClickVolumeColorTableReverseCheckBox();
    virtual void onClickVolumeColorTableLogrithmicScaleCheckBox();
    /// Makes the transfer function a plain ramp of the table's colours again.
    void onClickClearTransferFunction();
    /// Puts a step behind the air, as the histogram tells where it ends.
    void onClickAutoFitTB();
    /// Shows the histogram as counts or as their logarithms.
    void onLogarithmicHistogramCheckBox(bool logarithmic);
    /// Shows the range of the volume in that unit.
    void onMinMaxUnitCBIndexChanged(QString strUnit);
    /// Opens the histogram in a window of its own, and what that window tells.
    void onClickHistogramWindowTB();
    void onSignalupdateLogHistogramStatus(Qt::CheckState state);
    void onSignalUpdateMinMaxUnitCB(QString strUnit);

signals:
    void updateValidity(QWidget* palette, bool valid);
    void addToWorkspace(QWidget* widget);
    void dicomLoadingFailed();

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void onTransferPointsScaled(double xScale, double yScale);

private:
    friend class VolumeLoad;

    bool validateSequence(CHVSSequenceDataset* sequence);
    void showVolumePage();
    /// Record, window, scene and node of the current sequence, as they are now.
    PaletteTarget target();
    SVolVizControls& currentRecord() { return m_mapVolVizControls[m_strSequenceID]; }
    void clearResults();

    void updatePaletteControls(SVolVizControls* record);
    void updateVolumeState(const SVolVizControls& record);
    /// False when the sequence went meanwhile: the slots of the render mode may ask the user.
    bool updateVolumeTab(const SVolVizControls& record);
    void updateSliceTab(const SVolVizControls& record);
    void updateResultsTab(const SVolVizControls& record);
    void rebuildUnitList(const SVolVizControls& record);
    void showAsModified();
    void enterQualityMode();
    void leaveQualityMode();
    void showAsPerformanceMode();
    bool wantsQualityAnyway();
    void updateTransferFnWidget(SVolVizControls* pVolVizControls);
    /// Shows the current colour table; with `bRecalcTransferPoints` the transfer function becomes a ramp of
    /// its colours, else its points get new colours.
    void updateVolumeColorMap(bool bRecalcTransferPoints = true);
    /// Shows the histogram of the current sequence, counted anew after a load.
    void updateVolumeHistogram();
    bool computeHistogram();
    void showHistogram();
    void createHistogramViewer();
    void closeHistogramViewer();
    void takeLightFromNode(CHVSSequenceDataset* sequence);

    void createSliceView(const PaletteTarget& now);
    void dropSliceViews();
    void redrawSlices(const PaletteTarget& now);
    void updateSliceView();
    void updateSliceColorMap();
    /// An end of the slices' scale was changed: a user's edit marks the results.
    void markSliceEdit();
    bool slicesUseTransferFunction() const;
    void connectSliceControls();

    void fillColorTables();
    void createResultsTab();
    void createColorBars();
    void createTransferFunction();
    void connectControls();
    void connectHistogramControls();
    void testCapability();
    void showUnsupportedNotice();
    /// Makes sure that the current sequence's scene has a volume node.
    void addGLVolumeNodeTo3DSceneGraph();

    QButtonGroup* m_pSliceColorButtonGroup = nullptr;
    QPointer<CHVSSequenceDataset> m_pSequenceDataset;
    QString m_strStatusMessage;
    QString m_strSequenceID;
    bool m_bSequenceValid = false;
    bool m_bAutoSave = false;
    int m_nResultsComboIndex = 0;
    CHVSPalettePixmapView* m_pSlicePaletteView = nullptr;
    CHVSPalettePixmapView* m_pVolumePaletteView = nullptr;
    QPointer<CTransferFunction1DWidget> m_pTransferFunctionWidget;
    QMap<QString, SVolVizControls> m_mapVolVizControls;
    CHVSResultsTabControl* m_pResultsTabControl = nullptr;
    QStringList m_strFileList;
    QString m_strCurrentFile;
    bool m_bLoadFromFileList = false;
    QMap<QString, QString> m_mapVolumeInfo;
    bool m_bHistogramDirty = false;
    bool m_bResultNameEdited = false;
    QMenu* m_pResultsMenu = nullptr;
    bool m_bDroppedFiles = false;
    CHistogramViewer* m_pHistogramViewer = nullptr;
    QPointer<CVolumeSliceLayout> m_pSliceLayoutDialog;
    int m_nLowerLimit = -1;
    int m_nUpperLimit = -1;
    bool m_b3DCVSupported = true;
    QPointer<CHVMultiVolumeSliceView> m_pSliceView;
    QGridLayout* m_pSliceViewLayout = nullptr;
    int m_eManufacturer = 0;
    std::array<float, 6> m_fUnitConversion{};          ///< as UnitRanges::conversion
    CRenderEffectsDlg* m_pRenderEffectsDlg = nullptr;  ///< built when it is first asked for
    std::unique_ptr<RenderMeter> m_pRenderMeter;
};
