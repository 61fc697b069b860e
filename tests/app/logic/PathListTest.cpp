#include "app/PathList.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

class PathList : public testing::Test
{
protected:
    QString file(const QString& name)
    {
        QFile made(path(name));
        EXPECT_TRUE(made.open(QIODevice::WriteOnly));
        return path(name);
    }
    QString path(const QString& name) const { return m_folder.path() + QLatin1Char('/') + name; }

    QTemporaryDir m_folder;
};

TEST_F(PathList, FilesStayInTheirOrder)
{
    const QString b = file("b"), a = file("a");
    EXPECT_EQ(filesMeantBy({b, a}), (QStringList{b, a}));
}

TEST_F(PathList, AFolderStandsForItsFilesByName)
{
    QDir(m_folder.path()).mkpath("scan/deeper");
    for (const char* name : {"scan/s-0002", "scan/s-0010", "scan/s-0001", "scan/.hidden", "scan/deeper/x"})
        file(name);
    EXPECT_EQ(filesMeantBy({path("scan/")}),
              (QStringList{path("scan/s-0001"), path("scan/s-0002"), path("scan/s-0010")}));
}

TEST_F(PathList, FoldersAndFilesMayStandSideBySide)
{
    QDir(m_folder.path()).mkpath("scan");
    const QString inside = file("scan/\u00fc #1.tif"), beside = file("a");
    EXPECT_EQ(filesMeantBy({path("scan"), beside}), (QStringList{inside, beside}));
}

TEST_F(PathList, AFolderWithoutFilesAndWhatIsNotThereStayThemselves)
{
    QDir(m_folder.path()).mkpath("empty");
    EXPECT_EQ(filesMeantBy({path("empty"), path("none")}), (QStringList{path("empty"), path("none")}));
}

TEST_F(PathList, PathsBecomeAbsolute)
{
    EXPECT_EQ(filesMeantBy({"nowhere.vox"}), QStringList{QDir::current().absoluteFilePath("nowhere.vox")});
}

}  // namespace
