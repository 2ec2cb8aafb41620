// vexa-session FILE NOTES SEED [WRITES]: the program with a copy of the sample "smith-creek", in which
// somebody makes one change after the other until the process is killed. NOTES gets a line when the file is
// open ("open"), at the beginning of each change ("begin 3 new value") and when the program has saved it
// ("saved 3"); each line is on the disk before the session goes on. A box that no change expects ends the
// session with a line "box" and its text, and so does a file that cannot be opened. With WRITES the process
// kills itself when it has written that many times since the file was open.

#include "platform/base/ProgramFolder.h"
#include "platform/widgets/Application.h"
#include "program/session/KillAtWrite.h"
#include "program/session/Script.h"
#include "program/session/Session.h"
#include "session/SessionState.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>

namespace {

class Notes
{
public:
    explicit Notes(const char* path) : m_file(::open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600))
    {}
    Notes(const Notes&) = delete;
    Notes& operator=(const Notes&) = delete;
    ~Notes() { ::close(m_file); }

    void Write(std::string line)
    {
        std::replace(line.begin(), line.end(), '\n', ' ');
        line += '\n';
        if (::write(m_file, line.data(), line.size()) != static_cast<ssize_t>(line.size()) ||
            ::fsync(m_file) != 0) {
            std::_Exit(4);
        }
    }

private:
    int m_file;
};

/// What each change's cell holds; nothing where another program has the file.
std::vector<std::string> Cells(const char* path)
{
    std::vector<std::string> cells(Changes().size());
    try {
        for (std::size_t i = 0; i < cells.size(); ++i)
            cells[i] = InFile(path, Changes()[i]);
    } catch (const std::exception&) {
        return cells;
    }
    return cells;
}

void MakeChanges(Hands& hands, Notes& notes, std::minstd_rand& random, std::vector<std::string> cells)
{
    for (;;) {
        const std::size_t place = random() % Changes().size();
        const Change& change = Changes()[place];
        const std::string value = change.value(random, cells[place]);
        notes.Write("begin " + std::to_string(place) + " " + value);
        change.make(hands, value);
        notes.Write("saved " + std::to_string(place));
        cells[place] = value;
    }
}

int Run(const char* path, const char* notesPath, unsigned seed, int writes)
{
    const std::vector<std::string> cells = Cells(path);
    Notes notes(notesPath);
    Session session(path, [&notes](const std::string& text) {
        notes.Write("box " + text);
        std::_Exit(3);
    });
    if (!gDatabaseOpen) return 3;
    notes.Write("open");
    KillAtWrite(writes);
    std::minstd_rand random(seed);
    try {
        MakeChanges(session.hands(), notes, random, cells);
    } catch (const std::exception& error) {
        notes.Write(std::string("box ") + error.what());
    }
    return 3;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4 && argc != 5) {
        std::fputs("usage: vexa-session FILE NOTES SEED [WRITES]\n", stderr);
        return 2;
    }
    int toolkitArguments = 1;
    platform::Application application(toolkitArguments, argv);
    return Run(
        argv[1], argv[2], static_cast<unsigned>(std::atoi(argv[3])), argc == 5 ? std::atoi(argv[4]) : 0);
}
