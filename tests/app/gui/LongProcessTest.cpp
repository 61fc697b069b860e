#include "AppFixture.h"

#include "app/LongProcessDialog.h"

#include "hvutils/CHVProcess.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

class LongProcessTest : public AppFixture
{
protected:
    void SetUp() override
    {
        AppFixture::SetUp();
        m_window->show();
        m_dialog = m_window->findChild<LongProcessDialog*>();
        ASSERT_TRUE(m_dialog);
    }

    LongProcessDialog* m_dialog = nullptr;
};

TEST_F(LongProcessTest, AShortProcessIsNotShown)
{
    CHVProcess::startLongProcess(10, eProcessGeneral, false, QString());
    CHVProcess::setProcessMessage("Reading", 1, nullptr);
    EXPECT_FALSE(m_dialog->isVisible());
    CHVProcess::endLongProcess(eProcessGeneral);
    QTest::qWait(LongProcessDialog::patience + 100);
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(LongProcessTest, ALongOneIsShownModallyWithMessageAndStep)
{
    CHVProcess::startLongProcess(10, eProcessGeneral, false, QString());
    QTest::qWait(LongProcessDialog::patience + 50);
    CHVProcess::setProcessMessage("Filtering", 4, nullptr);
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_TRUE(m_dialog->isModal());
    EXPECT_EQ(m_dialog->findChild<QLabel*>()->text(), QString("Filtering"));
    EXPECT_EQ(m_dialog->findChild<QProgressBar*>()->maximum(), 10);
    EXPECT_EQ(m_dialog->findChild<QProgressBar*>()->value(), 4);
    CHVProcess::endLongProcess(eProcessGeneral);
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(LongProcessTest, StaysUntilTheEndWhateverTheUserTries)
{
    CHVProcess::startLongProcess(0, eProcessGeneral, false, QString());
    QTest::qWait(LongProcessDialog::patience + 50);
    CHVProcess::setProcessMessage("Working", nullptr);
    ASSERT_TRUE(m_dialog->isVisible());
    m_dialog->close();
    QTest::keyClick(m_dialog, Qt::Key_Escape);
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_FALSE(CHVProcess::isProcessAborted());
    CHVProcess::endLongProcess(eProcessGeneral);
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(LongProcessTest, AnAbortableOneCanBeAborted)
{
    CHVProcess::startLongProcess(5, eProcessGeneral, true, "Stopping...");
    QTest::qWait(LongProcessDialog::patience + 50);
    bool aborted = true;
    CHVProcess::setProcessMessage("Working", 1, &aborted);
    EXPECT_FALSE(aborted);
    auto* button = m_dialog->findChild<QPushButton*>();
    ASSERT_TRUE(button && button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    CHVProcess::setProcessMessage("Working", 2, &aborted);
    EXPECT_TRUE(aborted);
    EXPECT_TRUE(m_dialog->isVisible()) << "it goes when the process has ended";
    EXPECT_EQ(m_dialog->findChild<QLabel*>()->text(), QString("Stopping..."));
    CHVProcess::endLongProcess(eProcessGeneral);
    EXPECT_FALSE(m_dialog->isVisible());
}

TEST_F(LongProcessTest, AnAcquisitionLeavesTheWindowsFree)
{
    CHVProcess::startLongProcess(0, eProcessAcquisition, false, QString());
    QTest::qWait(LongProcessDialog::patience + 50);
    CHVProcess::setProcessMessage("Acquiring", nullptr);
    EXPECT_FALSE(m_dialog->isVisible());
    CHVProcess::endLongProcess(eProcessAcquisition);
}

}  // namespace
