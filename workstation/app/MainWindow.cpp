#include "MainWindow.h"

#include "ApplicationServices.h"
#include "LogDock.h"
#include "LongProcessDialog.h"
#include "PaletteDock.h"
#include "PathList.h"
#include "TurntableCommand.h"
#include "UnsavedChanges.h"
#include "Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSSettings.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "lib/hvapi/windows/WindowRegistry.h"

#include <QCloseEvent>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>
#include <QUrl>

namespace {

constexpr char loaderSlot[] = "loadSelectedFileList";

bool loadsVolumes(const CHVToolPalettePluginBase* plugin)
{
    return plugin->metaObject()->indexOfSlot("loadSelectedFileList(QStringList,int,int)") >= 0;
}

void logText(const QString& text, long severity)
{
    getLogObject()->log(text, QString(), 0, QString(), severity, false);
}

QStringList localFiles(const QMimeData* data)
{
    QStringList files;
    const QList<QUrl> urls = data->urls();
    for (const QUrl& url : urls) {
        if (url.isLocalFile()) files << url.toLocalFile();
    }
    return files;
}

}  // namespace

MainWindow::MainWindow(ApplicationServices& services, QWidget* parent)
    : QMainWindow(parent)
    , m_services(services)
    , m_recent(services.settings())
    , m_pWorkspace(new Workspace)
    , m_pPaletteDock(new PaletteDock)
    , m_pLogDock(new LogDock(m_log))
    , m_pProcess(new LongProcessDialog(this))
    , m_pTurntable(new TurntableCommand(*this, services))
    , m_pReadoutLabel(new QLabel)
    , m_pSequenceLabel(new QLabel)
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(CHVUtilityFns::getAppName());
    setAcceptDrops(true);
    setCentralWidget(m_pWorkspace);
    // the tools reach down to the bottom, the log lies under the workspace only
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    addDockWidget(Qt::RightDockWidgetArea, m_pPaletteDock);
    addDockWidget(Qt::BottomDockWidgetArea, m_pLogDock);
    resizeDocks({m_pLogDock}, {150}, Qt::Vertical);
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    m_pReadoutLabel->setObjectName(QStringLiteral("ReadoutLabel"));
    m_pReadoutLabel->setAccessibleName(QStringLiteral("Voxel under the mouse"));
    // a long text is cut and does not keep the window wide
    m_pReadoutLabel->setMinimumWidth(1);
    statusBar()->addPermanentWidget(m_pReadoutLabel);
    statusBar()->addPermanentWidget(m_pSequenceLabel);

    buildMenus();
    connectServices();
    connectRequests();
    updateActions();
    restoreLayout();
}

MainWindow::~MainWindow()
{
    m_pWorkspace->closeWhatIsLeft();
    // Plug-ins hold palettes and windows of ours: they go while all of it exists.
    m_plugins.endPlugins();
}

void MainWindow::connectServices()
{
    connect(&m_services, &ApplicationServices::logged, &m_log, &LogModel::add);
    connect(&m_services, &ApplicationServices::statusLine, statusBar(),
            [this](const QString& text) { statusBar()->showMessage(text); });
    connect(
        &m_services, &ApplicationServices::boxWanted, this,
        [this](const LogEntry& entry) {
            HostQuestion box;
            box.kind = entry.severity == CHVSLog::eError     ? HostQuestion::Error
                       : entry.severity == CHVSLog::eWarning ? HostQuestion::Warning
                                                             : HostQuestion::Information;
            box.parent = this;
            box.title = CHVUtilityFns::getAppName();
            box.text = entry.message;
            box.buttons = {{1024, QString()}};
            box.escapeValue = 1024;
            m_services.ask(box);
        },
        Qt::QueuedConnection);
    if (m_services.mode() == ApplicationServices::Mode::Attended) {
        connect(&m_services, &ApplicationServices::processStateChanged, this, &MainWindow::showProcess);
        connect(m_pProcess, &LongProcessDialog::abortRequested, this, [this] { m_services.requestAbort(); });
    }
}

