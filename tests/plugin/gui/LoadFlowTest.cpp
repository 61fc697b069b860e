#include "gui/PluginBench.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/values/sCropBoxOffset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSErrorHandler.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "render/CGLVolume.h"

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTimer>

namespace {

/// The palette through its two entries, with files of every kind.
class LoadFlow : public PluginBench
{
protected:
    void SetUp() override { sequence = openCurrent("S1"); }

    /// A drop: the load takes the palette's own list of files. With no path, what is dropped is no file.
    bool loadDropped(const QStringList& paths)
    {
        dropOn(palette, paths);
        return !paths.isEmpty() &&
               SequenceRegistry::instance().loadedVolumetricData(sequence) == paths.mid(0, 1) &&
               record("S1").fileList == paths.mid(0, 1);
    }
    /// The host's own text for a status.
    QString textOf(int status)
    {
        host.answers.prepend(1024);
        CHVSErrorHandler::errorMessage(nullptr, static_cast<tag_estatus>(status), QString());
        return host.asked.takeLast().text;
    }
    bool loadGiven(const QString& path) { return palette->onLoadVolumeData({path}, -1, -1); }

    CHVSSequenceDataset* sequence = nullptr;
};

bool isIdentity(const matrix& m)
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (m(row, column) != (row == column ? 1.0 : 0.0)) return false;
    return true;
}

/// What the file of writeRaw() holds after the mapping to 8 bits: 10 becomes 0 and 109 becomes 255.
QByteArray mappedVoxels(const RawFileSpec& spec)
{
    QByteArray voxels;
    const float scale = 255.0f / 99.0f;
    for (int i = 0; i < spec.side * spec.side * spec.frames; ++i)
        voxels.append(static_cast<char>(static_cast<int>(static_cast<float>(i % 100) * scale + 0.5f)));
    return voxels;
}

/// Answers the file dialog with these files, or cancels it for an empty list.
void chooseFiles(QWidget* window, const QStringList& paths)
{
    auto* dialog = qobject_cast<QFileDialog*>(window);
    ASSERT_NE(dialog, nullptr);
    if (paths.isEmpty()) {
        dialog->reject();
        return;
    }
    auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
    ASSERT_NE(name, nullptr);
    name->setText('"' + paths.join("\" \"") + '"');
    static_cast<QDialog*>(dialog)->accept();
}

}  // namespace

TEST_F(LoadFlow, ARawFileBecomesTheSequencesVolume)
{
    const RawFileSpec spec;
    const QString path = writeRaw("a.raw", spec);
    EXPECT_TRUE(loadGiven(path));

    CGLVolume* node = nodeOf(sequence);
    ASSERT_NE(node, nullptr);
    EXPECT_EQ(node->getWidth(), spec.side);
    EXPECT_EQ(node->getHeight(), spec.side);
    EXPECT_EQ(node->getDepth(), spec.frames);
    EXPECT_EQ(node->getMin(), 10);
    EXPECT_EQ(node->getMax(), 109);
    EXPECT_TRUE(node->isDisplayed());
    EXPECT_TRUE(isIdentity(node->getTransformation()));

    const SVolVizControls& r = record("S1");
    EXPECT_TRUE(r.bVolumeLoaded);
    EXPECT_TRUE(r.bEnabled);
    EXPECT_EQ(r.fileList, QStringList(path));
    // The volume's least value, 10, until the fit finds the end of the air: 11 is the third of 255 bins, the
    // bin before it stands for 10 + 2 * 99 / 255, rounded.
    EXPECT_EQ(r.nSliceMin, 11);
    EXPECT_EQ(r.nSliceMax, 109);
    EXPECT_EQ(r.dVolumeMin, 10.0);
    EXPECT_EQ(r.dVolumeMax, 109.0);
    EXPECT_EQ(r.nOpacitySlider, 100);
    EXPECT_TRUE(r.bAutoFit);
    EXPECT_TRUE(r.bModified);
    EXPECT_TRUE(r.registration.registrationMessage.isNull());
    EXPECT_EQ(SequenceRegistry::instance().loadedVolumetricData(sequence), QStringList(path));
    EXPECT_EQ(palette->m_pCorvaneResultLbl->text(), QString("Volume Information: (Unsaved)"));
    EXPECT_TRUE(host.asked.isEmpty());
}

