#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <QMutex>
#include <QSignalSpy>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

class Plugin : public CHVToolPalettePluginBase
{
    Q_OBJECT
    Q_INTERFACES(CHVToolPalettePluginBase)

public:
    void initPlugin() override {}
    QWidget* getPaletteWidget() override { return nullptr; }
    QString getPluginName() override { return "test"; }
    int getPluginRank() override { return 1; }
};

TEST(ToolPalettePluginBase, AnswersForTheInterface)
{
    Plugin plugin;
    QObject* object = &plugin;
    EXPECT_EQ(qobject_cast<CHVToolPalettePluginBase*>(object), &plugin);
    EXPECT_NE(object->qt_metacast("com.Brentis.Halvane.CHVToolPalettePluginBase/1.0"), nullptr);
    EXPECT_EQ(object->qt_metacast("com.Brentis.Halvane.CHVToolPalettePluginBase/2.0"), nullptr);
}

TEST(ToolPalettePluginBase, HasNoActionsAndIsAvailable)
{
    Plugin plugin;
    EXPECT_TRUE(plugin.getBaseModuleName().isEmpty());
    EXPECT_TRUE(plugin.isBaseModuleAvailable());
    EXPECT_TRUE(plugin.defaultVisibilityForPluggin());
    EXPECT_TRUE(plugin.isPluginAvailable());
    EXPECT_EQ(plugin.getActionCount(), 0);
    EXPECT_EQ(plugin.getAction(), nullptr);
    EXPECT_TRUE(plugin.getActionIcon().isNull());
    EXPECT_TRUE(plugin.getActionText().isEmpty());
    EXPECT_TRUE(plugin.getActionGroupName().isEmpty());
}

TEST(ToolPalettePluginBase, RequestsReachTheHostWhenCalled)
{
    Plugin plugin;
    QObject host;
    QStringList heard;
    tag_estatus status = eStatusFailed;
    QObject::connect(&plugin, &CHVToolPalettePluginBase::signalCreate3DSceneSequence, &host,
                     [&](QString const& name) { heard << "create " + name; });
    QObject::connect(&plugin, &CHVToolPalettePluginBase::signalLoadFile, &host,
                     [&](QString const& path, bool show, tag_estatus* result, downloaded_save_data* data) {
                         heard << QString("load %1 %2 %3").arg(path).arg(show).arg(data == nullptr);
                         *result = eStatusSuccess;
                     });
    QObject::connect(&plugin, &CHVToolPalettePluginBase::loadingFailed, &host, [&] { heard << "failed"; });
    plugin.signalCreate3DSceneSequence("a");
    plugin.signalLoadFile("/x", true, &status, nullptr);
    plugin.loadingFailed();
    EXPECT_EQ(heard, QStringList({"create a", "load /x 1 1", "failed"}));
    EXPECT_EQ(status, 0);
}

TEST(ToolPalettePluginBase, WidgetsAndValidityPassThroughTheirSlots)
{
    Plugin plugin;
    QWidget widget;
    QSignalSpy load(&plugin, &CHVToolPalettePluginBase::signalLoadFile);
    EXPECT_TRUE(load.isValid());
    QSignalSpy workspace(&plugin, &CHVToolPalettePluginBase::addWidgetToWorkspace);
    QSignalSpy validity(&plugin, &CHVToolPalettePluginBase::updatePluginValidity);
    plugin.onSignalAddWidgetToWorkspace(&widget);
    plugin.onSignalUpdateValidity(&widget, true);
    ASSERT_EQ(workspace.size(), 1);
    EXPECT_EQ(workspace.at(0).at(0).value<QWidget*>(), &widget);
    ASSERT_EQ(validity.size(), 1);
    EXPECT_TRUE(validity.at(0).at(1).toBool());
}

TEST(ToolPalettePluginBase, FilesUnitsAndSequencesPassThroughTheirSlots)
{
    Plugin plugin;
    QObject host;
    QStringList heard;
    QObject::connect(&plugin, &CHVToolPalettePluginBase::signalLoadFile, &host,
                     [&](QString const& path) { heard << "load " + path; });
    QObject::connect(
        &plugin, &CHVToolPalettePluginBase::sequenceWindowUnitRequested, &host,
        [&](QString const& id, tag_edisplayunit unit) { heard << QString("%1 %2").arg(id).arg(unit); });
    QObject::connect(&plugin, &CHVToolPalettePluginBase::sequenceRequested, &host,
                     [&](QString const& name, bool show) { heard << QString("%1 %2").arg(name).arg(show); });
    plugin.onSignalLoadFile("/y", false, nullptr, nullptr);
    plugin.signalChangeSeqWndUnit("seq", DISPLAYUNIT_PHOTONS);
    plugin.signalCreateSequence("new", true);
    EXPECT_EQ(heard, QStringList({"load /y", "seq 1", "new 1"}));
}

TEST(ToolPalettePluginBase, EventsWithoutUseChangeNothing)
{
    Plugin plugin;
    int emitted = 0;
    QObject host;
    QObject::connect(&plugin, &CHVToolPalettePluginBase::loadingFailed, &host, [&] { ++emitted; });
    QString path("untouched");
    QMutex mutex;
    plugin.onPluginAction();
    plugin.onSignalSequenceChanged(nullptr);
    plugin.onSignalDatasetChanged(nullptr);
    plugin.onSignalSelectOrganDatabase(path, mutex);
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_MAXIMUM_INTENSITY);
    EXPECT_EQ(path, "untouched");
    EXPECT_TRUE(mutex.tryLock());
    mutex.unlock();
    EXPECT_EQ(emitted, 0);
}

}  // namespace

#include "ToolPalettePluginBaseTest.moc"
