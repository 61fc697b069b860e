#pragma once

#include <QString>

/// Where the 8-bit voxels of loaded volumes lie: a folder for each sequence under one root, which is removed
/// as a whole when the palette starts and ends.

/// Root of the temporary folders in the folder of program data.
QString tempRoot(const QString& programDataPath);

/// Folder of one sequence below tempRoot(). Null for an id that does not name a folder directly below it
/// (empty,
/// ".", "..", or with a slash): such an id must never be created or removed on disk.
QString sequenceTempFolder(const QString& programDataPath, const QString& sequenceId);

/// File of the voxels in sequenceTempFolder(); null where that is null.
QString voxelDumpPath(const QString& programDataPath, const QString& sequenceId);
