#include "hvutils/deleteFolderTree.h"
#include "hvutils/shortenFolderNameForDisplay.h"
#include "hvutils/updateComboWidget.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

void writeFile(QString const& path)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("x");
}

QString shortened(QString path)
{
    shortenFolderNameForDisplay(path);
    return path;
}

}  // namespace

TEST(DeleteFolderTree, RemovesAllContents)
{
    QTemporaryDir temporary;
    QString const root = temporary.path() + QStringLiteral("/tree");
    ASSERT_TRUE(QDir().mkpath(root + QStringLiteral("/a/b")));
    writeFile(root + QStringLiteral("/a/b/f"));
    writeFile(root + QStringLiteral("/.hidden"));
    EXPECT_TRUE(deleteFolderTree(QDir(root)));
    EXPECT_FALSE(QFile::exists(root));
    EXPECT_TRUE(deleteFolderTree(QDir(root))) << "nothing there is success";
}

TEST(DeleteFolderTree, LinksAreRemovedAndNotFollowed)
{
    QTemporaryDir temporary;
    QString const kept = temporary.path() + QStringLiteral("/kept");
    QString const root = temporary.path() + QStringLiteral("/tree");
    ASSERT_TRUE(QDir().mkpath(kept));
    ASSERT_TRUE(QDir().mkpath(root));
    writeFile(kept + QStringLiteral("/f"));
    ASSERT_TRUE(QFile::link(kept, root + QStringLiteral("/link")));
    EXPECT_TRUE(deleteFolderTree(QDir(root)));
    EXPECT_TRUE(QFile::exists(kept + QStringLiteral("/f")));

    QString const link = temporary.path() + QStringLiteral("/link");
    ASSERT_TRUE(QFile::link(kept, link));
    EXPECT_TRUE(deleteFolderTree(QDir(link)));
    EXPECT_FALSE(QFile::exists(link));
    EXPECT_TRUE(QFile::exists(kept + QStringLiteral("/f")));
}

TEST(DeleteFolderTree, RefusesWhatNobodyCanMean)
{
    QTemporaryDir temporary;
    QByteArray const home = qgetenv("HOME");
    qputenv("HOME", QFile::encodeName(temporary.path() + QStringLiteral("/people/me")));
    ASSERT_TRUE(QDir().mkpath(QDir::homePath()));
    EXPECT_FALSE(deleteFolderTree(QDir()));
    EXPECT_FALSE(deleteFolderTree(QDir(QString())));
    EXPECT_FALSE(deleteFolderTree(QDir(QStringLiteral("some/relative"))));
    EXPECT_FALSE(deleteFolderTree(QDir(QStringLiteral("/"))));
    EXPECT_FALSE(deleteFolderTree(QDir(QStringLiteral("/tmp/.."))));
    EXPECT_FALSE(deleteFolderTree(QDir::home()));
    EXPECT_FALSE(deleteFolderTree(QDir(temporary.path() + QStringLiteral("/people"))));
    EXPECT_TRUE(QDir::home().exists());
    writeFile(temporary.path() + QStringLiteral("/file"));
    EXPECT_FALSE(deleteFolderTree(QDir(temporary.path() + QStringLiteral("/file"))));
    qputenv("HOME", home);
}

TEST(UpdateComboWidget, SelectsTheEntryOrSetsTheEditText)
{
    QComboBox combo;
    combo.addItems({QStringLiteral("one"), QStringLiteral("Two"), QStringLiteral("two")});
    updateComboWidget(&combo, QStringLiteral("two"));
    EXPECT_EQ(combo.currentIndex(), 2);
    updateComboWidget(&combo, QStringLiteral("three"));
    EXPECT_EQ(combo.currentIndex(), 2);
    combo.setEditable(true);
    updateComboWidget(&combo, QStringLiteral("three"));
    EXPECT_EQ(combo.currentText(), QStringLiteral("three"));
    EXPECT_EQ(combo.count(), 3);
    updateComboWidget(&combo, QStringLiteral("Two"));
    EXPECT_EQ(combo.currentIndex(), 1);
    updateComboWidget(nullptr, QStringLiteral("Two"));
}

TEST(ShortenFolderName, SixtyCharactersStay)
{
    QString const path = QStringLiteral("/") + QString(59, QLatin1Char('a'));
    EXPECT_EQ(shortened(path), path);
    EXPECT_EQ(shortened(QString()), QString());
}

TEST(ShortenFolderName, FoldersInTheMiddleGiveWay)
{
    QString const path = QStringLiteral("/home/scientist/projects/2024/mouse/") +
                         QString(30, QLatin1Char('d')) + QStringLiteral("/scan.raw");
    QString const result = shortened(path);
    EXPECT_EQ(result, QStringLiteral("/home/scientist/projects/2024/mouse/.../scan.raw"));
}

TEST(ShortenFolderName, NoFolderFits)
{
    QString const name = QString(50, QLatin1Char('n'));
    EXPECT_EQ(shortened(QStringLiteral("/longfolder/other/") + name),
              QStringLiteral("/...") + QStringLiteral("/") + name);
    EXPECT_EQ(shortened(QStringLiteral("longfolder/other/") + name),
              QStringLiteral("...") + QStringLiteral("/") + name);
}

TEST(ShortenFolderName, ALongFileNameKeepsItsEnd)
{
    QString const result =
        shortened(QStringLiteral("/a/") + QString(80, QLatin1Char('n')) + QStringLiteral(".raw"));
    EXPECT_EQ(result, QStringLiteral("...") + QString(53, QLatin1Char('n')) + QStringLiteral(".raw"));
    EXPECT_EQ(shortened(QString(61, QLatin1Char('q'))),
              QStringLiteral("...") + QString(57, QLatin1Char('q')));
}

TEST(ShortenFolderName, NoCharacterIsCutInTwo)
{
    // Each is two units of UTF-16; 57 units from the end begin in the middle of one.
    QString const fish = QString::fromUtf8("\xF0\x9F\x90\x9F");
    QString const result = shortened(fish.repeated(40));
    EXPECT_EQ(result, QStringLiteral("...") + fish.repeated(28));
}
