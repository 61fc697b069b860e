#include "hvapi/windows/CHVSSequenceWindow.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "lib/hvapi/windows/ScenePage.h"
#include "lib/hvapi/windows/SequencePage.h"
#include "lib/hvapi/windows/SequenceWindowData.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "lib/hvutils/HostServices.h"

#include <QDir>
#include <QFileDialog>
#include <QPointer>
#include <QSettings>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

enum Tab
{
    SequenceTab = 0,
    SceneTab = 1
};

// What the user chose for one view is what the next one starts with, in this session and later.
char const* const showAxesKey = "3DView/ShowAxes";
char const* const showScaleBarKey = "3DView/ShowScaleBar";

void keep(char const* key, bool& control, bool on)
{
    control = on;
    HostServices::instance().settings().setValue(key, on);
}

bool wasKept(char const* key, bool standard)
{
    return HostServices::instance().settings().value(key, standard).toBool();
}

}  // namespace

CHVSSequenceWindow::CHVSSequenceWindow(CHVSSequenceDataset* sequence, QWidget* parent)
    : CHVSChildWindow(parent)
    , d(std::make_unique<Private>())
{
    d->sequence = sequence;
    setWindowTitle(sequence->getSequenceID());

    d->tabs = new QTabWidget;
    d->tabs->setDocumentMode(true);
    d->sequencePage = new SequencePage(sequence);
    d->tabs->insertTab(SequenceTab, d->sequencePage, tr("Sequence View"));
    // The tab is there from the start; its GL view is made when it is first needed.
    auto* sceneHolder = new QWidget;
    auto* holderLayout = new QVBoxLayout(sceneHolder);
    holderLayout->setContentsMargins(0, 0, 0, 0);
    d->tabs->insertTab(SceneTab, sceneHolder, tr("3D View"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(d->tabs);

    connect(d->sequencePage, &SequencePage::openSceneClicked, this, &CHVSSequenceWindow::prepare3DView);
    connect(d->tabs, &QTabWidget::currentChanged, this, [this](int tab) {
        if (tab == SceneTab) prepare3DView();
        emit WindowRegistry::instance().currentTabChanged(this, getCurrentTabName());
    });
    connect(sequence, &CHVSSequenceDataset::sequencePropertyChanged, this, [this] { updateSequenceView(); });
    connect(&SequenceRegistry::instance(), &SequenceRegistry::loadedVolumetricDataChanged, this,
            [this](CHVSSequenceDataset* changed) {
                if (changed == d->sequence) updateSequenceView();
            });
    connect(CHVPreference::getSignalHandler(), &CHVPreferenceSignalHandler::updatePreferenceSetting, this,
            &CHVSSequenceWindow::onSignalUpdatePreference);
    auto& controls = getWindowControls()->m_3DControls;
    controls.m_bShowAxes = wasKept(showAxesKey, controls.m_bShowAxes);
    controls.m_bShowScaleBar = wasKept(showScaleBarKey, controls.m_bShowScaleBar);
    if (sequence->is3DSceneOnlySequence()) prepare3DView();
}

CHVSSequenceWindow::~CHVSSequenceWindow()
{
    // The pages go now, while the window is still whole for those who hear of it.
    d->tabs->blockSignals(true);
    d->scenePage = nullptr;
    delete d->tabs;
}

CHVSSequenceWindow* CHVSSequenceWindow::getSequenceWindow(CHVSSequenceDataset* sequence)
{
    if (!sequence) return nullptr;
    for (auto* window : WindowRegistry::instance().windows()) {
        auto* candidate = qobject_cast<CHVSSequenceWindow*>(window);
        if (candidate && candidate->d->sequence == sequence) return candidate;
    }
    return nullptr;
}

C3DScene* CHVSSequenceWindow::get3DScene()
{
    return d->scenePage ? d->scenePage->scene() : nullptr;
}

QString CHVSSequenceWindow::getCurrentTabName()
{
    return d->tabs->currentIndex() == SceneTab ? QStringLiteral("3D View") : QStringLiteral("Sequence View");
}

bool CHVSSequenceWindow::is3DSceneOnlySequence()
{
    return d->sequence->is3DSceneOnlySequence();
}

void CHVSSequenceWindow::onSignal3DViewChanged(bool bClearAnalysisResults)
{
    if (auto* scene = get3DScene()) scene->update();
    updateSequenceView();
    emit WindowRegistry::instance().view3DChanged(this, bClearAnalysisResults);
}

void CHVSSequenceWindow::onSignalUpdatePreference()
{
    // The preferences of a 3D view concern the text of measurements: only a repaint is due.
    if (auto* scene = get3DScene()) scene->update();
}

void CHVSSequenceWindow::init3DMeasurementValues()
{
    getWindowControls()->m_3DControls.m_bMeasuring = false;
    set3DToolsStates();
}

void CHVSSequenceWindow::updateSequenceView()
{
    setWindowTitle(d->sequence->getSequenceID());
    d->sequencePage->display(d->sequence);
}

bool CHVSSequenceWindow::isSequenceWindow()
{
    return true;
}

CHVSSequenceDataset* CHVSSequenceWindow::getWindowSequence()
{
    return d->sequence;
}

C3DSGManager* CHVSSequenceWindow::getWindow3DSGManager()
{
    return d->scenePage ? d->sequence->get3DSGManager() : nullptr;
}

void CHVSSequenceWindow::prepare3DView()
{
    if (!d->scenePage) {
        d->scenePage = new ScenePage(d->sequence->get3DSGManager());
        connect(d->scenePage, &ScenePage::boundingBoxToggled, this,
                [this](bool on) { getWindowControls()->m_3DControls.m_bShowBoundingBox = on; });
        connect(d->scenePage, &ScenePage::axesToggled, this,
                [this](bool on) { keep(showAxesKey, getWindowControls()->m_3DControls.m_bShowAxes, on); });
        connect(d->scenePage, &ScenePage::scaleBarToggled, this, [this](bool on) {
            keep(showScaleBarKey, getWindowControls()->m_3DControls.m_bShowScaleBar, on);
        });
        connect(d->scenePage->scene(), &C3DScene::voxelUnderMouse, this,
                [this](QString const& text) { emit WindowRegistry::instance().readoutTold(this, text); });
        connect(d->scenePage, &ScenePage::sliceToggled, this,
                [this](int axis, bool on) { getWindowControls()->m_3DControls.m_bShowSlice[axis] = on; });
        connect(d->scenePage, &ScenePage::measuringToggled, this, [this](bool on) {
            getWindowControls()->m_3DControls.m_bMeasuring = on;
            emit update3DToolButtonsStates(&getWindowControls()->m_3DControls);
        });
        connect(d->scenePage->scene(), &C3DScene::measuringChanged, this,
                [this](bool on) { getWindowControls()->m_3DControls.m_bMeasuring = on; });
        connect(d->scenePage->scene(), &C3DScene::distanceMeasured, this, [](double distance) {
            getLogObject()->log(tr("Distance: %1 mm").arg(distance, 0, 'f', 2), QString(), 0, QString(),
                                CHVSLog::eStatusLine, false);
        });
        d->tabs->widget(SceneTab)->layout()->addWidget(d->scenePage);
        set3DToolsStates();
    }
    d->tabs->setCurrentIndex(SceneTab);
}

void CHVSSequenceWindow::update3DLayout()
{
    if (!d->scenePage) return;
    d->scenePage->layout()->activate();
    set3DToolsStates();
}

tag_estatus CHVSSequenceWindow::saveSequence()
{
    if (!d->sequence->getSequenceInfoPath().isEmpty()) return eStatusSuccess;
    QPointer<CHVSSequenceWindow> const self(this);
    QString const parent = QFileDialog::getExistingDirectory(
        this, tr("Folder in Which '%1' Is Saved").arg(d->sequence->getSequenceID()),
        CHVPreference::getSettings()->getRecentFilePath());
    // the dialog runs the event loop, in which the sequence may be closed
    if (!self || parent.isEmpty()) return eStatusFailed;
    tag_estatus const status = SequenceStore::saveIn(*d->sequence, parent);
    if (status != eStatusSuccess)
        CHVSErrorHandler::errorMessage(this, status, QDir::toNativeSeparators(parent));
    return status;
}

bool CHVSSequenceWindow::isClosing()
{
    return d->closing;
}

void CHVSSequenceWindow::apply3DControls(S3DControls* controls)
{
    if (!controls) return;
    CHVSChildWindow::apply3DControls(controls);
    set3DToolsStates();
}

void CHVSSequenceWindow::set3DToolsStates()
{
    if (d->scenePage) d->scenePage->apply(getWindowControls()->m_3DControls);
}
