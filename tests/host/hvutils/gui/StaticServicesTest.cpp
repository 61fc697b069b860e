// The static service classes, over a host that records.

#include "RecordingHost.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSMessageBox.h"
#include "hvutils/CHVSSettings.h"
#include "hvutils/CHVUtilityFns.h"
#include "hvutils/Sleep.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <thread>

namespace {

constexpr auto acquisition = static_cast<tag_eLongProcessTypes>(4096);
constexpr auto anyProcess = static_cast<tag_eLongProcessTypes>(1048575);

}  // namespace

TEST(HostServices, TheInstalledObjectIsInUseUntilItIsGone)
{
    HostServices* const before = &HostServices::instance();
    {
        RecordingHost host;
        EXPECT_EQ(&HostServices::instance(), &host);
        {
            auto inner = std::make_unique<HostServices>();
            EXPECT_EQ(HostServices::install(inner.get()), &host);
            EXPECT_EQ(&HostServices::instance(), inner.get());
        }
        EXPECT_EQ(&HostServices::instance(), before) << "a destroyed object must not stay in use";
    }
    EXPECT_EQ(&HostServices::instance(), before);
}

TEST(CHVSLog, EntriesReachTheHostAsGiven)
{
    RecordingHost host;
    getLogObject()->log(QStringLiteral("Low memory"), QStringLiteral("reader"), 7, QStringLiteral("10:00:00"),
                        16, true);
    ASSERT_EQ(host.entries.size(), 1U);
    EXPECT_EQ(host.entries[0].message, QStringLiteral("Low memory"));
    EXPECT_EQ(host.entries[0].source, QStringLiteral("reader"));
    EXPECT_EQ(host.entries[0].line, 7);
    EXPECT_EQ(host.entries[0].context, QStringLiteral("10:00:00"));
    EXPECT_EQ(host.entries[0].severity, 16);
    EXPECT_TRUE(host.entries[0].showBox);
}

TEST(CHVSLog, UnknownSeveritiesAreInformation)
{
    RecordingHost host;
    for (long const severity : {1L, 2L, 3L, 16L, 0L, 4L, -1L})
        getLogObject()->log(QStringLiteral("m"), {}, 0, {}, severity, false);
    std::vector<long> severities;
    for (HostLogEntry const& entry : host.entries)
        severities.push_back(entry.severity);
    EXPECT_EQ(severities, (std::vector<long>{1, 2, 3, 16, 1, 1, 1}));
}

TEST(CHVProcess, QueriesByKind)
{
    RecordingHost host;
    EXPECT_FALSE(CHVProcess::isProcessInProgress(anyProcess));
    CHVProcess::startLongProcess(0, acquisition, true, QStringLiteral("Aborting..."));
    EXPECT_TRUE(CHVProcess::isProcessInProgress(acquisition));
    EXPECT_TRUE(CHVProcess::isProcessInProgress(anyProcess));
    EXPECT_FALSE(CHVProcess::isProcessInProgress(eProcessGeneral));
    CHVProcess::endLongProcess(acquisition);
    EXPECT_FALSE(CHVProcess::isProcessInProgress(anyProcess));
}

TEST(CHVProcess, MessagesCarryStepsAndGiveTheAbortBack)
{
    RecordingHost host;
    bool aborted = true;
    CHVProcess::startLongProcess(5, eProcessGeneral, true, {});
    CHVProcess::setProcessMessage(QStringLiteral("one"), &aborted);
    EXPECT_FALSE(aborted);
    CHVProcess::setProcessMessage(QStringLiteral("two"), 2, nullptr);
    EXPECT_EQ(host.states.back().step, 2);
    EXPECT_EQ(host.states.back().totalSteps, 5);
    CHVProcess::setProcessMessage(QStringLiteral("three"), 3, 9, nullptr);
    EXPECT_EQ(host.states.back().message, QStringLiteral("three"));
    EXPECT_EQ(host.states.back().totalSteps, 9);
    host.requestAbort();
    EXPECT_TRUE(CHVProcess::isProcessAborted());
    CHVProcess::setProcessMessage(QStringLiteral("four"), &aborted);
    EXPECT_TRUE(aborted);
    CHVProcess::endLongProcess(eProcessGeneral);
    EXPECT_TRUE(CHVProcess::isProcessAborted());
    CHVProcess::startLongProcess(0, eProcessGeneral, false, {});
    EXPECT_FALSE(CHVProcess::isProcessAborted());
}

