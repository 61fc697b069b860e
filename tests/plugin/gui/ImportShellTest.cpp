// From the plug-in's action to the load: the shell and its import dialog.

#include "gui/PluginBench.h"

#include "browse/C3DCVImportDialog.h"
#include "browse/CVolBrowseEvents.h"
#include "browse/CVolBrowserInfo.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVProcess.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "render/CGLVolume.h"
#include "support/TiffFiles.h"
#include "support/dicom/DicomBuilder.h"

#include <QAction>
#include <QDir>
#include <QPointer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>

namespace {

/// A window of one image of a sequence.
class ImageWindow : public CHVSChildWindow
{
public:
    explicit ImageWindow(CHVSDataset* dataset)
        : m_dataset(dataset)
    {}
    CHVSDataset* getActiveDataset() override { return m_dataset; }

private:
    CHVSDataset* m_dataset;
};

class ImportShell : public PluginBench
{
protected:
    void SetUp() override
    {
        QObject::connect(&plugin, &CHVToolPalettePluginBase::addWidgetToWorkspace, &workspace,
                         [this](QWidget* widget) {
                             auto* frame = new CHVSMdiSubWindow;
                             frame->setWidget(widget);
                             frame->setAttribute(Qt::WA_DeleteOnClose, false);
                             workspace.addSubWindow(frame);
                             frame->hide();
                         });
        QObject::connect(&plugin, &CHVToolPalettePluginBase::signalCreate3DSceneSequence, &workspace,
                         [this](const QString& name) {
                             created << name;
                             // Later, as the contract has it.
                             QTimer::singleShot(20, &workspace, [this, name] { activate(open(name)); });
                         });
        QObject::connect(&plugin, &CHVVolumeVizPlugin::signaLoadSelectedFileList, &workspace,
                         [this](const QStringList& list, int first, int last) {
                             loads << QString("%1 files, %2 to %3").arg(list.size()).arg(first).arg(last);
                         });
    }

    /// Makes the window of a sequence the active one, as the application does.
    void activate(CHVSSequenceDataset* sequence)
    {
        WindowRegistry::instance().setActive(windowOf(sequence));
        plugin.onSignalSequenceChanged(sequence);
    }

    C3DCVImportDialog* dialog() const { return workspace.findChild<C3DCVImportDialog*>("Corvane Browser"); }

    QString series(const QString& name, unsigned slices)
    {
        const QString folder = files.filePath(name);
        QDir().mkpath(folder);
        EXPECT_EQ(writeDicomSeries(folder, DicomBuilder(), 64, 64, slices, {0, 0, 0}, {0, 0, 1},
                                   [](unsigned x, unsigned, unsigned z) { return x + 100 * z; })
                      .size(),
                  static_cast<int>(slices));
        return folder;
    }

    QString multiFrame(const QString& name, unsigned frames)
    {
        const QString folder = files.filePath(name);
        QDir().mkpath(folder);
        EXPECT_TRUE(DicomBuilder().size(64, 64, frames).write(folder + "/m.dcm"));
        return folder;
    }

    QString pages(const QString& name, unsigned count)
    {
        const QString folder = files.filePath(name);
        QDir().mkpath(folder);
        viz_test::TiffKind kind;
        kind.width = 64;
        kind.height = 64;
        std::vector<std::vector<std::uint32_t>> values;
        for (unsigned page = 0; page < count; ++page)
            values.emplace_back(64 * 64, 10 * (page + 1));
        viz_test::writeTiff(folder + "/p.tif", kind, values);
        return folder;
    }

    /// Opens the dialog by the action and lets it find a folder.
    void choose(const QString& folder, bool isCtData = false)
    {
        if (!dialog()) plugin.onPluginAction();
        ASSERT_TRUE(dialog());
        auto info = std::make_unique<CVolBrowserInfo>();
        info->m_folder = folder;
        info->m_name = QFileInfo(folder).fileName();
        info->m_files = QDir(folder).entryList(QDir::Files, QDir::Name);
        info->m_fileCount = info->m_files.size();
        info->m_isCtDataFolder = isCtData;
        CVolBrowseStartEvent start("Searching...");
        CVolBrowseOneFileCompltdEvent found(std::move(info));
        CVolBrowseEndEvent end("");
        for (QEvent* event :
             {static_cast<QEvent*>(&start), static_cast<QEvent*>(&found), static_cast<QEvent*>(&end)})
            QCoreApplication::sendEvent(dialog(), event);
        ASSERT_TRUE(dialog()->m_pLoadButton->isEnabled());
    }

