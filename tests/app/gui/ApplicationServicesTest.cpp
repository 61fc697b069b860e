#include "app/ApplicationServices.h"

#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSMessageBox.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace {

class ApplicationServicesTest : public testing::Test
{
protected:
    void SetUp() override
    {
        m_services.setProgramDataPath(m_folder.path());
        HostServices::install(&m_services);
    }
    void TearDown() override { HostServices::install(nullptr); }

    QTemporaryDir m_folder;
    ApplicationServices m_services{ApplicationServices::Mode::Unattended};
};

QStringList linesOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
}

TEST_F(ApplicationServicesTest, UnattendedQuestionsGetTheirSafeAnswerAndAreLogged)
{
    QSignalSpy spy(&m_services, &ApplicationServices::logged);
    const int answer =
        CHVSMessageBox::warning(nullptr, "Halvane", "Save the results?", CHVSMessageBox::eYes,
                                CHVSMessageBox::eNo | CHVSMessageBox::eDefault, CHVSMessageBox::eCancel);
    EXPECT_EQ(answer, CHVSMessageBox::eCancel);
    ASSERT_EQ(spy.count(), 1);
    const QString text = spy[0][0].value<LogEntry>().message;
    EXPECT_TRUE(text.contains("Save the results?") && text.contains("Cancel")) << text.toStdString();
}

TEST_F(ApplicationServicesTest, WithoutCancelTheSafeAnswerIsNo)
{
    EXPECT_EQ(CHVSMessageBox::warning(nullptr, "Halvane", "Overwrite?", CHVSMessageBox::eYes,
                                      CHVSMessageBox::eNo | CHVSMessageBox::eDefault, 0),
              CHVSMessageBox::eNo);
}

TEST_F(ApplicationServicesTest, TheSessionsLogGoesToTheFileAsWell)
{
    const QString path = m_folder.filePath("session.log");
    ASSERT_TRUE(m_services.startLogFile(path));
    getLogObject()->log("first", "", 0, "", 1, false);
    getLogObject()->log("second\nline", "", 0, "", 3, false);
    getLogObject()->log("", "", 0, "", 16, false);
    const QStringList lines = linesOf(path);
    ASSERT_EQ(lines.size(), 2);
    EXPECT_TRUE(lines[0].endsWith("Information  first"));
    EXPECT_TRUE(lines[1].endsWith("Error        second / line"));
    EXPECT_TRUE(m_services.isLogFileWhole());
}

TEST_F(ApplicationServicesTest, AnOlderLogFileIsEmptied)
{
    const QString path = m_folder.filePath("session.log");
    QFile older(path);
    ASSERT_TRUE(older.open(QIODevice::WriteOnly));
    older.write("old\nold\nold\n");
    older.close();
    ASSERT_TRUE(m_services.startLogFile(path));
    getLogObject()->log("new", "", 0, "", 1, false);
    EXPECT_EQ(linesOf(path).size(), 1);
}

TEST_F(ApplicationServicesTest, AFileThatCannotBeOpenedIsAFailure)
{
    EXPECT_FALSE(m_services.startLogFile(m_folder.filePath("none/session.log")));
    EXPECT_FALSE(m_services.isLogFileWhole());
}

TEST_F(ApplicationServicesTest, ADiskThatIsFullIsNoticed)
{
    if (!QFile::exists("/dev/full")) GTEST_SKIP() << "no /dev/full here";
    ASSERT_TRUE(m_services.startLogFile("/dev/full"));
    getLogObject()->log("lost", "", 0, "", 1, false);
    EXPECT_FALSE(m_services.isLogFileWhole());
}

TEST_F(ApplicationServicesTest, RemembersTheLastComplaint)
{
    EXPECT_EQ(m_services.lastComplaint(), QString());
    getLogObject()->log("too  big\nby far", "", 0, "", 3, false);
    getLogObject()->log("goes on", "", 0, "", 1, false);
    EXPECT_EQ(m_services.lastComplaint(), QString("too big by far"));
}

TEST_F(ApplicationServicesTest, EntriesOfManyThreadsAllArrive)
{
    const QString path = m_folder.filePath("session.log");
    ASSERT_TRUE(m_services.startLogFile(path));
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            for (int i = 0; i < 50; ++i)
                getLogObject()->log("entry", "", 0, "", 1, false);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const QStringList lines = linesOf(path);
    EXPECT_EQ(lines.size(), 200);
    for (const QString& line : lines)
        EXPECT_TRUE(line.endsWith("  entry")) << line.toStdString();
}

}  // namespace
