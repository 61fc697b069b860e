#include "phantom/PartFile.h"

#include <cerrno>
#include <filesystem>
#include <random>
#include <system_error>

namespace fs = std::filesystem;

namespace phantom {
namespace {

std::string partName(const std::string& wanted)
{
    return wanted + ".part-" + std::to_string(std::random_device()());
}

}  // namespace

PartFile::PartFile(const std::string& wanted)
    : m_wanted(wanted)
    , m_path(partName(wanted))
    , m_file(std::fopen(m_path.c_str(), "wbx"))
{
    m_left = m_file != nullptr;
    if (!m_file) fail();
}

PartFile::~PartFile()
{
    if (m_file) std::fclose(m_file);
    std::error_code ignored;
    if (m_left) fs::remove(m_path, ignored);
}

void PartFile::write(const void* data, std::size_t bytes)
{
    if (m_error.empty() && std::fwrite(data, 1, bytes, m_file) != bytes) fail();
}

void PartFile::finish()
{
    if (!m_error.empty()) return;
    const bool closed = std::fclose(m_file) == 0;
    m_file = nullptr;
    if (!closed) return fail();
    std::error_code code;
    fs::rename(m_path, m_wanted, code);
    if (code)
        m_error = "cannot write \"" + m_wanted + "\": " + code.message();
    else
        m_left = false;
}

void PartFile::fail()
{
    m_error = "cannot write \"" + m_wanted + "\": " + std::generic_category().message(errno);
}

PartFolder::PartFolder(const std::string& wanted)
    : m_wanted(wanted)
{
    // The part folder stands beside the wanted one, not in it.
    while (m_wanted.size() > 1 && m_wanted.back() == '/')
        m_wanted.pop_back();
    m_path = partName(m_wanted);
    std::error_code code;
    const fs::file_status there = fs::status(m_wanted, code);
    if (fs::exists(there) && !fs::is_directory(there)) {
        fail("a file has that name");
        return;
    }
    if (fs::is_directory(there) && !fs::is_empty(m_wanted, code)) {
        fail(code ? code.message() : "the folder is there already and holds files");
        return;
    }
    m_left = fs::create_directory(m_path, code);
    if (!m_left) fail(code ? code.message() : "its place is taken");
}

PartFolder::~PartFolder()
{
    std::error_code ignored;
    if (m_left) fs::remove_all(m_path, ignored);
}

void PartFolder::finish()
{
    if (!m_error.empty()) return;
    std::error_code code;
    fs::rename(m_path, m_wanted, code);
    if (code)
        fail(code.message());
    else
        m_left = false;
}

void PartFolder::fail(const std::string& why)
{
    m_error = "cannot write the folder \"" + m_wanted + "\": " + why;
}

}  // namespace phantom
