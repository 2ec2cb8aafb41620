#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

namespace vexa_cli {

/// How far a long work has come, on a line that is written over again and cleared at the end. Says nothing
/// unless the stream is standard error and that is a terminal.
class Progress
{
public:
    Progress(std::ostream& err, std::size_t count);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// The next piece of work begins.
    void Step(const std::string& what);

private:
    std::ostream& m_err;
    std::size_t m_count;
    std::size_t m_done = 0;
    bool m_shown;
};

/// How far the reading and converting of one file has come, on such a line, for as long as it lives. Says
/// nothing unless the stream is standard error and that is a terminal.
class FileProgress
{
public:
    explicit FileProgress(std::ostream& err);
    FileProgress(const FileProgress&) = delete;
    FileProgress& operator=(const FileProgress&) = delete;
    ~FileProgress();

private:
    std::ostream& m_err;
    bool m_shown;
};

} // namespace vexa_cli
