#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

/// A folder wherever it is reached from: two paths to one folder have the same identity.
struct FolderIdentity
{
    std::uint64_t device = 0;
    std::uint64_t inode = 0;

    bool operator==(const FolderIdentity& other) const
    {
        return device == other.device && inode == other.inode;
    }
};

/// What stands in a folder, by one pass over it. As QDir lists it: links are followed; hidden entries, pipes,
/// sockets, devices, links to nothing and names that are no text in the encoding of file names are left out.
struct FolderListing
{
    bool isReadable = false;
    FolderIdentity identity;
    QStringList files;    ///< that pass the name filters, in the order of the file system
    QStringList folders;  ///< all sub-folders, sorted by name
};

/// Lists one folder after another, through one buffer.
class FolderLister
{
public:
    explicit FolderLister(QStringList nameFilters);

    /// A folder that is gone or cannot be read has an empty listing.
    FolderListing list(const QString& folder);

private:
    const QStringList m_nameFilters;
    std::vector<char> m_buffer;
};
