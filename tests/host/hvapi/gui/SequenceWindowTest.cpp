#include "hvapi/windows/CHVSSequenceWindow.h"

#include "OpenSequences.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/ViewControl.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "support/ModalWatcher.h"

#include <QAccessible>
#include <QAction>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>
#include <QtTest>
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace {

class SequenceWindowTest : public OpenSequences
{
protected:
    CHVSSequenceWindow* open(SequenceKind kind, QString const& id = "seq")
    {
        auto* sequence = SequenceRegistry::instance().open({id, kind, false, {}, {}});
        auto* window = CHVSSequenceWindow::getSequenceWindow(sequence);
        window->resize(500, 400);
        return window;
    }

    static QTabWidget* tabs(CHVSSequenceWindow* window) { return window->findChild<QTabWidget*>(); }

    static QAction* action(CHVSSequenceWindow* window, char const* name)
    {
        return window->findChild<QAction*>(name);
    }

    static void click(CHVSSequenceWindow* window, char const* name)
    {
        auto* bar = window->findChild<QToolBar*>("m_pSceneToolBar");
        QTest::mouseClick(bar->widgetForAction(action(window, name)), Qt::LeftButton);
    }
};

TEST_F(SequenceWindowTest, BelongsToItsSequence)
{
    auto* window = open(SequenceKind::Sla);
    auto* sequence = SequenceRegistry::instance().find("seq");
    EXPECT_TRUE(window->isSequenceWindow());
    EXPECT_EQ(window->getWindowSequence(), sequence);
    EXPECT_EQ(window->getActiveDataset(), nullptr);
    EXPECT_EQ(window->windowTitle(), "seq");
    EXPECT_EQ(CHVSSequenceWindow::getSequenceWindow(nullptr), nullptr);
    auto* other = SequenceRegistry::instance().add({"bare", SequenceKind::Sla, false, {}, {}});
    EXPECT_EQ(CHVSSequenceWindow::getSequenceWindow(other), nullptr);
}

TEST_F(SequenceWindowTest, HasTheTwoTabsByName)
{
    auto* window = open(SequenceKind::Ct);
    ASSERT_EQ(tabs(window)->count(), 2);
    EXPECT_EQ(tabs(window)->tabText(0), "Sequence View");
    EXPECT_EQ(tabs(window)->tabText(1), "3D View");
    EXPECT_EQ(window->getCurrentTabName(), "Sequence View");
}

TEST_F(SequenceWindowTest, HasNoSceneBeforeItIsPrepared)
{
    auto* window = open(SequenceKind::Sla);
    EXPECT_EQ(window->get3DScene(), nullptr);
    EXPECT_EQ(window->getWindow3DSGManager(), nullptr);
    EXPECT_FALSE(window->is3DSceneOnlySequence());
    // Nothing to refresh yet.
    window->onSignal3DViewChanged(false);
    window->onSignalUpdatePreference();
    window->init3DMeasurementValues();
    window->set3DToolsStates();
    window->updateSequenceView();
    window->update3DLayout();
    EXPECT_EQ(window->get3DScene(), nullptr);
}

TEST_F(SequenceWindowTest, PreparesOneSceneAndShowsIt)
{
    auto* window = open(SequenceKind::Sla);
    window->prepare3DView();
    auto* scene = window->get3DScene();
    ASSERT_NE(scene, nullptr);
    EXPECT_EQ(window->getCurrentTabName(), "3D View");
    EXPECT_EQ(window->getWindow3DSGManager(), window->getWindowSequence()->get3DSGManager());
    EXPECT_NE(window->getWindow3DSGManager()->getRootNode(), nullptr);
    tabs(window)->setCurrentIndex(0);
    EXPECT_EQ(window->getCurrentTabName(), "Sequence View");
    window->prepare3DView();
    EXPECT_EQ(window->get3DScene(), scene);
    EXPECT_EQ(window->getCurrentTabName(), "3D View");
}

TEST_F(SequenceWindowTest, OfA3DSceneStartsIn3D)
{
    auto* window = open(SequenceKind::Scene3D);
    EXPECT_TRUE(window->is3DSceneOnlySequence());
    EXPECT_EQ(window->getCurrentTabName(), "3D View");
    EXPECT_NE(window->get3DScene(), nullptr);
}

TEST_F(SequenceWindowTest, ClickOnTheTabMakesTheScene)
{
    auto* window = open(SequenceKind::Sla);
    window->show();
    QSignalSpy changed(&WindowRegistry::instance(), &WindowRegistry::currentTabChanged);
    auto* bar = window->findChild<QTabBar*>();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(1).center());
    EXPECT_NE(window->get3DScene(), nullptr);
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier, bar->tabRect(0).center());
    ASSERT_EQ(changed.size(), 2);
    EXPECT_EQ(changed.at(0).at(1).toString(), "3D View");
    EXPECT_EQ(changed.at(1).at(1).toString(), "Sequence View");
    EXPECT_EQ(changed.at(0).at(0).value<CHVSSequenceWindow*>(), window);
}

