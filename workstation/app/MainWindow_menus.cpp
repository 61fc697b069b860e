// The menus and tool bar of the main window, and what they do.

#include "MainWindow.h"

#include "ApplicationServices.h"
#include "CommandLine.h"
#include "Icons.h"
#include "LogDock.h"
#include "PaletteDock.h"
#include "PictureFile.h"
#include "TurntableCommand.h"
#include "Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>

namespace {

/// Groups of the file menu beside which a plug-in's action may stand.
const QString groupNew = QStringLiteral("New");
const QString groupOpen = QStringLiteral("Open");
const QString groupSave = QStringLiteral("Save");

}  // namespace

void MainWindow::buildMenus()
{
    m_pToolBar = addToolBar(QStringLiteral("Main tool bar"));
    m_pToolBar->setObjectName(QStringLiteral("MainToolBar"));
    m_pToolBar->setIconSize(QSize(18, 18));
    m_pToolBar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_pToolBar->setMovable(false);
    buildFileMenu();
    buildViewMenu();
    m_pToolsMenu = menuBar()->addMenu(QStringLiteral("&Tools"));
    m_pToolsMenu->menuAction()->setVisible(false);
    buildWindowMenu();
    QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
    QAction* about =
        addAction(*help, Icons::make(Icons::Shape::Information), QStringLiteral("&About Halvane"),
                  QStringLiteral("ActionAbout"), QStringLiteral("Version and purpose of the program"));
    connect(about, &QAction::triggered, this, &MainWindow::showAbout);
}

QAction* MainWindow::addAction(QMenu& menu, const QIcon& icon, const QString& text, const QString& name,
                               const QString& tip)
{
    QAction* action = menu.addAction(icon, text);
    action->setObjectName(name);
    action->setStatusTip(tip);
    return action;
}

void MainWindow::buildFileMenu()
{
    m_pFileMenu = menuBar()->addMenu(QStringLiteral("&File"));
    QAction* create =
        addAction(*m_pFileMenu, Icons::make(Icons::Shape::NewScene), QStringLiteral("&New 3D Scene"),
                  QStringLiteral("ActionNewScene"), QStringLiteral("Make an empty 3D scene"));
    create->setShortcut(QKeySequence::New);
    connect(create, &QAction::triggered, this, &MainWindow::newScene);
    m_groupEnds.insert(groupNew, m_pFileMenu->addSeparator());

    QAction* open =
        addAction(*m_pFileMenu, Icons::make(Icons::Shape::Open), QStringLiteral("&Open Volume..."),
                  QStringLiteral("ActionOpenVolume"), QStringLiteral("Load a volume into the active scene"));
    open->setShortcut(QKeySequence::Open);
    connect(open, &QAction::triggered, this, &MainWindow::chooseVolume);
    QAction* openSequence = addAction(
        *m_pFileMenu, Icons::make(Icons::Shape::Open), QStringLiteral("Open Se&quence..."),
        QStringLiteral("ActionOpenSequence"), QStringLiteral("Open an image sequence with its volume"));
    openSequence->setShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::SHIFT | Qt::Key_O));
    connect(openSequence, &QAction::triggered, this, &MainWindow::chooseSequence);
    m_pRecentMenu = m_pFileMenu->addMenu(Icons::make(Icons::Shape::Recent), QStringLiteral("&Recent Files"));
    connect(m_pRecentMenu, &QMenu::aboutToShow, this, &MainWindow::fillRecentMenu);
    m_groupEnds.insert(groupOpen, m_pFileMenu->addSeparator());

    m_pSaveSequence = addAction(*m_pFileMenu, Icons::make(Icons::Shape::Save),
                                QStringLiteral("Sa&ve Sequence"), QStringLiteral("ActionSaveSequence"),
                                QStringLiteral("Write the active sequence to its folder"));
    m_pSaveSequence->setShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::SHIFT | Qt::Key_S));
    connect(m_pSaveSequence, &QAction::triggered, this, &MainWindow::saveSequence);
    QAction* save =
        addAction(*m_pFileMenu, Icons::make(Icons::Shape::Save),
                  QStringLiteral("&Save Picture of the 3D View..."), QStringLiteral("ActionSavePicture"),
                  QStringLiteral("Write what the 3D view shows to a picture file"));
    save->setShortcut(QKeySequence::Save);
    connect(save, &QAction::triggered, this, &MainWindow::savePicture);
    m_sceneActions << save;
    m_pFileMenu->addAction(m_pTurntable->action());
    m_pFileMenu->setToolTipsVisible(true);
    connect(m_pFileMenu, &QMenu::aboutToShow, m_pTurntable, &TurntableCommand::refresh);
    m_groupEnds.insert(groupSave, m_pFileMenu->addSeparator());

    QAction* leave = addAction(*m_pFileMenu, Icons::make(Icons::Shape::Exit), QStringLiteral("E&xit"),
                               QStringLiteral("ActionExit"), QStringLiteral("Close all sequences and leave"));
    leave->setShortcut(QKeySequence::Quit);
    connect(leave, &QAction::triggered, this, &QWidget::close);

    m_pToolBar->addAction(create);
    m_pToolBar->addAction(open);
}

