#include "app/InstanceLock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

TEST(InstanceLock, ASecondOneIsRefusedWithTheFirstOnesProcess)
{
    const QTemporaryDir folder;
    InstanceLock first;
    ASSERT_TRUE(first.take(folder.path()));
    InstanceLock second;
    EXPECT_FALSE(second.take(folder.path()));
    EXPECT_TRUE(second.reason().contains(QString::number(getpid()))) << second.reason().toStdString();
    EXPECT_TRUE(second.reason().contains(folder.path()));
}

TEST(InstanceLock, IsFreeWhenTheFirstOneHasGone)
{
    const QTemporaryDir folder;
    {
        InstanceLock first;
        ASSERT_TRUE(first.take(folder.path()));
    }
    InstanceLock second;
    EXPECT_TRUE(second.take(folder.path()));
}

TEST(InstanceLock, TheLockOfADeadProcessDoesNotCount)
{
    const QTemporaryDir folder;
    QFile lock(folder.filePath("halvane.lock"));
    ASSERT_TRUE(lock.open(QIODevice::WriteOnly));
    lock.write("999999999\nhalvane\n" + QSysInfo::machineHostName().toLocal8Bit() + "\n");
    lock.close();
    InstanceLock second;
    EXPECT_TRUE(second.take(folder.path())) << second.reason().toStdString();
}

TEST(InstanceLock, MakesTheFolder)
{
    const QTemporaryDir folder;
    InstanceLock lock;
    EXPECT_TRUE(lock.take(folder.filePath("a/b")));
    EXPECT_TRUE(QDir(folder.filePath("a/b")).exists());
}

TEST(InstanceLock, AFolderThatCannotBeMadeIsAReason)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("file"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    InstanceLock lock;
    EXPECT_FALSE(lock.take(folder.filePath("file/below")));
    EXPECT_FALSE(lock.reason().isEmpty());
}

TEST(InstanceLock, AnOwnFolderLivesBesideATakenOneAndGoesWithItsOwner)
{
    const QTemporaryDir folder;
    InstanceLock workstation;
    ASSERT_TRUE(workstation.take(folder.path()));
    QString own;
    {
        InstanceLock snapshot;
        own = snapshot.takeOwnFolder(folder.path());
        ASSERT_FALSE(own.isEmpty()) << snapshot.reason().toStdString();
        EXPECT_TRUE(own.startsWith(folder.path() + '/'));
        QFile data(own + "/VolumeData.dat");
        EXPECT_TRUE(data.open(QIODevice::WriteOnly));
    }
    EXPECT_FALSE(QDir(own).exists());
}

TEST(InstanceLock, FoldersOfDeadSnapshotsAreRemovedAndThoseOfLivingOnesStay)
{
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir().mkpath(folder.filePath("snapshot-1/deep")));
    InstanceLock living;
    ASSERT_TRUE(living.take(folder.filePath("snapshot-2")));
    InstanceLock snapshot;
    ASSERT_FALSE(snapshot.takeOwnFolder(folder.path()).isEmpty());
    EXPECT_FALSE(QDir(folder.filePath("snapshot-1")).exists());
    EXPECT_TRUE(QDir(folder.filePath("snapshot-2")).exists());
}

}  // namespace