TEST_F(SequenceWindowTest, ControlsAreAppliedFromACopyWithTheMeasuringFlagCleared)
{
    auto* window = open(SequenceKind::Scene3D);
    window->getWindowControls()->m_3DControls.m_bMeasuring = true;
    QSignalSpy toolSignals(window, &CHVSSequenceWindow::update3DToolButtonsStates);
    S3DControls controls = window->getWindowControls()->m_3DControls;
    controls.m_bMeasuring = false;
    controls.m_bShowAxes = false;
    controls.m_bShowBoundingBox = false;
    window->apply3DControls(&controls);
    EXPECT_FALSE(window->getWindowControls()->m_3DControls.m_bMeasuring);
    EXPECT_FALSE(ViewControl(*window->get3DScene()).isAxesShown());
    EXPECT_FALSE(ViewControl(*window->get3DScene()).isBoundingBoxShown());
    EXPECT_FALSE(action(window, "m_pShowAxes")->isChecked());
    EXPECT_EQ(toolSignals.size(), 0) << "a palette would release its own tool";
    window->apply3DControls(nullptr);
    EXPECT_FALSE(ViewControl(*window->get3DScene()).isAxesShown());
}

TEST_F(SequenceWindowTest, ControlsMayBeTheWindowsOwn)
{
    auto* window = open(SequenceKind::Scene3D);
    auto* own = &window->getWindowControls()->m_3DControls;
    own->m_bShowAxes = false;
    window->apply3DControls(own);
    EXPECT_FALSE(ViewControl(*window->get3DScene()).isAxesShown());
}

TEST_F(SequenceWindowTest, InitOfMeasurementsLeavesMeasuring)
{
    auto* window = open(SequenceKind::Scene3D);
    window->getWindowControls()->m_3DControls.m_bMeasuring = true;
    window->init3DMeasurementValues();
    EXPECT_FALSE(window->getWindowControls()->m_3DControls.m_bMeasuring);
}

TEST_F(SequenceWindowTest, ControlsOutliveTheWaitForTheScene)
{
    auto* window = open(SequenceKind::Sla);
    S3DControls controls;
    controls.m_bShowAxes = false;
    window->apply3DControls(&controls);
    window->prepare3DView();
    EXPECT_FALSE(ViewControl(*window->get3DScene()).isAxesShown());
}

TEST_F(SequenceWindowTest, ButtonsToggleBoxAndAxes)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    ViewControl view(*window->get3DScene());
    bool const box = view.isBoundingBoxShown();
    bool const axes = view.isAxesShown();
    EXPECT_EQ(action(window, "m_pShowBoundingBox")->isChecked(), box);
    EXPECT_EQ(action(window, "m_pShowAxes")->isChecked(), axes);
    click(window, "m_pShowBoundingBox");
    EXPECT_EQ(view.isBoundingBoxShown(), !box);
    EXPECT_EQ(view.isAxesShown(), axes);
    EXPECT_EQ(window->getWindowControls()->m_3DControls.m_bShowBoundingBox, !box);
    click(window, "m_pShowAxes");
    EXPECT_EQ(view.isAxesShown(), !axes);
    EXPECT_EQ(window->getWindowControls()->m_3DControls.m_bShowAxes, !axes);
    click(window, "m_pShowAxes");
    EXPECT_EQ(view.isAxesShown(), axes);
}

