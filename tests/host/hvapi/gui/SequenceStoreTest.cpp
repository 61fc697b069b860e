#include "lib/hvapi/sequence/SequenceStore.h"

#include "OpenSequences.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvimage/CILImage.h"
#include "hvparser/CPLClickInfo.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "lib/hvutils/HostServices.h"
#include "support/DiskSequence.h"
#include "support/ModalWatcher.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

using disk_sequence::bytesOf;
using disk_sequence::put;

class Recorder : public HostServices
{
public:
    void log(HostLogEntry const& entry) override
    {
        if (entry.severity > 1) texts << entry.message;
    }
    QStringList texts;
};

class SequenceStoreTest : public OpenSequences
{
protected:
    void SetUp() override { HostServices::install(&m_host); }
    void TearDown() override
    {
        OpenSequences::TearDown();
        HostServices::install(nullptr);
    }

    QString path(QString const& name) const { return m_folder.filePath(name); }
    CHVSSequenceDataset* open(QString const& name) { return SequenceStore::open(path(name), m_status); }

    Recorder m_host;
    QTemporaryDir m_folder;
    tag_estatus m_status = eStatusFailed;
};

TEST_F(SequenceStoreTest, ASequenceIsNamedByItsFileOrItsFolder)
{
    QString const file = disk_sequence::make(path("mouse 1"), "CT", {});
    EXPECT_EQ(SequenceStore::infoFile(file), file);
    EXPECT_EQ(SequenceStore::infoFile(path("mouse 1")), file);
    EXPECT_EQ(SequenceStore::infoFile(path("mouse 1") + "/"), file);
    EXPECT_TRUE(SequenceStore::infoFile(path("mouse 1/CT Data")).isEmpty());
    EXPECT_TRUE(SequenceStore::infoFile(path("mouse 1/CT Data/a.dcm")).isEmpty());
    EXPECT_TRUE(SequenceStore::infoFile(path("none")).isEmpty());
}

TEST_F(SequenceStoreTest, OpensACtSequenceWithItsClicks)
{
    disk_sequence::make(path("maus \xC3\xA4 #1"), "ct", {"M2", "M1"});
    auto* sequence = open("maus \xC3\xA4 #1");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(m_status, 0);
    EXPECT_EQ(sequence->getSequenceID(), QString::fromUtf8("maus \xC3\xA4 #1"));
    EXPECT_TRUE(sequence->isCTSequence(true));
    EXPECT_FALSE(sequence->isLoadedAsAGroup());
    EXPECT_EQ(sequence->getSequenceInfoPath(), path("maus \xC3\xA4 #1") + "/");
    EXPECT_EQ(sequence->getClickNumbers(), QStringList({"M2", "M1"}));
    ASSERT_TRUE(CHVSSequenceWindow::getSequenceWindow(sequence));
    float lowest = 0.0F;
    ASSERT_TRUE(sequence->getSequenceInfo()->isSectionPresent("CT Acquisition Parameters"));
    EXPECT_EQ((*sequence->getSequenceInfo())["CT Acquisition Parameters"]->getValue(
                  "Reconstructed Volume Min", &lowest),
              0);
    EXPECT_EQ(lowest, -0.5F);
    EXPECT_EQ(sequence->getSequenceInfo()->getSequenceInfoPath(), sequence->getSequenceInfoPath());
    EXPECT_TRUE(m_host.texts.isEmpty()) << m_host.texts.join('|').toStdString();
}

TEST_F(SequenceStoreTest, ADatasetHasItsFolderItsInfoAndItsImages)
{
    disk_sequence::make(path("s"), "SLA", {"M1"});
    auto* sequence = open("s");
    ASSERT_TRUE(sequence && sequence->isSLASequence());
    auto* dataset = sequence->getDatasets().first();
    EXPECT_EQ(CHVSDataset::getDataset("M1"), dataset);
    EXPECT_EQ(dataset->getFolderPath(), path("s/M1/"));
    EXPECT_EQ(dataset->getFOVForImage(IMAGETYPE_LUMINESCENT), 12.5);
    EXPECT_EQ(dataset->getFOVForImage(IMAGETYPE_XRAY), 0.0);
    EXPECT_FALSE(dataset->isXrayDataset());
    int binning = 0;
    EXPECT_EQ(dataset->getClickInfo()->getValue("luminescent image", "Binning Factor", &binning), 0);
    EXPECT_EQ(binning, 4);
    auto* image = dataset->getCoreImage(IMAGETYPE_LUMINESCENT);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->getWidth(), 32);
    EXPECT_EQ(image->getMax(), 60000.0);
    EXPECT_EQ(dataset->getCoreImage(IMAGETYPE_LUMINESCENT), image);
    EXPECT_EQ(dataset->getCoreImage(IMAGETYPE_XRAY), nullptr);
}

TEST_F(SequenceStoreTest, AnImageThatCannotBeReadIsNoImage)
{
    disk_sequence::make(path("s"), "SLA", {"M1"});
    ASSERT_TRUE(put(path("s/M1/photograph.tif"), "II*"));
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getDatasets().first()->getCoreImage(IMAGETYPE_PHOTOGRAPH), nullptr);
    EXPECT_FALSE(m_host.texts.isEmpty());
}

