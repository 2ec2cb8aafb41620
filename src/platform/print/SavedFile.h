#pragma once

#include <QSaveFile>

#include <string>
#include <string_view>

namespace platform::print {

/// A file that is written beside its place and takes its name when it is whole; gone without that, it leaves
/// nothing.
class SavedFile
{
public:
    /// Throws PrintError when it cannot be opened.
    explicit SavedFile(const std::string& path);

    /// Throws PrintError when anything could not be written.
    void Write(std::string_view bytes);
    /// Takes its name. Throws PrintError; what stood there before still does then.
    void Commit();

private:
    [[noreturn]] void Fail() const;

    std::string m_path;
    QSaveFile m_file;
};

} // namespace platform::print
