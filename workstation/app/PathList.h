#pragma once

#include <QStringList>

/// Absolute paths of the files that are meant by `paths`: a folder stands for the files in it, sorted by name
/// (digits by their codes, so that "2" comes after "10"), hidden ones and sub-folders left out. A folder
/// without files stays itself, so that a reader can say that it is none of its files.
QStringList filesMeantBy(const QStringList& paths);
