#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DToolBase.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/deleteFolderTree.h"
#include "plugin/PaletteTarget.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/SameId.h"
#include "plugin/logic/SequenceValidity.h"
#include "plugin/logic/TempFolders.h"
#include "render/CGLVolume.h"
#include "slices/CVolumeSliceLayout.h"

#include <QDir>

namespace {

SequenceFacts factsOf(CHVSSequenceDataset* sequence)
{
    SequenceFacts facts;
    if (!sequence) return facts;
    CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    facts.exists = true;
    facts.loadedAsGroup = sequence->isLoadedAsAGroup();
    facts.hasWindow = window != nullptr;
    facts.isSla = sequence->isSLASequence();
    facts.windowIsSceneOnly = window && window->is3DSceneOnlySequence();
    facts.isCt = sequence->isCTSequence(false);
    return facts;
}

bool windowIsSceneOnlyOrMissing(CHVSSequenceDataset* sequence)
{
    CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    return !window || window->is3DSceneOnlySequence();
}

void removeTempFolder(const QString& sequenceId)
{
    const QString folder = sequenceTempFolder(CHVPreference::getProgramDataPath(), sequenceId);
    if (!folder.isNull() && QDir(folder).exists()) deleteFolderTree(QDir(folder));
}

const QString emptyResultLabel = QStringLiteral("Volume Information: ");

}  // namespace

PaletteTarget CHVVolumeVizPalette::target()
{
    PaletteTarget target = PaletteTarget::of(m_pSequenceDataset);
    const auto record = m_mapVolVizControls.find(m_strSequenceID);
    if (!m_strSequenceID.isNull() && record != m_mapVolVizControls.end()) target.record = &*record;
    return target;
}

const SVolVizControls* CHVVolumeVizPalette::recordOf(const QString& sequenceId) const
{
    const auto record = m_mapVolVizControls.constFind(sequenceId);
    return record == m_mapVolVizControls.constEnd() ? nullptr : &*record;
}

void CHVVolumeVizPalette::showVolumePage()
{
    if (m_b3DCVSupported) VolumeVizTabWidget->setCurrentWidget(volumeTab);
}

bool CHVVolumeVizPalette::validateSequence(CHVSSequenceDataset* sequence)
{
    m_bSequenceValid = isValidSequence(factsOf(sequence));
    return m_bSequenceValid;
}

void CHVVolumeVizPalette::updatePaletteValidity()
{
    validateSequence(CHVSSequenceDataset::getSequenceDataset(m_strSequenceID));
}

void CHVVolumeVizPalette::onDatasetChanged(CHVSDataset* dataset)
{
    const bool wasValid = m_bSequenceValid;
    CHVSSequenceDataset* sequence = nullptr;
    bool valid = false;
    if (dataset && dataset->isPartOfSequence()) {
        sequence = dataset->getSequenceDataset();
        valid = validateSequence(sequence);
        onSequenceChanged(sequence);
    } else if (dataset) {
        m_bSequenceValid = false;
        dropSliceViews();
    }
    const QString id = sequence ? sequence->getSequenceID() : QString();
    if (dataset && wasValid && !sameId(id, m_strSequenceID)) showVolumePage();
    if (!valid) m_strSequenceID = QString();
}

void CHVVolumeVizPalette::onSequenceChanged(CHVSSequenceDataset* sequence)
{
    if (!m_b3DCVSupported) return;
    if (sequence) {
        const bool valid = validateSequence(sequence);
        const QString id = sequence->getSequenceID();
        if (id == m_strSequenceID) return;
        if (!sameId(id, m_strSequenceID)) showVolumePage();
        dropSliceViews();
        if (valid) {
            m_pSequenceDataset = sequence;
            setCurrentSequence(sequence);
        } else {
            m_strSequenceID = QString();
        }
    } else {
        m_pResultsTabControl->setResultModifiedFlag(false);
        clearResults();
        m_strSequenceID = QString();
    }
    if (m_strSequenceID.isNull()) closeHistogramViewer();
    m_pResultsTabControl->updateSavedResultsForSelSeqId(m_strSequenceID);
}

void CHVVolumeVizPalette::clearResults()
{
    m_pSavedResultsCB->clear();
    m_pSavedResultsCB->setEditText(QStringLiteral("<< No Data available >>"));
    m_pCorvaneLV->clear();
}

