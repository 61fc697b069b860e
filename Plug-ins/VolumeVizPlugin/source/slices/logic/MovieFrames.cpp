#include "slices/logic/MovieFrames.h"

#include <cmath>

namespace {

struct PictureType
{
    const char* filter;
    const char* extension;
};

constexpr PictureType kPictures[] = {
    {"Bitmap Image (*.bmp)", "bmp"},
    {"JPEG Image (*.jpg)", "jpg"},
    {"PNG Image (*.png)", "png"},
    {"Windows Metafile Format (*.wmf)", "wmf"},
    {"Enhanced Metafile Format (*.emf)", "emf"},
    {"Postscript Enhanced Metafile (*.eps)", "eps"},
    {"Tagged Image File Format (*.tiff)", "tiff"},
};

constexpr double kMostFrames = 1e7;  // a week of movie

}  // namespace

std::optional<MovieFrames> movieFrames(double min, double max, double spacing)
{
    const double span = max - min + spacing;
    const double frames = span / spacing * MovieFrames::kFramesPerSecond;
    if (!(spacing > 0.0) || !(frames >= 1.0) || frames > kMostFrames) return std::nullopt;

    MovieFrames movie;
    movie.count = static_cast<int>(frames);
    const int seconds = movie.count / MovieFrames::kFramesPerSecond;  // whole ones
    movie.start = static_cast<float>(min);
    movie.step = static_cast<float>(span) / static_cast<float>(movie.count);
    movie.durationMs = 1000 * seconds;
    movie.scaledSeconds = static_cast<int>(seconds * (1000.0 / MovieFrames::kFramesPerSecond));
    return movie;
}

bool isMovieSuffix(const QString& suffix, const QStringList& movieExtensions)
{
    return movieExtensions.contains(suffix, Qt::CaseInsensitive);
}

QStringList exportFilters(const QStringList& movieFilters)
{
    QStringList filters;
    for (const PictureType& type : kPictures)
        filters << QString::fromLatin1(type.filter);
    return filters + movieFilters;
}

QStringList exportExtensions(const QStringList& movieExtensions)
{
    QStringList extensions;
    for (const PictureType& type : kPictures)
        extensions << QString::fromLatin1(type.extension);
    return extensions + movieExtensions;
}