TEST_F(SequenceStoreTest, AMissingOrForeignClickIsLeftOutAndStaysInTheFile)
{
    disk_sequence::make(path("s"), "SLA", {"M1", "M2"});
    QFile::remove(path("s/M2/ClickInfo.txt"));
    QByteArray const info = bytesOf(path("s/SequenceInfo.txt")) + "Click 3 = ../elsewhere\n";
    ASSERT_TRUE(put(path("s/SequenceInfo.txt"), info));
    disk_sequence::makeClick(path("elsewhere"), "X");
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getClickNumbers(), QStringList("M1"));
    EXPECT_EQ(m_host.texts.size(), 2);
    EXPECT_EQ(SequenceStore::save(*sequence), 0);
    EXPECT_TRUE(bytesOf(path("s/SequenceInfo.txt")).contains("Click 2 = M2\nClick 3 = ../elsewhere\n"));
}

TEST_F(SequenceStoreTest, WithoutAListEveryFolderWithAClickCounts)
{
    disk_sequence::make(path("s"), "Images", {});
    disk_sequence::makeClick(path("s/B"), "B");
    disk_sequence::makeClick(path("s/A"), "A");
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getClickNumbers(), QStringList({"A", "B"}));
    EXPECT_FALSE(sequence->isSLASequence() || sequence->isCTSequence(false) ||
                 sequence->is3DSceneOnlySequence());
}

TEST_F(SequenceStoreTest, ACopyOfAnOpenSequenceGetsNamesOfItsOwn)
{
    disk_sequence::make(path("one/s"), "SLA", {"M1"});
    disk_sequence::make(path("two/s"), "SLA", {"M1"});
    ASSERT_TRUE(open("one/s"));
    auto* copy = open("two/s");
    ASSERT_TRUE(copy);
    EXPECT_EQ(copy->getSequenceID(), "s_2");
    EXPECT_EQ(copy->getClickNumbers(), QStringList("M1_2"));
    EXPECT_EQ(copy->getDatasets().first()->getFolderPath(), path("two/s/M1/"));
}

TEST_F(SequenceStoreTest, WhatIsOpenIsGivenBack)
{
    disk_sequence::make(path("s"), "CT", {});
    auto* sequence = open("s");
    EXPECT_EQ(open("s/../s/SequenceInfo.txt"), sequence);
    EXPECT_EQ(m_status, 0);
    EXPECT_EQ(SequenceRegistry::instance().sequences().size(), 1);
    EXPECT_TRUE(SequenceRegistry::instance().close(sequence));
    EXPECT_TRUE(open("s"));
}

TEST_F(SequenceStoreTest, WhatIsNoSequenceIsRefusedAndLogged)
{
    QDir().mkpath(path("empty"));
    QDir().mkpath(path("nonsense"));
    put(path("nonsense/SequenceInfo.txt"), QByteArray("\0\1\2[\n=\n", 7));
    QDir().mkpath(path("long"));
    put(path("long/SequenceInfo.txt"), QByteArray(5 << 20, '['));
    for (char const* name : {"none", "empty", "nonsense", "long"}) {
        m_host.texts.clear();
        EXPECT_EQ(open(name), nullptr) << name;
        EXPECT_NE(m_status, 0);
        EXPECT_FALSE(m_host.texts.isEmpty()) << name;
    }
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
}

TEST_F(SequenceStoreTest, ASequenceWithAnUnusableIdIsCalledAsItsFolder)
{
    QDir().mkpath(path("folder"));
    put(path("folder/SequenceInfo.txt"), "[Sequence]\nSequence ID = ../a\nSequence Type = hologram\n");
    auto* sequence = open("folder");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getSequenceID(), "folder");
    EXPECT_EQ(m_host.texts.size(), 1);
}

TEST_F(SequenceStoreTest, SavingKeepsEveryByteThatItDoesNotKnow)
{
    QByteArray const before =
        "# by hand\r\n[sequence]\r\nFormat Version=1\r\nSequence ID = s\r\n"
        "sequence type =  SLA \r\nLoaded As Group = no\r\n\r\n[Unknown]\r\nnonsense\r\n";
    QDir().mkpath(path("s"));
    put(path("s/SequenceInfo.txt"), before);
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    EXPECT_EQ(SequenceStore::save(*sequence), 0);
    EXPECT_EQ(bytesOf(path("s/SequenceInfo.txt")), before);
    sequence->setLoadedVolumetricData({path("s/CT Data/a.vox"), "/data/far.vox"});
    EXPECT_EQ(SequenceStore::save(*sequence), 0);
    EXPECT_EQ(bytesOf(path("s/SequenceInfo.txt")),
              before + "\r\n[Loaded Volume]\r\nFile 1 = CT Data/a.vox\r\nFile 2 = /data/far.vox\r\n");
    sequence->setLoadedVolumetricData({});
    EXPECT_EQ(SequenceStore::save(*sequence), 0);
    EXPECT_TRUE(bytesOf(path("s/SequenceInfo.txt")).contains("far.vox"));
}

