#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace support {

namespace fs = std::filesystem;

TempFolder::TempFolder()
{
    std::string pattern = (fs::temp_directory_path() / "vexa-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    m_path = pattern;
}

TempFolder::~TempFolder()
{
    std::error_code error;
    fs::remove_all(m_path, error);
}

std::string ReadFile(const std::string& path)
{
    const std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void WriteFile(const std::string& path, const std::string& bytes)
{
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file << bytes;
}

void CopyFile(const std::string& source, const std::string& target)
{
    fs::copy_file(source, target, fs::copy_options::overwrite_existing);
}

std::string DataFile(const std::string& name) { return std::string(VEXA_TEST_DATA) + "/" + name; }

std::string BuiltFile(const std::string& name) { return std::string(VEXA_PROGRAM_DIR) + "/" + name; }

} // namespace support
