#pragma once

#include <filesystem>

namespace datafile_builder {

/// A file under construction beside the place it is meant for. It takes its name only when it is whole: a
/// build that fails leaves the folder as it found it.
class DraftFile
{
public:
    /// Removes what a broken build may have left under the draft's name.
    explicit DraftFile(std::filesystem::path target);
    DraftFile(const DraftFile&) = delete;
    DraftFile& operator=(const DraftFile&) = delete;
    /// Removes the draft unless it was published.
    ~DraftFile();

    const std::filesystem::path& Path() const { return m_draft; }
    /// Renames the draft over the target. Throws std::filesystem::filesystem_error.
    void Publish();

private:
    std::filesystem::path m_target;
    std::filesystem::path m_draft;
};

} // namespace datafile_builder
