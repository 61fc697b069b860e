#pragma once

#include "ui_C3DCVImportDialog.h"

#include <QBasicTimer>
#include <QDialog>
#include <QStringList>
#include <QVector>

#include <memory>

class CDicomReader;
class CHVDcmImage;
class CHVSSimpleImageView;
class CILImage;
class CVolBrowseListItemModel;
class CVolBrowseManager;
class CVolBrowserInfo;
struct FrameRange;
enum class PreviewPage;

/// The window in which volumetric data is found on disk, looked at frame by frame, and chosen for a load. It
/// lives in a sub-window of the workspace and is hidden, not destroyed, when that is closed. It loads nothing
/// itself: who made it hears its "Load" button and emitLoadDataSignal, and asks it for files and range.
class C3DCVImportDialog : public QDialog, public Ui::C3DCVImportDialog
{
    Q_OBJECT

public:
    explicit C3DCVImportDialog(QWidget* parent = nullptr, const char* name = nullptr, bool modal = false,
                               Qt::WindowFlags flags = {});
    ~C3DCVImportDialog() override;

    /// Sets the start state and makes the connections.
    virtual void init();
    /// Ends a browse and playing, and takes the connections away.
    virtual void destroy();
    /// Asks the user for a folder; empty when none was chosen. Begins where the last choice was.
    virtual QString getBrowseFolder();
    /// Browses the folder of the last browse once more.
    virtual void onClickBrowsePathChosen();

public slots:
    /// Asks for a folder and browses it.
    virtual void onClickBrowse();
    /// Browses a folder and all below it. Comes back at its end; until then the window is served once a
    /// second.
    virtual void browse(QString strFolderPath);
    /// Playing rests while the window is minimised.
    virtual void onSignalWindowStateChanged(Qt::WindowStates before, Qt::WindowStates now);

public:
    /// Shows the window in its sub-window, back from hidden or minimised.
    void showWindow();

    /// Full paths of the selected files: of several, those inside the chosen range.
    QStringList getSelectedFiles() const;
    /// Folder of the selection; empty without one.
    QString getSelectedFolder() const { return m_strCurrentFolder; }
    /// First and last frame to load, counted from 1.
    int getStartFrame() const;
    int getEndFrame() const;
    bool isLoadInNewWindow() const;
    /// The selection is the CT data of a saved sequence.
    bool isCtDataFolder() const { return m_bCtDataFolder; }

signals:
    /// The selection is to be loaded.
    void emitLoadDataSignal();

public slots:
    /// Tells where a load would go now.
    void updateStatusMessage();
    void onSpanSliderValueChanged(int lower, int upper);
    /// Plays or rests, as the play button says.
    void onAutoPreviewClicked();
    void timerEvent(QTimerEvent* event) override;
    void onChangeCurrentFolderSelection(QModelIndex index);
    void onDoubleClickFolderSelection(QModelIndex index);
    void onExpandCurrentFolder(QModelIndex index);
    void onChangeCurrentFileSelection(int row);
    void onLoadButtonClicked();

    /// The sub-window is about to become the active one.
    void aboutToActivateWindow();
    /// Asks for a folder and browses it; tells when it can't be read.
    void onClickBrowsePath();
    /// Takes the selection, as a double click on it does.
    void onClickAccButton();
    /// Paints the preview anew.
    void updatePreview();
    void onFrameChanged(int nFrame);
    void onRangeChanged(int nFrame);
    void onStartFrameButtonClicked();
    void onEndFrameButtonClicked();
    void stopBrowsing();

public:
    /// Opens the first file of the selection and shows its first frame; 0 or a status of the host.
    int initData();
    int initWithTIFF();
    int initWithRAW();
    int initWithDICOM();

protected:
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    // browse
    void browseFolder(const QString& folder);
    void onBrowseStarted();
    void onBrowseProgress(QString folder);
    void onDataSetFound(std::unique_ptr<CVolBrowserInfo> info);
    void onBrowseEnded();
    void fitColumns(int row);

    // selection
    void takeSelection(const CVolBrowserInfo& info);
    void showOpened(int status);
    void clearSelection();
    void loadSelection();
    void enablePlaying(bool enabled);
    int frameCount() const;
    FrameRange chosenRange() const;
    void showRange(const FrameRange& range);
    void setStatus(const QString& text);

    // preview
    void showPage(PreviewPage page);
    QString filePath(int row) const;
    QByteArray fileName(int row) const;
    bool isOpenedAsNative(const QString& path);
    int initWithNativeDICOM();
    bool readFrame(int nFrame, int row);
    bool readDicomFrame(int nFrame, int row);
    bool takeDicomFrame(unsigned long frame);
    bool takeNativeFrame(unsigned long frame);
    void setDisplayRange(double minimum, double maximum);
    void setGrayRange();

    std::unique_ptr<CILImage> m_pImage;  ///< the frame in the preview
    CVolBrowseListItemModel* m_pModel = nullptr;
    CHVSSimpleImageView* m_pPreview = nullptr;
    std::unique_ptr<CHVDcmImage> m_pDcmImage;  ///< the open DICOM file of a preview
    std::unique_ptr<CDicomReader> m_pReader;   ///< the same for a file of the workstation's own
    QString m_strCurrentFolder;
    QStringList m_strFiles;           ///< of the selection, without their folder
    QStringList m_strBrowsedFolders;  ///< parent + "/" + name of each row
    QString m_strBrowsePath;          ///< start folder of the last browse
    bool m_bAddToList = false;
    bool m_bIsTiff = false;
    bool m_bIsRaw = false;
    int m_nFrames = 0;  ///< of a multi-frame selection
    QBasicTimer m_timer;
    bool m_bBusy = false;  ///< a selection is changing: playing stops
    bool m_bCtDataFolder = false;
    bool m_bBrowsing = false;  ///< between the first and the last event of a browse
    int m_nProgress = 0;
    QVector<int> m_columnWidths;  ///< of the list, in pixels: the widest cell so far
    std::unique_ptr<CVolBrowseManager> m_pBrowseManager;
};
