#pragma once

#include "CliTest.h"

#include <cctype>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace support {

/// A folder of files that are not kept here; empty where VEXA_CORPUS names none.
inline std::string CorpusFolder(const std::string& name)
{
    const char* corpus = std::getenv("VEXA_CORPUS");
    const std::string folder = corpus == nullptr ? "" : std::string(corpus) + "/" + name;
    return !folder.empty() && std::filesystem::is_directory(folder) ? folder : "";
}

inline std::string Lower(std::string text)
{
    for (char& c : text) {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return text;
}

/// A file of an older format, or a damaged one, and what is to become of it.
struct LegacyCase
{
    Json json;
    std::string folder;
    std::string name;
    std::string path;

    bool IsJet() const { return name.find(".sqlite.") == std::string::npos; }
    /// What is asked and told at the end, as the companion prints it; empty for nothing.
    std::string Question() const { return Box(json["question"]); }
    std::string Message() const { return Box(json["message"]); }

private:
    static std::string Box(const Json& box)
    {
        if (box.is_null()) {
            return {};
        }
        std::string text = box["title"].is_null() ? "" : box["title"].get<std::string>() + "\n";
        for (const Json& line : box["lines"]) {
            text += line.get<std::string>() + "\n";
        }
        return text;
    }
};

/// The cases of a folder whose files stand in it.
inline std::vector<LegacyCase> LegacyCases(const std::string& folder)
{
    std::vector<LegacyCase> cases;
    const Json all = Json::parse(ReadFile(folder + "/cases.json"));
    for (const Json& one : all["cases"]) {
        for (const std::string name : one["files"]) {
            if (std::filesystem::exists(folder + "/" + name)) {
                cases.push_back({one, folder, name, folder + "/" + name});
            }
        }
    }
    return cases;
}

} // namespace support