TEST(CHVProcess, AnEndWithAMessageShowsItForAWhile)
{
    RecordingHost host;
    CHVProcess::startLongProcess(0, eProcessGeneral, false, {});
    CHVProcess::endLongProcess(QStringLiteral("Done"), 20, eProcessGeneral);
    EXPECT_FALSE(CHVProcess::isProcessInProgress(anyProcess));
    EXPECT_EQ(host.states.back().message, QStringLiteral("Done"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return host.states.back().message.isEmpty(); }, 2000));
}

TEST(CHVProcess, ALaterProcessKeepsItsOwnMessage)
{
    RecordingHost host;
    CHVProcess::startLongProcess(0, eProcessGeneral, false, {});
    CHVProcess::endLongProcess(QStringLiteral("Done"), 5, eProcessGeneral);
    CHVProcess::startLongProcess(0, eProcessGeneral, false, {});
    CHVProcess::setProcessMessage(QStringLiteral("Next"), nullptr);
    QTest::qWait(30);
    EXPECT_EQ(host.processState().message, QStringLiteral("Next"));
}

TEST(CHVProcess, FastRenderingModeIsWhatTheViewSays)
{
    RecordingHost host;
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
    host.setFastRenderingMode(true);
    EXPECT_TRUE(CHVProcess::isFast3DRenderingMode());
    host.setFastRenderingMode(false);
    EXPECT_FALSE(CHVProcess::isFast3DRenderingMode());
}

TEST(CHVSMessageBox, AnswersAndKinds)
{
    RecordingHost host;
    QWidget parent;
    host.answer = 65536;
    EXPECT_EQ(CHVSMessageBox::warning(&parent, QStringLiteral("Halvane"), QStringLiteral("Save?"), 16384,
                                      65536 | 256, 0),
              65536);
    CHVSMessageBox::information(nullptr, {}, QStringLiteral("i"), 1024, 0, 0);
    CHVSMessageBox::error(nullptr, {}, QStringLiteral("e"), 1024, 0, 0);
    host.answer = 1;
    EXPECT_EQ(CHVSMessageBox::warning(nullptr, {}, {}, QStringLiteral("&A"), QStringLiteral("&B"), {}, 0, 1),
              1);
    CHVSMessageBox::information(nullptr, {}, {}, QStringLiteral("&OK"), {}, {}, 0, -1);
    ASSERT_EQ(host.questions.size(), 5U);
    EXPECT_EQ(host.questions[0].parent, &parent);
    EXPECT_EQ(host.questions[0].kind, HostQuestion::Warning);
    EXPECT_EQ(host.questions[0].defaultValue, 65536);
    EXPECT_EQ(host.questions[1].kind, HostQuestion::Information);
    EXPECT_EQ(host.questions[2].kind, HostQuestion::Error);
    EXPECT_EQ(host.questions[3].kind, HostQuestion::Warning);
    EXPECT_EQ(host.questions[4].kind, HostQuestion::Information);
}

TEST(CHVSErrorHandler, ShowsTheTextOfTheStatusAndTheDetail)
{
    RecordingHost host;
    CHVSErrorHandler::errorMessage(nullptr, static_cast<tag_estatus>(65), QString());
    CHVSErrorHandler::errorMessage(nullptr, static_cast<tag_estatus>(11), QStringLiteral("x.bin"));
    CHVSErrorHandler::errorMessage(nullptr, static_cast<tag_estatus>(0), QStringLiteral("y"));
    ASSERT_EQ(host.questions.size(), 2U);
    EXPECT_EQ(host.questions[0].kind, HostQuestion::Error);
    EXPECT_EQ(host.questions[0].title, QStringLiteral("Halvane"));
    EXPECT_TRUE(host.questions[0].text.contains(QStringLiteral("cannot be read")));
    EXPECT_EQ(host.questions[0].buttons.size(), 1);
    EXPECT_TRUE(host.questions[1].text.endsWith(QStringLiteral("\n\nx.bin")));
}

TEST(CHVUtilityFns, CursorsGoToTheHostInOrder)
{
    RecordingHost host;
    CHVUtilityFns::setCursor(Qt::WaitCursor);
    CHVUtilityFns::restoreCursor();
    EXPECT_EQ(host.cursors, (std::vector<int>{Qt::WaitCursor, -1}));
}

TEST(CHVUtilityFns, CursorsOfAnotherThreadWaitForTheGuiThread)
{
    RecordingHost host;
    std::thread worker([] {
        CHVUtilityFns::setCursor(Qt::BusyCursor);
        CHVUtilityFns::restoreCursor();
    });
    worker.join();
    EXPECT_TRUE(host.cursors.empty());
    QCoreApplication::processEvents();
    EXPECT_EQ(host.cursors, (std::vector<int>{Qt::BusyCursor, -1}));
}

