#include "gui/PluginBench.h"

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"

#include <QAction>
#include <QApplication>
#include <QMetaMethod>
#include <QSignalSpy>
#include <QTabWidget>

namespace {

class PluginShell : public PluginBench
{};

/// A host that puts no frame round the import dialog has to delete it itself.
void deleteOrphanDialog()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows)
        if (window->inherits("C3DCVImportDialog")) delete window;
}

QTabWidget* tabsOf(CHVSSequenceWindow* window)
{
    return window->findChild<QTabWidget*>();
}

}  // namespace

TEST_F(PluginShell, SaysWhatItIs)
{
    EXPECT_EQ(plugin.getPluginName(), QString("3D Corvane Tools"));
    EXPECT_EQ(plugin.getPluginRank(), 8);
    EXPECT_TRUE(plugin.isPluginAvailable());
    EXPECT_EQ(plugin.getActionCount(), 1);
    EXPECT_EQ(plugin.getActionText(), QString("Browse 3D Volumetric data..."));
    EXPECT_EQ(plugin.getActionGroupName(), QString("Save"));
    const QPixmap icon = plugin.getActionIcon();
    EXPECT_FALSE(icon.isNull());
    EXPECT_EQ(icon.size(), QSize(20, 20));
}

TEST_F(PluginShell, AnswersForItsInterfaces)
{
    EXPECT_EQ(plugin.qt_metacast("CHVVolumeVizPlugin"), &plugin);
    EXPECT_EQ(plugin.qt_metacast("com.Brentis.Halvane.CHVToolPalettePluginBase/1.0"),
              static_cast<CHVToolPalettePluginBase*>(&plugin));
    EXPECT_EQ(plugin.qt_metacast("CHVToolPalettePluginBase"),
              static_cast<CHVToolPalettePluginBase*>(&plugin));
    EXPECT_EQ(plugin.qt_metacast("something else"), nullptr);
}

TEST_F(PluginShell, BuildsTheActionOnce)
{
    QAction* action = plugin.getAction();
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(plugin.getAction(), action);
    EXPECT_EQ(action->parent(), &plugin);
    EXPECT_FALSE(action->isCheckable());
    EXPECT_TRUE(action->isEnabled());
    EXPECT_TRUE(action->isVisible());
    EXPECT_EQ(action->text(), QString("Browse 3D Volumetric data..."));
    EXPECT_EQ(action->objectName(), QString("Browse 3D Volumetric data..."));
    EXPECT_EQ(action->statusTip(), QString("Browse 3D Volumetric data"));
    EXPECT_EQ(action->whatsThis(),
              QString("<b>Browse 3D Volumetric data: </b><br>Browse for 3D Volumetric Data.</br>"));
}

TEST_F(PluginShell, BuildsThePaletteOnce)
{
    ASSERT_NE(palette, nullptr);
    EXPECT_EQ(plugin.getPaletteWidget(), palette);
    EXPECT_EQ(palette->parentWidget(), nullptr);
    EXPECT_FALSE(palette->isModal());
    EXPECT_EQ(palette->VolumeVizTabWidget->maximumWidth(), 270);
}

TEST_F(PluginShell, HasItsSignalAndSlotsInOrder)
{
    const QStringList expected = {
        "signaLoadSelectedFileList(QStringList,int,int)",
        "onSignalDatasetChanged(CHVSDataset*)",
        "onSignalSequenceChanged(CHVSSequenceDataset*)",
        "onSignalDatasetRemoved(CHVSDataset*)",
        "onSignalSequenceAdded(CHVSSequenceDataset*)",
        "onSignalSequenceRemoved(CHVSSequenceDataset*)",
        "onSignalUpdatePluginPalette(QString)",
        "onSignalUpdateValidity(QWidget*,bool)",
        "onSignalAskToSaveResults()",
        "onSignalLoadFile(QString,bool,tag_estatus*,downloaded_save_data*)",
        "onSignalLoadFile(QString,bool,tag_estatus*)",
        "onSignalAddWidgetToWorkspace(QWidget*)",
        "onSignalCopyToClipboard(QString)",
        "loadSelectedFileList(QStringList,int,int)",
        "onDatasetSavedSignal()",
        "onLoadResultsSignal(QString,QString)",
        "onLoadButtonClicked()",
        "onSignalTransformObjectChanged(QString)",
        "onToolPalettePluginStatusModified(ETOOLPALETTE_PLUGIN_STATUS_MODIFIER)",
        "onSignal3DViewChanged(bool)",
        "onSequencePropertyChanged(CHVSSequenceDataset*)",
        "onSignaldicomLoadingFailed()",
    };
    const QMetaObject& meta = CHVVolumeVizPlugin::staticMetaObject;
    QStringList found;
    for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
        found.append(QString::fromLatin1(meta.method(i).methodSignature()));
        EXPECT_EQ(meta.method(i).methodType(), found.size() == 1 ? QMetaMethod::Signal : QMetaMethod::Slot);
    }
    EXPECT_EQ(found, expected);
}

