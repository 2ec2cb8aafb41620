#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tools_test {

/// A source of the build, by its path below resources/.
std::filesystem::path Resource(const std::string& path);

/// What a run of the builder came to.
struct BuildResult
{
    int exitCode = -1;
    std::string errors;
};

/// A folder of its own for one test, gone when the test ends.
class BuildFolder
{
public:
    BuildFolder();
    BuildFolder(const BuildFolder&) = delete;
    BuildFolder& operator=(const BuildFolder&) = delete;
    ~BuildFolder();

    std::filesystem::path Path(const std::string& name) const { return m_path / name; }
    /// Names of what lies in the folder, sorted.
    std::vector<std::string> Files() const;
    std::filesystem::path Write(const std::string& name, const std::string& text) const;

    /// Builds "QEL.new" from the sources of the product; fails the test when that fails.
    std::filesystem::path BuildTemplate(const std::string& name = "QEL.new") const;
    /// Builds a data file from a fire's source.
    BuildResult BuildFire(const std::filesystem::path& source, const std::string& name) const;
    /// Builds the template and one of the three samples; fails the test when that fails.
    std::filesystem::path BuildSample(const std::string& fire) const;

private:
    std::filesystem::path m_path;
};

BuildResult RunBuilder(const std::vector<std::string>& arguments);

std::string ReadAll(const std::filesystem::path& path);

/// The rows of a query, each as its cells joined by "|": texts as they are, NULL as "null", a real always
/// with a decimal point.
std::vector<std::string> Rows(const std::filesystem::path& datafile, const std::string& query);
/// The only cell of a query's only row, as in Rows; fails the test when there is not exactly one row.
std::string Cell(const std::filesystem::path& datafile, const std::string& query);

} // namespace tools_test
