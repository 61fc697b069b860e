#include "lib/hvapi/sequence/SequenceRegistry.h"

#include "OpenSequences.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"

#include <QPointer>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace {

class SequenceRegistryTest : public OpenSequences
{
protected:
    SequenceRegistry& registry = SequenceRegistry::instance();
};

TEST(SequenceId, NamesAFolder)
{
    EXPECT_TRUE(SequenceRegistry::isValidId("jd20240131120000_3DS"));
    EXPECT_TRUE(SequenceRegistry::isValidId(QString::fromUtf8("Maus \xc3\xa4 7")));
    EXPECT_TRUE(SequenceRegistry::isValidId("..."));
    for (QString const& bad :
         {QString(), QString(""), QString("."), QString(".."), QString("a/b"), QString("a\\b"),
          QString("c:d"), QString("a\nb"), QString(" a"), QString("a "), QString(201, 'x')}) {
        EXPECT_FALSE(SequenceRegistry::isValidId(bad)) << bad.toStdString();
    }
    EXPECT_TRUE(SequenceRegistry::isValidId(QString(200, 'x')));
    EXPECT_FALSE(SequenceRegistry::isValidId(QString(101, QChar(0xe4)))) << "202 bytes in UTF-8";
}

TEST_F(SequenceRegistryTest, RefusesIdsThatAreNotValidOrTaken)
{
    QSignalSpy added(&registry, &SequenceRegistry::sequenceAdded);
    EXPECT_EQ(registry.open({}), nullptr);
    EXPECT_EQ(registry.add(scene("../up")), nullptr);
    ASSERT_NE(registry.add(scene("one")), nullptr);
    EXPECT_EQ(registry.add(scene("one")), nullptr);
    EXPECT_EQ(registry.open(scene("ONE")), nullptr);
    EXPECT_EQ(added.size(), 1);
    EXPECT_EQ(registry.sequences().size(), 1);
}

TEST_F(SequenceRegistryTest, FindsByIdIgnoringCase)
{
    auto* sequence = registry.add(scene("Scan"));
    EXPECT_EQ(CHVSSequenceDataset::getSequenceDataset("Scan"), sequence);
    EXPECT_EQ(CHVSSequenceDataset::getSequenceDataset("sCAN"), sequence);
    EXPECT_EQ(CHVSSequenceDataset::getSequenceDataset("Sca"), nullptr);
    EXPECT_EQ(CHVSSequenceDataset::getSequenceDataset(QString()), nullptr);
    EXPECT_EQ(sequence->getSequenceID(), "Scan");
}

TEST_F(SequenceRegistryTest, FreeIdCountsUp)
{
    EXPECT_EQ(registry.freeId("a"), "a");
    registry.add(scene("a"));
    EXPECT_EQ(registry.freeId("A"), "A_2");
    registry.add(scene("a_2"));
    EXPECT_EQ(registry.freeId("a"), "a_3");
    EXPECT_EQ(registry.freeId("x/y"), "");
}

TEST_F(SequenceRegistryTest, KindsAnswerTheirTestsOnly)
{
    auto* sla = registry.add({"sla", SequenceKind::Sla, false, {}, {}});
    auto* ct = registry.add({"ct", SequenceKind::Ct, false, {}, {}});
    auto* ctWithImages = registry.add({"ct2", SequenceKind::Ct, false, {}, {"click1"}});
    auto* threeD = registry.add({"3d", SequenceKind::Scene3D, false, {}, {}});
    auto* other = registry.add({"other", SequenceKind::Other, false, {}, {}});

    EXPECT_TRUE(sla->isSLASequence());
    EXPECT_FALSE(sla->isCTSequence(false) || sla->is3DSceneOnlySequence());
    EXPECT_TRUE(ct->isCTSequence(false));
    EXPECT_FALSE(ct->isCTSequence(true) || ct->isSLASequence() || ct->is3DSceneOnlySequence());
    EXPECT_TRUE(ctWithImages->isCTSequence(false) && ctWithImages->isCTSequence(true));
    EXPECT_TRUE(threeD->is3DSceneOnlySequence());
    EXPECT_FALSE(threeD->isSLASequence() || threeD->isCTSequence(false));
    EXPECT_FALSE(other->isSLASequence() || other->isCTSequence(false) || other->is3DSceneOnlySequence());
}

