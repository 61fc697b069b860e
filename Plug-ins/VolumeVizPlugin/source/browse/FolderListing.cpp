#include "FolderListing.h"

#include "browse/logic/NameFilters.h"

#include <QFile>

#include <algorithm>
#include <cstring>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t bufferSize = 32768;  // what the system's own loop takes

class OpenFolder
{
public:
    explicit OpenFolder(const QString& path)
        : m_descriptor(
              open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK))
    {}
    ~OpenFolder()
    {
        if (m_descriptor >= 0) close(m_descriptor);
    }
    OpenFolder(const OpenFolder&) = delete;
    OpenFolder& operator=(const OpenFolder&) = delete;

    int descriptor() const { return m_descriptor; }

private:
    const int m_descriptor;
};

enum class EntryKind
{
    Other,
    File,
    Folder
};

EntryKind kindOf(int folder, const dirent64& entry)
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

FolderLister::FolderLister(QStringList nameFilters)
    : m_nameFilters(std::move(nameFilters))
    , m_buffer(bufferSize)
{}

FolderListing FolderLister::list(const QString& folder)
{
    FolderListing listing;
    const OpenFolder open(folder);
    struct stat status = {};
    if (open.descriptor() < 0 || fstat(open.descriptor(), &status) != 0) return listing;
    listing.isReadable = true;
    listing.identity = {status.st_dev, status.st_ino};

    ssize_t count = 0;
    while ((count = getdents64(open.descriptor(), m_buffer.data(), m_buffer.size())) > 0)
        for (ssize_t at = 0; at < count;) {
            const auto& entry = *reinterpret_cast<const dirent64*>(m_buffer.data() + at);
            at += entry.d_reclen;
            if (entry.d_name[0] == '.') continue;
            const EntryKind kind = kindOf(open.descriptor(), entry);
            if (kind == EntryKind::Other) continue;
            const QString name = textOfName(entry.d_name);
            if (name.isEmpty()) continue;
            if (kind == EntryKind::Folder)
                listing.folders << name;
            else if (passesNameFilters(name, m_nameFilters))
                listing.files << name;
        }
    std::sort(listing.folders.begin(), listing.folders.end());
    return listing;
}
