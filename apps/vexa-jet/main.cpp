// Reads the Jet database on standard input and writes its tables to standard output, as
// platform/jet/JetStream.h says. The library it reads with was not written for hostile files: this program is
// all that such a file can harm.

#include "vexa-jet/Failure.h"
#include "vexa-jet/Header.h"
#include "vexa-jet/Library.h"
#include "vexa-jet/Output.h"
#include "vexa-jet/TableReader.h"
#include "vexa-jet/TextDecoder.h"
#include "vexa-jet/Warnings.h"

#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace {

using platform::jet::Record;
using vexa_jet::Failure;
using vexa_jet::Output;

void Limit(decltype(RLIMIT_CPU) what, rlim_t most)
{
    const rlimit limit = {most, most};
    ::setrlimit(what, &limit);
}

/// Nothing the library does may last long, take the machine's memory, write a file or outlive the program
/// that asked.
void LimitProcess(std::uint64_t fileSize)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    constexpr rlim_t kWarnings = 1 << 20;
    std::signal(SIGXFSZ, SIG_IGN);
    Limit(RLIMIT_CORE, 0);
    Limit(RLIMIT_FSIZE, kWarnings);
    Limit(RLIMIT_CPU, platform::jet::MostSeconds(fileSize));
#ifndef __SANITIZE_ADDRESS__ // which reserves terabytes
    constexpr rlim_t kMemory = rlim_t{256} << 20;
    Limit(RLIMIT_AS, kMemory);
#endif
}

std::uint64_t InputSize()
{
    struct stat status = {};
    ::fstat(STDIN_FILENO, &status);
    return static_cast<std::uint64_t>(status.st_size);
}

struct DatabaseRelease
{
    void operator()(MdbHandle* database) const { mdb_close(database); }
};
using Database = std::unique_ptr<MdbHandle, DatabaseRelease>;

Database OpenDatabase()
{
    Database database(mdb_open("/proc/self/fd/0", MDB_NOFLAGS));
    if (database == nullptr || mdb_read_catalog(database.get(), MDB_TABLE) == nullptr) {
        throw Failure("the database's list of tables cannot be read");
    }
    return database;
}

bool IsCatalog(const MdbCatalogEntry& entry) { return std::string_view(entry.object_name) == "MSysObjects"; }

bool IsOfTheEngine(const MdbCatalogEntry& entry)
{
    return std::string_view(entry.object_name).substr(0, 4) == "MSys";
}

/// The file's own tables, not the engine's. The list they come from must be whole itself.
std::vector<MdbCatalogEntry*>
UserTables(MdbHandle& database, const vexa_jet::TextDecoder& decoder, Output& output)
{
    std::vector<MdbCatalogEntry*> tables;
    for (unsigned i = 0; i < database.num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(database.catalog->pdata[i]);
        if (IsCatalog(*entry)) {
            vexa_jet::TableReader(*entry, decoder, output).Count();
        } else if (mdb_is_user_table(entry) != 0 && !IsOfTheEngine(*entry)) {
            tables.push_back(entry);
        }
    }
    return tables;
}

void WriteTables(std::uint64_t fileSize, Output& output)
{
    const vexa_jet::Warnings warnings;
    const vexa_jet::TextDecoder decoder(vexa_jet::ReadHeader(STDIN_FILENO, fileSize));
    const Database database = OpenDatabase();
    const std::vector<MdbCatalogEntry*> tables = UserTables(*database, decoder, output);
    output.Raw(std::string_view(platform::jet::kStreamStart));
    output.Number32(static_cast<std::uint32_t>(tables.size()));
    output.EndRecord();
    for (MdbCatalogEntry* table : tables) {
        vexa_jet::TableReader(*table, decoder, output).Write();
        warnings.RequireNone();
    }
    warnings.RequireNone();
    output.Begin(Record::End);
    output.EndRecord();
    output.Flush();
}

} // namespace

int main()
{
    const std::uint64_t size = InputSize();
    LimitProcess(size);
    Output output(platform::jet::MostBytes(size));
    try {
        WriteTables(size, output);
    } catch (const std::exception& failure) {
        output.Fail(failure.what());
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
