#include "Signatures.h"
#include "hvapi/export/CHVSImageExporter.h"
#include "hvapi/export/CHVSMovieExporter.h"
#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/results/CPLResultXMLWrapper.h"

#include <QAction>
#include <QMutex>

/// A plug-in: what it must and may override.
class Plugin : public CHVToolPalettePluginBase
{
public:
    void initPlugin() override;
    QWidget* getPaletteWidget() override;
    QString getPluginName() override;
    int getPluginRank() override;
    void onPluginAction() override;
    QString getBaseModuleName() override;
    bool isBaseModuleAvailable() override;
    bool defaultVisibilityForPluggin() override;
    bool isPluginAvailable() override;
    int getActionCount() override;
    QAction* getAction() override;
    QPixmap getActionIcon() override;
    QString getActionText() override;
    QString getActionGroupName() override;
    void onSignalDatasetChanged(CHVSDataset*) override;
    void onSignalSequenceChanged(CHVSSequenceDataset*) override;
    void onSignalDatasetRemoved(CHVSDataset*) override;
    void onSignalSequenceAdded(CHVSSequenceDataset*) override;
    void onSignalSequenceRemoved(CHVSSequenceDataset*) override;
    void onSignalROIModified(QString) override;
    void onSignalROIDeleted() override;
    void onSignalupdateROIList() override;
    void onSignalUpdatePluginPalette(QString) override;
    void onAdvancedOptionChanged(bool) override;
    void onSignalUpdateValidity(QWidget*, bool) override;
    void onSignalSelectOrganDatabase(QString&, QMutex&) override;
    void onSignalAskToSaveResults() override;
    void onSignalLoadFile(QString, bool, tag_estatus*, downloaded_save_data*) override;
    void signalChangeSeqWndUnit(QString const&, tag_edisplayunit) override;
    void signalCreateSequence(QString, bool) override;
    void onSignalBinningChanged(bool) override;
    void onSignalUpdateSPUMTools(tag_sspecunmix*) override;
    void onSignalAddWidgetToWorkspace(QWidget*) override;
    void onSignalMakeMeasurement(bool, bool) override;
    void onSignalCopyToClipboard(QString) override;
    void onSignal3DViewChanged(bool) override;
    void onSignalApplyQuantificationResult(RECONTYPE) override;
    void onSignalDatabaseChanged() override;
    void onSignalGetPrintPixmap(bool) override;
    void onHideAllGraphWindows() override;
    void onSignal3DSceneChanged(QString) override;
    void onSignalTransformObjectChanged(QString) override;
    void onRestoreWindows(bool) override;
    void onLoadUnmixDlg() override;
    void onDatasetSavedSignal() override;
    void onLoadResultsSignal(QString, QString) override;
    void onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER) override;
};
static_assert(!std::is_abstract_v<Plugin>);

GIVES(void, some<Plugin&>().signalCreate3DSceneSequence(some<QString>()));
GIVES(void, some<Plugin&>().signalLoadFile(some<QString>(), some<bool>(), some<ESTATUS*>(), nullptr));
GIVES(void, some<Plugin&>().addWidgetToWorkspace(some<QWidget*>()));
GIVES(void, some<Plugin&>().updatePluginValidity(some<QWidget*>(), some<bool>()));
GIVES(void, some<Plugin&>().loadingFailed());

static_assert(std::is_constructible_v<CHVSResultsTabControl, QWidget*, QComboBox*, QPushButton*, QPushButton*,
                                      QPushButton*>);
using Strip = CHVSResultsTabControl&;
GIVES(void, some<Strip>().setTags(some<QString>(), some<QString>()));
GIVES(void, some<Strip>().setSettingFileName(some<QString>()));
GIVES(void, some<Strip>().updateSavedResultsForSelSeqId(some<QString>()));
GIVES(void, some<Strip>().setResultModifiedFlag(some<bool>()));
GIVES(bool, some<Strip>().getResultModifiedFlag());
GIVES(void, some<Strip>().setStatusOfButtons(some<bool>(), some<bool>(), some<bool>()));
GIVES(QStringList, some<Strip>().getSavedMenuNames());

/// Results with a format of their own.
class ResultFile : public CPLResultXMLWrapper
{
public:
    bool createXMLFile(QString const&, QString const&, bool) override;
};
using Xml = CPLResultXMLWrapper&;
using Text = QString const&;
GIVES(bool, some<Xml>().createXMLFile(some<Text>(), some<Text>(), some<bool>()));
GIVES(bool, some<Xml>().loadXMLFile(some<Text>()));
GIVES(void, some<Xml>().writeOpenTag(some<Text>()));
GIVES(void, some<Xml>().writeOpenTag(some<Text>(), some<Text>(), some<Text>()));
GIVES(void, some<Xml>().writeOpenTag(some<Text>(), some<Text>(), some<int>()));
GIVES(void, some<Xml>().writeOpenTag(some<Text>(), some<QStringList&>(), some<QStringList&>()));
GIVES(void, some<Xml>().closeOpenTag(some<Text>()));
GIVES(void, some<Xml>().writeAtomTag(some<Text>(), some<Text>(), some<Text>()));
GIVES(void, some<Xml>().writeAtomTag(some<Text>(), some<Text>(), some<float>()));
GIVES(void, some<Xml>().writeAtomTag(some<Text>(), some<Text>(), some<double>()));
GIVES(void, some<Xml>().writeAtomTag(some<Text>(), some<Text>(), some<int>()));
GIVES(bool, some<Xml>().Read1stTagKeyValues(some<Text>(), some<Text>(), some<QString&>()));
GIVES(bool, some<Xml>().Read2ndTagKeyValues(some<Text>(), some<Text>(), some<QStringList&>(),
                                            some<QStringList&>()));
GIVES(bool, some<Xml>().Read2ndTagKeyValues(some<Text>(), some<Text>(), some<Text>(), some<int&>()));
GIVES(bool, some<Xml>().Read2ndTagKeyValues(some<Text>(), some<Text>(), some<Text>(), some<QString&>()));
GIVES(bool, some<Xml>().ReadCurrentKeyValues(some<int>(), some<Text>(), some<Text>(), some<QString&>()));
GIVES(bool, some<Xml>().ReadCurrentKeyValues(some<int>(), some<Text>(), some<Text>(), some<float&>()));

GIVES(bool, CHVSImageExporter::saveImage(some<QImage&>(), some<QString&>()));
using Movie = CHVSMovieExporter&;
GIVES(QStringList, CHVSMovieExporter::getFilterList());
GIVES(QStringList, CHVSMovieExporter::getExtensionList());
GIVES(tag_estatus, some<Movie>().createMovie(some<sMovieDetails>(), some<QString>()));
GIVES(tag_estatus, some<Movie>().appendFrame(some<void*>(), some<HVSMovieBufferTypes>(), some<QImage>()));
GIVES(void, some<Movie>().closeMovie());
static_assert(sizeof(sMovieDetails) == 5 * 4 && sMovieDetails().m_nFramesPerSecond == 25);
static_assert(HVS_MOVIE_BUFFER_RGB32 == 3 && HVS_MOVIE_BUFFER_RGB32_MPEG == 8);
