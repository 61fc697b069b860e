#pragma once

#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <QPointer>
#include <QStringList>

class C3DCVImportDialog;
class CHVVolumeVizPalette;

/// What the host's plug-in loader sees: it owns the palette and the menu action, hands the host's signals on
/// to the palette, decides whether the palette is of use for the sequence and the tab on screen, and makes a
/// load of a click on the import dialog's Load button.
class CHVVolumeVizPlugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "brt.halvane.hvvolumeviz")
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    CHVVolumeVizPlugin() = default;
    ~CHVVolumeVizPlugin() override;

    void initPlugin() override;
    QWidget* getPaletteWidget() override;
    QString getPluginName() override;
    int getPluginRank() override;
    void onPluginAction() override;
    bool isPluginAvailable() override;
    int getActionCount() override;
    QAction* getAction() override;
    QPixmap getActionIcon() override;
    QString getActionText() override;
    QString getActionGroupName() override;

signals:
    /// A list of files is to be loaded, with the first and last frame counted from 0, or -1 and -1 for all.
    void signaLoadSelectedFileList(QStringList files, int nMin, int nMax);

public slots:
    void onSignalDatasetChanged(CHVSDataset* dataset) override;
    void onSignalSequenceChanged(CHVSSequenceDataset* sequence) override;
    void onSignalDatasetRemoved(CHVSDataset* dataset) override;
    void onSignalSequenceAdded(CHVSSequenceDataset* sequence) override;
    void onSignalSequenceRemoved(CHVSSequenceDataset* sequence) override;
    void onSignalUpdatePluginPalette(QString tabName) override;
    void onSignalUpdateValidity(QWidget* palette, bool valid) override;
    void onSignalAskToSaveResults() override;
    void onSignalLoadFile(QString strFilePath, bool bShow, tag_estatus* status,
                          downloaded_save_data* pDownloadData = nullptr) override;
    void onSignalAddWidgetToWorkspace(QWidget* widget) override;
    void onSignalCopyToClipboard(QString text) override;
    /// Loads a volume into the palette's current sequence.
    void loadSelectedFileList(QStringList files, int nMin, int nMax);
    void onDatasetSavedSignal() override;
    void onLoadResultsSignal(QString databaseFile, QString resultName) override;
    void onLoadButtonClicked();
    void onSignalTransformObjectChanged(QString object) override;
    void onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER modifier) override;
    void onSignal3DViewChanged(bool bClearAnalysisResults) override;
    void onSequencePropertyChanged(CHVSSequenceDataset* sequence);
    void onSignaldicomLoadingFailed();

private:
    /// Tells the host whether the palette is of use while `sequence` is shown as it is now.
    void updateValidityFor(CHVSSequenceDataset* sequence);

    void makeImportDialog();
    /// Opens the sequence that the selected CT data belongs to.
    void openSequenceOfSelection();
    /// True when the active window gives a sequence to load into; brings its window to the front.
    bool findTarget();
    /// Comes back when the scene is there; false when this object went while it waited.
    bool makeScene();

    QAction* m_pBrowseAction = nullptr;
    QPointer<C3DCVImportDialog> m_pImportDialog;
    QPointer<CHVVolumeVizPalette> m_pPalette;
    bool m_bLoading = false;  ///< a click on Load is being worked on
};
