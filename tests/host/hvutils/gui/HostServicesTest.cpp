// What the host does when nothing replaces it.

#include "lib/hvutils/HostServices.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVUtilityFns.h"
#include "support/ModalWatcher.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <optional>
#include <thread>
#include <vector>

namespace {

// Sets a variable of the environment for a while.
class Environment
{
public:
    Environment(char const* name, QString const& value)
        : m_name(name)
        , m_former(qgetenv(name))
        , m_wasSet(qEnvironmentVariableIsSet(name))
    {
        if (value.isNull())
            qunsetenv(name);
        else
            qputenv(name, QFile::encodeName(value));
    }
    ~Environment()
    {
        if (m_wasSet)
            qputenv(m_name, m_former);
        else
            qunsetenv(m_name);
    }
    Q_DISABLE_COPY(Environment)

private:
    char const* m_name;
    QByteArray m_former;
    bool m_wasSet;
};

QStringList linesOf(QString const& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

TEST(HostServicesFolders, AllUnderOneFolderWhenTheEnvironmentNamesIt)
{
    QTemporaryDir home;
    Environment const variable("HALVANE_HOME", home.path());
    HostServices const host;
    EXPECT_EQ(host.programDataPath(), home.path());
    EXPECT_EQ(host.settingsFilePath(), home.path() + QStringLiteral("/halvane.ini"));
    EXPECT_EQ(host.logFilePath(), home.path() + QStringLiteral("/log/halvane.log"));
}

TEST(HostServicesFolders, UnderTheUsersFoldersOtherwise)
{
    QTemporaryDir home;
    Environment const variable("HALVANE_HOME", QString());
    Environment const data("XDG_DATA_HOME", home.path() + QStringLiteral("/d"));
    Environment const config("XDG_CONFIG_HOME", home.path() + QStringLiteral("/c"));
    HostServices const host;
    EXPECT_EQ(host.programDataPath(), home.path() + QStringLiteral("/d/halvane"));
    EXPECT_EQ(host.settingsFilePath(), home.path() + QStringLiteral("/c/halvane/halvane.ini"));
}

TEST(HostServicesLog, EntriesReachTheFileAlsoFromOtherThreads)
{
    QTemporaryDir home;
    Environment const variable("HALVANE_HOME", home.path());
    HostServices host;
    HostServices* const former = HostServices::install(&host);
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < 25; ++i)
                getLogObject()->log(QStringLiteral("entry %1 of %2").arg(i).arg(t), {}, 0, {}, 2, false);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    getLogObject()->log(QString(), {}, 0, {}, 16, false);
    HostServices::install(former);
    QStringList const lines = linesOf(host.logFilePath());
    EXPECT_EQ(lines.size(), 100);
    for (QString const& line : lines)
        EXPECT_TRUE(line.contains(QStringLiteral("WARNING entry "))) << qPrintable(line);
}

TEST(HostServicesBox, ShowsWhatIsAskedAndGivesTheButtonPressed)
{
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* window) {
        auto* const box = qobject_cast<QMessageBox*>(window);
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->windowTitle(), QStringLiteral("Halvane"));
        EXPECT_EQ(box->text(), QStringLiteral("Keep <b>?"));
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->icon(), QMessageBox::Warning);
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::No));
        EXPECT_EQ(box->escapeButton(), box->button(QMessageBox::Cancel));
        QTest::mouseClick(box->button(QMessageBox::NoToAll), Qt::LeftButton);
        if (box->isVisible()) QTest::mouseClick(box->button(QMessageBox::Yes), Qt::LeftButton);
    });
    HostQuestion question;
    question.kind = HostQuestion::Warning;
    question.title = QStringLiteral("Halvane");
    question.text = QStringLiteral("Keep <b>?");
    question.buttons = {{16384, {}}, {65536, {}}, {131072, {}}, {4194304, {}}};
    question.defaultValue = 65536;
    question.escapeValue = 4194304;
    EXPECT_EQ(HostServices::instance().ask(question), 131072);
}

TEST(HostServicesBox, ClosedWithoutAButtonItGivesTheEscapeAnswer)
{
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* window) { window->close(); });
    EXPECT_EQ(
        CHVSMessageBox::information(nullptr, QStringLiteral("T"), QStringLiteral("x"), 16384 | 256, 65536, 0),
        65536);
}

TEST(HostServicesBox, OwnTextsGiveTheirNumbers)
{
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* window) {
        for (QAbstractButton* const button : qobject_cast<QMessageBox*>(window)->buttons()) {
            if (button->text() == QStringLiteral("Third")) QTest::mouseClick(button, Qt::LeftButton);
        }
    });
    EXPECT_EQ(CHVSMessageBox::warning(nullptr, QStringLiteral("T"), QStringLiteral("x"),
                                      QStringLiteral("First"), {}, QStringLiteral("Third"), 0, -1),
              2);
}

TEST(HostServicesCursor, StackWithOneTooManyTakenOff)
{
    ASSERT_EQ(QApplication::overrideCursor(), nullptr);
    CHVUtilityFns::setCursor(Qt::WaitCursor);
    CHVUtilityFns::setCursor(Qt::BusyCursor);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::BusyCursor);
    CHVUtilityFns::restoreCursor();
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    CHVUtilityFns::restoreCursor();
    CHVUtilityFns::restoreCursor();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST(HostServicesInteraction, DisabledWindowsTakeNoInput)
{
    QWidget window;
    window.resize(200, 80);
    auto* const edit = new QLineEdit(&window);
    auto* const stop = new QPushButton(QStringLiteral("Stop"), &window);
    stop->setGeometry(0, 40, 80, 30);
    stop->setProperty("alwaysInteractive", true);
    int stops = 0;
    QObject::connect(stop, &QPushButton::clicked, [&] { ++stops; });
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    CHVProcess::disableUserInteraction(true);
    CHVProcess::disableUserInteraction(true);
    QTest::keyClicks(edit, QStringLiteral("a"));
    QTest::mouseClick(stop, Qt::LeftButton);
    EXPECT_EQ(edit->text(), QString());
    EXPECT_EQ(stops, 1);
    CHVProcess::disableUserInteraction(false);
    QTest::keyClicks(edit, QStringLiteral("b"));
    EXPECT_EQ(edit->text(), QStringLiteral("b"));
}

TEST(HostServicesInteraction, AQuestionCanStillBeAnswered)
{
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* window) {
        QTest::mouseClick(qobject_cast<QMessageBox*>(window)->button(QMessageBox::Yes), Qt::LeftButton);
    });
    CHVProcess::disableUserInteraction(true);
    EXPECT_EQ(CHVSMessageBox::warning(nullptr, QStringLiteral("T"), QStringLiteral("x"), 16384, 65536, 0),
              16384);
    CHVProcess::disableUserInteraction(false);
}
