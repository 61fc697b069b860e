#include "app/RecentFiles.h"

#include <QSettings>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class RecentFilesTest : public testing::Test
{
protected:
    QTemporaryDir m_folder;
    QSettings m_settings{m_folder.filePath("halvane.ini"), QSettings::IniFormat};
    RecentFiles m_recent{m_settings};
};

TEST_F(RecentFilesTest, NewestFirstAndNothingTwice)
{
    m_recent.add({"/a.vox"});
    m_recent.add({"/b.vox"});
    m_recent.add({"/a.vox"});
    EXPECT_EQ(m_recent.volumes(), (QList<QStringList>{{"/a.vox"}, {"/b.vox"}}));
}

TEST_F(RecentFilesTest, AVolumeOfManyFilesStaysTogether)
{
    const QStringList stack{"/s/1.tif", "/s/2, and a comma.tif", "/s/3.tif"};
    m_recent.add(stack);
    EXPECT_EQ(RecentFiles(m_settings).volumes(), QList<QStringList>{stack});
}

TEST_F(RecentFilesTest, KeepsTheNewestTen)
{
    for (int i = 0; i < 13; ++i)
        m_recent.add({QString("/%1.vox").arg(i)});
    const QList<QStringList> volumes = m_recent.volumes();
    ASSERT_EQ(volumes.size(), 10);
    EXPECT_EQ(volumes.first(), QStringList{"/12.vox"});
    EXPECT_EQ(volumes.last(), QStringList{"/3.vox"});
}

TEST_F(RecentFilesTest, CanForget)
{
    m_recent.add({"/a.vox"});
    m_recent.add({"/b.vox"});
    m_recent.remove({"/a.vox"});
    EXPECT_EQ(m_recent.volumes(), QList<QStringList>{QStringList{"/b.vox"}});
    m_recent.clear();
    EXPECT_TRUE(m_recent.volumes().isEmpty());
    m_recent.add({});
    EXPECT_TRUE(m_recent.volumes().isEmpty());
}

TEST_F(RecentFilesTest, ADamagedSettingsFileHoldsNoVolumes)
{
    m_settings.setValue("recentVolumes/size", -7);
    EXPECT_TRUE(m_recent.volumes().isEmpty());
    m_settings.setValue("recentVolumes/size", 2000000000);
    EXPECT_TRUE(m_recent.volumes().isEmpty());
}

TEST_F(RecentFilesTest, TitlesTellFilesApart)
{
    EXPECT_EQ(RecentFiles::title({"/data/mouse/scan.vox"}), QString("scan.vox  -  /data/mouse"));
    EXPECT_EQ(RecentFiles::title({"/d/1.tif", "/d/2.tif", "/d/3.tif"}), QString("1.tif and 2 more  -  /d"));
    EXPECT_EQ(RecentFiles::title({}), QString());
}

}  // namespace