TEST_F(SequenceWindowTest, ScaleBarAndAxesAreKeptForTheNextWindow)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    ViewControl view(*window->get3DScene());
    EXPECT_TRUE(view.isScaleBarShown());
    EXPECT_TRUE(view.isAxesShown());
    click(window, "m_pShowScaleBar");
    EXPECT_FALSE(view.isScaleBarShown());
    EXPECT_FALSE(window->getWindowControls()->m_3DControls.m_bShowScaleBar);
    click(window, "m_pShowAxes");
    auto* next = open(SequenceKind::Scene3D, "next");
    EXPECT_FALSE(ViewControl(*next->get3DScene()).isScaleBarShown());
    EXPECT_FALSE(ViewControl(*next->get3DScene()).isAxesShown());
    EXPECT_FALSE(action(next, "m_pShowScaleBar")->isChecked());
    click(window, "m_pShowScaleBar");
    click(window, "m_pShowAxes");
    auto* third = open(SequenceKind::Sla, "third");
    third->prepare3DView();
    EXPECT_TRUE(ViewControl(*third->get3DScene()).isScaleBarShown());
    EXPECT_TRUE(ViewControl(*third->get3DScene()).isAxesShown());
    // What code applies is no choice of the user's.
    S3DControls controls;
    controls.m_bShowScaleBar = false;
    third->apply3DControls(&controls);
    EXPECT_FALSE(ViewControl(*third->get3DScene()).isScaleBarShown());
    EXPECT_TRUE(ViewControl(*open(SequenceKind::Scene3D, "fourth")->get3DScene()).isScaleBarShown());
}

