#include "RotatingFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace hvutils {

RotatingFile::RotatingFile(qint64 bytesPerFile, int oldFiles)
    : m_bytesPerFile(bytesPerFile)
    , m_oldFiles(oldFiles)
{}

bool RotatingFile::append(QString const& path, QString const& line)
{
    QByteArray const bytes = line.toUtf8() + '\n';
    QFileInfo const info(path);
    if (info.exists() && info.size() > 0 && info.size() + bytes.size() > m_bytesPerFile) rotate(path);
    QFile file(path);
    QIODevice::OpenMode const mode = QIODevice::WriteOnly | QIODevice::Append;
    if (!file.open(mode) && !(QDir().mkpath(info.absolutePath()) && file.open(mode))) return false;
    return file.write(bytes) == bytes.size();
}

void RotatingFile::rotate(QString const& path) const
{
    QFile::remove(path + QStringLiteral(".%1").arg(m_oldFiles));
    for (int i = m_oldFiles; i > 1; --i)
        QFile::rename(path + QStringLiteral(".%1").arg(i - 1), path + QStringLiteral(".%1").arg(i));
    QFile::rename(path, path + QStringLiteral(".1"));
}

}  // namespace hvutils
