#pragma once

#include <QStringList>

/// Absolute paths of the files that are meant by `paths`: a folder stands for the files in it, in the order
/// of hvdicom::filesOfVolume(). A folder without files stays itself, so that a reader can say that it is none
/// of its files.
QStringList filesMeantBy(const QStringList& paths);
