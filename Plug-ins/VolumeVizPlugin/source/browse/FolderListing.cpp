#include "FolderListing.h"

#include "browse/logic/NameFilters.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <memory>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

struct CloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

enum class EntryKind
{
    Other,
    File,
    Folder
};

EntryKind kindOf(int folder, const dirent& entry)
{
    unsigned char type = entry.d_type;
    struct stat status = {};
    if (type == DT_UNKNOWN && fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0)
        type = S_ISDIR(status.st_mode)   ? DT_DIR
               : S_ISREG(status.st_mode) ? DT_REG
               : S_ISLNK(status.st_mode) ? DT_LNK
                                         : DT_UNKNOWN;
    if (type == DT_DIR) return EntryKind::Folder;
    if (type == DT_REG) return EntryKind::File;
    if (type != DT_LNK || fstatat(folder, entry.d_name, &status, 0) != 0) return EntryKind::Other;
    return S_ISDIR(status.st_mode) ? EntryKind::Folder : EntryKind::File;
}

// The name as text; a null string for one that could not be turned back into the bytes of the file system.
QString textOfName(const char* name)
{
    const auto length = static_cast<int>(std::strlen(name));
    const bool isAscii =
        std::all_of(name, name + length, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (isAscii) return QString::fromLatin1(name, length);
    const QByteArray bytes = QByteArray::fromRawData(name, length);
    const QString text = QFile::decodeName(bytes);
    return QFile::encodeName(text) == bytes ? text : QString();
}

}  // namespace

FolderListing listFolder(const QString& folder, const QStringList& nameFilters)
{
    FolderListing listing;
    const std::unique_ptr<DIR, CloseFolder> open(opendir(QFile::encodeName(folder).constData()));
    if (!open) return listing;
    const int descriptor = dirfd(open.get());
    struct stat status = {};
    if (fstat(descriptor, &status) != 0) return listing;
    listing.isReadable = true;
    listing.identity = {status.st_dev, status.st_ino};

    while (const dirent* const entry = readdir(open.get())) {
        if (entry->d_name[0] == '.') continue;
        const EntryKind kind = kindOf(descriptor, *entry);
        if (kind == EntryKind::Other) continue;
        const QString name = textOfName(entry->d_name);
        if (name.isEmpty()) continue;
        if (kind == EntryKind::Folder)
            listing.folders << name;
        else if (passesNameFilters(name, nameFilters))
            listing.files << name;
    }
    std::sort(listing.folders.begin(), listing.folders.end());
    return listing;
}
