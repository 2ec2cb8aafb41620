#include "vexa-cli/FileAsItStands.h"

#include "platform/base/Errors.h"

#include <array>
#include <fstream>
#include <string_view>

namespace vexa_cli {

namespace {

constexpr int kNotReadable = 1;

/// A Jet database bears its engine's name behind its first four bytes.
bool IsJetDatabase(const std::string& path)
{
    constexpr std::string_view kEngine = "Standard Jet DB";
    constexpr std::size_t kPlace = 4;
    std::array<char, kPlace + kEngine.size()> head{};
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), static_cast<std::streamsize>(head.size()));
    return file && std::string_view(head.data() + kPlace, kEngine.size()) == kEngine;
}

} // namespace

platform::Database OpenAsItStands(const std::string& path)
{
    if (IsJetDatabase(path)) {
        throw platform::Error(kNotReadable, "it is a Jet database, which this version cannot read yet");
    }
    return platform::Database(path, platform::Database::Mode::ReadOnly);
}

} // namespace vexa_cli
