#pragma once

#include "lib/hvapi/export/MovieModule.h"

#include <memory>

struct AVCodec;

/// One kind of movie: the file's format, and the encoder of its pictures.
struct MovieKind
{
    const char* filter;
    const char* extension;
    const char* muxer;
    const char* encoder;
    bool needsEvenSides;
    int leastFramesPerSecond;  ///< each frame is repeated until it is reached
};

class FfmpegMovieWriter : public MovieWriter
{
public:
    explicit FfmpegMovieWriter(const MovieKind& kind);
    ~FfmpegMovieWriter() override;

    bool open(const QString& file, const sMovieDetails& details) override;
    bool append(const QImage& frame) override;
    bool finish() override;
    QString reason() const override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};
