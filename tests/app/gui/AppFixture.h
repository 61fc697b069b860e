#pragma once

#include "app/ApplicationServices.h"
#include "app/MainWindow.h"
#include "app/Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "lib/hvutils/HostServices.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

// What a failed comparison shows.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
inline void PrintTo(const QStringList& texts, std::ostream* out)
{
    *out << '[' << texts.join(QStringLiteral(" | ")).toStdString() << ']';
}

/// The main window with the recording plug-in, its data and settings in a folder of the test's own.
class AppFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("HALVANE_HOME", m_home.path().toLocal8Bit());
        m_services = std::make_unique<ApplicationServices>(ApplicationServices::Mode::Attended);
        HostServices::install(m_services.get());
        makeWindow();
    }

    void TearDown() override
    {
        m_window.reset();
        HostServices::install(nullptr);
        m_services.reset();
    }

    void makeWindow()
    {
        m_window.reset();
        m_window = std::make_unique<MainWindow>(*m_services);
        m_window->startPlugins({QStringLiteral(TEST_PLUGIN_FOLDER "/good")});
    }

    CHVToolPalettePluginBase* plugin() const
    {
        for (const LoadedPlugin& loaded : m_window->plugins().plugins()) {
            if (loaded.name == QStringLiteral("Recording Tools")) return loaded.instance;
        }
        ADD_FAILURE() << "the recording plug-in was not loaded";
        return nullptr;
    }

    /// What the plug-in was told since the last call.
    QStringList takeRecord() const
    {
        const QStringList record = plugin()->property("record").toStringList();
        plugin()->setProperty("record", QStringList());
        return record;
    }

    bool isPaletteEnabled() const { return plugin()->getPaletteWidget()->isEnabled(); }

    QStringList logTexts(int severity) const
    {
        QStringList texts;
        LogModel& log = m_window->log();
        for (int row = 0; row < log.rowCount(); ++row) {
            if (log.entry(row).severity == severity) texts << log.entry(row).message;
        }
        return texts;
    }

    QTemporaryDir m_home;
    std::unique_ptr<ApplicationServices> m_services;
    std::unique_ptr<MainWindow> m_window;
};