void CHVVolumeVizPalette::setCurrentSequence(CHVSSequenceDataset* sequence)
{
    if (!sequence || sameId(sequence->getSequenceID(), m_strSequenceID)) return;
    m_strSequenceID = sequence->getSequenceID();
    closeHistogramViewer();
    SVolVizControls& record = currentRecord();
    C3DSGManager* graph = sequence->get3DSGManager();
    if (!graph || !sameId(graph->getTransformedObjectName(), QStringLiteral("GLVolume")))
        record.bTransformTool = false;
    const QPointer<CHVSSequenceDataset> shown(sequence);
    updatePaletteControls(&record);
    if (shown) takeLightFromNode(shown);
    m_pCorvaneResultLbl->setText(emptyResultLabel);
}

/// The node knows better than the record how it is drawn.
void CHVVolumeVizPalette::takeLightFromNode(CHVSSequenceDataset* sequence)
{
    CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    C3DSGManager* graph = window ? window->getWindow3DSGManager() : nullptr;
    if (!graph || !graph->getRootNode()) return;
    auto* node = qobject_cast<CGLVolume*>(graph->getNode(QStringLiteral("GLVolume")));
    if (!node) return;
    C3DScene* scene = window->get3DScene();
    if (scene && scene->isVisible()) scene->makeCurrent();
    quietly(m_pLightingCheckBox, [&](QCheckBox& box) { box.setChecked(node->getLighting() != 0.0f); });
    quietly(m_pMIPCheckBox, [&](QCheckBox& box) { box.setChecked(node->isMIP()); });
}

void CHVVolumeVizPalette::onSequenceAdded(CHVSSequenceDataset* sequence)
{
    if (!sequence) return;
    if (sequence->isLoadedAsAGroup()) {
        m_bSequenceValid = false;
    } else {
        validateSequence(sequence);
        connect(sequence, SIGNAL(updateOnChangeSequence()), this, SLOT(onUpdateSequnce()),
                Qt::UniqueConnection);
    }
    const QString id = sequence->getSequenceID();
    if (sameId(id, m_strSequenceID)) m_strSequenceID = QString();
    m_mapVolVizControls.remove(id);
    m_mapVolVizControls.insert(id, SVolVizControls());
}

void CHVVolumeVizPalette::onUpdateSequnce()
{
    auto* sequence = qobject_cast<CHVSSequenceDataset*>(sender());
    if (!sequence) return;
    m_pSequenceDataset = sequence;
    validateSequence(sequence);
    setCurrentSequence(sequence);
}

void CHVVolumeVizPalette::onSequenceRemoved(CHVSSequenceDataset* sequence)
{
    if (!sequence) return;
    const QString id = sequence->getSequenceID();
    m_pCorvaneResultLbl->setText(emptyResultLabel);
    if (m_pSequenceDataset == sequence) closeHistogramViewer();
    if (windowIsSceneOnlyOrMissing(sequence)) {
        m_pCorvaneLV->clear();
        m_pResultsTabControl->setResultModifiedFlag(false);
        m_pResultsTabControl->updateSavedResultsForSelSeqId(m_strSequenceID);
    } else if (sameId(id, m_strSequenceID)) {
        m_pResultsTabControl->setResultModifiedFlag(false);
        m_pResultsTabControl->setStatusOfButtons(false, false, false);
        clearResults();
        m_strSequenceID = QString();
    }
    if (!sequence->isSLASequence() && !sequence->isCTSequence(false)) m_bSequenceValid = false;
    m_mapVolVizControls.remove(id);
    delete m_pSliceLayoutDialog;
    if (m_pSequenceDataset == sequence)
        m_pSequenceDataset = nullptr;  // no load may reach a sequence that goes
    removeTempFolder(id);
}

void CHVVolumeVizPalette::update3DViewChange()
{
    const PaletteTarget now = target();
    if (!now.node || !now.record) return;
    now.record->bEnabled = now.node->isDisplayed();
    updatePaletteControls(now.record);
}

void CHVVolumeVizPalette::setResultsModifiedForSequence(bool modified)
{
    if (SVolVizControls* record = target().record) record->bModified = modified;
    m_pResultsTabControl->setResultModifiedFlag(modified);
    m_pResultsTabControl->updateSavedResultsForSelSeqId(m_strSequenceID);
}

void CHVVolumeVizPalette::onSignalUpdate3DToolButtons(S3DControls*)
{
    C3DScene* scene = target().scene;
    if (!scene) return;
    const C3DToolBase* tool = scene->getCurrentTool();
    if (tool && tool->getToolType() != C3DToolBase::TransformTool) return;
    m_pTransformToolBtn->setChecked(false);
    m_pCroptoolButton->setChecked(false);
    m_pFiducialRegistrationButton->setChecked(false);
}