    void clickLoad() { QTest::mouseClick(dialog()->m_pLoadButton, Qt::LeftButton); }

    int count() const { return SequenceRegistry::instance().sequences().size(); }

    QStringList created;  ///< names of the scenes that were asked for
    QStringList loads;
};

}  // namespace

TEST_F(ImportShell, TheActionOpensTheDialogInASubWindow)
{
    plugin.onPluginAction();
    ASSERT_TRUE(dialog());
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(dialog()->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_TRUE(frame->isVisible() && dialog()->isVisible());
    EXPECT_EQ(workspace.activeSubWindow(), frame);
    EXPECT_TRUE(dialog()->autoFillBackground());
    EXPECT_FALSE(frame->autoFillBackground());
    EXPECT_EQ(frame->size(), dialog()->frameSize().expandedTo(frame->size()));
    EXPECT_FALSE(dialog()->isModal());
}

TEST_F(ImportShell, TheActionBringsTheSameDialogBack)
{
    plugin.onPluginAction();
    C3DCVImportDialog* first = dialog();
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(first->parentWidget());
    frame->close();
    EXPECT_FALSE(first->isVisible());
    plugin.onPluginAction();
    EXPECT_EQ(dialog(), first);
    EXPECT_TRUE(first->isVisible());
    frame->showMinimized();
    plugin.onPluginAction();
    EXPECT_FALSE(frame->isMinimized());
    EXPECT_EQ(workspace.findChildren<C3DCVImportDialog*>().size(), 1);
}

TEST_F(ImportShell, TheDialogGoesWithThePlugin)
{
    auto* other = new CHVVolumeVizPlugin;
    other->initPlugin();
    QObject::connect(other, &CHVToolPalettePluginBase::addWidgetToWorkspace, &workspace,
                     [this](QWidget* widget) {
                         auto* frame = new CHVSMdiSubWindow;
                         frame->setWidget(widget);
                         workspace.addSubWindow(frame);
                     });
    other->onPluginAction();
    const QPointer<C3DCVImportDialog> shown(dialog());
    ASSERT_FALSE(shown.isNull());
    const QPointer<QWidget> frame(shown->parentWidget());
    delete other;
    EXPECT_TRUE(shown.isNull());
    EXPECT_TRUE(frame.isNull());
}

TEST_F(ImportShell, WithNothingSelectedLoadChangesNothing)
{
    plugin.onPluginAction();
    plugin.onLoadButtonClicked();
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(created.isEmpty());
    EXPECT_TRUE(loads.isEmpty());
}

TEST_F(ImportShell, WithoutADialogLoadDoesNothing)
{
    plugin.onLoadButtonClicked();
    EXPECT_TRUE(created.isEmpty());
}

TEST_F(ImportShell, WithoutAWindowASceneIsMadeForTheVolume)
{
    choose(series("s", 4));
    clickLoad();
    ASSERT_EQ(created.size(), 1);
    const QRegularExpression name("^" + QRegularExpression::escape(CHVPreference::getActiveUserName()) +
                                  "\\d{14}_3DS$");
    EXPECT_TRUE(name.match(created[0]).hasMatch()) << created[0].toStdString();
    EXPECT_EQ(loads, QStringList{"4 files, 0 to 3"});
    CHVSSequenceDataset* scene = SequenceRegistry::instance().find(created[0]);
    ASSERT_TRUE(scene);
    EXPECT_TRUE(nodeOf(scene));
    EXPECT_EQ(record(created[0]).fileList.size(), 4);
}

TEST_F(ImportShell, SequencesForLightSourcesCtAndScenesTakeTheVolume)
{
    choose(series("s", 4));
    int number = 0;
    for (SequenceKind const kind : {SequenceKind::Sla, SequenceKind::Ct, SequenceKind::Scene3D}) {
        CHVSSequenceDataset* sequence = openCurrent(QString("S%1").arg(++number), kind);
        activate(sequence);
        clickLoad();
        EXPECT_TRUE(nodeOf(sequence)) << number;
    }
    EXPECT_TRUE(created.isEmpty());
    EXPECT_EQ(loads.size(), 3);
}

TEST_F(ImportShell, AnotherOpticalSequenceIsLeftAlone)
{
    CHVSSequenceDataset* optical = openCurrent("OPTICAL", SequenceKind::Other);
    activate(optical);
    choose(series("s", 4));
    clickLoad();
    EXPECT_EQ(created.size(), 1);
    EXPECT_FALSE(nodeOf(optical));
    EXPECT_EQ(count(), 2);
}

TEST_F(ImportShell, TheBoxAsksForANewWindow)
{
    CHVSSequenceDataset* scene = openCurrent("SCENE");
    activate(scene);
    choose(series("s", 4));
    QTest::mouseClick(dialog()->m_pNewWindowCheckBox, Qt::LeftButton, {}, QPoint(8, 8));
    ASSERT_TRUE(dialog()->isLoadInNewWindow());
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(windowOf(scene)->parentWidget());
    frame->showMinimized();
    WindowRegistry::instance().setActive(windowOf(scene));
    clickLoad();
    EXPECT_EQ(created.size(), 1);
    EXPECT_FALSE(nodeOf(scene));
    EXPECT_TRUE(frame->isMinimized());
}

TEST_F(ImportShell, AMinimisedTargetIsShownAgain)
{
    CHVSSequenceDataset* scene = openCurrent("SCENE");
    choose(series("s", 4));
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(windowOf(scene)->parentWidget());
    frame->showMinimized();
    activate(scene);
    clickLoad();
    EXPECT_FALSE(frame->isMinimized());
    EXPECT_TRUE(nodeOf(scene));
    EXPECT_TRUE(created.isEmpty());
}

TEST_F(ImportShell, AnImageOfASequenceLeadsToItsSequence)
{
    SequenceDescription description;
    description.id = "CLICKS";
    description.kind = SequenceKind::Sla;
    description.clickNumbers = QStringList{"C1"};
    CHVSSequenceDataset* sequence = SequenceRegistry::instance().open(description);
    ASSERT_TRUE(sequence);
    ASSERT_EQ(sequence->getDatasets().size(), 1);
    plugin.onSignalSequenceChanged(sequence);
    choose(series("s", 4));
    ImageWindow image(sequence->getDatasets().first());
    WindowRegistry::instance().setActive(&image);
    dialog()->updateStatusMessage();
    EXPECT_EQ(dialog()->m_pStatusLabel->text(), QString("Data will be loaded in CLICKS."));
    EXPECT_EQ(workspace.activeSubWindow(), windowOf(sequence)->parentWidget());
    WindowRegistry::instance().setActive(&image);
    clickLoad();
    EXPECT_TRUE(nodeOf(sequence));
    EXPECT_TRUE(created.isEmpty());
}

TEST_F(ImportShell, OfASeriesTheFilesOfTheRangeAreLoaded)
{
    activate(openCurrent("S1"));
    choose(series("s", 6));
    dialog()->m_pEndSpinBox->setValue(5);
    dialog()->m_pStartSpinBox->setValue(3);
    clickLoad();
    EXPECT_EQ(loads, QStringList{"3 files, 2 to 4"});
    const QStringList loaded = record("S1").fileList;
    ASSERT_EQ(loaded.size(), 3);
    EXPECT_TRUE(loaded[0].endsWith("slice_002.dcm"));
    EXPECT_TRUE(loaded[2].endsWith("slice_004.dcm"));
    EXPECT_EQ(nodeOf(SequenceRegistry::instance().find("S1"))->getHeight(), 3) << "an axial series";
}

TEST_F(ImportShell, OfAFileOfManyFramesTheRangeIsLoaded)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    activate(sequence);
    choose(multiFrame("m", 8));
    dialog()->m_pStartSpinBox->setValue(4);
    clickLoad();
    EXPECT_EQ(loads, QStringList{"1 files, 3 to 7"});
    EXPECT_EQ(nodeOf(sequence)->getHeight(), 5);
    choose(pages("p", 6));
    dialog()->m_pEndSpinBox->setValue(2);
    clickLoad();
    EXPECT_EQ(loads.last(), QString("1 files, 0 to 1"));
    EXPECT_EQ(nodeOf(sequence)->getHeight(), 2);
}

