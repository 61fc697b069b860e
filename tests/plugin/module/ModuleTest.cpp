#include "hvapi/plugin/CHVToolPalettePluginBase.h"

#include <gtest/gtest.h>

#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QWidget>

TEST(Module, SaysWhatItIsBeforeItIsLoaded)
{
    const QPluginLoader loader(HVVOLUMEVIZ_FILE);
    const QJsonObject meta = loader.metaData();
    EXPECT_EQ(meta.value("IID").toString(), QString("brt.halvane.hvvolumeviz"));
    EXPECT_EQ(meta.value("className").toString(), QString("CHVVolumeVizPlugin"));
    EXPECT_EQ(meta.value("version").toInt() >> 8, QT_VERSION >> 8);
    EXPECT_FALSE(meta.value("debug").toBool(true));
    EXPECT_TRUE(meta.value("MetaData").toObject().isEmpty());
}

TEST(Module, GivesOneInstanceWithAPalette)
{
    QPluginLoader loader(HVVOLUMEVIZ_FILE);
    QObject* instance = loader.instance();
    ASSERT_NE(instance, nullptr) << loader.errorString().toStdString();
    auto* plugin = qobject_cast<CHVToolPalettePluginBase*>(instance);
    ASSERT_NE(plugin, nullptr);
    QPluginLoader again(HVVOLUMEVIZ_FILE);
    EXPECT_EQ(again.instance(), instance);

    plugin->initPlugin();
    EXPECT_EQ(plugin->getPluginName(), QString("3D Corvane Tools"));
    EXPECT_EQ(plugin->getActionIcon().size(), QSize(20, 20)) << "the pixmaps are in the module";
    const QPointer<QWidget> palette = plugin->getPaletteWidget();
    EXPECT_FALSE(palette.isNull());
    EXPECT_FALSE(again.unload()) << "the first loader still holds it";
    EXPECT_TRUE(loader.unload());
    EXPECT_TRUE(palette.isNull()) << "the palette goes with the plug-in";
}
