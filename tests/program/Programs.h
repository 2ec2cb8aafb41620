#pragma once

#include "support/TempFolder.h"

#include <sys/types.h>

#include <string>
#include <vector>

namespace programs {

/// A program of ours that runs beside the test, without a display and with a program folder and a home of
/// their own. The destructor kills it.
class Running
{
public:
    /// The words of the program go to the file `words`.
    Running(const std::string& program,
            const std::vector<std::string>& arguments,
            const std::string& home,
            const std::string& words);
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running();

    bool IsRunning();
    void Kill();
    /// How it ended: its exit status, or minus the signal that ended it.
    int Wait();

private:
    pid_t m_process = -1;
    int m_status = 0;
    bool m_ended = false;
};

/// What a program said that ran to its end.
struct Ended
{
    int status = -1;
    std::string out;
    std::string err;
};

/// A program folder with the template and no file, and the programs of the build run on it.
class Ground
{
public:
    Ground();

    std::string File(const std::string& name) const { return m_folder.File(name); }
    /// A copy of a sample beside it.
    std::string CopySample(const std::string& name = "smith-creek") const;
    /// Starts a program of the build.
    Running Start(const std::string& program, const std::vector<std::string>& arguments) const;
    /// Runs the companion to its end.
    Ended RunCompanion(const std::vector<std::string>& arguments) const;

private:
    support::TempFolder m_folder;
};

/// Asks until it holds; false after a minute.
template <class Condition> bool Within(Condition holds);

void Pause(int milliseconds);

template <class Condition> bool Within(Condition holds)
{
    constexpr int kOften = 5;
    constexpr int kMost = 120'000; // a machine that builds at the same time is slow
    for (int waited = 0; waited < kMost; waited += kOften) {
        if (holds()) return true;
        Pause(kOften);
    }
    return false;
}

} // namespace programs
