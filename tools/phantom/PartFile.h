#pragma once

#include <cstdio>
#include <string>

namespace phantom {

/// A file beside the wanted one, which takes its place when all is written and disappears otherwise.
class PartFile
{
public:
    explicit PartFile(const std::string& wanted);
    ~PartFile();
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;

    /// Empty, or what went wrong first.
    const std::string& error() const { return m_error; }

    /// After an error nothing more is written.
    void write(const void* data, std::size_t bytes);
    void write(const std::string& bytes) { write(bytes.data(), bytes.size()); }
    void finish();

private:
    void fail();

    std::string m_wanted, m_path, m_error;
    std::FILE* m_file;
    bool m_left;  ///< whether a part file lies on the disk
};

/// A folder beside the wanted one, which takes its place when all its files are written and disappears with
/// them otherwise. The wanted one may exist if it is empty.
class PartFolder
{
public:
    explicit PartFolder(const std::string& wanted);
    ~PartFolder();
    PartFolder(const PartFolder&) = delete;
    PartFolder& operator=(const PartFolder&) = delete;

    /// Empty, or what went wrong first.
    const std::string& error() const { return m_error; }

    /// Where a file of the folder is to be written.
    std::string path(const std::string& name) const { return m_path + "/" + name; }

    void finish();

private:
    void fail(const std::string& why);

    std::string m_wanted, m_path, m_error;
    bool m_left = false;  ///< whether a part folder lies on the disk
};

}  // namespace phantom
