#pragma once

#include <QString>

class QImage;

/// Pictures on disk.
namespace PictureFile {

/// True when the ending of the file's name stands for a format that can be written.
bool isWritable(const QString& path);

/// Writes the picture in the format of the ending. A file of that name is replaced only by a whole picture.
/// False with a reason for the user; then the older file, if any, is as it was.
bool write(const QImage& picture, const QString& path, QString& reason);

}  // namespace PictureFile