void MainWindow::buildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(QStringLiteral("&View"));
    const struct
    {
        const char* text;
        hvscene::ViewPreset preset;
    } presets[] = {{"&Front", hvscene::ViewPreset::Front},
                   {"&Side", hvscene::ViewPreset::Side},
                   {"&Top", hvscene::ViewPreset::Top},
                   {"&Isometric", hvscene::ViewPreset::Iso}};
    int key = Qt::Key_1;
    for (const auto& entry : presets) {
        QAction* action = menu->addAction(QString::fromLatin1(entry.text));
        action->setShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | key++));
        connect(action, &QAction::triggered, this, [this, preset = entry.preset] { setView(preset); });
        m_sceneActions << action;
    }
    menu->addSeparator();
    menu->addAction(m_pPaletteDock->toggleViewAction());
    menu->addAction(m_pLogDock->toggleViewAction());
    menu->addAction(m_pToolBar->toggleViewAction());
}

void MainWindow::buildWindowMenu()
{
    m_pWindowMenu = menuBar()->addMenu(QStringLiteral("&Window"));
    connect(m_pWindowMenu, &QMenu::aboutToShow, this, &MainWindow::fillWindowMenu);
}

void MainWindow::addPluginAction(CHVToolPalettePluginBase* plugin)
{
    QAction* action = plugin->getActionCount() > 0 ? plugin->getAction() : nullptr;
    if (!action) return;
    if (action->icon().isNull()) action->setIcon(QIcon(plugin->getActionIcon()));
    if (action->text().isEmpty()) action->setText(plugin->getActionText());
    connect(action, &QAction::triggered, plugin, &CHVToolPalettePluginBase::onPluginAction);
    if (QAction* end = m_groupEnds.value(plugin->getActionGroupName())) {
        m_pFileMenu->insertAction(end, action);
    } else {
        m_pToolsMenu->addAction(action);
        m_pToolsMenu->menuAction()->setVisible(true);
    }
    m_pToolBar->addAction(action);
}

void MainWindow::fillRecentMenu()
{
    m_pRecentMenu->clear();
    const QList<QStringList> volumes = m_recent.volumes();
    for (const QStringList& files : volumes) {
        QString title = RecentFiles::title(files);
        title.replace(QLatin1Char('&'), QStringLiteral("&&"));
        QAction* action = m_pRecentMenu->addAction(title);
        connect(action, &QAction::triggered, this, [this, files] { openRecent(files); });
    }
    if (volumes.isEmpty()) {
        m_pRecentMenu->addAction(QStringLiteral("Nothing opened yet"))->setEnabled(false);
        return;
    }
    m_pRecentMenu->addSeparator();
    QAction* clear =
        m_pRecentMenu->addAction(Icons::make(Icons::Shape::Clear), QStringLiteral("Clear This List"));
    connect(clear, &QAction::triggered, this, [this] { m_recent.clear(); });
}

