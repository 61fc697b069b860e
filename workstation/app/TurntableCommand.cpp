#include "TurntableCommand.h"

#include "ApplicationServices.h"
#include "Icons.h"
#include "MainWindow.h"
#include "TurntableExport.h"
#include "Workspace.h"

#include "hvapi/export/CHVSMovieExporter.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSFileDialog.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSSettings.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QAction>
#include <QDir>
#include <QFileInfo>
#include <QKeySequence>
#include <QPointer>

namespace {

const QString purpose =
    QStringLiteral("Write a movie in which the 3D view turns once round its vertical axis");

void tell(const QString& text, long severity = CHVSLog::eStatusLine)
{
    getLogObject()->log(text, QString(), 0, QString(), severity, false);
}

/// A name in the folder that was used last; the dialog adds the ending of the kind that is chosen there.
QString proposedPath(const MainWindow& window)
{
    CHVSSequenceDataset* sequence = window.workspace().activeSequence();
    const QString recent = CHVPreference::getSettings()->getRecentFilePath();
    const QString folder = QFileInfo(recent).isDir() ? recent : QFileInfo(recent).absolutePath();
    return QDir(recent.isEmpty() ? QDir::homePath() : folder)
        .filePath((sequence ? sequence->getSequenceID() + QLatin1Char(' ') : QString()) +
                  QStringLiteral("turntable"));
}

}  // namespace

TurntableCommand::TurntableCommand(MainWindow& window, ApplicationServices& services)
    : TurntableCommand(window, services, &CHVSMovieExporter::getExtensionList)
{}

TurntableCommand::TurntableCommand(MainWindow& window, ApplicationServices& services, MovieTypes movieTypes)
    : QObject(&window)
    , m_window(window)
    , m_services(services)
    , m_movieTypes(std::move(movieTypes))
    , m_pAction(
          new QAction(Icons::make(Icons::Shape::Save), QStringLiteral("Export &Turntable Movie..."), this))
{
    m_pAction->setObjectName(QStringLiteral("ActionTurntable"));
    m_pAction->setShortcut(QKeySequence(static_cast<int>(Qt::CTRL) | Qt::SHIFT | Qt::Key_T));
    m_pAction->setEnabled(false);
    connect(m_pAction, &QAction::triggered, this, &TurntableCommand::start);
}

void TurntableCommand::refresh()
{
    C3DScene* scene = m_window.activeScene();
    // It tells when something comes into the scene, or the last thing has gone.
    if (scene)
        connect(scene, &C3DView::cameraChanged, this, &TurntableCommand::refresh, Qt::UniqueConnection);
    const bool isVisible = scene && scene->isVisible();
    const bool hasContents = isVisible && ViewControl(*scene).hasContents();
    const QString why = whyNoTurntable(isVisible, hasContents, hasContents && !m_movieTypes().isEmpty());
    m_pAction->setEnabled(why.isEmpty());
    m_pAction->setToolTip(why.isEmpty() ? purpose : why);
    m_pAction->setStatusTip(m_pAction->toolTip());
}

void TurntableCommand::start()
{
    refresh();
    const QPointer<C3DScene> scene(m_window.activeScene());
    if (!m_pAction->isEnabled() || !scene) {
        tell(m_pAction->toolTip());
        return;
    }
    if (CHVProcess::isProcessInProgress(eProcessAnimationExport)) {
        tell(QStringLiteral("A turntable movie is being written already."));
        return;
    }
    if (m_services.mode() == ApplicationServices::Mode::Unattended) {
        tell(QStringLiteral("There is nobody to ask for the file of a turntable movie."), CHVSLog::eWarning);
        return;
    }
    const QPointer<TurntableCommand> self(this);  // the window may go while events are handled
    const Turntable turn = m_turn;
    QString path = proposedPath(m_window);
    if (CHVSFileDialog::getSaveFileName(&m_window, QStringLiteral("Export Turntable Movie"), path,
                                        CHVSMovieExporter::getFilterList(),
                                        CHVSMovieExporter::getExtensionList()) != eStatusSuccess)
        return;
    if (!self) return;
    // while the dialog was open the scene may have gone with its sequence
    if (!scene || !scene->isVisible()) {
        tell(QStringLiteral("The 3D view has gone: no turntable movie was written."));
        return;
    }
    tag_estatus status = eStatusSuccess;
    const TurntableOutcome outcome = exportTurntable(*scene, turn, path, status);
    switch (outcome) {
    case TurntableOutcome::Written:
        CHVPreference::getSettings()->setRecentFilePath(path);
        tell(QStringLiteral("Turntable movie saved as '%1'.").arg(QDir::toNativeSeparators(path)));
        break;
    case TurntableOutcome::Aborted:
        tell(QStringLiteral("The turntable movie was aborted."));
        break;
    case TurntableOutcome::ViewChanged:
        tell(QStringLiteral("The 3D view was resized or closed: the turntable movie was given up."));
        break;
    case TurntableOutcome::Failed:
        CHVSErrorHandler::errorMessage(self ? &m_window : nullptr, status, QDir::toNativeSeparators(path));
        break;
    }
}
