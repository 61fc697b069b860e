#include "lib/hvapi/export/MovieModule.h"
#include "lib/hvmovie/FfmpegMovieWriter.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavutil/log.h>
}

namespace {

// The better encoder of an extension stands first; the first one that this system has is taken.
constexpr MovieKind kKinds[] = {
    {"MPEG-4 Movie (*.mp4)", "mp4", "mp4", "libx264", true, 1},
    {"MPEG-4 Movie (*.mp4)", "mp4", "mp4", "mpeg4", false, 1},
    {"AVI Movie (*.avi)", "avi", "avi", "mpeg4", false, 1},
    {"MPEG Movie (*.mpg)", "mpg", "mpeg", "mpeg1video", false, 24},
};

class FfmpegMovieModule : public MovieModule
{
public:
    FfmpegMovieModule()
    {
        av_log_set_level(AV_LOG_QUIET);  // failures are told by the calls
        for (const MovieKind& kind : kKinds)
            if (!find(QLatin1String(kind.extension)) && avcodec_find_encoder_by_name(kind.encoder))
                m_kinds.push_back(kind);
    }

    QList<Format> formats() const override
    {
        QList<Format> formats;
        for (const MovieKind& kind : m_kinds)
            formats.push_back({QString::fromLatin1(kind.filter), QString::fromLatin1(kind.extension)});
        return formats;
    }

    std::unique_ptr<MovieWriter> writer(const QString& extension) const override
    {
        const MovieKind* kind = find(extension);
        if (!kind) return nullptr;
        return std::make_unique<FfmpegMovieWriter>(*kind);
    }

private:
    const MovieKind* find(const QString& extension) const
    {
        for (const MovieKind& kind : m_kinds)
            if (extension == QLatin1String(kind.extension)) return &kind;
        return nullptr;
    }

    QList<MovieKind> m_kinds;
};

}  // namespace

extern "C" Q_DECL_EXPORT const MovieModule* hvMovieModule()
{
    static const FfmpegMovieModule module;
    return &module;
}
