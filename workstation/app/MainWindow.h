#pragma once

#include "LogModel.h"
#include "PluginLoader.h"
#include "RecentFiles.h"

#include "lib/hvapi/scene/logic/Camera.h"

#include <QHash>
#include <QMainWindow>

class ApplicationServices;
class C3DScene;
class CHVSSequenceDataset;
class LogDock;
class LongProcessDialog;
class PaletteDock;
class QLabel;
class QMenu;
class TurntableCommand;
class Workspace;

/// The workstation's window: the workspace, the tools beside it, the log below it.
///
/// It forwards what happens in the workspace to the plug-ins and what plug-ins ask for to workspace and dock.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    enum class OpenResult
    {
        Loaded,
        Failed,   ///< the log and the user know why
        NoReader  ///< no plug-in loads volumes
    };

    explicit MainWindow(ApplicationServices& services, QWidget* parent = nullptr);
    ~MainWindow() override;

    /// Loads the plug-ins of these folders and takes their palettes and actions in.
    void startPlugins(const QStringList& folders);

    /// Makes a sequence that holds only a 3D scene, called "3D Scene" and a number.
    CHVSSequenceDataset* newScene();

    /// Loads the files, which make one volume, and those of folders (filesMeantBy()), into the active
    /// sequence, or into a new 3D scene when none is active. Paths may be relative to the current folder.
    OpenResult openVolume(const QStringList& files);

    /// Sequences closed, plug-ins ended: nothing of them is left when this returns true. False when that is
    /// refused now.
    bool shutDown();

    /// Opens a sequence when the only path names one, its "SequenceInfo.txt" or its folder; else a volume.
    OpenResult open(const QStringList& paths);

    /// Opens the sequence of a "SequenceInfo.txt" or of its folder, brings it to the front, and loads the
    /// volume that it was saved with or that lies in its "CT Data". Loaded as soon as the sequence is open.
    OpenResult openSequence(const QString& path);

    /// Writes the active sequence; one without a folder asks for its place first. False when it is not on
    /// disk afterwards.
    bool saveSequence();

    /// The 3D view of the active sequence window, or null.
    C3DScene* activeScene() const;

    Workspace& workspace() const { return *m_pWorkspace; }
    PaletteDock& paletteDock() const { return *m_pPaletteDock; }
    LogDock& logDock() const { return *m_pLogDock; }
    LogModel& log() { return m_log; }
    TurntableCommand& turntable() const { return *m_pTurntable; }
    const PluginLoader& plugins() const { return m_plugins; }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void connectServices();
    void connectRequests();
    bool save(CHVSSequenceDataset& sequence);
    bool settleChanges(const QList<CHVSSequenceDataset*>& sequences);
    void takeIn(const LoadedPlugin& plugin);
    void forwardEvents(CHVToolPalettePluginBase* plugin);

    // menus
    void buildMenus();
    void buildFileMenu();
    void buildViewMenu();
    void buildWindowMenu();
    void addPluginAction(CHVToolPalettePluginBase* plugin);
    void fillRecentMenu();
    void fillWindowMenu();
    void updateActions();
    QAction* addAction(QMenu& menu, const QIcon& icon, const QString& text, const QString& name,
                       const QString& tip);

    // what the menus do
    void chooseVolume();
    void chooseSequence();
    bool loadVolume(CHVToolPalettePluginBase& reader, const QStringList& files);
    CHVToolPalettePluginBase* volumeReader() const;
    void openRecent(const QStringList& files);
    void savePicture();
    void showAbout();
    void setView(hvscene::ViewPreset preset);

    void restoreLayout();
    void saveLayout() const;
    void showProcess();

    ApplicationServices& m_services;
    LogModel m_log;
    RecentFiles m_recent;
    Workspace* m_pWorkspace;
    PaletteDock* m_pPaletteDock;
    LogDock* m_pLogDock;
    LongProcessDialog* m_pProcess;
    TurntableCommand* m_pTurntable;
    QLabel* m_pReadoutLabel;
    QLabel* m_pSequenceLabel;
    QToolBar* m_pToolBar = nullptr;
    QMenu* m_pFileMenu = nullptr;
    QMenu* m_pRecentMenu = nullptr;
    QMenu* m_pWindowMenu = nullptr;
    QMenu* m_pToolsMenu = nullptr;
    QHash<QString, QAction*> m_groupEnds;  ///< of the file menu: the separator that ends a group of actions
    QList<QAction*> m_sceneActions;        ///< enabled while a 3D view is in front
    QAction* m_pSaveSequence = nullptr;
    PluginLoader m_plugins;
    int m_sceneNumber = 0;
};
