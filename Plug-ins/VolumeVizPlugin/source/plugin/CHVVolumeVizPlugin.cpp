#include "plugin/CHVVolumeVizPlugin.h"

#include "browse/C3DCVImportDialog.h"
#include "browse/LoadTarget.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/PluginLog.h"
#include "plugin/logic/SceneName.h"
#include "plugin/logic/ToolRequest.h"
#include "plugin/logic/ViewTab.h"

#include <QAction>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMdiArea>

CHVVolumeVizPlugin::~CHVVolumeVizPlugin()
{
    // The host's sub-window takes the dialog with it.
    if (m_pImportDialog) delete m_pImportDialog->parentWidget();
    delete m_pPalette.data();
}

void CHVVolumeVizPlugin::initPlugin()
{
    m_pPalette.clear();
    m_pBrowseAction = nullptr;
}

QWidget* CHVVolumeVizPlugin::getPaletteWidget()
{
    if (!m_pPalette) {
        m_pPalette = new CHVVolumeVizPalette(nullptr, nullptr, false, Qt::WindowFlags());
        m_pPalette->VolumeVizTabWidget->setMaximumWidth(270);
        connect(m_pPalette, SIGNAL(addToWorkspace(QWidget*)), this,
                SLOT(onSignalAddWidgetToWorkspace(QWidget*)));
        connect(m_pPalette, SIGNAL(dicomLoadingFailed()), this, SLOT(onSignaldicomLoadingFailed()));
        connect(this, SIGNAL(signaLoadSelectedFileList(QStringList, int, int)), this,
                SLOT(loadSelectedFileList(QStringList, int, int)), Qt::UniqueConnection);
        m_pImportDialog = nullptr;
    }
    return m_pPalette;
}

QString CHVVolumeVizPlugin::getPluginName()
{
    return QStringLiteral("3D Corvane Tools");
}

int CHVVolumeVizPlugin::getPluginRank()
{
    return 8;
}

void CHVVolumeVizPlugin::onPluginAction()
{
    if (m_pPalette && !m_pPalette->is3DCVSupported()) {
        const QString text =
            QStringLiteral("This system doesn't meet the minimum requirements for '%1")
                .arg(getPluginName() +
                     QStringLiteral("'.\nPlease refer to the Halvane\u2122 User Guide for this tool's "
                                    "minimum system and graphic card (GPU) requirements."));
        CHVSMessageBox::warning(m_pPalette, CHVUtilityFns::getAppName(), text, QStringLiteral("&OK"),
                                QString(), QString(), 0, -1);
        return;
    }
    if (!m_pImportDialog) makeImportDialog();
    auto* const frame = qobject_cast<CHVSMdiSubWindow*>(m_pImportDialog->parentWidget());
    if (!frame || !frame->isVisible() || frame->isMinimized()) m_pImportDialog->showWindow();
    if (!frame) return;
    if (QMdiArea* const area = frame->mdiArea()) area->setActiveSubWindow(frame);
    frame->setFocus();
}

void CHVVolumeVizPlugin::makeImportDialog()
{
    m_pImportDialog = new C3DCVImportDialog(nullptr, "Corvane Browser", false,
                                            Qt::Window | Qt::WindowTitleHint | Qt::WindowMinMaxButtonsHint |
                                                Qt::WindowSystemMenuHint);
    onSignalAddWidgetToWorkspace(m_pImportDialog);
    connect(m_pImportDialog->m_pLoadButton, SIGNAL(clicked()), this, SLOT(onLoadButtonClicked()));
    connect(m_pImportDialog, SIGNAL(emitLoadDataSignal()), this, SLOT(onLoadButtonClicked()));
    m_pImportDialog->setAutoFillBackground(true);
    QWidget* const frame = m_pImportDialog->parentWidget();
    if (!frame) return;
    connect(frame, SIGNAL(aboutToActivate()), m_pImportDialog, SLOT(aboutToActivateWindow()));
    connect(frame, SIGNAL(windowStateChanged(Qt::WindowStates, Qt::WindowStates)), m_pImportDialog,
            SLOT(onSignalWindowStateChanged(Qt::WindowStates, Qt::WindowStates)));
    frame->setAutoFillBackground(false);
    frame->move(m_pImportDialog->frameGeometry().topLeft());
    frame->resize(m_pImportDialog->frameSize());
}

bool CHVVolumeVizPlugin::isPluginAvailable()
{
    return true;
}

int CHVVolumeVizPlugin::getActionCount()
{
    return 1;
}