TEST(CHVUtilityFns, NameAndLeaveToClose)
{
    RecordingHost host;
    EXPECT_EQ(CHVUtilityFns::getAppName(), QStringLiteral("Halvane"));
    EXPECT_TRUE(host.canClose());
    CHVUtilityFns::setCanClose(false);
    EXPECT_FALSE(host.canClose());
    CHVUtilityFns::setCanClose(true);
    EXPECT_TRUE(host.canClose());
}

TEST(CHVUtilityFns, MemoryLimitIsTheHosts)
{
    RecordingHost host;
    EXPECT_FALSE(CHVUtilityFns::isMemoryLoadLimit());
    host.memoryFull = true;
    EXPECT_TRUE(CHVUtilityFns::isMemoryLoadLimit());
}

TEST(CHVPreference, ProgramDataFolderExists)
{
    RecordingHost host;
    QString const path = CHVPreference::getProgramDataPath();
    EXPECT_EQ(path, host.folder.path() + QStringLiteral("/data"));
    EXPECT_TRUE(QDir(path).exists());
}

TEST(CHVPreference, VersionNamesProgramAndNumber)
{
    EXPECT_TRUE(CHVPreference::getVerString().startsWith(QStringLiteral("Halvane ")));
    EXPECT_TRUE(CHVPreference::getVerString().contains(QLatin1Char('.')));
}

TEST(CHVPreference, UserNameIsFitForAFileName)
{
    RecordingHost host;
    EXPECT_FALSE(CHVPreference::getActiveUserName().isEmpty());
    host.settings().setValue("user/name", QStringLiteral("J\u00f6rg/../x y"));
    EXPECT_EQ(CHVPreference::getActiveUserName(), QStringLiteral("J\u00f6rg____x_y"));
}

TEST(CHVPreference, SignalHandlerSpeaksForTheApplication)
{
    CHVPreferenceSignalHandler* const handler = CHVPreference::getSignalHandler();
    ASSERT_NE(handler, nullptr);
    QSignalSpy user(handler, SIGNAL(activeUserChanged()));
    QSignalSpy setting(handler, SIGNAL(updatePreferenceSetting()));
    emit handler->activeUserChanged();
    emit handler->updatePreferenceSetting();
    EXPECT_EQ(user.count(), 1);
    EXPECT_EQ(setting.count(), 1);
    EXPECT_EQ(CHVPreference::getSignalHandler(), handler);
}

TEST(CHVSSettings, RecentFolderIsKeptAndFallsBackHome)
{
    RecordingHost host;
    CHVSSettings* const settings = CHVPreference::getSettings();
    EXPECT_EQ(settings->getRecentFilePath(), QDir::homePath());
    QString const folder = host.folder.path() + QStringLiteral("/scans");
    ASSERT_TRUE(QDir().mkpath(folder));
    settings->setRecentFilePath(folder);
    EXPECT_EQ(settings->getRecentFilePath(), folder);
    EXPECT_EQ(settings->getBrowsePath(), folder);
    settings->setRecentFilePath(host.folder.path() + QStringLiteral("/a.raw"));
    EXPECT_EQ(settings->getRecentFilePath(), host.folder.path());
    settings->setRecentFilePath(folder);
    QDir().rmdir(folder);
    EXPECT_EQ(settings->getRecentFilePath(), QDir::homePath());
}

TEST(CHVSSettings, BrowseFolderIsTheRecentOneUnlessAnotherIsStored)
{
    RecordingHost host;
    CHVSSettings* const settings = CHVPreference::getSettings();
    QString const scans = host.folder.path() + QStringLiteral("/scans");
    ASSERT_TRUE(QDir().mkpath(scans));
    settings->setRecentFilePath(host.folder.path());
    EXPECT_EQ(settings->getBrowsePath(), host.folder.path());
    host.settings().setValue("folders/browse", scans);
    EXPECT_EQ(settings->getBrowsePath(), scans);
    EXPECT_EQ(settings->getRecentFilePath(), host.folder.path());
    QDir().rmdir(scans);
    EXPECT_EQ(settings->getBrowsePath(), host.folder.path());
}

TEST(Sleep, WaitsAtLeastAsLong)
{
    QElapsedTimer timer;
    timer.start();
    Sleep(20);
    EXPECT_GE(timer.elapsed(), 20);
}