TEST_F(SequenceStoreTest, TheVolumeIsTheOneSavedOrThatOfCtData)
{
    disk_sequence::make(path("s"), "CT", {});
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    QStringList const ctData{path("s/CT Data/a.dcm"), path("s/CT Data/b.dcm")};
    EXPECT_EQ(SequenceStore::volumeFiles(*sequence), ctData);
    put(path("far.vox"), "x");
    sequence->setLoadedVolumetricData({path("far.vox")});
    ASSERT_EQ(SequenceStore::save(*sequence), 0);
    EXPECT_EQ(SequenceStore::volumeFiles(*sequence), QStringList(path("far.vox")));
    QFile::remove(path("far.vox"));
    EXPECT_EQ(SequenceStore::volumeFiles(*sequence), ctData);
}

TEST_F(SequenceStoreTest, AnUnsavedSceneGetsAFolderOfItsName)
{
    QDir().mkpath(path("3D Scene 1"));
    auto* sequence = SequenceRegistry::instance().open(scene("3D Scene 1"));
    EXPECT_EQ(sequence->getSequenceInfo(), nullptr);
    sequence->setLoadedVolumetricData({"/data/far.vox"});
    ASSERT_EQ(SequenceStore::saveIn(*sequence, m_folder.path()), 0);
    EXPECT_EQ(sequence->getSequenceInfoPath(), path("3D Scene 1_2/"));
    ASSERT_TRUE(sequence->getSequenceInfo());
    EXPECT_EQ(
        bytesOf(path("3D Scene 1_2/SequenceInfo.txt")),
        QByteArray("[Sequence]\nFormat Version = 1\nSequence ID = 3D Scene 1\nSequence Type = 3D Scene\n"
                   "Loaded As Group = no\n\n[Loaded Volume]\nFile 1 = /data/far.vox\n"));
    SequenceRegistry::instance().close(sequence);
    auto* again = open("3D Scene 1_2");
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->is3DSceneOnlySequence());
    EXPECT_EQ(again->getSequenceID(), "3D Scene 1");
}

TEST_F(SequenceStoreTest, AnUnsavedCtSequenceGetsItsClicksAndItsCtData)
{
    auto* sequence = SequenceRegistry::instance().open({"ct", SequenceKind::Ct, true, {}, {"M1", "a/b"}});
    ASSERT_EQ(SequenceStore::saveIn(*sequence, m_folder.path()), 0);
    EXPECT_TRUE(QFileInfo(path("ct/CT Data")).isDir());
    EXPECT_EQ(sequence->getDatasets()[0]->getFolderPath(), path("ct/M1/"));
    EXPECT_EQ(sequence->getDatasets()[1]->getFolderPath(), path("ct/Click 2/"));
    SequenceRegistry::instance().close(sequence);
    auto* again = open("ct");
    ASSERT_TRUE(again);
    EXPECT_TRUE(again->isCTSequence(true) && again->isLoadedAsAGroup());
    EXPECT_EQ(again->getClickNumbers(), QStringList({"M1", "a/b"}));
}

TEST_F(SequenceStoreTest, AFailedSaveLeavesNothingBehind)
{
    auto* sequence = SequenceRegistry::instance().open(scene("s"));
    EXPECT_NE(SequenceStore::saveIn(*sequence, path("none")), 0);
    put(path("file"), "x");
    EXPECT_NE(SequenceStore::saveIn(*sequence, path("file")), 0);
    EXPECT_EQ(m_host.texts.size(), 2);
    EXPECT_TRUE(sequence->getSequenceInfoPath().isEmpty());
    EXPECT_NE(SequenceStore::save(*sequence), 0);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList("file"));
}

TEST_F(SequenceStoreTest, SavingInAFolderThatHasGoneFails)
{
    disk_sequence::make(path("s"), "CT", {});
    auto* sequence = open("s");
    ASSERT_TRUE(sequence);
    QDir(path("s")).removeRecursively();
    EXPECT_NE(SequenceStore::save(*sequence), 0);
    EXPECT_FALSE(m_host.texts.isEmpty());
}

TEST_F(SequenceStoreTest, TheWindowOfAnUnsavedSequenceAsksForItsPlace)
{
    auto* sequence = SequenceRegistry::instance().open(scene("s"));
    auto* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* w) { qobject_cast<QDialog*>(w)->reject(); });
    EXPECT_NE(window->saveSequence(), 0);
    EXPECT_TRUE(sequence->getSequenceInfoPath().isEmpty());
    watcher.expect([this](QWidget* w) {
        auto* dialog = qobject_cast<QFileDialog*>(w);
        ASSERT_TRUE(dialog);
        dialog->setDirectory(m_folder.path());
        dialog->selectFile(m_folder.path());
        dialog->setResult(QDialog::Accepted);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_EQ(window->saveSequence(), 0);
    EXPECT_EQ(sequence->getSequenceInfoPath(), path("s/"));
    EXPECT_EQ(window->saveSequence(), 0);
}

}  // namespace
