#include "tools/BuildFolder.h"

#include "datafile_builder/Builder.h"

#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>

namespace tools_test {

namespace {

std::string TextOf(double value)
{
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed).ptr;
    const std::string digits(text.data(), end);
    return digits.find('.') == std::string::npos ? digits + ".0" : digits;
}

std::string TextOf(sqlite3_stmt* statement, int column)
{
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL: return "null";
    case SQLITE_FLOAT: return TextOf(sqlite3_column_double(statement, column));
    default: return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    }
}

std::string RowOf(sqlite3_stmt* statement)
{
    std::string row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column) {
        row += (column == 0 ? "" : "|") + TextOf(statement, column);
    }
    return row;
}

} // namespace

std::filesystem::path Resource(const std::string& path)
{
    const char* folder = std::getenv("VEXA_RESOURCES");
    if (folder == nullptr) throw std::runtime_error("VEXA_RESOURCES must name the folder of the sources");
    return std::filesystem::path(folder) / path;
}

BuildFolder::BuildFolder()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "vexa-tools-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_path = pattern;
}

BuildFolder::~BuildFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::vector<std::string> BuildFolder::Files() const
{
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(m_path)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

std::filesystem::path BuildFolder::Write(const std::string& name, const std::string& text) const
{
    std::ofstream(Path(name), std::ios::binary) << text;
    return Path(name);
}

std::filesystem::path BuildFolder::BuildTemplate(const std::string& name) const
{
    const BuildResult result = RunBuilder(
        {"template", Resource("template/schema.sql"), Resource("template/content.json"), Path(name)});
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
    return Path(name);
}

BuildResult BuildFolder::BuildFire(const std::filesystem::path& source, const std::string& name) const
{
    return RunBuilder({"fire", Path("QEL.new"), source, Path(name)});
}

std::filesystem::path BuildFolder::BuildSample(const std::string& fire) const
{
    BuildTemplate();
    const BuildResult result = BuildFire(Resource("samples/" + fire + ".json"), fire + ".qel");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.exitCode, 0);
    return Path(fire + ".qel");
}

BuildResult RunBuilder(const std::vector<std::string>& arguments)
{
    std::ostringstream errors;
    const int exitCode = datafile_builder::RunBuilder(arguments, errors);
    return {exitCode, errors.str()};
}

std::string ReadAll(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

std::vector<std::string> Rows(const std::filesystem::path& datafile, const std::string& query)
{
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(datafile.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    const std::unique_ptr<sqlite3, decltype(&sqlite3_close)> database(opened, &sqlite3_close);
    EXPECT_EQ(code, SQLITE_OK) << datafile;
    sqlite3_stmt* prepared = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(opened, query.c_str(), -1, &prepared, nullptr), SQLITE_OK)
        << sqlite3_errmsg(opened);
    const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(prepared, &sqlite3_finalize);
    std::vector<std::string> rows;
    while (sqlite3_step(prepared) == SQLITE_ROW)
        rows.push_back(RowOf(prepared));
    return rows;
}

std::string Cell(const std::filesystem::path& datafile, const std::string& query)
{
    const auto rows = Rows(datafile, query);
    EXPECT_EQ(rows.size(), 1U) << query;
    return rows.empty() ? "" : rows.front();
}

} // namespace tools_test
