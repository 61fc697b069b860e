#pragma once

#include "hvapi/export/HVSMovieBufferTypes.h"
#include "hvapi/export/sMovieDetails.h"
#include "hvapi/hvapi_global.h"
#include "hvutils/tag_estatus.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <memory>

/// Writes a movie frame by frame.
class HVAPI_EXPORT CHVSMovieExporter
{
public:
    CHVSMovieExporter();
    ~CHVSMovieExporter();

    /// File dialog filters and, in the same order, the extensions without dot.
    static QStringList getFilterList();
    static QStringList getExtensionList();

    /// Creates the file. 0 for success; eStatusMovieFormatUnavailable (76) where this system cannot write the
    /// format that the path's suffix names.
    tag_estatus createMovie(sMovieDetails details, QString path);
    /// Appends one frame; `bits` are those of `frame`. 0 for success.
    tag_estatus appendFrame(void* bits, HVSMovieBufferTypes type, QImage frame);
    /// Completes the file.
    void closeMovie();

private:
    struct Private;
    std::unique_ptr<Private> d;
};