void MainWindow::connectRequests()
{
    connect(&m_plugins, &PluginLoader::create3DSceneSequenceRequested, m_pWorkspace, &Workspace::createScene);
    connect(&m_plugins, &PluginLoader::loadFileRequested, this,
            [this](const QString& path, bool, tag_estatus* status) {
                const OpenResult result = open({path});
                if (status) *status = result == OpenResult::Loaded ? eStatusSuccess : eStatusFailed;
            });
    connect(&m_plugins, &PluginLoader::workspaceWindowRequested, m_pWorkspace, &Workspace::addTool);
    connect(&m_plugins, &PluginLoader::paletteValidityChanged, m_pPaletteDock, &PaletteDock::setValidity);
    connect(&m_plugins, &PluginLoader::loadingFailed, this,
            [] { logText(QStringLiteral("The volume could not be loaded."), CHVSLog::eStatusLine); });
    m_pWorkspace->setSettler(
        [this](const QList<CHVSSequenceDataset*>& sequences) { return settleChanges(sequences); });
    connect(m_pWorkspace, &Workspace::sequenceChanged, this, &MainWindow::updateActions);
    connect(m_pWorkspace, &Workspace::tabChanged, this, &MainWindow::updateActions);
    connect(&WindowRegistry::instance(), &WindowRegistry::readoutTold, this,
            [this](CHVSSequenceWindow*, const QString& text) { m_pReadoutLabel->setText(text); });
    // a view that goes says nothing any more
    connect(m_pWorkspace, &Workspace::sequenceAboutToBeRemoved, m_pReadoutLabel, &QLabel::clear);
    connect(m_pWorkspace, &Workspace::sequenceChanged, m_pReadoutLabel, &QLabel::clear);
}

void MainWindow::startPlugins(const QStringList& folders)
{
    const std::size_t before = m_plugins.plugins().size();
    m_plugins.load(folders);
    for (const LoadedPlugin& plugin : m_plugins.plugins())
        takeIn(plugin);
    if (before == 0 && m_plugins.plugins().empty())
        logText(QStringLiteral("No plug-in was found in %1.").arg(folders.join(QStringLiteral(", "))),
                CHVSLog::eWarning);
}

void MainWindow::takeIn(const LoadedPlugin& plugin)
{
    if (plugin.instance->property("halvaneTakenIn").toBool()) return;
    plugin.instance->setProperty("halvaneTakenIn", true);
    try {
        if (QWidget* palette = plugin.instance->getPaletteWidget())
            m_pPaletteDock->addPalette(palette, plugin.name, plugin.rank,
                                       plugin.instance->defaultVisibilityForPluggin());
        addPluginAction(plugin.instance);
    } catch (...) {
        logText(QStringLiteral("Plug-in '%1' failed when its palette was made.").arg(plugin.name),
                CHVSLog::eError);
        return;
    }
    forwardEvents(plugin.instance);
}

void MainWindow::forwardEvents(CHVToolPalettePluginBase* plugin)
{
    using Base = CHVToolPalettePluginBase;
    connect(m_pWorkspace, &Workspace::sequenceAdded, plugin, &Base::onSignalSequenceAdded);
    connect(m_pWorkspace, &Workspace::sequenceAboutToBeRemoved, plugin, &Base::onSignalSequenceRemoved);
    connect(m_pWorkspace, &Workspace::sequenceChanged, plugin, &Base::onSignalSequenceChanged);
    connect(m_pWorkspace, &Workspace::tabChanged, plugin, &Base::onSignalUpdatePluginPalette);
    connect(m_pWorkspace, &Workspace::view3DChanged, plugin, &Base::onSignal3DViewChanged);
    connect(m_pWorkspace, &Workspace::transformObjectChanged, plugin, &Base::onSignalTransformObjectChanged);
    connect(&SequenceRegistry::instance(), &SequenceRegistry::datasetAboutToBeRemoved, plugin,
            &Base::onSignalDatasetRemoved);
}

