#pragma once

#include <QString>

namespace hvutils {

// Appends lines to a text file. Before it would grow beyond a limit it is renamed to "<name>.1", an older one
// of that name to "<name>.2", and so on; the oldest is removed. One object may be used by several threads if
// they lock.
class RotatingFile
{
public:
    RotatingFile(qint64 bytesPerFile, int oldFiles);

    // False when the file cannot be written. Folders of the path are made. The file is closed after each
    // line, so that a crash loses nothing and that another path may be given at any time.
    bool append(QString const& path, QString const& line);

private:
    void rotate(QString const& path) const;

    qint64 m_bytesPerFile;
    int m_oldFiles;
};

}  // namespace hvutils