TEST_F(SequenceRegistryTest, GroupFlagAndAcquisition)
{
    auto* group = registry.add({"group", SequenceKind::Sla, true, {}, {}});
    EXPECT_TRUE(group->isLoadedAsAGroup());
    EXPECT_FALSE(group->isDatasetAcquisitionInProgress());
    registry.setAcquisitionInProgress(group, true);
    EXPECT_TRUE(group->isDatasetAcquisitionInProgress());
    EXPECT_FALSE(registry.add(scene("single"))->isLoadedAsAGroup());
}

TEST_F(SequenceRegistryTest, FolderEndsInASlashUnlessThereIsNone)
{
    EXPECT_EQ(registry.add({"a", SequenceKind::Ct, false, "/data/a", {}})->getSequenceInfoPath(), "/data/a/");
    EXPECT_EQ(registry.add({"b", SequenceKind::Ct, false, "/data/b/", {}})->getSequenceInfoPath(),
              "/data/b/");
    EXPECT_EQ(registry.add({"c", SequenceKind::Ct, false, "c:\\data\\c", {}})->getSequenceInfoPath(),
              "c:/data/c/");
    EXPECT_EQ(registry.add(scene("d"))->getSequenceInfoPath(), "");
}

TEST_F(SequenceRegistryTest, GraphHasARootFromTheStart)
{
    auto* sequence = registry.add({"a", SequenceKind::Sla, false, {}, {}});
    ASSERT_NE(sequence->get3DSGManager(), nullptr);
    EXPECT_NE(sequence->get3DSGManager()->getRootNode(), nullptr);
}

TEST_F(SequenceRegistryTest, VolumeFilesAreKeptAndTold)
{
    auto* sequence = registry.add(scene("a"));
    QSignalSpy told(&registry, &SequenceRegistry::loadedVolumetricDataChanged);
    sequence->setLoadedVolumetricData({"/data/x.raw"});
    EXPECT_EQ(registry.loadedVolumetricData(sequence), QStringList("/data/x.raw"));
    sequence->setLoadedVolumetricData({});
    EXPECT_TRUE(registry.loadedVolumetricData(sequence).isEmpty());
    EXPECT_EQ(told.size(), 2);
}

TEST_F(SequenceRegistryTest, ChangeKeepsIdAndMembers)
{
    auto* sequence = registry.add({"a", SequenceKind::Ct, false, {}, {"click1"}});
    QSignalSpy told(sequence, &CHVSSequenceDataset::sequencePropertyChanged);
    registry.change(sequence, {"other", SequenceKind::Sla, true, "/x", {"click9"}});
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(told.at(0).at(0).value<CHVSSequenceDataset*>(), sequence);
    EXPECT_EQ(sequence->getSequenceID(), "a");
    EXPECT_EQ(sequence->getClickNumbers(), QStringList("click1"));
    EXPECT_TRUE(sequence->isSLASequence() && sequence->isLoadedAsAGroup());
    EXPECT_EQ(sequence->getSequenceInfoPath(), "/x/");
}

TEST_F(SequenceRegistryTest, MembersKnowTheirSequence)
{
    auto* sequence = registry.add({"a", SequenceKind::Sla, false, {}, {"click1", "", "click2", "click1"}});
    EXPECT_EQ(sequence->getClickNumbers(), QStringList({"click1", "click2"}));
    ASSERT_EQ(sequence->getDatasets().size(), 2);
    auto* member = sequence->getDatasets().at(1);
    EXPECT_TRUE(member->isPartOfSequence());
    EXPECT_EQ(member->getSequenceDataset(), sequence);
    EXPECT_EQ(CHVSDataset::getDataset("click2"), member);
    registry.close(sequence);
    EXPECT_EQ(CHVSDataset::getDataset("click2"), nullptr);
}

