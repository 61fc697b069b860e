#pragma once

#include <QString>

/// What a file holds, as far as its path tells.
enum class FileKind
{
    NotAVolume,
    Raw,
};

/// Kind of the file at `path`. ".raw" or ".vox" anywhere in the path, ignoring case, makes it RAW: also in
/// the name of a folder.
FileKind fileKindByName(const QString& path);
