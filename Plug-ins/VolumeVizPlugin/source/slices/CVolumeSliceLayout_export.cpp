#include "hvapi/export/CHVSImageExporter.h"
#include "hvapi/export/CHVSMovieExporter.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSErrorHandler.h"
#include "hvutils/CHVSFileDialog.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVSProgressBar.h"
#include "hvutils/CHVUtilityFns.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "slices/CVolumeSliceLayout.h"
#include "slices/logic/MovieFrames.h"

#include <QCoreApplication>
#include <QCursor>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImage>

namespace {

void log(long severity, const char* message)
{
    getLogObject()->log(QString::fromLatin1(message), QString(), 0, QStringLiteral(__DATE__ " " __TIME__),
                        severity, false);
}

class WaitCursor
{
public:
    WaitCursor() { CHVUtilityFns::setCursor(QCursor(Qt::WaitCursor)); }
    ~WaitCursor() { CHVUtilityFns::restoreCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace

/// A movie under way.
struct CVolumeSliceLayout::Movie
{
    MovieFrames frames;
    CHVSMovieExporter writer;
    HVSMovieBufferTypes bufferType = HVS_MOVIE_BUFFER_RGB32;
    int written = 0;
};

bool CVolumeSliceLayout::exportGraphics()
{
    if (!m_view) return false;
    if (CHVProcess::isProcessInProgress(eProcessAnimationExport)) {
        log(CHVSLog::eWarning, "Unable to export, 3D Animation export in progress.");
        return false;
    }
    const QStringList movieExtensions = CHVSMovieExporter::getExtensionList();
    const QPointer<CVolumeSliceLayout> self(this);
    QString path;
    if (CHVSFileDialog::getSaveFileName(this, QStringLiteral("Export Graphics"), path,
                                        exportFilters(CHVSMovieExporter::getFilterList()),
                                        exportExtensions(movieExtensions)) != eStatusSuccess)
        return true;
    if (path.isEmpty()) {
        log(CHVSLog::eStatusLine, "Please select a valid file name to save the movie file");
        return false;
    }
    if (!self || !m_view) return false;  // the sequence went while the question was open
    return isMovieSuffix(QFileInfo(path).suffix(), movieExtensions) ? exportMovie(path) : exportPicture(path);
}

bool CVolumeSliceLayout::exportPicture(QString path)
{
    m_view->setShowLabel(true);
    QImage image;
    m_view->grabImage(image);
    if (!CHVSImageExporter::saveImage(image, path))
        CHVSErrorHandler::errorMessage(this, eStatusFileNotWritable, path);
    return true;
}

bool CVolumeSliceLayout::exportMovie(const QString& path)
{
    const QPointer<CVolumeSliceLayout> self(this);
    const bool switched = !m_view->isSingleView();
    if (switched) {
        onDoubleClickSingleSlice();
        QCoreApplication::processEvents();
        if (!self || !m_view) return false;
    }
    const WaitCursor cursor;
    m_view->setShowLabel(false);

    bool exported = false;
    Movie movie;
    const auto frames =
        movieFrames(m_pMinSpinBox->value(), m_pMaxSpinBox->value(), m_pSpacingSpinBox->value());
    if (frames) {
        movie.frames = *frames;
        if (QFileInfo(path).suffix().compare(QLatin1String("mpg"), Qt::CaseInsensitive) == 0)
            movie.bufferType = HVS_MOVIE_BUFFER_RGB32_MPEG;
        const double scale = m_view->devicePixelRatioF();
        sMovieDetails details;
        details.m_nDurationMs = frames->durationMs;
        details.m_nScaledSeconds = frames->scaledSeconds;
        details.m_nWidth = static_cast<int>(m_view->width() * scale);
        details.m_nHeight = static_cast<int>(m_view->height() * scale);
        details.m_nFramesPerSecond = MovieFrames::kFramesPerSecond;

        const QDateTime older = QFileInfo(path).lastModified();
        const tag_estatus status = movie.writer.createMovie(details, path);
        if (status == eStatusSuccess) {
            exported = writeFrames(movie);
            movie.writer.closeMovie();
            const QFileInfo written(path);
            if (exported && (!written.exists() || written.lastModified() == older)) {
                // The end of a movie is written when it is closed, which says nothing.
                exported = false;
                log(CHVSLog::eWarning, "The movie file could not be completed.");
            } else if (exported) {
                log(CHVSLog::eStatusLine, "File exported successfully..!");
            } else {
                log(CHVSLog::eStatusLine, "Exporting aborted..!");
                QFile::remove(path);
            }
        } else {
            if (status == eStatusMovieFormatUnavailable)
                CHVSErrorHandler::errorMessage(this, status, QString());
            else
                log(CHVSLog::eWarning, "Unable to create the movie file, please verify it is not currently "
                                       "open by another program.");
            QFile::remove(path);
        }
    } else {
        log(CHVSLog::eStatusLine, "Exporting aborted..!");
    }

    if (!self || !m_view) return exported;
    m_view->setShowLabel(true);
    if (switched) onDoubleClickSingleSlice();
    return exported;
}

/// True when all frames were written. Ends early when the user closes the progress, the size of the picture
/// changes, a frame is refused, or the dialog goes.
bool CVolumeSliceLayout::writeFrames(Movie& movie)
{
    const QPointer<CVolumeSliceLayout> self(this);
    const QPointer<CHVSProgressBar> progress(
        new CHVSProgressBar(this, "MovieProgress", true, Qt::WindowFlags()));
    progress->initDialog();
    progress->setWindowTitle(QStringLiteral("Exporting Movie..."));
    progress->setModal(true);
    progress->show();

    QSize size;
    bool failed = false;
    for (int i = 0; i < movie.frames.count && !failed; ++i) {
        progress->setProgress(static_cast<int>(100.0 * i / movie.frames.count));
        QCoreApplication::processEvents();
        if (!self || !m_view || !progress)
            return false;  // the progress is the dialog's child and went with it
        if (!progress->isVisible()) {
            log(CHVSLog::eInformation, "Movie Export aborted.");
            break;
        }
        const float position = movie.frames.position(i);
        m_pPositionSpinBox->setValue(position);  // which rounds it
        m_view->setSinglePosition(position);
        m_view->update();

        // The writer gets the picture as it was grabbed: depth and odd sides are its own affair.
        QImage frame;
        m_view->grabImage(frame);
        if (i == 0) size = frame.size();
        if (frame.isNull() || frame.size() != size) {
            log(CHVSLog::eError, "Exported Frame dimension changed...");
            failed = true;
        } else {
            uchar* const bits =
                frame.bits();  // before the frame is passed on: they must be those of the copy
            failed = movie.writer.appendFrame(bits, movie.bufferType, frame) != eStatusSuccess;
            if (!failed) ++movie.written;
        }
    }
    progress->close();
    delete progress;
    return movie.written == movie.frames.count;
}
