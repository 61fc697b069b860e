#include "hvapi/windows/CHVSMdiSubWindow.h"

#include "hvapi/windows/CHVSChildWindow.h"
#include "lib/hvapi/windows/WindowRegistry.h"

#include <QDialog>
#include <QMainWindow>
#include <QMdiArea>
#include <QSignalSpy>
#include <QtTest>
#include <gtest/gtest.h>

namespace {

class MdiSubWindowTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        main.setCentralWidget(area);
        main.resize(600, 500);
        main.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&main));
    }

    CHVSMdiSubWindow* add(QWidget* content)
    {
        auto* frame = new CHVSMdiSubWindow;
        frame->setWidget(content);
        area->addSubWindow(frame);
        frame->showWindow();
        return frame;
    }

    QMainWindow main;
    QMdiArea* area = new QMdiArea;
};

TEST_F(MdiSubWindowTest, ContentHasTheSubWindowAsItsParent)
{
    auto* dialog = new QDialog;
    auto* frame = add(dialog);
    EXPECT_EQ(dialog->parentWidget(), frame);
}

TEST_F(MdiSubWindowTest, HidesAndShowsWithItsContentAlive)
{
    auto* dialog = new QDialog;
    auto* frame = add(dialog);
    EXPECT_TRUE(frame->isVisible() && dialog->isVisible());
    frame->hideWindow();
    EXPECT_FALSE(frame->isVisible());
    frame->showWindow();
    EXPECT_TRUE(frame->isVisible() && dialog->isVisible());
    EXPECT_EQ(area->activeSubWindow(), frame);
}

TEST_F(MdiSubWindowTest, ShowsContentThatHidItself)
{
    auto* dialog = new QDialog;
    auto* frame = add(dialog);
    dialog->hide();
    frame->hideWindow();
    frame->showWindow();
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(MdiSubWindowTest, ComesBackFromMinimised)
{
    auto* frame = add(new QDialog);
    frame->showMinimized();
    ASSERT_TRUE(frame->isMinimized());
    frame->showWindow();
    EXPECT_FALSE(frame->isMinimized());
    EXPECT_EQ(area->activeSubWindow(), frame);
}

TEST_F(MdiSubWindowTest, StaysMaximised)
{
    auto* frame = add(new QDialog);
    frame->showMaximized();
    frame->showWindow();
    EXPECT_TRUE(frame->isMaximized());
}

TEST_F(MdiSubWindowTest, TellsOfItsStateAndActivation)
{
    auto* first = add(new QDialog);
    add(new QDialog);
    qRegisterMetaType<Qt::WindowStates>("Qt::WindowStates");
    QSignalSpy about(first, &QMdiSubWindow::aboutToActivate);
    QSignalSpy state(first, &QMdiSubWindow::windowStateChanged);
    first->showWindow();
    EXPECT_EQ(about.size(), 1);
    EXPECT_GE(state.size(), 1);
}

TEST_F(MdiSubWindowTest, WorksWithoutAWorkspace)
{
    CHVSMdiSubWindow frame;
    frame.setWidget(new QDialog);
    frame.showWindow();
    EXPECT_TRUE(frame.isVisible());
    frame.hideWindow();
    EXPECT_FALSE(frame.isVisible());
}

TEST_F(MdiSubWindowTest, ActiveWindowOfDataFollowsTheActivation)
{
    QSignalSpy changed(&WindowRegistry::instance(), &WindowRegistry::activeChanged);
    auto* first = new CHVSChildWindow;
    auto* second = new CHVSChildWindow;
    auto* firstFrame = add(first);
    EXPECT_EQ(CHVSChildWindow::getActiveChildWnd(), first);
    add(second);
    EXPECT_EQ(CHVSChildWindow::getActiveChildWnd(), second);
    firstFrame->showWindow();
    EXPECT_EQ(CHVSChildWindow::getActiveChildWnd(), first);
    EXPECT_EQ(changed.size(), 3);
}

TEST_F(MdiSubWindowTest, ToolsDialogLeavesTheActiveWindowOfData)
{
    auto* data = new CHVSChildWindow;
    add(data);
    add(new QDialog);
    EXPECT_EQ(CHVSChildWindow::getActiveChildWnd(), data);
}

TEST_F(MdiSubWindowTest, NoWindowIsActiveOnceTheLastHasGone)
{
    auto* frame = add(new CHVSChildWindow);
    delete frame;
    EXPECT_EQ(CHVSChildWindow::getActiveChildWnd(), nullptr);
    EXPECT_TRUE(WindowRegistry::instance().windows().isEmpty());
}

}  // namespace
