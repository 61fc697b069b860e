#include "PluginLoader.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvutils/CHVSLog.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonObject>
#include <QLibrary>
#include <QPluginLoader>
#include <QWidget>

#include <algorithm>
#include <exception>

namespace {

void logText(const QString& text, long severity)
{
    getLogObject()->log(text, QStringLiteral("plug-ins"), 0, QString(), severity, false);
}

void logSkipped(const QString& file, const QString& reason)
{
    logText(QStringLiteral("Plug-in '%1' is left out: %2").arg(QFileInfo(file).fileName(), reason),
            CHVSLog::eWarning);
}

}  // namespace

PluginLoader::PluginLoader(QObject* parent)
    : QObject(parent)
{}

PluginLoader::~PluginLoader()
{
    endPlugins();
}

QStringList PluginLoader::searchPath()
{
    const QString chosen = qEnvironmentVariable("HALVANE_PLUGIN_PATH");
    if (!chosen.isEmpty()) return chosen.split(QDir::listSeparator(), Qt::SkipEmptyParts);
    return {QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../plugins"))};
}

void PluginLoader::load(const QStringList& folders)
{
    for (const QString& folder : folders) {
        const QFileInfoList files = QDir(folder).entryInfoList(QDir::Files, QDir::Name);
        for (const QFileInfo& info : files) {
            const QString file = info.canonicalFilePath();
            const auto isLoaded = [&file](const LoadedPlugin& plugin) { return plugin.file == file; };
            if (!QLibrary::isLibrary(file) || std::any_of(m_plugins.begin(), m_plugins.end(), isLoaded))
                continue;
            QPluginLoader library(file);
            if (library.metaData().value(QStringLiteral("IID")).toString().isEmpty()) {
                logSkipped(file, QStringLiteral("it is no plug-in."));
                continue;
            }
            try {
                if (!start(library)) library.unload();
            } catch (const std::exception& failure) {
                logSkipped(file, QStringLiteral("it failed at its start (%1).")
                                     .arg(QString::fromLocal8Bit(failure.what())));
            } catch (...) {
                logSkipped(file, QStringLiteral("it failed at its start."));
            }
        }
    }
    std::stable_sort(m_plugins.begin(), m_plugins.end(), [](const LoadedPlugin& a, const LoadedPlugin& b) {
        return a.rank != b.rank ? a.rank < b.rank : a.name < b.name;
    });
}

bool PluginLoader::start(QPluginLoader& library)
{
    QObject* object = library.instance();
    if (!object) {
        logSkipped(library.fileName(), library.errorString());
        return false;
    }
    auto* plugin = qobject_cast<CHVToolPalettePluginBase*>(object);
    if (!plugin) {
        logSkipped(library.fileName(), QStringLiteral("it offers no tool palette."));
        return false;
    }
    plugin->initPlugin();
    LoadedPlugin loaded{QFileInfo(library.fileName()).canonicalFilePath(), plugin->getPluginName(),
                        plugin->getPluginRank(), plugin};
    if (!plugin->isBaseModuleAvailable() || !plugin->isPluginAvailable()) {
        logSkipped(library.fileName(), QStringLiteral("it can't work on this system."));
        return false;
    }
    connectRequests(plugin);
    logText(QStringLiteral("Plug-in '%1' loaded.").arg(loaded.name), CHVSLog::eInformation);
    m_plugins.push_back(std::move(loaded));
    return true;
}

void PluginLoader::connectRequests(CHVToolPalettePluginBase* plugin)
{
    using Base = CHVToolPalettePluginBase;
    connect(plugin, &Base::signalCreate3DSceneSequence, this, &PluginLoader::create3DSceneSequenceRequested);
    // what a download brought along says nothing to this application
    connect(plugin, &Base::signalLoadFile, this,
            [this](const QString& path, bool show, tag_estatus* status, downloaded_save_data*) {
                emit loadFileRequested(path, show, status);
            });
    connect(plugin, &Base::addWidgetToWorkspace, this, &PluginLoader::workspaceWindowRequested);
    connect(plugin, &Base::updatePluginValidity, this, &PluginLoader::paletteValidityChanged);
    connect(plugin, &Base::loadingFailed, this, &PluginLoader::loadingFailed);
}

void PluginLoader::endPlugins()
{
    while (!m_plugins.empty()) {
        CHVToolPalettePluginBase* plugin = m_plugins.back().instance;
        m_plugins.pop_back();
        delete plugin;
    }
}
