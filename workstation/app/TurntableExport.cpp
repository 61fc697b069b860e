#include "TurntableExport.h"

#include "hvapi/export/CHVSMovieExporter.h"
#include "hvapi/scene/C3DScene.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QCoreApplication>
#include <QCursor>
#include <QFile>
#include <QFileInfo>
#include <QPointer>

#include <optional>
#include <sys/stat.h>

namespace {

/// While it lives the export runs: everybody can ask for it, and the user waits.
class ExportProcess
{
public:
    explicit ExportProcess(int frames)
    {
        CHVProcess::startLongProcess(frames, eProcessAnimationExport, true, QStringLiteral("Aborting..."));
        CHVProcess::disableUserInteraction(true);
        CHVUtilityFns::setCursor(QCursor(Qt::WaitCursor));
    }
    ~ExportProcess()
    {
        CHVUtilityFns::restoreCursor();
        CHVProcess::disableUserInteraction(false);
        CHVProcess::endLongProcess(eProcessAnimationExport);
    }
    ExportProcess(const ExportProcess&) = delete;
    ExportProcess& operator=(const ExportProcess&) = delete;
};

/// What tells a file from the one that takes its name; none without a file.
std::optional<ino_t> identityOf(const QString& path)
{
    struct stat entry;
    if (::stat(QFile::encodeName(path).constData(), &entry) != 0) return std::nullopt;
    return entry.st_ino;
}

sMovieDetails detailsOf(const Turntable& turn, QSize pixels)
{
    sMovieDetails details;
    details.m_nDurationMs = turn.durationMs();
    details.m_nScaledSeconds = details.m_nDurationMs / 15;
    details.m_nWidth = pixels.width();
    details.m_nHeight = pixels.height();
    details.m_nFramesPerSecond = turn.framesPerSecond;
    return details;
}

}  // namespace

TurntableOutcome exportTurntable(C3DScene& scene, const Turntable& turn, const QString& path,
                                 tag_estatus& status)
{
    const QPointer<C3DScene> view(&scene);
    const QSize pixels = ViewControl(scene).pixels();
    const hvscene::Camera start = ViewControl(scene).turntableCamera(pixels);
    const bool isMpeg = QFileInfo(path).suffix().compare(QLatin1String("mpg"), Qt::CaseInsensitive) == 0;
    const HVSMovieBufferTypes type = isMpeg ? HVS_MOVIE_BUFFER_RGB32_MPEG : HVS_MOVIE_BUFFER_RGB32;

    const ExportProcess process(turn.frames);
    CHVSMovieExporter movie;  // takes its file with it unless it is closed
    status = movie.createMovie(detailsOf(turn, pixels), path);
    if (status != eStatusSuccess) return TurntableOutcome::Failed;
    for (int i = 0; i < turn.frames; ++i) {
        CHVProcess::setProcessMessage(QStringLiteral("Exporting turntable movie..."), i + 1, turn.frames,
                                      nullptr);
        QCoreApplication::processEvents();
        if (!view || !view->isVisible() || ViewControl(*view).pixels() != pixels)
            return TurntableOutcome::ViewChanged;
        if (CHVProcess::isProcessAborted()) return TurntableOutcome::Aborted;
        QImage frame = ViewControl(*view).pictureOfTurn(start, turn.angle(i), pixels);
        status = frame.isNull() ? eStatusFailed : movie.appendFrame(frame.bits(), type, frame);
        if (status != eStatusSuccess) return TurntableOutcome::Failed;
    }
    const std::optional<ino_t> former = identityOf(path);
    movie.closeMovie();
    const std::optional<ino_t> written = identityOf(path);
    if (written && written != former) return TurntableOutcome::Written;
    status = eStatusFileNotWritable;
    return TurntableOutcome::Failed;
}
