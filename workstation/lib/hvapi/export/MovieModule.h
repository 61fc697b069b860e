#pragma once

#include "hvapi/export/sMovieDetails.h"

#include <QImage>
#include <QList>
#include <QString>

#include <memory>

/// What a module that is loaded at run time does for the movie exporter. The encoders' libraries are large,
/// and their licence is stricter than the workstation's: without the module everything else works.
class MovieWriter
{
public:
    virtual ~MovieWriter() = default;

    /// Creates the file. The first frame decides the size of the picture.
    virtual bool open(const QString& file, const sMovieDetails& details) = 0;
    /// All frames have the size of the first. Called from one thread at a time.
    virtual bool append(const QImage& frame) = 0;
    /// Writes what is still to be written and closes the file: false when the movie is not whole.
    virtual bool finish() = 0;
    /// The reason of the last failure, in words.
    virtual QString reason() const = 0;
};

class MovieModule
{
public:
    struct Format
    {
        QString filter;     ///< of a file dialog
        QString extension;  ///< without dot
    };

    virtual ~MovieModule() = default;

    /// Those for which this system has an encoder.
    virtual QList<Format> formats() const = 0;
    /// Null for an extension that is not among them.
    virtual std::unique_ptr<MovieWriter> writer(const QString& extension) const = 0;
};

/// The name of the module's only entry, a function without arguments that answers a `const MovieModule*`,
/// which lives as long as the program.
constexpr const char* kMovieModuleEntry = "hvMovieModule";
