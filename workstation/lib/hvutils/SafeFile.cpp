#include "lib/hvutils/SafeFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr qint64 pieceSize = 4 << 20;
constexpr qint64 staleAfterSeconds = 3600;

// The new name of a file is safe only when its folder is on disk too.
bool syncFolder(QString const& folder)
{
    int const handle = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0) return false;
    bool const isSynced = ::fsync(handle) == 0;
    ::close(handle);
    return isSynced;
}

bool writeAll(QSaveFile& file, SafeFile::Source const& source, QString& reason)
{
    QByteArray bytes;
    for (;;) {
        bytes.clear();
        if (!source(bytes, reason)) return false;
        if (bytes.isEmpty()) break;
        if (file.write(bytes) != bytes.size()) {
            reason = file.errorString();
            return false;
        }
    }
    // QSaveFile's own commit reports success after a failed flush or an unsynced write.
    if (!file.flush() || ::fsync(file.handle()) != 0) {
        reason = QStringLiteral("the disk did not take the data");
        return false;
    }
    return true;
}

}  // namespace

namespace SafeFile {

bool write(QString const& path, Source const& source, QString& reason)
{
    sweep(path);
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        reason = file.errorString();
        return false;
    }
    if (!writeAll(file, source, reason)) {
        file.cancelWriting();
        file.commit();
        return false;
    }
    if (!file.commit()) {
        reason = file.errorString();
        return false;
    }
    if (!syncFolder(QFileInfo(path).absolutePath())) {
        reason = QStringLiteral("the folder could not be brought to disk");
        return false;
    }
    return true;
}

bool write(QString const& path, QByteArray const& bytes, QString& reason)
{
    bool isDone = false;
    Source const once = [&bytes, &isDone](QByteArray& next, QString&) {
        if (!isDone) next = bytes;
        isDone = true;
        return true;
    };
    return write(path, once, reason);
}

bool copy(QString const& from, QString const& to, QString& reason)
{
    QFile file(from);
    if (!QFileInfo(from).isFile() || !file.open(QIODevice::ReadOnly)) {
        reason = QStringLiteral("'%1' cannot be read").arg(QDir::toNativeSeparators(from));
        return false;
    }
    Source const pieces = [&file](QByteArray& next, QString& why) {
        next = file.read(pieceSize);
        if (file.error() == QFileDevice::NoError) return true;
        why = file.errorString();
        return false;
    };
    return write(to, pieces, reason);
}

void sweep(QString const& path)
{
    QFileInfo const info(path);
    QDir const folder(info.absolutePath());
    QString const start = info.fileName() + '.';
    QDateTime const limit = QDateTime::currentDateTimeUtc().addSecs(-staleAfterSeconds);
    auto const entries = folder.entryInfoList(QDir::Files | QDir::Hidden | QDir::NoSymLinks);
    for (auto const& entry : entries) {
        // QSaveFile's own names: the file's, a point, six letters.
        QString const name = entry.fileName();
        if (!name.startsWith(start) || name.size() != start.size() + 6) continue;
        bool isTemporary = true;
        for (int i = start.size(); i < name.size(); ++i)
            isTemporary = isTemporary && name[i].unicode() < 128 && name[i].isLetter();
        if (isTemporary && entry.lastModified().toUTC() < limit) QFile::remove(entry.filePath());
    }
}

}  // namespace SafeFile
