#include "plugin/CHVVolumeVizPlugin.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvdicom/CHVDcmImage.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/logic/ToolRequest.h"
#include "plugin/logic/ViewTab.h"

#include <QAction>
#include <QCoreApplication>
#include <QFile>

CHVVolumeVizPlugin::~CHVVolumeVizPlugin()
{
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
    if (!m_pPalette || m_pPalette->is3DCVSupported()) return;
    const QString text =
        QStringLiteral("This system doesn't meet the minimum requirements for '%1")
            .arg(getPluginName() +
                 QStringLiteral("'.\nPlease refer to the Halvane\u2122 User Guide for this tool's "
                                "minimum system and graphic card (GPU) requirements."));
    CHVSMessageBox::warning(m_pPalette, CHVUtilityFns::getAppName(), text, QStringLiteral("&OK"), QString(),
                            QString(), 0, -1);
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

// No named results and no browser hear these two.
void CHVVolumeVizPlugin::onDatasetSavedSignal() {}

void CHVVolumeVizPlugin::onLoadButtonClicked() {}

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