QAction* CHVVolumeVizPlugin::getAction()
{
    if (!m_pBrowseAction) {
        m_pBrowseAction = new QAction(getActionText(), this);
        m_pBrowseAction->setObjectName(getActionText());
        m_pBrowseAction->setCheckable(false);
        m_pBrowseAction->setEnabled(true);
        m_pBrowseAction->setVisible(true);
        m_pBrowseAction->setStatusTip(QStringLiteral("Browse 3D Volumetric data"));
        m_pBrowseAction->setWhatsThis(
            QStringLiteral("<b>Browse 3D Volumetric data: </b><br>Browse for 3D Volumetric Data.</br>"));
    }
    return m_pBrowseAction;
}

QPixmap CHVVolumeVizPlugin::getActionIcon()
{
    return QPixmap(QStringLiteral(":/Resource/3dcvsearch.xpm"))
        .scaled(20, 20, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QString CHVVolumeVizPlugin::getActionText()
{
    return QStringLiteral("Browse 3D Volumetric data...");
}

QString CHVVolumeVizPlugin::getActionGroupName()
{
    return QStringLiteral("Save");
}

void CHVVolumeVizPlugin::onSignalDatasetChanged(CHVSDataset* dataset)
{
    if (!m_pPalette) return;
    m_pPalette->onDatasetChanged(dataset);
    onSignalUpdateValidity(m_pPalette, m_pPalette->getSequenceValidity());
}

void CHVVolumeVizPlugin::updateValidityFor(CHVSSequenceDataset* sequence)
{
    bool valid = m_pPalette->getSequenceValidity();
    CHVSSequenceWindow* window =
        valid && sequence ? CHVSSequenceWindow::getSequenceWindow(sequence) : nullptr;
    if (window) valid = isPaletteTab(window->getCurrentTabName());
    onSignalUpdateValidity(m_pPalette, valid);
}

void CHVVolumeVizPlugin::onSignalSequenceChanged(CHVSSequenceDataset* sequence)
{
    if (!m_pPalette) return;
    m_pPalette->onSequenceChanged(sequence);
    updateValidityFor(sequence);
}

// The palette works on sequences only.
void CHVVolumeVizPlugin::onSignalDatasetRemoved(CHVSDataset*) {}

void CHVVolumeVizPlugin::onSignalSequenceAdded(CHVSSequenceDataset* sequence)
{
    if (!m_pPalette) return;
    if (sequence)
        connect(sequence, SIGNAL(sequencePropertyChanged(CHVSSequenceDataset*)), this,
                SLOT(onSequencePropertyChanged(CHVSSequenceDataset*)), Qt::UniqueConnection);
    m_pPalette->onSequenceAdded(sequence);
}

void CHVVolumeVizPlugin::onSignalSequenceRemoved(CHVSSequenceDataset* sequence)
{
    if (m_pPalette) m_pPalette->onSequenceRemoved(sequence);
}

void CHVVolumeVizPlugin::onSignalUpdatePluginPalette(QString tabName)
{
    if (!m_pPalette) return;
    onSignalUpdateValidity(m_pPalette, isPaletteTab(tabName) && m_pPalette->getSequenceValidity());
}

void CHVVolumeVizPlugin::onSignalUpdateValidity(QWidget* palette, bool valid)
{
    emit updatePluginValidity(palette, valid);
}

// The palette hears the request from the sequence itself.
void CHVVolumeVizPlugin::onSignalAskToSaveResults() {}

void CHVVolumeVizPlugin::onSignalLoadFile(QString strFilePath, bool bShow, tag_estatus* status,
                                          downloaded_save_data*)
{
    emit signalLoadFile(strFilePath, bShow, status, nullptr);
}

void CHVVolumeVizPlugin::onSignalAddWidgetToWorkspace(QWidget* widget)
{
    emit addWidgetToWorkspace(widget);
}

// The palette copies by its own menu.
void CHVVolumeVizPlugin::onSignalCopyToClipboard(QString) {}

void CHVVolumeVizPlugin::loadSelectedFileList(QStringList files, int nMin, int nMax)
{
    if (m_pPalette) m_pPalette->onLoadVolumeData(files, nMin, nMax);
}

// No named results hear of it.
void CHVVolumeVizPlugin::onDatasetSavedSignal() {}

void CHVVolumeVizPlugin::onLoadButtonClicked()
{
    if (CHVProcess::isProcessInProgress(eProcessAcquisition)) {
        logMessage(CHVSLog::eWarning,
                   QStringLiteral("Unable to load volumetric data - data acquisition/initialization in "
                                  "progress. Try again later."));
        return;
    }
    if (m_bLoading || !m_pImportDialog) return;
    const QStringList files = m_pImportDialog->getSelectedFiles();
    if (files.isEmpty()) return;
    if (m_pImportDialog->isCtDataFolder()) {
        openSequenceOfSelection();
        return;
    }
    // The wait for a new scene and the load handle events, a second click among them.
    const QPointer<CHVVolumeVizPlugin> self(this);
    m_bLoading = true;
    const bool isTargetFound = findTarget();
    if ((isTargetFound && !m_pImportDialog->isLoadInNewWindow()) || makeScene()) {
        if (m_pImportDialog)
            emit signaLoadSelectedFileList(files, m_pImportDialog->getStartFrame() - 1,
                                           m_pImportDialog->getEndFrame() - 1);
    }
    if (self) m_bLoading = false;
}

void CHVVolumeVizPlugin::openSequenceOfSelection()
{
    QDir folder(m_pImportDialog->getSelectedFolder());
    if (!folder.cdUp()) return;
    const QFileInfo sequence(folder, QStringLiteral("SequenceInfo.txt"));
    if (!sequence.isFile()) return;
    tag_estatus status = eStatusSuccess;
    emit signalLoadFile(sequence.absoluteFilePath(), true, &status, nullptr);
}

bool CHVVolumeVizPlugin::findTarget()
{
    const LoadTarget target = activeLoadTarget();
    if (!target) return false;
    if (target.isSeenByAnImage) activateSequenceWindow(target.window);
    auto* const frame =
        target.window ? qobject_cast<CHVSMdiSubWindow*>(target.window->parentWidget()) : nullptr;
    if (!m_pImportDialog->isLoadInNewWindow() && frame && frame->isMinimized()) frame->showWindow();
    return true;
}

bool CHVVolumeVizPlugin::makeScene()
{
    const QString name = sceneName(CHVPreference::getActiveUserName(), QDateTime::currentDateTime());
    const QPointer<CHVVolumeVizPlugin> self(this);
    emit signalCreate3DSceneSequence(name);
    while (self && !CHVSSequenceDataset::getSequenceDataset(name))
        QCoreApplication::processEvents();
    return self;
}

void CHVVolumeVizPlugin::onLoadResultsSignal(QString, QString resultName)
{
    if (m_pPalette && CHVDcmImage::isDICOM(QFile::encodeName(resultName).constData()))
        m_pPalette->loadDicomResult(resultName);
}

void CHVVolumeVizPlugin::onSignalTransformObjectChanged(QString object)
{
    if (m_pPalette) m_pPalette->onTransformObjectChanged(object);
}

void CHVVolumeVizPlugin::onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER modifier)
{
    if (!m_pPalette) return;
    if (modifier == ETOOLPALETTE_SHOW_MAXIMUM_INTENSITY) {
        if (!m_pPalette->m_pVolumeButtonGroup->isChecked()) return;
        m_pPalette->m_pMIPCheckBox->setChecked(true);
        m_pPalette->m_pClearToolButton->click();
        return;
    }
    if (modifier == ETOOLPALETTE_SHOW_SLICE_LAYOUT) {
        m_pPalette->onClickSliceLayoutWindowTB();
        return;
    }
    const ToolView view = viewOfToolRequest(modifier);
    if (!view.known || !m_pPalette->is3DCVSupported()) return;
    QWidget* page = view.page == PalettePage::Slice ? m_pPalette->sliceTab : m_pPalette->volumeTab;
    m_pPalette->VolumeVizTabWidget->setCurrentWidget(page);
    if (view.sliceOrientation >= 0) m_pPalette->m_pSliceOrientation->setCurrentIndex(view.sliceOrientation);
    if (view.sliceAxis >= 0) m_pPalette->syncSliceSliderToScene(view.sliceAxis);
}

void CHVVolumeVizPlugin::onSignal3DViewChanged(bool)
{
    if (m_pPalette) m_pPalette->update3DViewChange();
}

void CHVVolumeVizPlugin::onSequencePropertyChanged(CHVSSequenceDataset* sequence)
{
    if (!m_pPalette) return;
    m_pPalette->updatePaletteValidity();
    updateValidityFor(sequence);
}

void CHVVolumeVizPlugin::onSignaldicomLoadingFailed()
{
    emit loadingFailed();
}