TEST_F(PluginShell, WithoutAPaletteSlotsDoNothing)
{
    CHVVolumeVizPlugin bare;
    bare.initPlugin();
    QSignalSpy told(&bare, &CHVToolPalettePluginBase::updatePluginValidity);
    CHVSSequenceDataset* sequence = open("S1");
    bare.onSignalDatasetChanged(nullptr);
    bare.onSignalSequenceChanged(sequence);
    bare.onSignalSequenceAdded(sequence);
    bare.onSignalSequenceRemoved(sequence);
    bare.onSignalUpdatePluginPalette("3D View");
    bare.loadSelectedFileList({"/nowhere/a.raw"}, -1, -1);
    bare.onSignal3DViewChanged(true);
    bare.onSequencePropertyChanged(sequence);
    bare.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_VOLUME);
    bare.onPluginAction();
    EXPECT_EQ(told.count(), 0);
    deleteOrphanDialog();
}

TEST_F(PluginShell, ValidityFollowsTheSequence)
{
    plugin.onSignalSequenceChanged(open("S1", SequenceKind::Scene3D));
    plugin.onSignalSequenceChanged(open("S2", SequenceKind::Sla));
    plugin.onSignalSequenceChanged(open("S3", SequenceKind::Ct));
    plugin.onSignalSequenceChanged(open("S4", SequenceKind::Other));
    EXPECT_EQ(validity, QList<bool>({true, true, true, false}));
}

TEST_F(PluginShell, BothTabsOfTheWindowEnableThePalette)
{
    CHVSSequenceDataset* sequence = openCurrent("S1", SequenceKind::Sla);
    QTabWidget* tabs = tabsOf(windowOf(sequence));
    ASSERT_NE(tabs, nullptr);
    tabs->setCurrentIndex(0);
    validity.clear();
    plugin.onSignalSequenceChanged(sequence);
    tabs->setCurrentIndex(1);
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_EQ(validity, QList<bool>({true, true}));
}

TEST_F(PluginShell, ATabNameEnablesOrDisablesThePalette)
{
    openCurrent("S1");
    validity.clear();
    plugin.onSignalUpdatePluginPalette("Sequence View");
    plugin.onSignalUpdatePluginPalette("SEQUENCE VIEW");
    plugin.onSignalUpdatePluginPalette("3d view");
    plugin.onSignalUpdatePluginPalette("Unmixing");
    plugin.onSignalUpdatePluginPalette("");
    EXPECT_EQ(validity, QList<bool>({true, true, true, false, false}));
}

TEST_F(PluginShell, ATabNameNeverEnablesAnInvalidPalette)
{
    openCurrent("S1", SequenceKind::Other);
    validity.clear();
    plugin.onSignalUpdatePluginPalette("3D View");
    EXPECT_EQ(validity, QList<bool>({false}));
}

TEST_F(PluginShell, ADatasetOutsideSequencesDisablesThePalette)
{
    openCurrent("S1");
    validity.clear();
    CHVSDataset* dataset = SequenceRegistry::instance().addDataset("CLICK1");
    ASSERT_NE(dataset, nullptr);
    plugin.onSignalDatasetChanged(dataset);
    EXPECT_EQ(validity, QList<bool>({false}));
    plugin.onSignalDatasetRemoved(dataset);
    EXPECT_EQ(validity, QList<bool>({false}));
    SequenceRegistry::instance().removeDataset(dataset);
}

