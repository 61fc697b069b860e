#include "hvapi/plugin/CHVToolPalettePluginBase.h"

Q_DECLARE_METATYPE(tag_estatus*)

CHVToolPalettePluginBase::CHVToolPalettePluginBase(QObject* parent)
    : QObject(parent)
{
    // Known by name, so that spies may look into the signals.
    qRegisterMetaType<tag_estatus*>("tag_estatus*");
    qRegisterMetaType<downloaded_save_data*>("downloaded_save_data*");
}

CHVToolPalettePluginBase::~CHVToolPalettePluginBase() = default;

QString CHVToolPalettePluginBase::getBaseModuleName()
{
    return {};
}

bool CHVToolPalettePluginBase::isBaseModuleAvailable()
{
    return true;
}

bool CHVToolPalettePluginBase::defaultVisibilityForPluggin()
{
    return true;
}

bool CHVToolPalettePluginBase::isPluginAvailable()
{
    return true;
}

int CHVToolPalettePluginBase::getActionCount()
{
    return 0;
}

QAction* CHVToolPalettePluginBase::getAction()
{
    return nullptr;
}

QPixmap CHVToolPalettePluginBase::getActionIcon()
{
    return {};
}

QString CHVToolPalettePluginBase::getActionText()
{
    return {};
}

QString CHVToolPalettePluginBase::getActionGroupName()
{
    return {};
}

void CHVToolPalettePluginBase::onSignalUpdateValidity(QWidget* palette, bool valid)
{
    emit updatePluginValidity(palette, valid);
}

void CHVToolPalettePluginBase::onSignalLoadFile(QString filePath, bool bShow, tag_estatus* status,
                                                downloaded_save_data* data)
{
    emit signalLoadFile(filePath, bShow, status, data);
}

void CHVToolPalettePluginBase::signalChangeSeqWndUnit(QString const& sequenceId, tag_edisplayunit unit)
{
    emit sequenceWindowUnitRequested(sequenceId, unit);
}

void CHVToolPalettePluginBase::signalCreateSequence(QString name, bool bShow)
{
    emit sequenceRequested(name, bShow);
}

void CHVToolPalettePluginBase::onSignalAddWidgetToWorkspace(QWidget* widget)
{
    emit addWidgetToWorkspace(widget);
}

// Events that a plug-in may have no use for.
void CHVToolPalettePluginBase::onPluginAction() {}
void CHVToolPalettePluginBase::onSignalDatasetChanged(CHVSDataset*) {}
void CHVToolPalettePluginBase::onSignalSequenceChanged(CHVSSequenceDataset*) {}
void CHVToolPalettePluginBase::onSignalDatasetRemoved(CHVSDataset*) {}
void CHVToolPalettePluginBase::onSignalSequenceAdded(CHVSSequenceDataset*) {}
void CHVToolPalettePluginBase::onSignalSequenceRemoved(CHVSSequenceDataset*) {}
void CHVToolPalettePluginBase::onSignalROIModified(QString) {}
void CHVToolPalettePluginBase::onSignalROIDeleted() {}
void CHVToolPalettePluginBase::onSignalupdateROIList() {}
void CHVToolPalettePluginBase::onSignalUpdatePluginPalette(QString) {}
void CHVToolPalettePluginBase::onAdvancedOptionChanged(bool) {}
void CHVToolPalettePluginBase::onSignalSelectOrganDatabase(QString&, QMutex&) {}
void CHVToolPalettePluginBase::onSignalAskToSaveResults() {}
void CHVToolPalettePluginBase::onSignalBinningChanged(bool) {}
void CHVToolPalettePluginBase::onSignalUpdateSPUMTools(tag_sspecunmix*) {}
void CHVToolPalettePluginBase::onSignalMakeMeasurement(bool, bool) {}
void CHVToolPalettePluginBase::onSignalCopyToClipboard(QString) {}
void CHVToolPalettePluginBase::onSignal3DViewChanged(bool) {}
void CHVToolPalettePluginBase::onSignalApplyQuantificationResult(RECONTYPE) {}
void CHVToolPalettePluginBase::onSignalDatabaseChanged() {}
void CHVToolPalettePluginBase::onSignalGetPrintPixmap(bool) {}
void CHVToolPalettePluginBase::onHideAllGraphWindows() {}
void CHVToolPalettePluginBase::onSignal3DSceneChanged(QString) {}
void CHVToolPalettePluginBase::onSignalTransformObjectChanged(QString) {}
void CHVToolPalettePluginBase::onRestoreWindows(bool) {}
void CHVToolPalettePluginBase::onLoadUnmixDlg() {}
void CHVToolPalettePluginBase::onDatasetSavedSignal() {}
void CHVToolPalettePluginBase::onLoadResultsSignal(QString, QString) {}
void CHVToolPalettePluginBase::onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER) {}