CHVSSequenceDataset* MainWindow::newScene()
{
    QString name;
    do {
        name = QStringLiteral("3D Scene %1").arg(++m_sceneNumber);
    } while (CHVSSequenceDataset::getSequenceDataset(name));
    return m_pWorkspace->createScene(name);
}

CHVToolPalettePluginBase* MainWindow::volumeReader() const
{
    for (const LoadedPlugin& plugin : m_plugins.plugins()) {
        if (loadsVolumes(plugin.instance)) return plugin.instance;
    }
    return nullptr;
}

MainWindow::OpenResult MainWindow::open(const QStringList& paths)
{
    const bool isSequence = paths.size() == 1 && !SequenceStore::infoFile(paths.first()).isEmpty();
    return isSequence ? openSequence(paths.first()) : openVolume(paths);
}

MainWindow::OpenResult MainWindow::openSequence(const QString& path)
{
    const int before = SequenceRegistry::instance().sequences().size();
    tag_estatus status = eStatusFailed;
    const QPointer<CHVSSequenceDataset> sequence = SequenceStore::open(path, status);
    if (!sequence) {
        CHVSErrorHandler::errorMessage(this, status, QDir::toNativeSeparators(path));
        return OpenResult::Failed;
    }
    m_pWorkspace->bringToFront(sequence);
    const QString file = SequenceStore::infoFile(path);
    if (m_services.mode() == ApplicationServices::Mode::Attended) {
        m_recent.add({file});
        CHVPreference::getSettings()->setRecentFilePath(file);
    }
    if (SequenceRegistry::instance().sequences().size() == before) return OpenResult::Loaded;
    const QStringList volume = SequenceStore::volumeFiles(*sequence);
    CHVToolPalettePluginBase* reader = volumeReader();
    if (!volume.isEmpty() && reader && m_pWorkspace->activeSequence() == sequence &&
        loadVolume(*reader, volume) && sequence)
        SequenceStore::acceptVolume(*sequence);
    return OpenResult::Loaded;
}

MainWindow::OpenResult MainWindow::openVolume(const QStringList& files)
{
    CHVToolPalettePluginBase* reader = volumeReader();
    if (!reader) {
        logText(QStringLiteral("There is no plug-in that loads volumes."), CHVSLog::eError);
        return OpenResult::NoReader;
    }
    const QStringList absolute = filesMeantBy(files);
    if (absolute.isEmpty() || (!m_pWorkspace->activeSequence() && !newScene())) return OpenResult::Failed;

    if (!loadVolume(*reader, absolute)) return OpenResult::Failed;
    if (m_services.mode() == ApplicationServices::Mode::Attended) {
        m_recent.add(absolute);
        CHVPreference::getSettings()->setRecentFilePath(absolute.first());
    }
    return OpenResult::Loaded;
}

bool MainWindow::loadVolume(CHVToolPalettePluginBase& reader, const QStringList& files)
{
    // A load clears the sequence's files and names them anew when it ends well; one that is refused at once
    // leaves those of the volume before.
    bool isLoaded = false;
    const SequenceRegistry& registry = SequenceRegistry::instance();
    const auto follow = [&isLoaded, &registry](CHVSSequenceDataset* sequence) {
        isLoaded = !registry.loadedVolumetricData(sequence).isEmpty();
    };
    const QMetaObject::Connection following =
        connect(&registry, &SequenceRegistry::loadedVolumetricDataChanged, this, follow);
    QMetaObject::invokeMethod(&reader, loaderSlot, Qt::DirectConnection, Q_ARG(QStringList, files),
                              Q_ARG(int, -1), Q_ARG(int, -1));
    disconnect(following);
    return isLoaded;
}

