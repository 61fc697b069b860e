#include "lib/hvparser/KeyedFile.h"

#include "lib/hvutils/HostServices.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <clocale>

#include <sys/stat.h>

namespace {

class Recorder : public HostServices
{
public:
    void log(HostLogEntry const& entry) override { texts << entry.message; }
    QStringList texts;
};

class KeyedFileTest : public testing::Test
{
protected:
    void SetUp() override { HostServices::install(&m_host); }
    void TearDown() override { HostServices::install(nullptr); }

    QString put(QByteArray const& bytes, QString const& name = "Info.txt") const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    static QByteArray bytesOf(QString const& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    Recorder m_host;
    QTemporaryDir m_folder;
};

TEST_F(KeyedFileTest, ReadsNumbersWithAPointInAnyLocale)
{
    std::string const before = std::setlocale(LC_ALL, nullptr);
    for (char const* locale : {"C", "de_DE.UTF-8"}) {
        std::setlocale(LC_ALL, locale);
        KeyedFile file;
        ASSERT_EQ(
            file.load(put("[CT Acquisition Parameters]\nMin = -0.25\nMax=1.5e3\nComma = 1,5\nNan = nan\n"
                          "Inf = inf\nHuge = 1e300\n")),
            0);
        auto const* section = file.find("ct acquisition parameters");
        float single = 7;
        double number = 7;
        EXPECT_EQ(section->getValue("Min", &single), 0);
        EXPECT_EQ(single, -0.25F);
        EXPECT_EQ(section->getValue("Max", &number), 0);
        EXPECT_EQ(number, 1500.0);
        for (char const* key : {"Comma", "Nan", "Inf", "Missing"}) {
            EXPECT_NE(section->getValue(key, &single), 0) << key;
            EXPECT_NE(section->getValue(key, &number), 0) << key;
        }
        EXPECT_NE(section->getValue("Huge", &single), 0);
        EXPECT_EQ(section->getValue("Huge", &number), 0);
        EXPECT_EQ(single, -0.25F);
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST_F(KeyedFileTest, SequenceInfoKeepsWhatItDoesNotKnow)
{
    QByteArray const before = "# written by hand\n[Sequence]\nType = 3D Scene\n\n[Future]\nx = 1\nx = 2\n";
    CPLSequenceInfo info;
    EXPECT_TRUE(info.getSequenceInfoPath().isEmpty());
    QString const path = put(before, "SequenceInfo.txt");
    ASSERT_EQ(CPLSequenceInfo::Private::load(info, path), 0);
    EXPECT_EQ(info.getSequenceInfoPath(), m_folder.path() + "/");
    EXPECT_TRUE(info.isSectionPresent("future"));
    EXPECT_FALSE(info.isSectionPresent("Restore Results"));
    EXPECT_EQ(info["Restore Results"], nullptr);
    ASSERT_EQ(
        CPLSequenceInfo::Private::fileOf(info).findOrAdd("Restore Results")->addKeyValue("CORVANE", "a"), 0);
    ASSERT_EQ(info["Restore Results"]->setValue("CORVANE", "b"), 0);
    ASSERT_EQ(info.saveFile(path), 0);
    EXPECT_EQ(bytesOf(path), before + "\n[Restore Results]\nCORVANE = b\n");
    EXPECT_TRUE(m_host.texts.isEmpty());
}

TEST_F(KeyedFileTest, SetValueNeedsTheKey)
{
    CPLSection section("s");
    EXPECT_NE(section.setValue("k", "v"), 0);
    EXPECT_EQ(section.addKeyValue("k", "v"), 0);
    EXPECT_EQ(section.addKeyValue("K", "w"), 0);
    QString text;
    EXPECT_EQ(section.getValue("k", &text), 0);
    EXPECT_EQ(text, "w");
    EXPECT_EQ(section.getSectionKey(&text), 0);
    EXPECT_EQ(text, "s");
    EXPECT_TRUE(section.isKeyPresent("k"));
}

TEST_F(KeyedFileTest, ClickInfoReadsBySectionAndKey)
{
    CPLClickInfo info;
    ASSERT_EQ(CPLClickInfo::Private::fileOf(info).load(
                  put("[luminescent image]\nField of View = 12.5\nBinning Factor = 4\n[a]\n[A]\n")),
              0);
    int whole = -1;
    double number = -1;
    QString text;
    EXPECT_EQ(info.getValue("Luminescent Image", "binning factor", &whole), 0);
    EXPECT_EQ(whole, 4);
    EXPECT_NE(info.getValue("luminescent image", "Field of View", &whole), 0);
    EXPECT_EQ(info.getValue("luminescent image", "Field of View", &number), 0);
    EXPECT_EQ(number, 12.5);
    EXPECT_EQ(info.getValue("luminescent image", "Field of View", &text), 0);
    EXPECT_EQ(text, "12.5");
    EXPECT_NE(info.getValue("none", "Field of View", &text), 0);
    EXPECT_EQ(info.removeSection("a"), 0);
    EXPECT_FALSE(info.isSectionPresent("A"));
    EXPECT_NE(info.removeSection("a"), 0);
}

TEST_F(KeyedFileTest, BadFilesAreRefusedAndLeaveEverything)
{
    KeyedFile file;
    ASSERT_EQ(file.load(put("[s]\nk=1\n")), 0);
    QString const pipe = m_folder.filePath("pipe");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QString const longFile = put(QByteArray((4 << 20) + 1, 'x'), "long.txt");
    for (QString const& path : {m_folder.filePath("none.txt"), m_folder.path(), pipe, longFile, QString()}) {
        m_host.texts.clear();
        EXPECT_NE(file.load(path), 0);
        EXPECT_EQ(m_host.texts.size(), 1) << path.toStdString();
        EXPECT_EQ(file.bytes(), QByteArray("[s]\nk=1\n"));
    }
}

TEST_F(KeyedFileTest, NonsenseIsLoggedAndKept)
{
    KeyedFile file;
    QByteArray bytes("[s]\nnonsense\n\0\xFF\n", 16);
    ASSERT_EQ(file.load(put(bytes)), 0);
    EXPECT_FALSE(m_host.texts.isEmpty());
    QString const path = m_folder.filePath("again.txt");
    EXPECT_EQ(file.save(path), 0);
    EXPECT_EQ(bytesOf(path), bytes);
}

TEST_F(KeyedFileTest, AFailedSaveIsLogged)
{
    KeyedFile file;
    EXPECT_NE(file.save(m_folder.filePath("no folder/Info.txt")), 0);
    EXPECT_EQ(m_host.texts.size(), 1);
}

TEST_F(KeyedFileTest, ASectionWithANameThatCantStandInAFileIsNotMade)
{
    KeyedFile file;
    EXPECT_EQ(file.findOrAdd(""), nullptr);
    EXPECT_EQ(file.findOrAdd("a\nb"), nullptr);
    EXPECT_NE(file.findOrAdd("a]b"), nullptr);
    EXPECT_EQ(file.bytes(), QByteArray("[a]b]\n"));
}

}  // namespace