TEST_F(SequenceWindowTest, ScaleBarAndAxesHaveKeysInTheWindowWithTheFocusAndNames)
{
    auto* window = open(SequenceKind::Scene3D);
    auto* other = open(SequenceKind::Scene3D, "other");
    other->show();
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QApplication::setActiveWindow(window);  // a display without a window manager activates nothing by itself
    window->get3DScene()->setFocus();
    ViewControl view(*window->get3DScene());
    QTest::keyClick(window->get3DScene(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(view.isScaleBarShown());
    EXPECT_TRUE(view.isAxesShown());
    EXPECT_TRUE(ViewControl(*other->get3DScene()).isScaleBarShown());
    QTest::keyClick(window->get3DScene(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(view.isAxesShown());
    QTest::keyClick(window->get3DScene(), Qt::Key_B, Qt::ControlModifier | Qt::ShiftModifier);
    QTest::keyClick(window->get3DScene(), Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(view.isScaleBarShown() && view.isAxesShown());

    auto* bar = window->findChild<QToolBar*>("m_pSceneToolBar");
    for (auto const& wanted : {QPair<char const*, char const*>{"m_pShowScaleBar", "Scale Bar"},
                               QPair<char const*, char const*>{"m_pShowAxes", "Axes"}}) {
        QWidget* button = bar->widgetForAction(action(window, wanted.first));
        auto* accessible = QAccessible::queryAccessibleInterface(button);
        ASSERT_NE(accessible, nullptr);
        EXPECT_EQ(accessible->text(QAccessible::Name), QString(wanted.second));
    }
}

TEST_F(SequenceWindowTest, TheMeasureButtonTellsWhoeverHasAToolFirst)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    C3DScene* scene = window->get3DScene();
    QList<bool> flags;
    bool measuredAlready = false;
    QObject::connect(
        window, &CHVSSequenceWindow::update3DToolButtonsStates, window, [&](S3DControls* controls) {
            flags += controls->m_bMeasuring;
            measuredAlready = measuredAlready || (controls->m_bMeasuring && scene->isMeasuring());
        });
    click(window, "m_pMeasure");
    EXPECT_EQ(flags, QList<bool>({true}));
    EXPECT_FALSE(measuredAlready);
    EXPECT_TRUE(scene->isMeasuring());
    EXPECT_TRUE(window->getWindowControls()->m_3DControls.m_bMeasuring);
    click(window, "m_pMeasure");
    EXPECT_EQ(flags, QList<bool>({true, false}));
    EXPECT_FALSE(scene->isMeasuring());
    EXPECT_FALSE(window->getWindowControls()->m_3DControls.m_bMeasuring);
}

TEST_F(SequenceWindowTest, MeasuringThatIsLeftElsewhereLeavesTheButton)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    C3DScene* scene = window->get3DScene();
    QSignalSpy toolSignals(window, &CHVSSequenceWindow::update3DToolButtonsStates);
    S3DControls controls = window->getWindowControls()->m_3DControls;
    controls.m_bMeasuring = true;
    window->apply3DControls(&controls);
    EXPECT_TRUE(scene->isMeasuring());
    EXPECT_TRUE(action(window, "m_pMeasure")->isChecked());
    QTest::keyClick(scene, Qt::Key_Escape);
    EXPECT_FALSE(scene->isMeasuring());
    EXPECT_FALSE(action(window, "m_pMeasure")->isChecked());
    EXPECT_FALSE(window->getWindowControls()->m_3DControls.m_bMeasuring);
    scene->doMeasureVoxels(true);
    EXPECT_TRUE(action(window, "m_pMeasure")->isChecked());
    EXPECT_TRUE(window->getWindowControls()->m_3DControls.m_bMeasuring);
    window->init3DMeasurementValues();
    EXPECT_FALSE(scene->isMeasuring());
    EXPECT_FALSE(action(window, "m_pMeasure")->isChecked());
    EXPECT_EQ(toolSignals.size(), 0) << "nothing of it was the button";
}

TEST_F(SequenceWindowTest, ButtonsShowTheSlicesAndTheStateTellsWhich)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    C3DScene* scene = window->get3DScene();
    QSignalSpy toolSignals(window, &CHVSSequenceWindow::update3DToolButtonsStates);
    char const* const names[3] = {"m_pShowSliceX", "m_pShowSliceY", "m_pShowSliceZ"};
    for (int axis = 0; axis < 3; ++axis) {
        auto* slice = scene->get3DSliceView(static_cast<C3DScene::slice_view>(axis)).data();
        EXPECT_FALSE(slice->isDisplayed());
        click(window, names[axis]);
        EXPECT_TRUE(slice->isDisplayed());
        EXPECT_TRUE(window->getWindowControls()->m_3DControls.m_bShowSlice[axis]);
    }
    EXPECT_EQ(toolSignals.size(), 0) << "slices are no tool: a palette keeps its own";
    S3DControls controls = window->getWindowControls()->m_3DControls;
    controls.m_bShowSlice[1] = false;
    window->apply3DControls(&controls);
    EXPECT_TRUE(scene->getYZslice()->isDisplayed());
    EXPECT_FALSE(scene->getXZslice()->isDisplayed());
    EXPECT_FALSE(action(window, "m_pShowSliceY")->isChecked());
    EXPECT_TRUE(action(window, "m_pShowSliceZ")->isChecked());
}

TEST_F(SequenceWindowTest, ButtonsTurnTheCamera)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    auto const& camera = window->get3DScene()->hostSide().camera;
    click(window, "m_pViewSide");
    EXPECT_NEAR(std::abs(camera.back().x), 1.0, 1e-9);
    click(window, "m_pViewTop");
    EXPECT_NEAR(std::abs(camera.back().y), 1.0, 1e-9);
    click(window, "m_pViewFront");
    EXPECT_NEAR(std::abs(camera.back().z), 1.0, 1e-9);
    EXPECT_NEAR(camera.up().y, 1.0, 1e-9);
    click(window, "m_pViewIso");
    EXPECT_LT(std::abs(camera.back().z), 0.99);
    click(window, "m_pViewReset");
    EXPECT_NEAR(std::abs(camera.back().z), 1.0, 1e-9);
}

TEST_F(SequenceWindowTest, EveryButtonHasAPictureAndATip)
{
    auto* window = open(SequenceKind::Scene3D);
    for (auto* button : window->findChild<QToolBar*>("m_pSceneToolBar")->actions()) {
        if (button->isSeparator()) continue;
        EXPECT_FALSE(button->icon().isNull()) << button->text().toStdString();
        EXPECT_FALSE(button->toolTip().isEmpty()) << button->text().toStdString();
    }
}

TEST_F(SequenceWindowTest, ChangeOfTheViewIsToldToTheApplication)
{
    auto* window = open(SequenceKind::Scene3D);
    QSignalSpy told(&WindowRegistry::instance(), &WindowRegistry::view3DChanged);
    window->onSignal3DViewChanged(true);
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told.at(0).at(0).value<CHVSSequenceWindow*>(), window);
    EXPECT_TRUE(told.at(0).at(1).toBool());
}