TEST_F(LoadFlow, ThickVoxelsKeepTheirAxes)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    // "VolumeScale 0.1 0.2 0.3": the second along the first count, the third along the frames. The extents of
    // the frames and of the rows stand crosswise for a RAW file.
    const Coord3d thickness = nodeOf(sequence)->getThickness();
    EXPECT_NEAR(thickness.x, 0.2, 1e-6);
    EXPECT_NEAR(thickness.y, 0.1, 1e-6);
    EXPECT_NEAR(thickness.z, 0.3, 1e-6);
}

TEST_F(LoadFlow, TheNodeTakesItsSettingsFromTheRecord)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    const CGLVolume* node = nodeOf(sequence);
    EXPECT_FALSE(node->isMIP());
    EXPECT_EQ(node->getLighting(), 1.0f);
    EXPECT_FALSE(node->isMedianFilterDenoise());
    EXPECT_TRUE(node->isFilterDenoiseGradient());
    EXPECT_FALSE(node->isRenderInBestPerformance());
}

TEST_F(LoadFlow, TheVoxelsLieInTheTemporaryFolder)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(readFile(dumpPath("S1")), mappedVoxels({}));
}

TEST_F(LoadFlow, LoadingTwiceRewritesTheVoxels)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    CGLVolume* before = nodeOf(sequence);
    before->setTransformation(matrix(
        std::array<double, 16>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}.data(), matrix::COLUMN_MAJOR));
    RawFileSpec smaller;
    smaller.frames = 3;
    EXPECT_TRUE(loadGiven(writeRaw("b.raw", smaller)));
    EXPECT_EQ(nodeOf(sequence), before) << "one volume a sequence, the node stays";
    EXPECT_TRUE(isIdentity(before->getTransformation()));
    EXPECT_EQ(readFile(dumpPath("S1")), mappedVoxels(smaller));
    EXPECT_EQ(record("S1").fileList, QStringList(files.filePath("b.raw")));
}

TEST_F(LoadFlow, TheNodesConnectionsAreMadeOnce)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    palette->setResultsModifiedForSequence(false);
    nodeOf(sequence)->notifyCropEquationsChanged(true);
    EXPECT_TRUE(record("S1").bModified);
    nodeOf(sequence)->notifyTransformationChanged(false);
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(LoadFlow, TheCropBoxStartsFull)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    Vec3f offsets[8];
    offsets[0].set(0.5, 0.5, 0.5);
    sceneOf(sequence)->setCroppingBoxOffset(offsets);
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    const sCropBoxOffset box = sceneOf(sequence)->getCroppingBoxOffset();
    const auto* corners = reinterpret_cast<const Vec3f*>(&box);
    EXPECT_EQ(Vec3f(corners[0]).length(), 0.0);
}

TEST_F(LoadFlow, AMarkInAFolderNameMakesTheFileRaw)
{
    const QString path = writeRaw("scan.raw.d/readme.txt");
    EXPECT_TRUE(loadGiven(path));
    EXPECT_EQ(record("S1").fileList, QStringList(path));
}

TEST_F(LoadFlow, AnUmlautInTheNameOpens)
{
    EXPECT_TRUE(loadGiven(writeRaw(QString::fromUtf8("M\xc3\xa4use \xe9\xbc\xa0.raw"))));
}

TEST_F(LoadFlow, OnlyTheFirstFileCounts)
{
    const QString first = writeRaw("b.raw");
    EXPECT_TRUE(palette->onLoadVolumeData({first, writeFile("a.txt", "no volume")}, -1, -1));
    EXPECT_EQ(record("S1").fileList, QStringList(first));
}

