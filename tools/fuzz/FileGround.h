#pragma once

#include "Require.h"
#include "platform/base/ProgramFolder.h"
#include "platform/jet/JetReader.h"
#include "support/TempFolder.h"
#include "vexa-cli/Run.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace fuzz {

/// A program folder, in the folder for temporary files (TMPDIR; one in memory is quickest), and the
/// companion's commands run on a data file in it. Jet databases are not read here: they have fuzzers of their
/// own.
class FileGround
{
public:
    FileGround()
    {
        platform::SetProgramFolder(m_folder.Path());
        std::filesystem::create_directory(m_folder.File("VEXAData"));
        platform::SetJetReaderProgram("/bin/false");
    }

    std::string File() const { return m_folder.File("Fire.qel"); }

    /// Runs every command that reads a data file. None may end otherwise than by a status, and those that
    /// only look may not change a byte.
    void RunAll()
    {
        const std::string before = support::ReadFile(File());
        Run({"check", File()});
        Run({"dump", File()});
        Require(support::ReadFile(File()) == before, "looking at a file changed it");
        Run({"evaluate", File(), "--yes"});
        Run({"table", File()});
        ClearAway();
    }

private:
    static void Run(const std::vector<std::string>& arguments)
    {
        std::ostringstream out;
        std::ostringstream err;
        const int status = vexa_cli::Run(arguments, out, err);
        Require(status == 0 || status == 1 || status == 3, arguments.front() + " ends with another status");
        Require(status != 1 || !err.str().empty(), arguments.front() + " fails without a word");
    }
    /// Logs grow, and a journal would be taken for the next file's.
    void ClearAway()
    {
        for (const char* name : {"VEXA.LOG", "ERROR.LOG", "Fire.qel-journal", "Fire.qel-wal", "Fire.qel-shm"})
            std::filesystem::remove(m_folder.File(name));
    }

    support::TempFolder m_folder;
};

} // namespace fuzz
