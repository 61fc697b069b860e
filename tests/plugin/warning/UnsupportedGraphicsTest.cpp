// Runs with MESA_GL_VERSION_OVERRIDE=1.4, and again with MESA_EXTENSION_OVERRIDE=-GL_EXT_texture3D.

#include "gui/RecordingHost.h"
#include "plugin/CHVVolumeVizPalette.h"
#include "plugin/CHVVolumeVizPlugin.h"

#include <QCoreApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QTextEdit>
#include <QUrl>
#include <gtest/gtest.h>

namespace {

/// One for the process: the second palette is not tested again.
class UnsupportedGraphics : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        host = new RecordingHost;
        plugin = new CHVVolumeVizPlugin;
        plugin->initPlugin();
        palette = qobject_cast<CHVVolumeVizPalette*>(plugin->getPaletteWidget());
    }
    static void TearDownTestSuite()
    {
        delete plugin;
        delete host;
    }

    static RecordingHost* host;
    static CHVVolumeVizPlugin* plugin;
    static CHVVolumeVizPalette* palette;
};

RecordingHost* UnsupportedGraphics::host = nullptr;
CHVVolumeVizPlugin* UnsupportedGraphics::plugin = nullptr;
CHVVolumeVizPalette* UnsupportedGraphics::palette = nullptr;

}  // namespace

TEST_F(UnsupportedGraphics, ThePaletteIsANotice)
{
    EXPECT_FALSE(palette->is3DCVSupported());
    QTabWidget* tabs = palette->VolumeVizTabWidget;
    ASSERT_EQ(tabs->count(), 1);
    EXPECT_EQ(tabs->tabText(0), QString("Warning"));
    auto* notice = qobject_cast<QTextEdit*>(tabs->widget(0));
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(notice->isReadOnly());
    const QString text = notice->toPlainText();
    EXPECT_TRUE(
        text.contains("This system doesn't meet the minimum requirements for 3D Corvane Tools, due to the "
                      "following reason(s)."));
    EXPECT_TRUE(text.contains("Requires OpenGL 2.0 with GPU shader support."));
    EXPECT_TRUE(text.contains("Requires GL_EXT_texture3D extension."));
    EXPECT_TRUE(
        text.contains(QString::fromUtf8("Please refer to the Halvane\xc2\xae User Guide for this tool's "
                                        "minimum system and graphic card (GPU) requirements.")));
}

TEST_F(UnsupportedGraphics, DropsAreRefused)
{
    EXPECT_FALSE(palette->acceptDrops());
    QMimeData data;
    data.setUrls({QUrl("file:///data/a.raw")});
    QDragEnterEvent enter(QPoint(20, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(palette, &enter);
    EXPECT_FALSE(enter.isAccepted());
}

TEST_F(UnsupportedGraphics, TheActionWarns)
{
    host->answers = {0};
    QSignalSpy wrapped(plugin, &CHVToolPalettePluginBase::addWidgetToWorkspace);
    plugin->onPluginAction();
    EXPECT_EQ(wrapped.size(), 0) << "no import dialog";
    ASSERT_EQ(host->asked.size(), 1);
    const HostQuestion& box = host->asked.first();
    EXPECT_EQ(box.kind, HostQuestion::Warning);
    ASSERT_EQ(box.buttons.size(), 1);
    EXPECT_EQ(box.buttons.first().text, QString("&OK"));
    EXPECT_EQ(box.text,
              QString::fromUtf8(
                  "This system doesn't meet the minimum requirements for '3D Corvane Tools'.\nPlease "
                  "refer to the Halvane\xe2\x84\xa2 User Guide for this tool's minimum system and graphic "
                  "card (GPU) requirements."));
}

TEST_F(UnsupportedGraphics, SequencesAreNotShown)
{
    palette->onSequenceChanged(nullptr);
    palette->onDatasetChanged(nullptr);
    plugin->onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_SLICE_CORONAL);
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(palette, &change);
    EXPECT_EQ(palette->VolumeVizTabWidget->count(), 1);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(UnsupportedGraphics, RenderControlsDoNothing)
{
    palette->onMIPToggled(true);
    palette->onLightingToggled(true);
    palette->onMedianFilterDenoiseToggled(true);
    palette->onBestRenderQualityCheckBoxToggled(true);
    palette->onLevelOfDetailReset();
    EXPECT_EQ(palette->recordOf(QString()), nullptr);
    EXPECT_TRUE(host->entries.isEmpty());
}

TEST_F(UnsupportedGraphics, ASecondPaletteIsNotTested)
{
    CHVVolumeVizPalette second;
    EXPECT_TRUE(second.is3DCVSupported());
    EXPECT_EQ(second.VolumeVizTabWidget->count(), 3);
}