TEST_F(LoadFlow, LimitsAreRemembered)
{
    EXPECT_EQ(palette->lowerLimit(), -1);
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, 2, 5));
    EXPECT_EQ(palette->lowerLimit(), 2);
    EXPECT_EQ(palette->upperLimit(), 5);
    EXPECT_TRUE(loadDropped({writeRaw("a.raw")}));
    EXPECT_EQ(palette->lowerLimit(), 2) << "the other entry keeps them";
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(palette->lowerLimit(), -1);
    EXPECT_EQ(palette->upperLimit(), -1);
}

TEST_F(LoadFlow, TheHostHearsInThisOrder)
{
    const QString path = writeRaw("a.raw");
    EXPECT_TRUE(loadGiven(path));  // so that the node is there to be listened to

    QStringList order;
    QObject scope;
    CGLVolume* node = nodeOf(sequence);
    QObject::connect(
        &SequenceRegistry::instance(), &SequenceRegistry::loadedVolumetricDataChanged, &scope, [&] {
            const bool empty = SequenceRegistry::instance().loadedVolumetricData(sequence).isEmpty();
            order.append(empty ? "files cleared" : "files told");
        });
    QObject::connect(node, &C3DVolumeData::volumeDataChanged, &scope, [&] { order.append("voxels"); });
    QObject::connect(node, &C3DObject::transformationChanged, &scope, [&] {
        order.append(QFile::exists(dumpPath("S1")) ? "placed after the dump" : "placed");
    });
    QObject::connect(
        &WindowRegistry::instance(), &WindowRegistry::view3DChanged, &scope,
        [&](CHVSSequenceWindow*, bool clear) { order.append(clear ? "view cleared" : "view changed"); });
    EXPECT_TRUE(QFile::remove(dumpPath("S1")));
    EXPECT_TRUE(loadGiven(path));
    EXPECT_EQ(order, QStringList(
                         {"files cleared", "voxels", "files told", "placed after the dump", "view changed"}));
}

TEST_F(LoadFlow, TheSceneEndsWithTheFocusAndWithoutTools)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    C3DScene* scene = sceneOf(sequence);
    palette->setFocus();
    scene->doMeasureVoxels(true);
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(scene->window()->focusWidget(), scene);
    EXPECT_FALSE(scene->isMeasuring());
}

TEST_F(LoadFlow, AFolderOfThatNameIsReadAndFails)
{
    EXPECT_TRUE(QDir(files.path()).mkdir("scan.raw"));
    EXPECT_FALSE(loadGiven(files.filePath("scan.raw")));
    EXPECT_EQ(host.logged(16), QStringList("Unable to open the selected volume file."));
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_EQ(nodeOf(sequence), nullptr);
}

TEST_F(LoadFlow, TheCursorIsGivenBack)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_FALSE(
        loadGiven(writeFile("cut.raw", "VolumeSize 8 8 8\nVoxelSize 8\nField 1 Format u\n##\f\nxx")));
    EXPECT_EQ(host.cursorDepth, 0);
}

