#include "hvapi/export/CHVSMovieExporter.h"

#include "hvutils/CHVSLog.h"
#include "lib/hvapi/export/FrameQueue.h"
#include "lib/hvapi/export/MovieModule.h"

#include <QFile>
#include <QFileInfo>
#include <QLibrary>
#include <QTemporaryFile>

#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <unistd.h>

namespace {

void report(const QString& message)
{
    getLogObject()->log(message, QStringLiteral("hvapi"), 0, QString(), CHVSLog::eError, false);
}

/// The folder of this library, beside which the module lies.
QString ownFolder()
{
    Dl_info info;
    if (dladdr(reinterpret_cast<const void*>(&ownFolder), &info) == 0 || !info.dli_fname) return {};
    return QFileInfo(QFile::decodeName(info.dli_fname)).absolutePath();
}

const MovieModule* loadModule()
{
    QLibrary library(ownFolder() + QStringLiteral("/hvmovie.so"));
    using Entry = const MovieModule* (*)();
    const auto entry = reinterpret_cast<Entry>(library.resolve(kMovieModuleEntry));
    if (!entry)
        getLogObject()->log(QStringLiteral("Movies can't be written: %1").arg(library.errorString()),
                            QStringLiteral("hvapi"), 0, QString(), CHVSLog::eInformation, false);
    return entry ? entry() : nullptr;
}

/// Null where the module or a library that it needs is missing. Looked for once, at the first question.
const MovieModule* movieModule()
{
    static const MovieModule* const module = loadModule();
    return module;
}

/// Brings a file to disk before it takes another one's name.
bool sync(const QString& path)
{
    const int handle = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (handle < 0) return false;
    const bool isSynced = ::fsync(handle) == 0;
    ::close(handle);
    return isSynced;
}

}  // namespace

struct CHVSMovieExporter::Private
{
    QString path;
    QString temporary;  ///< beside `path`; becomes it when the movie is whole
    std::unique_ptr<MovieWriter> writer;
    std::unique_ptr<FrameQueue> queue;

    void abandon()
    {
        queue.reset();
        writer.reset();
        if (!temporary.isEmpty()) QFile::remove(temporary);
        temporary.clear();
    }
};

CHVSMovieExporter::CHVSMovieExporter()
    : d(std::make_unique<Private>())
{}

CHVSMovieExporter::~CHVSMovieExporter()
{
    d->abandon();
}

QStringList CHVSMovieExporter::getFilterList()
{
    QStringList filters;
    if (const MovieModule* module = movieModule())
        for (const MovieModule::Format& format : module->formats())
            filters << format.filter;
    return filters;
}

QStringList CHVSMovieExporter::getExtensionList()
{
    QStringList extensions;
    if (const MovieModule* module = movieModule())
        for (const MovieModule::Format& format : module->formats())
            extensions << format.extension;
    return extensions;
}

tag_estatus CHVSMovieExporter::createMovie(sMovieDetails details, QString path)
{
    d->abandon();
    const QFileInfo target(path);
    const MovieModule* module = movieModule();
    std::unique_ptr<MovieWriter> writer = module ? module->writer(target.suffix().toLower()) : nullptr;
    if (!writer) return eStatusMovieFormatUnavailable;
    if (details.m_nFramesPerSecond <= 0 || (target.exists() && !target.isFile())) return eStatusFailed;

    QTemporaryFile reserved(path + QStringLiteral(".XXXXXX"));
    if (!reserved.open()) {
        report(QStringLiteral("'%1' can't be written: %2").arg(path, reserved.errorString()));
        return eStatusFileNotWritable;
    }
    reserved.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup | QFile::ReadOther);
    reserved.setAutoRemove(false);
    reserved.close();
    d->path = path;
    d->temporary = reserved.fileName();
    if (!writer->open(d->temporary, details)) {
        report(QStringLiteral("'%1' can't be written: %2").arg(path, writer->reason()));
        d->abandon();
        return eStatusFileNotWritable;
    }
    d->writer = std::move(writer);
    MovieWriter* encoder = d->writer.get();
    d->queue =
        std::make_unique<FrameQueue>([encoder](const QImage& frame) { return encoder->append(frame); });
    return eStatusSuccess;
}

tag_estatus CHVSMovieExporter::appendFrame(void* bits, HVSMovieBufferTypes type, QImage frame)
{
    Q_UNUSED(bits)  // they are the frame's
    Q_UNUSED(type)  // the encoder is chosen by the path
    if (!d->queue || frame.isNull()) return eStatusFailed;
    if (d->queue->append(std::move(frame))) return eStatusSuccess;
    report(QStringLiteral("A frame of '%1' can't be written: %2").arg(d->path, d->writer->reason()));
    return eStatusFailed;
}

void CHVSMovieExporter::closeMovie()
{
    if (!d->writer) return;
    const bool isWhole = d->queue->finish();
    d->queue.reset();
    if (isWhole && d->writer->finish() && sync(d->temporary) &&
        std::rename(QFile::encodeName(d->temporary).constData(), QFile::encodeName(d->path).constData()) ==
            0) {
        d->temporary.clear();
    } else {
        report(QStringLiteral("'%1' could not be completed: %2").arg(d->path, d->writer->reason()));
    }
    d->abandon();
}