TEST_F(ImportShell, ASingleFrameIsLoadedAsOne)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    activate(sequence);
    choose(pages("p", 1));
    clickLoad();
    EXPECT_EQ(loads, QStringList{"1 files, 0 to 0"});
    ASSERT_TRUE(nodeOf(sequence));
    EXPECT_EQ(nodeOf(sequence)->getHeight(), 1);
}

TEST_F(ImportShell, ADoubleClickLoadsOnce)
{
    activate(openCurrent("S1"));
    choose(series("s", 4));
    auto* list = dialog()->m_pCompatibleDataList;
    const QPoint place = list->visualRect(list->model()->index(0, 0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(loads.size(), 1);
}

TEST_F(ImportShell, WhileDataAreAcquiredNothingIsLoaded)
{
    choose(series("s", 4));
    CHVProcess::startLongProcess(0, eProcessAcquisition, false, QString());
    clickLoad();
    CHVProcess::endLongProcess(eProcessAcquisition);
    EXPECT_TRUE(loads.isEmpty());
    EXPECT_TRUE(created.isEmpty());
    EXPECT_TRUE(host.logged(2).contains("Unable to load volumetric data - data acquisition/initialization in "
                                        "progress. Try again later."));
}

TEST_F(ImportShell, CtDataOpensItsSequenceInsteadOfALoad)
{
    const QString folder = series("seq/CT Data", 3);
    writeFile("seq/SequenceInfo.txt", "[Sequence]\n");
    QStringList opened;
    QObject::connect(
        &plugin, &CHVToolPalettePluginBase::signalLoadFile, &workspace,
        [&opened](const QString& path, bool show, tag_estatus* status, downloaded_save_data* data) {
            EXPECT_TRUE(show);
            EXPECT_TRUE(status);
            EXPECT_EQ(data, nullptr);
            opened << path;
        });
    activate(openCurrent("S1"));
    choose(folder, true);
    clickLoad();
    EXPECT_EQ(opened, QStringList{files.filePath("seq/SequenceInfo.txt")});
    EXPECT_TRUE(loads.isEmpty());
    ASSERT_TRUE(QFile::remove(files.filePath("seq/SequenceInfo.txt")));
    clickLoad();
    EXPECT_EQ(opened.size(), 1);
    EXPECT_TRUE(loads.isEmpty());
    EXPECT_TRUE(created.isEmpty());
}

TEST_F(ImportShell, ASecondClickDuringTheWaitForASceneCountsForNothing)
{
    choose(series("s", 4));
    QTimer::singleShot(5, &workspace, [this] { clickLoad(); });
    clickLoad();
    EXPECT_EQ(created.size(), 1);
    EXPECT_EQ(loads.size(), 1);
}

TEST_F(ImportShell, ADicomFileAsResultIsLoadedWhole)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    const QString file = multiFrame("m", 5) + "/m.dcm";
    plugin.onLoadResultsSignal("database that is never opened", file);
    ASSERT_TRUE(nodeOf(sequence));
    EXPECT_EQ(nodeOf(sequence)->getHeight(), 5);
    EXPECT_EQ(palette->lowerLimit(), -1);
    EXPECT_EQ(palette->upperLimit(), -1);
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(ImportShell, TheHostCanAskForMaximumIntensity)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    QSignalSpy cleared(palette->m_pClearToolButton, &QAbstractButton::clicked);
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_MAXIMUM_INTENSITY);
    EXPECT_FALSE(palette->m_pMIPCheckBox->isChecked()) << "without a volume its group is not checked";
    ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
    ASSERT_TRUE(palette->m_pVolumeButtonGroup->isChecked());
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_MAXIMUM_INTENSITY);
    EXPECT_TRUE(palette->m_pMIPCheckBox->isChecked());
    EXPECT_TRUE(nodeOf(sequence)->isMIP());
    EXPECT_EQ(cleared.size(), palette->m_pClearToolButton->isEnabled() ? 1 : 0);
}