TEST_F(SequenceWindowTest, RefreshCallsPaintTheSceneAnew)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    QSignalSpy painted(window->get3DScene(), &QOpenGLWidget::frameSwapped);
    while (painted.wait(200))
        painted.clear();
    for (auto const& call :
         {std::function<void()>([&] { window->onSignal3DViewChanged(false); }),
          std::function<void()>([&] { window->onSignalUpdatePreference(); }), std::function<void()>([&] {
              emit CHVPreference::getSignalHandler()->updatePreferenceSetting();
          })}) {
        painted.clear();
        call();
        EXPECT_TRUE(painted.size() > 0 || painted.wait(5000));
    }
}

TEST_F(SequenceWindowTest, SavingSucceedsOnlyWithAFolder)
{
    auto* window = open(SequenceKind::Scene3D);
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* dialog) { dialog->close(); });
    EXPECT_NE(window->saveSequence(), 0);
    auto* sequence = window->getWindowSequence();
    auto description = SequenceRegistry::instance().description(sequence);
    description.infoPath = "/data/seq";
    SequenceRegistry::instance().change(sequence, description);
    EXPECT_EQ(window->saveSequence(), 0);
}

TEST_F(SequenceWindowTest, InformationPageFollowsTheSequence)
{
    auto* window = open(SequenceKind::Scene3D, "mouse 7");
    auto const text = [&](char const* name) { return window->findChild<QLabel*>(name)->text(); };
    auto* files = window->findChild<QListWidget*>("m_pSequenceFiles");
    EXPECT_EQ(text("m_pSequenceName"), "mouse 7");
    EXPECT_EQ(text("m_pSequenceKind"), "3D scene");
    EXPECT_EQ(text("m_pSequenceFolder"), "Not saved yet");
    EXPECT_EQ(files->count(), 0);
    window->getWindowSequence()->setLoadedVolumetricData({"/data/a.raw", "/data/b.raw"});
    ASSERT_EQ(files->count(), 2);
    EXPECT_EQ(files->item(1)->text(), "b.raw");
    EXPECT_EQ(files->item(1)->toolTip(), "/data/b.raw");
    window->getWindowSequence()->setLoadedVolumetricData({});
    EXPECT_EQ(files->count(), 0);
}

TEST_F(SequenceWindowTest, InformationPageTakesNamesAsPlainText)
{
    auto* window = open(SequenceKind::Scene3D, "<b>x");
    EXPECT_EQ(window->findChild<QLabel*>("m_pSequenceName")->textFormat(), Qt::PlainText);
}

TEST_F(SequenceWindowTest, ButtonOfTheInformationPageOpensTheScene)
{
    auto* window = open(SequenceKind::Ct);
    window->show();
    QTest::mouseClick(window->findChild<QPushButton*>("m_pOpenSceneButton"), Qt::LeftButton);
    EXPECT_EQ(window->getCurrentTabName(), "3D View");
}

TEST_F(SequenceWindowTest, ClosesWithASceneThatWasPainted)
{
    auto* window = open(SequenceKind::Scene3D);
    window->show();
    EXPECT_FALSE(window->get3DScene()->grabFramebuffer().isNull());
    EXPECT_TRUE(SequenceRegistry::instance().close(window->getWindowSequence()));
}

TEST(ChildWindow, BaseKnowsNothingAndSavesNothing)
{
    CHVSChildWindow window;
    EXPECT_FALSE(window.isSequenceWindow());
    EXPECT_EQ(window.getActiveDataset(), nullptr);
    EXPECT_EQ(window.getWindowSequence(), nullptr);
    EXPECT_EQ(window.getWindow3DSGManager(), nullptr);
    EXPECT_NE(window.saveSequence(), 0);
    EXPECT_FALSE(window.isClosing());
    S3DControls controls;
    controls.m_bMeasuring = true;
    window.apply3DControls(&controls);
    EXPECT_TRUE(window.getWindowControls()->m_3DControls.m_bMeasuring);
}

}  // namespace