TEST_F(LoadFlow, WithoutASequenceNothingHappens)
{
    CHVVolumeVizPalette lonely;
    EXPECT_FALSE(lonely.onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
    EXPECT_FALSE(lonely.onClickLoadVolumeButton());
    EXPECT_TRUE(host.asked.isEmpty());
    EXPECT_TRUE(host.entries.isEmpty());
}

TEST_F(LoadFlow, AnEmptyListEndsTheLoad)
{
    EXPECT_FALSE(palette->onLoadVolumeData({}, -1, -1));
    EXPECT_TRUE(host.asked.isEmpty());
    EXPECT_TRUE(host.entries.isEmpty());
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(LoadFlow, ANullPathEndsTheLoadQuietly)
{
    EXPECT_FALSE(palette->onLoadVolumeData({QString()}, -1, -1));
    EXPECT_TRUE(host.asked.isEmpty());
    EXPECT_TRUE(host.entries.isEmpty());
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_EQ(nodeOf(sequence), nullptr);
}

TEST_F(LoadFlow, AMissingFileIsUnreadableForTheGivenList)
{
    host.answers = {1024};
    EXPECT_FALSE(loadGiven(files.filePath("none.raw")));
    ASSERT_EQ(host.asked.size(), 1);
    EXPECT_EQ(host.asked.first().kind, HostQuestion::Error);
    EXPECT_EQ(host.asked.first().text, textOf(65));
    EXPECT_EQ(host.asked.first().parent, palette);
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(LoadFlow, AMissingFileIsNamedForADrop)
{
    const QString path = files.filePath("none.raw");
    host.answers = {1024};
    EXPECT_FALSE(loadDropped({path}));
    EXPECT_EQ(host.logged(2), QStringList("Corvane result file not found '" + path + "'."));
    ASSERT_EQ(host.asked.size(), 1);
    EXPECT_EQ(host.asked.first().kind, HostQuestion::Information);
    EXPECT_EQ(host.asked.first().text, QString("Corvane result file not found."));
    ASSERT_EQ(host.asked.first().buttons.size(), 1);
    EXPECT_EQ(host.asked.first().buttons.first().value, 1024);
}

TEST_F(LoadFlow, AFileThatIsNoVolumeIsRefused)
{
    host.answers = {1024};
    EXPECT_FALSE(loadGiven(writeFile("letter.txt", "Dear reader")));
    ASSERT_EQ(host.asked.size(), 1);
    EXPECT_EQ(host.asked.first().kind, HostQuestion::Error);
    EXPECT_EQ(host.asked.first().text, textOf(11));
    EXPECT_EQ(nodeOf(sequence), nullptr);
    EXPECT_TRUE(SequenceRegistry::instance().loadedVolumetricData(sequence).isEmpty());
}

TEST_F(LoadFlow, ARefusedFileLeavesTheOldVolume)
{
    const QString path = writeRaw("a.raw");
    EXPECT_TRUE(loadGiven(path));
    host.answers = {1024};
    EXPECT_FALSE(loadGiven(writeFile("letter.txt", "Dear reader")));
    EXPECT_EQ(nodeOf(sequence)->getDepth(), 6);
    EXPECT_EQ(record("S1").fileList, QStringList(path));
    EXPECT_EQ(SequenceRegistry::instance().loadedVolumetricData(sequence), QStringList(path));
}

TEST_F(LoadFlow, AFailedReadLeavesTheOldVolumeAndTellsTheView)
{
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    const QString cut = writeFile("cut.raw", "VolumeSize 8 8 8\nVoxelSize 8\nField 1 Format u\n##\f\nxx");
    QSignalSpy view(&WindowRegistry::instance(), &WindowRegistry::view3DChanged);
    EXPECT_FALSE(loadGiven(cut));
    EXPECT_EQ(view.count(), 1);
    EXPECT_EQ(host.logged(3), QStringList("Unable to load volume. Insufficient volume data."));
    EXPECT_FALSE(loadDropped({cut}));
    EXPECT_EQ(view.count(), 1) << "the other entry does not tell the view";
    EXPECT_TRUE(host.asked.isEmpty()) << "the reader opens no box";
    EXPECT_EQ(nodeOf(sequence)->getDepth(), 6);
    EXPECT_EQ(readFile(dumpPath("S1")), mappedVoxels({}));
}

TEST_F(LoadFlow, AnAcquisitionKeepsTheFirstEntryAway)
{
    const QString path = writeRaw("a.raw");
    host.beginProcess(0, eProcessAcquisition, false, QString());
    EXPECT_FALSE(loadDropped({path}));
    EXPECT_EQ(host.logged(2),
              QStringList("Unable to load volumetric data - data acquisition/initialization in "
                          "progress. Try again later."));
    EXPECT_EQ(nodeOf(sequence), nullptr);
    EXPECT_TRUE(loadGiven(path)) << "the other entry does not ask";
    host.endProcess(eProcessAcquisition);
}

TEST_F(LoadFlow, AMinimisedWindowComesBackForTheFirstEntryOnly)
{
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(windowOf(sequence)->parentWidget());
    ASSERT_NE(frame, nullptr);
    frame->showMinimized();
    EXPECT_FALSE(palette->onLoadVolumeData({}, -1, -1));
    EXPECT_TRUE(frame->isMinimized());
    EXPECT_FALSE(loadDropped({}));
    EXPECT_FALSE(frame->isMinimized());
}

TEST_F(LoadFlow, ADropCountsAsTheUsersOwnLoad)
{
    EXPECT_TRUE(loadDropped({writeRaw("a.raw")}));
    EXPECT_TRUE(record("S1").bAutoFit);
    EXPECT_TRUE(record("S1").bModified);
}

TEST_F(LoadFlow, TheDialogAsksForFiles)
{
    const QString first = writeRaw("a.raw");
    const QString second = writeRaw("b.raw");
    modal.expect([&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QString("Open 3D Volumetric Data"));
        EXPECT_EQ(dialog->nameFilters().mid(0, 3),
                  QStringList(
                      {"DICOM Volume(*.dcm *.dc3)", "TIFF Volume(*.tif *tiff)", "RAW Volume(*.raw *.vox)"}));
        EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
        dialog->selectNameFilter("RAW Volume(*.raw *.vox)");
        chooseFiles(window, {second, first});
    });
    EXPECT_TRUE(palette->onClickLoadVolumeButton());
    EXPECT_EQ(record("S1").fileList, QStringList(first)) << "sorted";

    modal.expect([&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->directory().absolutePath(), QFileInfo(first).absolutePath());
        chooseFiles(window, {});
    });
    EXPECT_FALSE(palette->onClickLoadVolumeButton());
}

TEST_F(LoadFlow, AnOpticalSequenceCanTakeAVolume)
{
    CHVSSequenceDataset* optical = openCurrent("S2", SequenceKind::Ct);
    EXPECT_TRUE(loadGiven(writeRaw("a.raw")));
    EXPECT_NE(nodeOf(optical), nullptr);
    EXPECT_EQ(nodeOf(sequence), nullptr);
}

TEST_F(LoadFlow, AnUnreadableFileIsToldInBothWays)
{
    const QString path = writeRaw("locked.raw");
    QFile::setPermissions(path, QFileDevice::Permissions());
    if (QFileInfo(path).isReadable()) GTEST_SKIP() << "this user may read everything";
    host.answers = {1024, 1024};
    EXPECT_FALSE(loadGiven(path));
    EXPECT_FALSE(loadDropped({path}));
    const QString text = textOf(65);
    ASSERT_EQ(host.asked.size(), 2);
    EXPECT_EQ(host.asked.at(0).text, text);
    EXPECT_EQ(host.asked.at(1).text, text);
}

TEST_F(LoadFlow, WithoutAWindowTheLoadGoesOnToTheMissingNode)
{
    SequenceDescription hidden;
    hidden.id = "S2";
    hidden.kind = SequenceKind::Ct;
    CHVSSequenceDataset* windowless = SequenceRegistry::instance().add(hidden);
    emit windowless->updateOnChangeSequence();
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S2"));
    EXPECT_FALSE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(host.logged(3),
              QStringList({"Invalid sequence window handle to proceed.",
                           "Failed to create a volume rendering object instance - unable to continue"}));
    EXPECT_FALSE(record("S2").bVolumeLoaded);
}

TEST_F(LoadFlow, AnotherNodeOfThatNameIsNoVolume)
{
    C3DSGManager* graph = sequence->get3DSGManager();
    ASSERT_TRUE(graph->addChild(graph->getRootNode(), new C3DObject("GLVolume")));
    EXPECT_FALSE(loadGiven(writeRaw("a.raw")));
    EXPECT_EQ(host.logged(3),
              QStringList("Failed to create a volume rendering object instance - unable to continue"));
}

TEST_F(LoadFlow, ASequenceThatGoesDuringTheReadEndsTheLoad)
{
    const QString path = writeRaw("a.raw");
    QTimer::singleShot(0, [this] { close(sequence); });  // the reader's progress keeps the events running
    EXPECT_FALSE(loadGiven(path));
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_FALSE(QFile::exists(dumpPath("S1")));
}