bool MainWindow::saveSequence()
{
    CHVSSequenceDataset* sequence = m_pWorkspace->activeSequence();
    return sequence && save(*sequence);
}

bool MainWindow::save(CHVSSequenceDataset& wanted)
{
    const QPointer<CHVSSequenceDataset> sequence = &wanted;
    // whoever has results of it settles them, and may save the sequence for that
    emit sequence->saveExistingAnalysisResult();
    if (!sequence) return false;
    tag_estatus status = eStatusSuccess;
    if (sequence->getSequenceInfoPath().isEmpty()) {
        CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(sequence);
        status = window ? window->saveSequence() : eStatusFailed;
    } else {
        status = SequenceStore::save(*sequence);
        if (status != eStatusSuccess)
            CHVSErrorHandler::errorMessage(this, status,
                                           QDir::toNativeSeparators(sequence->getSequenceInfoPath()));
    }
    if (status != eStatusSuccess || !sequence) return false;
    const QString folder = sequence->getSequenceInfoPath();
    const QString file = SequenceStore::infoFile(folder);
    if (m_services.mode() == ApplicationServices::Mode::Attended) {
        m_recent.add({file});
        CHVPreference::getSettings()->setRecentFilePath(file);
    }
    logText(QStringLiteral("Sequence '%1' saved in '%2'.")
                .arg(sequence->getSequenceID(), QDir::toNativeSeparators(folder)),
            CHVSLog::eStatusLine);
    return true;
}

/// All are settled before the first one is closed, so that a change of mind leaves everything as it was.
bool MainWindow::settleChanges(const QList<CHVSSequenceDataset*>& sequences)
{
    if (m_services.mode() == ApplicationServices::Mode::Unattended) return true;  // there is nobody to ask
    for (CHVSSequenceDataset* candidate : sequences) {
        const QPointer<CHVSSequenceDataset> sequence =
            SequenceRegistry::instance().contains(candidate) ? candidate : nullptr;
        if (!sequence || !SequenceStore::hasUnsavedChanges(*sequence)) continue;
        m_pWorkspace->bringToFront(sequence);
        if (!sequence) continue;
        switch (askToSave(m_services, this, *sequence)) {
        case UnsavedAnswer::Save:
            if (!sequence || !save(*sequence)) return false;
            break;
        case UnsavedAnswer::Discard:
            break;
        case UnsavedAnswer::Cancel:
            return false;
        }
    }
    return true;
}

C3DScene* MainWindow::activeScene() const
{
    auto* window = qobject_cast<CHVSSequenceWindow*>(WindowRegistry::instance().active());
    return window ? window->get3DScene() : nullptr;
}

bool MainWindow::shutDown()
{
    if (!m_pWorkspace->closeAll()) return false;
    m_plugins.endPlugins();
    return true;
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    saveLayout();
    if (!shutDown()) {
        event->ignore();
        return;
    }
    event->accept();
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!localFiles(event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event)
{
    event->acceptProposedAction();
    open(localFiles(event->mimeData()));
}

void MainWindow::showProcess()
{
    HostProcessState state = m_services.processState();
    // an acquisition runs beside the user's work; everything else is waited for
    state.running &= ~eProcessAcquisition;
    m_pProcess->show(state);
}

void MainWindow::restoreLayout()
{
    const QSettings& settings = m_services.settings();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    resize(qMin(1360, screen.width() * 9 / 10), qMin(900, screen.height() * 9 / 10));
    restoreGeometry(settings.value(QStringLiteral("window/geometry")).toByteArray());
    restoreState(settings.value(QStringLiteral("window/state")).toByteArray());
}

void MainWindow::saveLayout() const
{
    if (m_services.mode() != ApplicationServices::Mode::Attended || !isVisible()) return;
    QSettings& settings = m_services.settings();
    settings.setValue(QStringLiteral("window/geometry"), saveGeometry());
    settings.setValue(QStringLiteral("window/state"), saveState());
    settings.sync();
}
