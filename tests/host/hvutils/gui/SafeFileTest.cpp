#include "lib/hvutils/SafeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

namespace {

class SafeFileTest : public testing::Test
{
protected:
    QString path(QString const& name) const { return m_folder.filePath(name); }
    QByteArray bytesOf(QString const& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }
    int entries() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden).size(); }

    QTemporaryDir m_folder;
    QString m_reason;
};

TEST_F(SafeFileTest, WritesAndReplaces)
{
    EXPECT_TRUE(SafeFile::write(path("a b.txt"), QByteArray("one"), m_reason));
    EXPECT_TRUE(SafeFile::write(path("a b.txt"), QByteArray("two"), m_reason));
    EXPECT_EQ(bytesOf("a b.txt"), QByteArray("two"));
    EXPECT_TRUE(SafeFile::write(path("empty"), QByteArray(), m_reason));
    EXPECT_EQ(bytesOf("empty"), QByteArray());
    EXPECT_EQ(entries(), 2);
}

TEST_F(SafeFileTest, AnInterruptedSourceLeavesTheOldFile)
{
    ASSERT_TRUE(SafeFile::write(path("f"), QByteArray("old"), m_reason));
    int calls = 0;
    SafeFile::Source const source = [&calls](QByteArray& bytes, QString& reason) {
        bytes = "new";
        reason = "cable";
        return ++calls < 3;
    };
    EXPECT_FALSE(SafeFile::write(path("f"), source, m_reason));
    EXPECT_EQ(m_reason, "cable");
    EXPECT_EQ(bytesOf("f"), QByteArray("old"));
    EXPECT_EQ(entries(), 1);
}

// A file that may not grow stands for a full disk: the write is cut in the same way.
TEST_F(SafeFileTest, AWriteThatIsCutLeavesTheOldFile)
{
    ASSERT_TRUE(SafeFile::write(path("f"), QByteArray("old"), m_reason));
    auto const handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    for (rlim_t const limit : {rlim_t(0), rlim_t(1000), rlim_t(100000)}) {
        rlimit const small{limit, before.rlim_max};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
        bool const isWritten = SafeFile::write(path("f"), QByteArray(200000, 'n'), m_reason);
        bool const isSmallWritten = limit < 500 && SafeFile::write(path("f"), QByteArray(500, 'n'), m_reason);
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_FALSE(isWritten);
        EXPECT_FALSE(isSmallWritten);
        EXPECT_FALSE(m_reason.isEmpty());
        EXPECT_EQ(bytesOf("f"), QByteArray("old"));
        EXPECT_EQ(entries(), 1);
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(SafeFileTest, SaysWhyAFolderTakesNothing)
{
    EXPECT_FALSE(SafeFile::write(path("none/f"), QByteArray("x"), m_reason));
    EXPECT_FALSE(m_reason.isEmpty());
    EXPECT_FALSE(SafeFile::write(m_folder.path(), QByteArray("x"), m_reason));
}

TEST_F(SafeFileTest, CopiesAndRefusesWhatIsNoFile)
{
    QByteArray const bytes(9 << 20, 'c');
    ASSERT_TRUE(SafeFile::write(path("from"), bytes, m_reason));
    EXPECT_TRUE(SafeFile::copy(path("from"), path("to"), m_reason));
    EXPECT_EQ(bytesOf("to"), bytes);
    EXPECT_FALSE(SafeFile::copy(path("gone"), path("to"), m_reason));
    EXPECT_FALSE(SafeFile::copy(m_folder.path(), path("to"), m_reason));
    EXPECT_EQ(bytesOf("to"), bytes);
}

TEST_F(SafeFileTest, SweepsOnlyOldTemporaryFilesOfTheSameName)
{
    auto const put = [this](QString const& name, int hours) {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("x");
        file.flush();
        ASSERT_TRUE(file.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * hours),
                                     QFileDevice::FileModificationTime));
    };
    put("f.AbCdEf", 2);
    put("f.GhIjKl", 0);
    put("f.backup1", 2);
    put("f.123456", 2);
    put("g.AbCdEf", 2);
    ASSERT_TRUE(SafeFile::write(path("f"), QByteArray("x"), m_reason));
    EXPECT_EQ(bytesOf("f.AbCdEf"), QByteArray("none"));
    for (char const* name : {"f.GhIjKl", "f.backup1", "f.123456", "g.AbCdEf"})
        EXPECT_EQ(bytesOf(name), QByteArray("x")) << name;
}

}  // namespace