void MainWindow::fillWindowMenu()
{
    m_pWindowMenu->clear();
    const QList<QMdiSubWindow*> windows = m_pWorkspace->shownWindows();
    QAction* tile = addAction(*m_pWindowMenu, Icons::make(Icons::Shape::Tile), QStringLiteral("&Tile"),
                              QStringLiteral("ActionTile"), QStringLiteral("Show all windows side by side"));
    connect(tile, &QAction::triggered, m_pWorkspace, &QMdiArea::tileSubWindows);
    QAction* cascade =
        addAction(*m_pWindowMenu, Icons::make(Icons::Shape::Cascade), QStringLiteral("&Cascade"),
                  QStringLiteral("ActionCascade"), QStringLiteral("Stack all windows"));
    connect(cascade, &QAction::triggered, m_pWorkspace, &QMdiArea::cascadeSubWindows);
    QAction* close =
        addAction(*m_pWindowMenu, Icons::make(Icons::Shape::CloseWindow), QStringLiteral("C&lose"),
                  QStringLiteral("ActionCloseWindow"), QStringLiteral("Close the window in front"));
    connect(close, &QAction::triggered, m_pWorkspace, &QMdiArea::closeActiveSubWindow);
    QAction* closeAll = addAction(*m_pWindowMenu, QIcon(), QStringLiteral("Close &All Sequences"),
                                  QStringLiteral("ActionCloseAll"), QStringLiteral("Close all sequences"));
    connect(closeAll, &QAction::triggered, m_pWorkspace, &Workspace::closeAll);
    for (QAction* action : {tile, cascade, close, closeAll})
        action->setEnabled(!windows.isEmpty());

    m_pWindowMenu->addSeparator();
    for (QMdiSubWindow* window : windows) {
        QString title = window->windowTitle();
        title.replace(QLatin1Char('&'), QStringLiteral("&&"));
        QAction* action = m_pWindowMenu->addAction(title);
        action->setCheckable(true);
        action->setChecked(window == m_pWorkspace->activeSubWindow());
        connect(action, &QAction::triggered, window, [this, window] {
            if (window->isMinimized()) window->showNormal();
            m_pWorkspace->setActiveSubWindow(window);
        });
    }
}

void MainWindow::updateActions()
{
    const bool hasScene = activeScene() != nullptr;
    for (QAction* action : m_sceneActions)
        action->setEnabled(hasScene);
    m_pTurntable->refresh();
    CHVSSequenceDataset* sequence = m_pWorkspace->activeSequence();
    m_pSaveSequence->setEnabled(sequence != nullptr);
    m_pSequenceLabel->setText(sequence ? sequence->getSequenceID() : QStringLiteral("No sequence"));
}

void MainWindow::chooseVolume()
{
    const QStringList files = QFileDialog::getOpenFileNames(
        this, QStringLiteral("Open Volume"), CHVPreference::getSettings()->getRecentFilePath(),
        QStringLiteral("Volumes (*.raw *.vox *.dcm *.dc3 *.tif *.tiff);;All files (*)"));
    if (!files.isEmpty()) openVolume(files);
}

void MainWindow::chooseSequence()
{
    const QString file = QFileDialog::getOpenFileName(this, QStringLiteral("Open Sequence"),
                                                      CHVPreference::getSettings()->getRecentFilePath(),
                                                      QStringLiteral("Sequences (SequenceInfo.txt)"));
    if (!file.isEmpty()) openSequence(file);
}

void MainWindow::openRecent(const QStringList& files)
{
    if (!QFileInfo::exists(files.first())) {
        m_recent.remove(files);
        CHVSErrorHandler::errorMessage(this, eStatusFileNotReadable, files.first());
        return;
    }
    open(files);
}

void MainWindow::savePicture()
{
    C3DScene* scene = activeScene();
    if (!scene) return;
    QString path = QFileDialog::getSaveFileName(
        this, QStringLiteral("Save Picture"), CHVPreference::getSettings()->getRecentFilePath(),
        QStringLiteral("PNG picture (*.png);;JPEG picture (*.jpg);;All files (*)"));
    if (path.isEmpty()) return;
    if (QFileInfo(path).suffix().isEmpty()) path += QStringLiteral(".png");
    // while the dialog was open the scene may have gone with its sequence
    scene = activeScene();
    QString reason;
    if (!scene || !PictureFile::write(ViewControl(*scene).picture(scene->size()), path, reason)) {
        CHVSErrorHandler::errorMessage(this, eStatusFileNotWritable, reason);
        return;
    }
    CHVPreference::getSettings()->setRecentFilePath(path);
    getLogObject()->log(QStringLiteral("Picture saved as '%1'.").arg(path), QString(), 0, QString(),
                        CHVSLog::eStatusLine, false);
}

void MainWindow::showAbout()
{
    QMessageBox::about(
        this, QStringLiteral("About Halvane"),
        QStringLiteral("<h3>Halvane</h3><p>A workstation for preclinical images: optical sequences and "
                       "CT-like volumes side by side.</p><p>%1</p>")
            .arg(versionText().trimmed().toHtmlEscaped()));
}

void MainWindow::setView(hvscene::ViewPreset preset)
{
    if (C3DScene* scene = activeScene()) ViewControl(*scene).setPreset(preset);
}
