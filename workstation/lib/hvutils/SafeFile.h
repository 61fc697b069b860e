#pragma once

#include "hvutils/hvutils_global.h"

#include <QByteArray>
#include <QString>
#include <functional>

class QIODevice;

// Files that are either written whole or left as they were: a full disk, a pulled cable or the end of the
// program in the middle costs nothing that was there before. Every writer of the user's data goes through
// here.
namespace SafeFile {

// Gives the next bytes to write; an empty array is the end. False stops with `reason` set.
using Source = std::function<bool(QByteArray& bytes, QString& reason)>;

// Puts `bytes` in the place of the file. The folder must exist. On failure `reason` says why, in words for
// the user, and the old file is untouched.
HVUTILS_EXPORT bool write(QString const& path, QByteArray const& bytes, QString& reason);

// The same for what is too long for memory.
HVUTILS_EXPORT bool write(QString const& path, Source const& source, QString& reason);

// Copies a file, in pieces.
HVUTILS_EXPORT bool copy(QString const& from, QString const& to, QString& reason);

// Removes temporary files that a broken end left beside `path`, older than an hour, so that those of another
// program at work stay.
HVUTILS_EXPORT void sweep(QString const& path);

}  // namespace SafeFile
