#include "OpenSequences.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolume.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/scene/C3DVolumePrivate.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "lib/hvutils/HostServices.h"
#include "support/DiskSequence.h"

#include <QDir>
#include <QTemporaryDir>

#include <sys/stat.h>

namespace {

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

QByteArray const voxels = "[Optical Voxels]\nFormat Version = 1\nCount = 2\nVoxel Size = 1 1 1\n"
                          "[Voxels]\nVoxel 1 = 0 0 0 4\nVoxel 2 = 5 0 0 12\n";

class OpticalVoxelFileTest : public OpenSequences
{
protected:
    void SetUp() override
    {
        HostServices::install(&m_host);
        disk_sequence::make(m_folder.filePath("mouse"), "CT", {});
    }
    void TearDown() override
    {
        OpenSequences::TearDown();
        HostServices::install(nullptr);
    }

    QString file() const { return m_folder.filePath("mouse/OpticalVoxels.txt"); }
    CHVSSequenceDataset* open()
    {
        tag_estatus status = eStatusFailed;
        return SequenceStore::open(m_folder.filePath("mouse"), status);
    }

    Recorder m_host;
    QTemporaryDir m_folder;
};

TEST_F(OpticalVoxelFileTest, TheyComeWithTheirSequence)
{
    ASSERT_TRUE(put(file(), voxels));
    bool wereThere = false;
    auto const added = QObject::connect(&SequenceRegistry::instance(), &SequenceRegistry::sequenceAdded,
                                        [&](CHVSSequenceDataset* sequence) {
                                            wereThere = sequence->get3DSGManager()->get3DVolume() != nullptr;
                                        });
    auto* sequence = open();
    QObject::disconnect(added);
    ASSERT_TRUE(sequence);
    EXPECT_TRUE(wereThere) << "before anybody hears of the sequence";
    C3DVolume* volume = sequence->get3DSGManager()->get3DVolume();
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->getAttribMinValue(), 4.0F);
    EXPECT_EQ(volume->getDefaultThreshold(), 6.0F);
    EXPECT_EQ(volume->hostSide().drawnCount(), 1U) << "at the default threshold";
    EXPECT_TRUE(m_host.texts.isEmpty()) << m_host.texts.join('\n').toStdString();
    // They are in the scene without anybody's doing.
    auto* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    window->prepare3DView();
    window->resize(300, 300);
    QImage const with = window->get3DScene()->grabFramebuffer();
    volume->show(false);
    EXPECT_NE(window->get3DScene()->grabFramebuffer(), with);
}

TEST_F(OpticalVoxelFileTest, ASequenceWithoutThemHasNone)
{
    auto* sequence = open();
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->get3DSGManager()->get3DVolume(), nullptr);
    EXPECT_TRUE(m_host.texts.isEmpty());
}

TEST_F(OpticalVoxelFileTest, ARefusedFileIsLoggedOnceAndTheSequenceOpens)
{
    ASSERT_TRUE(put(file(), voxels.left(voxels.size() - 12)));
    auto* sequence = open();
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->get3DSGManager()->get3DVolume(), nullptr);
    EXPECT_EQ(m_host.texts.filter("OpticalVoxels.txt").size(), 1);
}

TEST_F(OpticalVoxelFileTest, VoxelsThatAreLeftOutAreLogged)
{
    ASSERT_TRUE(put(file(), QByteArray(voxels).replace("= 0 0 0 4", "= 0 0 0 nan")));
    auto* sequence = open();
    ASSERT_TRUE(sequence);
    ASSERT_TRUE(sequence->get3DSGManager()->get3DVolume());
    EXPECT_EQ(m_host.texts,
              QStringList("An optical voxel is left out, 'Voxel 1': it is not 4 or 7 numbers."));
}

TEST_F(OpticalVoxelFileTest, WhatIsNoPlainFileIsRefusedAndNeverWaitedFor)
{
    ASSERT_TRUE(QDir().mkpath(file()));
    ASSERT_TRUE(open());
    EXPECT_EQ(m_host.texts.filter("no plain file").size(), 1);
    OpenSequences::TearDown();
    ASSERT_TRUE(QDir().rmdir(file()));
    ASSERT_EQ(mkfifo(file().toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(open());
    EXPECT_EQ(m_host.texts.filter("no plain file").size(), 2);
}

TEST_F(OpticalVoxelFileTest, TheyGoWithTheirSequence)
{
    ASSERT_TRUE(put(file(), voxels));
    auto* sequence = open();
    ASSERT_TRUE(sequence);
    QPointer<C3DVolume> const volume = sequence->get3DSGManager()->get3DVolume();
    CHVSSequenceWindow::getSequenceWindow(sequence)->prepare3DView();
    EXPECT_TRUE(SequenceRegistry::instance().close(sequence));
    EXPECT_TRUE(volume.isNull());
}

}  // namespace
