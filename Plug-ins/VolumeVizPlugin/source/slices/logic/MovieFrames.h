#pragma once

#include <QStringList>

#include <optional>

/// The frames of a movie that runs through a range of slices: a second for each spacing.
struct MovieFrames
{
    static constexpr int kFramesPerSecond = 15;

    int count = 0;
    float start = 0.0F;  ///< position of the first frame, in millimetres
    float step = 0.0F;   ///< from one frame to the next, in millimetres
    int durationMs = 0;
    int scaledSeconds = 0;  ///< seconds times 1000 / 15

    float position(int frame) const { return start + static_cast<float>(frame) * step; }
};

/// Nothing for a range or a spacing that gives no frame, or more than a counter holds.
std::optional<MovieFrames> movieFrames(double min, double max, double spacing);

/// Whether a suffix is one of a movie's, whatever its case.
bool isMovieSuffix(const QString& suffix, const QStringList& movieExtensions);

/// Filters of the export's file dialog, and the extension of each: pictures first, then the movies.
QStringList exportFilters(const QStringList& movieFilters);
QStringList exportExtensions(const QStringList& movieExtensions);
