#include "hvutils/CHVSProgressBar.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>

namespace {

class CountPaints : public QObject
{
public:
    int paints = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

int shownPercent(CHVSProgressBar const& dialog)
{
    return dialog.findChild<QProgressBar*>()->value();
}
QString shownText(CHVSProgressBar const& dialog)
{
    return dialog.findChild<QLabel*>()->text();
}

}  // namespace

TEST(CHVSProgressBar, ConstructorTakesNameModalityAndFlags)
{
    CHVSProgressBar const dialog(nullptr, "loading", true, Qt::WindowFlags());
    EXPECT_EQ(dialog.objectName(), QStringLiteral("loading"));
    EXPECT_TRUE(dialog.isModal());
    EXPECT_FALSE(dialog.isVisible());
    CHVSProgressBar const unnamed(nullptr, nullptr, false, Qt::WindowFlags());
    EXPECT_TRUE(unnamed.objectName().isEmpty());
    EXPECT_FALSE(unnamed.isModal());
}

TEST(CHVSProgressBar, ShowsTextAndPercent)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.initDialog();
    dialog.show();
    dialog.setActivityText(QStringLiteral("Frame 3"));
    dialog.setProgress(42);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownPercent(dialog) == 42; }, 2000));
    EXPECT_EQ(shownText(dialog), QStringLiteral("Frame 3"));
}

TEST(CHVSProgressBar, ValuesOutsideTheRangeAreBroughtToTheEnds)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.setProgress(400);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownPercent(dialog) == 100; }, 2000));
    dialog.setProgress(-3);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownPercent(dialog) == 0; }, 2000));
}

TEST(CHVSProgressBar, InitDialogStartsAnew)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.setActivityText(QStringLiteral("Frame 3"));
    dialog.setProgress(42);
    dialog.initDialog();
    EXPECT_EQ(shownPercent(dialog), 0);
    EXPECT_EQ(shownText(dialog), QString());
    QTest::qWait(80);
    EXPECT_EQ(shownPercent(dialog), 0);
}

TEST(CHVSProgressBar, ALongPathLosesItsMiddle)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.show();
    QString const path =
        QStringLiteral("/begin/") + QString(300, QLatin1Char('m')) + QStringLiteral("/end.raw");
    dialog.setActivityText(path);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !shownText(dialog).isEmpty(); }, 2000));
    EXPECT_TRUE(shownText(dialog).startsWith(QStringLiteral("/begin/")));
    EXPECT_TRUE(shownText(dialog).endsWith(QStringLiteral("end.raw")));
    EXPECT_LT(shownText(dialog).size(), path.size());
    EXPECT_EQ(dialog.width(), 440);
}

// The steps of a load can be far more than the eye can follow.
TEST(CHVSProgressBar, ManyStepsCostFewPaints)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.initDialog();
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    CountPaints counter;
    dialog.findChild<QProgressBar*>()->installEventFilter(&counter);
    QElapsedTimer timer;
    timer.start();
    int const steps = 3000;
    for (int i = 0; i < steps; ++i) {
        dialog.setActivityText(QStringLiteral("Frame %1").arg(i));
        dialog.setProgress(100 * i / steps);
        QCoreApplication::processEvents();
    }
    EXPECT_LE(counter.paints, 5 + 2 * timer.elapsed() / 40);
    EXPECT_TRUE(QTest::qWaitFor([&] { return shownText(dialog) == QStringLiteral("Frame 2999"); }, 2000));
    EXPECT_EQ(shownPercent(dialog), 99);
}

TEST(CHVSProgressBar, ClosingOrEscapeOrCancelMakesItGo)
{
    for (int way = 0; way < 3; ++way) {
        CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
        dialog.show();
        ASSERT_TRUE(dialog.isVisible());
        if (way == 0) dialog.close();
        if (way == 1) QTest::keyClick(&dialog, Qt::Key_Escape);
        if (way == 2) QTest::mouseClick(dialog.findChild<QPushButton*>(), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible()) << way;
    }
}

TEST(CHVSProgressBar, ReturnDoesNotStopTheWork)
{
    CHVSProgressBar dialog(nullptr, nullptr, true, Qt::WindowFlags());
    dialog.show();
    QTest::keyClick(&dialog, Qt::Key_Return);
    EXPECT_TRUE(dialog.isVisible());
}
