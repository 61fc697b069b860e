#pragma once

#include "hvutils/tag_estatus.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class CHVSDataset;
class CHVSSequenceDataset;
class CHVToolPalettePluginBase;
class QPluginLoader;
struct downloaded_save_data;

/// A plug-in that is ready for work.
struct LoadedPlugin
{
    QString file;  ///< absolute path of its library
    QString name;
    int rank = 0;
    CHVToolPalettePluginBase* instance = nullptr;  ///< owned by the loader
};

/// Finds and starts the tool-palette plug-ins, and passes on what they ask of the application.
///
/// A library that is no plug-in, implements another interface, declines or throws is logged and left out.
class PluginLoader : public QObject
{
    Q_OBJECT

public:
    explicit PluginLoader(QObject* parent = nullptr);
    /// Ends the plug-ins, the last one first. Their libraries stay in memory, since Qt may still know types
    /// of theirs.
    ~PluginLoader() override;

    /// The folders of HALVANE_PLUGIN_PATH, or else "plugins" beside the folder of the program.
    static QStringList searchPath();

    /// Loads every plug-in in these folders that is not loaded yet. A folder that does not exist holds none.
    void load(const QStringList& folders);

    /// By rank, then by name.
    const std::vector<LoadedPlugin>& plugins() const { return m_plugins; }

    /// The same as what the destructor does.
    void endPlugins();

signals:
    void create3DSceneSequenceRequested(const QString& name);
    void loadFileRequested(const QString& filePath, bool bShow, tag_estatus* status);
    void workspaceWindowRequested(QWidget* widget);
    void paletteValidityChanged(QWidget* palette, bool valid);
    void loadingFailed();

private:
    bool start(QPluginLoader& library);
    void connectRequests(CHVToolPalettePluginBase* plugin);

    std::vector<LoadedPlugin> m_plugins;
};