TEST_F(SequenceRegistryTest, DatasetAloneBelongsToNoSequence)
{
    auto* dataset = registry.addDataset("alone");
    ASSERT_NE(dataset, nullptr);
    EXPECT_FALSE(dataset->isPartOfSequence());
    EXPECT_EQ(dataset->getSequenceDataset(), nullptr);
    EXPECT_EQ(registry.addDataset("alone"), nullptr);
    EXPECT_EQ(registry.addDataset(""), nullptr);
    QSignalSpy told(&registry, &SequenceRegistry::datasetAboutToBeRemoved);
    registry.removeDataset(dataset);
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(CHVSDataset::getDataset("alone"), nullptr);
}

TEST_F(SequenceRegistryTest, OpensTheWindowBeforeTellingOfTheSequence)
{
    QStringList order;
    QObject listener;
    QObject::connect(&registry, &SequenceRegistry::windowCreated, &listener, [&](CHVSSequenceWindow* window) {
        order << "window " + window->getWindowSequence()->getSequenceID();
    });
    QObject::connect(&registry, &SequenceRegistry::sequenceAdded, &listener,
                     [&](CHVSSequenceDataset* sequence) {
                         EXPECT_NE(CHVSSequenceWindow::getSequenceWindow(sequence), nullptr);
                         order << "added " + sequence->getSequenceID();
                     });
    registry.open({"a", SequenceKind::Sla, false, {}, {}});
    EXPECT_EQ(order, QStringList({"window a", "added a"}));
}

TEST_F(SequenceRegistryTest, ClosesInOrderWithEverythingAliveUntilTheEnd)
{
    auto* sequence = registry.open({"a", SequenceKind::Sla, false, {}, {}});
    QPointer<CHVSSequenceWindow> window = CHVSSequenceWindow::getSequenceWindow(sequence);
    QPointer<CHVSSequenceDataset> watched = sequence;
    ASSERT_FALSE(window->isClosing());
    QStringList order;
    QObject listener;
    auto const alive = [&] {
        return window && window->isClosing() && watched &&
               CHVSSequenceDataset::getSequenceDataset("a") == sequence &&
               CHVSSequenceWindow::getSequenceWindow(sequence) == window;
    };
    QObject::connect(sequence, &CHVSSequenceDataset::saveExistingAnalysisResult, &listener, [&] {
        EXPECT_TRUE(alive());
        order << "save";
    });
    QObject::connect(&registry, &SequenceRegistry::sequenceAboutToBeRemoved, &listener,
                     [&](CHVSSequenceDataset* going) {
                         EXPECT_EQ(going, sequence);
                         EXPECT_TRUE(alive());
                         order << "remove";
                     });
    QObject::connect(&registry, &SequenceRegistry::sequenceRemoved, &listener, [&](QString const& id) {
        EXPECT_FALSE(window || watched);
        EXPECT_EQ(CHVSSequenceDataset::getSequenceDataset("a"), nullptr);
        order << "gone " + id;
    });
    EXPECT_TRUE(registry.close(sequence));
    EXPECT_EQ(order, QStringList({"save", "remove", "gone a"}));
    EXPECT_TRUE(registry.sequences().isEmpty());
}

TEST_F(SequenceRegistryTest, ClosingTwiceIsRefused)
{
    auto* sequence = registry.add(scene("a"));
    QObject listener;
    int inner = -1;
    QObject::connect(sequence, &CHVSSequenceDataset::saveExistingAnalysisResult, &listener,
                     [&] { inner = registry.close(sequence); });
    EXPECT_TRUE(registry.close(sequence));
    EXPECT_EQ(inner, 0);
    EXPECT_FALSE(registry.close(sequence));
    EXPECT_FALSE(registry.close(nullptr));
}

TEST_F(SequenceRegistryTest, AnIdIsFreeAgainAfterClosing)
{
    registry.close(registry.open({"a", SequenceKind::Sla, false, {}, {}}));
    EXPECT_NE(registry.open({"a", SequenceKind::Sla, false, {}, {}}), nullptr);
}

}  // namespace
