// The phantom's own sequence in the workstation: clicks, calibration and "CT Data", from a folder on disk.

#include "WorkstationFixture.h"

#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvimage/CILImage.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "phantom/CommandLine.h"
#include "phantom/Mouse.h"
#include "phantom/Scan.h"

#include <QComboBox>
#include <QDir>

namespace {

constexpr int n = 40;  // loads at full resolution

class PhantomSequenceTest : public WorkstationFixture
{
protected:
    QString sequenceFolder() const
    {
        const QString folder = m_folder.filePath("mouse #1");
        std::string out;
        std::string error;
        EXPECT_EQ(phantom::runPhantom({"--format=sequence", "--size=40", folder.toStdString()}, out, error),
                  0)
            << error;
        return folder;
    }
};

TEST_F(PhantomSequenceTest, ItsFolderOpensWithItsClicks)
{
    ASSERT_EQ(m_window->open({sequenceFolder()}), MainWindow::OpenResult::Loaded);
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getSequenceID(), "mouse #1");
    EXPECT_TRUE(sequence->isCTSequence(false));
    EXPECT_EQ(sequence->getClickNumbers(), QStringList({"M0001", "M0002", "M0003"}));
    for (CHVSDataset* click : sequence->getDatasets()) {
        ASSERT_TRUE(click->getCoreImage(IMAGETYPE_PHOTOGRAPH));
        ASSERT_TRUE(click->getCoreImage(IMAGETYPE_LUMINESCENT));
        EXPECT_EQ(click->getCoreImage(IMAGETYPE_PHOTOGRAPH)->getWidth(), n);
        EXPECT_EQ(click->getCoreImage(IMAGETYPE_LUMINESCENT)->getWidth(), n / 2);
        EXPECT_DOUBLE_EQ(click->getFOVForImage(IMAGETYPE_PHOTOGRAPH), 8.0);
    }
    EXPECT_EQ(m_services->lastComplaint(), QString());
}

TEST_F(PhantomSequenceTest, ItsScanIsLoadedIntoItAndLiesAsInItsRawFile)
{
    ASSERT_EQ(m_window->open({sequenceFolder()}), MainWindow::OpenResult::Loaded);
    ASSERT_TRUE(volume());
    EXPECT_TRUE(volume()->isDisplayed());
    EXPECT_EQ(volume()->getWidth(), n);
    EXPECT_EQ(volume()->getHeight(), n);
    EXPECT_EQ(volume()->getDepth(), n);
    const Coord3d mm = volume()->getThickness();
    EXPECT_NEAR(mm.x, 2.0, 1e-5);
    EXPECT_NEAR(mm.y, 2.0, 1e-5);
    EXPECT_NEAR(mm.z, 2.0, 1e-5);
    const auto raw = phantom::sampledFrames(phantom::Scan(phantom::mouseOnBed(), n, 1), 0, n, 16, 1);
    const double low = volume()->getMin();
    const double high = volume()->getMax();
    ASSERT_GT(high, low + 1000);
    for (std::size_t i = 0; i < raw.size() / 2; ++i) {
        const double sample = raw[2 * i] | raw[2 * i + 1] << 8;
        ASSERT_NEAR(volume()->getVolumeData()[i], (sample - low) * 255.0 / (high - low), 1.0) << i;
    }
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    EXPECT_EQ(SequenceRegistry::instance().loadedVolumetricData(sequence).size(), n);
}

TEST_F(PhantomSequenceTest, ItsCalibrationGivesHounsfieldUnits)
{
    ASSERT_EQ(m_window->open({sequenceFolder()}), MainWindow::OpenResult::Loaded);
    auto* units = palette()->findChild<QComboBox*>("m_pMinMaxUnitCB");
    ASSERT_TRUE(units);
    EXPECT_EQ(units->count(), 3);
    EXPECT_EQ(units->currentText(), QString("Hounsfield"));
}

}  // namespace