TEST_F(PluginShell, AChangedPropertyDecidesAnew)
{
    CHVSSequenceDataset* sequence = openCurrent("S1", SequenceKind::Sla);
    validity.clear();
    SequenceDescription other = SequenceRegistry::instance().description(sequence);
    other.kind = SequenceKind::Other;
    SequenceRegistry::instance().change(sequence, other);
    other.kind = SequenceKind::Ct;
    SequenceRegistry::instance().change(sequence, other);
    EXPECT_EQ(validity, QList<bool>({false, true}));
}

TEST_F(PluginShell, AFileRequestLosesTheDownloadData)
{
    tag_estatus status = eStatusSuccess;
    downloaded_save_data* const data = reinterpret_cast<downloaded_save_data*>(&status);
    int calls = 0;
    QObject::connect(&plugin, &CHVToolPalettePluginBase::signalLoadFile, &plugin,
                     [&](QString path, bool show, tag_estatus* result, downloaded_save_data* passed) {
                         ++calls;
                         EXPECT_EQ(path, QString("/data/SequenceInfo.txt"));
                         EXPECT_TRUE(show);
                         EXPECT_EQ(result, &status);
                         EXPECT_EQ(passed, nullptr);
                     });
    plugin.onSignalLoadFile("/data/SequenceInfo.txt", true, &status, data);
    plugin.onSignalLoadFile("/data/SequenceInfo.txt", true, &status);
    EXPECT_EQ(calls, 2);
}

TEST_F(PluginShell, PassesOnWhatThePaletteAsks)
{
    QWidget widget;
    QSignalSpy workspaceAsked(&plugin, &CHVToolPalettePluginBase::addWidgetToWorkspace);
    QSignalSpy failed(&plugin, &CHVToolPalettePluginBase::loadingFailed);
    emit palette->addToWorkspace(&widget);
    emit palette->dicomLoadingFailed();
    ASSERT_EQ(workspaceAsked.count(), 1);
    EXPECT_EQ(workspaceAsked.first().first().value<QWidget*>(), &widget);
    EXPECT_EQ(failed.count(), 1);
}

TEST_F(PluginShell, ItsOwnSignalLoadsAFileList)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    emit plugin.signaLoadSelectedFileList({writeRaw("a.raw")}, -1, -1);
    EXPECT_TRUE(record("S1").bVolumeLoaded);
    EXPECT_NE(nodeOf(sequence), nullptr);
}

TEST_F(PluginShell, TheHostCanAskForATool)
{
    QTabWidget* tabs = palette->VolumeVizTabWidget;
    const struct
    {
        ETOOLPALETTE_PLUGIN_STATUS_MODIFIER request;
        int orientation;
    } rows[] = {{ETOOLPALETTE_SHOW_SLICE_SAGITTAL, 2},
                {ETOOLPALETTE_SHOW_SLICE_TRANSAXIAL, 1},
                {ETOOLPALETTE_SHOW_SLICE_CORONAL, 0}};
    for (const auto& row : rows) {
        plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_VOLUME);
        EXPECT_EQ(tabs->currentWidget(), palette->volumeTab);
        plugin.onToolPalettePluginStatusModified(row.request);
        EXPECT_EQ(tabs->currentWidget(), palette->sliceTab);
        EXPECT_EQ(palette->m_pSliceOrientation->currentIndex(), row.orientation);
    }
    plugin.onToolPalettePluginStatusModified(static_cast<ETOOLPALETTE_PLUGIN_STATUS_MODIFIER>(77));
    EXPECT_EQ(tabs->currentWidget(), palette->sliceTab);
}

TEST_F(PluginShell, ItsActionAsksNothingOnAFitSystem)
{
    plugin.onPluginAction();
    EXPECT_TRUE(host.asked.isEmpty());
    deleteOrphanDialog();
}

TEST(PluginShellAlone, ThePaletteGoesWithThePlugin)
{
    RecordingHost host;
    QPointer<QWidget> palette;
    {
        CHVVolumeVizPlugin plugin;
        plugin.initPlugin();
        palette = plugin.getPaletteWidget();
        EXPECT_FALSE(palette.isNull());
    }
    EXPECT_TRUE(palette.isNull());
}
