#include "app/PluginLoader.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "testing/TestHostServices.h"

#include <QLibrary>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QWidget>

#include <gtest/gtest.h>

namespace {

const QString good = QStringLiteral(TEST_PLUGIN_FOLDER "/good");
const QString bad = QStringLiteral(TEST_PLUGIN_FOLDER "/bad");

TEST(PluginLoader, OrdersPluginsByRank)
{
    TestHostServices host;
    PluginLoader loader;
    loader.load({good});
    ASSERT_EQ(loader.plugins().size(), 2u);
    EXPECT_EQ(loader.plugins()[0].name, QString("Tools of Rank 3"));
    EXPECT_EQ(loader.plugins()[0].rank, 3);
    EXPECT_EQ(loader.plugins()[1].name, QString("Recording Tools"));
    EXPECT_EQ(loader.plugins()[1].rank, 8);
}

TEST(PluginLoader, StartsEachPluginOnce)
{
    TestHostServices host;
    PluginLoader loader;
    loader.load({good, good});
    loader.load({good});
    ASSERT_EQ(loader.plugins().size(), 2u);
    EXPECT_EQ(loader.plugins()[1].instance->property("record").toStringList(), QStringList{"init"});
}

TEST(PluginLoader, LeavesOutAndLogsWhatIsNoGood)
{
    TestHostServices host;
    PluginLoader loader;
    loader.load({bad});
    EXPECT_TRUE(loader.plugins().empty());
    const QStringList warnings = host.messages(2);
    ASSERT_EQ(warnings.size(), 4) << warnings.join('\n').toStdString();
    const QString all = warnings.join('\n');
    for (const char* name : {"declining_plugin", "foreign_plugin", "no_plugin", "throwing_plugin"})
        EXPECT_TRUE(all.contains(name)) << name;
    EXPECT_TRUE(all.contains("no licence for this machine")) << "what a plug-in throws is told";
}

TEST(PluginLoader, ABadPluginDoesNotKeepAGoodOneOut)
{
    TestHostServices host;
    PluginLoader loader;
    loader.load({bad, good});
    EXPECT_EQ(loader.plugins().size(), 2u);
}

TEST(PluginLoader, AFileThatOnlyLooksLikeALibraryIsLeftOut)
{
    TestHostServices host;
    const QTemporaryDir folder;
    QFile file(folder.filePath("broken.so"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no machine code");
    file.close();
    PluginLoader loader;
    loader.load({folder.path(), folder.filePath("none")});
    EXPECT_TRUE(loader.plugins().empty());
    EXPECT_EQ(host.messages(2).size(), 1);
}

TEST(PluginLoader, PassesOnWhatPluginsAskFor)
{
    TestHostServices host;
    PluginLoader loader;
    loader.load({good});
    CHVToolPalettePluginBase* plugin = loader.plugins()[1].instance;

    QSignalSpy scene(&loader, &PluginLoader::create3DSceneSequenceRequested);
    QSignalSpy window(&loader, &PluginLoader::workspaceWindowRequested);
    QSignalSpy validity(&loader, &PluginLoader::paletteValidityChanged);
    QSignalSpy failed(&loader, &PluginLoader::loadingFailed);
    emit plugin->signalCreate3DSceneSequence(QStringLiteral("name_3DS"));
    emit plugin->addWidgetToWorkspace(nullptr);
    emit plugin->updatePluginValidity(plugin->getPaletteWidget(), true);
    emit plugin->loadingFailed();
    ASSERT_EQ(scene.count(), 1);
    EXPECT_EQ(scene[0][0].toString(), QString("name_3DS"));
    EXPECT_EQ(window.count(), 1);
    ASSERT_EQ(validity.count(), 1);
    EXPECT_TRUE(validity[0][1].toBool());
    EXPECT_EQ(failed.count(), 1);

    QObject::connect(&loader, &PluginLoader::loadFileRequested,
                     [](const QString& path, bool show, tag_estatus* status) {
                         EXPECT_EQ(path, QString("/data/SequenceInfo.txt"));
                         EXPECT_TRUE(show);
                         *status = eStatusSuccess;
                     });
    tag_estatus status = eStatusFailed;
    emit plugin->signalLoadFile(QStringLiteral("/data/SequenceInfo.txt"), true, &status, nullptr);
    EXPECT_EQ(status, eStatusSuccess);
}

TEST(PluginLoader, EndsThePluginsWithTheirPalettes)
{
    TestHostServices host;
    QPointer<QObject> plugin;
    QPointer<QWidget> palette;
    {
        PluginLoader loader;
        loader.load({good});
        plugin = loader.plugins()[1].instance;
        palette = loader.plugins()[1].instance->getPaletteWidget();
    }
    EXPECT_TRUE(plugin.isNull());
    EXPECT_TRUE(palette.isNull());
}

TEST(PluginLoader, LooksWhereTheEnvironmentSaysElseBesideTheProgram)
{
    qputenv("HALVANE_PLUGIN_PATH", "/a:/b c");
    EXPECT_EQ(PluginLoader::searchPath(), (QStringList{"/a", "/b c"}));
    qunsetenv("HALVANE_PLUGIN_PATH");
    const QStringList usual = PluginLoader::searchPath();
    ASSERT_EQ(usual.size(), 1);
    EXPECT_TRUE(usual[0].endsWith("/plugins"));
    EXPECT_FALSE(usual[0].contains(".."));
}

}  // namespace
