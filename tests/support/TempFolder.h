#pragma once

#include <string>

namespace support {

/// A folder of its own that goes with the object.
class TempFolder
{
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();
    const std::string& Path() const { return m_path; }
    std::string File(const std::string& name) const { return m_path + "/" + name; }

private:
    std::string m_path;
};

/// A file's bytes; empty where there is none.
std::string ReadFile(const std::string& path);
void WriteFile(const std::string& path, const std::string& bytes);
void CopyFile(const std::string& source, const std::string& target);
/// A file of tests/data.
std::string DataFile(const std::string& name);
/// A file beside the built programs: "QEL.new", "samples/smith-creek.qel".
std::string BuiltFile(const std::string& name);

} // namespace support
