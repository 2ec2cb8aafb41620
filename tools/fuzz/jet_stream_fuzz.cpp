// What the program that reads Jet databases writes, taken in by the desktop and the companion. Here that
// program hands on the input as it is.

#include "Require.h"
#include "platform/data/Database.h"
#include "platform/data/DatabaseError.h"
#include "platform/data/Recordset.h"
#include "platform/jet/JetError.h"
#include "platform/jet/JetReader.h"
#include "platform/jet/JetTables.h"
#include "support/TempFolder.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>

using platform::Database;

namespace {

int InMemory(const std::uint8_t* data, std::size_t size)
{
    const int file = ::memfd_create("stream", MFD_CLOEXEC);
    fuzz::Require(file >= 0 && ::write(file, data, size) == static_cast<ssize_t>(size), "no memory");
    ::lseek(file, 0, SEEK_SET);
    return file;
}

/// Whether the tables were taken in.
bool Read(int file, const std::string& path)
{
    Database database(path, Database::Mode::Importing);
    try {
        platform::ReadJetTables(file, database);
    } catch (const platform::JetError&) {
        return false;
    } catch (const platform::DatabaseError&) {
        return false;
    }
    return true;
}

/// What was taken in is a sound database that can be read again.
void CheckTables(const std::string& path)
{
    Database database(path, Database::Mode::ReadOnly);
    fuzz::Require(database.IntegrityFaults().empty(), "the tables that came of it are damaged");
    for (const std::string& table : database.TableNames()) {
        platform::Recordset rows = database.OpenTable(table);
        if (rows.RecordCount() == 0) continue;
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
            for (const std::string& column : rows.ColumnNames())
                rows.Value(column);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const support::TempFolder folder;
    platform::SetJetReaderProgram("/bin/cat");
    const std::string path = folder.File("new.qel");
    support::WriteFile(path, {});
    const int file = InMemory(data, size);
    const bool isRead = Read(file, path);
    ::close(file);
    // A stream without tables leaves the file empty.
    if (isRead && !support::ReadFile(path).empty()) CheckTables(path);
    return 0;
}
