#include "platform/spelling/UserWords.h"

#include "platform/base/Files.h"
#include "platform/base/Texts.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>

namespace platform {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r\n";

std::optional<std::string> BytesOf(const std::string& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (!file) return std::nullopt;
    return bytes.str();
}

std::string_view Trimmed(std::string_view line)
{
    const std::size_t first = line.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
}

/// As the file's own mark says, whoever runs the program.
bool IsReadOnly(const std::string& path)
{
    std::error_code error;
    const fs::perms owner = fs::status(path, error).permissions() & fs::perms::owner_write;
    return error || owner == fs::perms::none || ::access(path.c_str(), W_OK) != 0;
}

/// The bytes of the file with one line more.
std::string WithLine(std::string bytes, const std::string& word)
{
    const std::string lineEnd = bytes.find("\r\n") == std::string::npos ? "\n" : "\r\n";
    if (!bytes.empty() && bytes.back() != '\n') bytes += lineEnd;
    return bytes + word + lineEnd;
}

bool ReplaceWhole(const std::string& path, const std::string& bytes)
{
    const std::string draft = path + ".draft~" + std::to_string(::getpid());
    const bool done = WriteText(draft, bytes) && CopyWhole(draft, path).empty();
    ::unlink(draft.c_str());
    return done;
}

} // namespace

std::vector<std::string> UserWords::Read() const
{
    std::string bytes = BytesOf(m_path).value_or(std::string());
    if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
    std::vector<std::string> words;
    std::istringstream lines(bytes);
    for (std::string line; std::getline(lines, line);) {
        const std::string_view word = Trimmed(line);
        if (!word.empty() && ValidUtf8(word) == word) words.emplace_back(word);
    }
    return words;
}

AddResult UserWords::Add(const std::string& word) const
{
    if (m_path.empty()) return AddResult::NotWritten;
    if (!FileExists(m_path)) {
        return ReplaceWhole(m_path, word + "\n") ? AddResult::KeptInNewFile : AddResult::NotWritten;
    }
    const std::vector<std::string> words = Read();
    if (std::find(words.begin(), words.end(), word) != words.end()) return AddResult::Kept;
    const std::optional<std::string> bytes = BytesOf(m_path);
    if (!bytes.has_value() || IsReadOnly(m_path)) return AddResult::NotWritten;
    return ReplaceWhole(m_path, WithLine(*bytes, word)) ? AddResult::Kept : AddResult::NotWritten;
}

} // namespace platform
