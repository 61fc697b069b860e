#pragma once

#include "ui_CVolumeInfoDialog.h"

#include <QDialog>
#include <QString>

/// Shows what is known of a volume, lets the user fill in the rest, and tells whether the volume fits into
/// memory at the chosen slice resolution. Values are read back after exec(), or without it. A group or field
/// that the caller disables is not asked for; a disabled group is hidden when the dialog is shown.
class CVolumeInfoDialog : public QDialog, public Ui::CVolumeInfoDialog
{
    Q_OBJECT

public:
    explicit CVolumeInfoDialog(QWidget* parent = nullptr, const char* name = nullptr, bool modal = false,
                               Qt::WindowFlags flags = {});
    ~CVolumeInfoDialog() override;

    /// Sets the start state and makes the connections.
    virtual void init();
    /// Takes the connections away again.
    virtual void destroy();
    /// Whether the file holds as much data as the fields say; shows a message where it does not.
    virtual bool validateInput();
    /// Fills all texts anew after a change of the user's language.
    virtual void languageChange();

    void setFileName(const QString& path);
    void setBitDepth(const QString& bits);  ///< "8" or "16"; any other text leaves the choice as it is
    void setColumns(int columns);
    void setRows(int rows);
    void setFrames(int frames);
    void setHeaderOffset(int bytes);
    void setSignedState(int state);  ///< not 0: signed
    void setRowSpacing(double mm);
    void setColumnSpacing(double mm);
    void setSliceSpacing(double mm);
    void setResolution(int percent);
    void setValidateFile(bool validate);  ///< false: validateInput() always answers true

    float getRowSpacing() const;     ///< mm
    float getColumnSpacing() const;  ///< mm
    float getSliceSpacing() const;   ///< mm
    int getResolution() const;       ///< percent
    int getColumns() const;
    int getRows() const;
    int getFrames() const;
    int getHeaderOffset() const;  ///< bytes
    int getBitDepth() const;      ///< 8 or 16
    bool isSigned() const;
    bool isMemoryGood() const;  ///< result of the last memory check

public slots:
    /// Tries whether the volume fits into memory, and shows the answer. Not while the slider is dragged: then
    /// true at once.
    bool updateMemoryStatus();
    void sliceResolutionSliderChanged(int percent);
    void sliceResolutionSliderReleased();
    void sliceResolutionSliderPressed();

    void accept() override;
    void reject() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void collapse();
    void limitResolution();
    void showMemoryGood();
    void showMemoryShort();
    void setStatus(const QString& text, const QColor& color);
    void showHint(bool shown);

    QString m_fileName;
    bool m_memoryGood = true;
    bool m_validateFile = true;
    bool m_sliderHeld = false;
};
