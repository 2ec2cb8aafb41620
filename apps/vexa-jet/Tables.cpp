#include "vexa-jet/Tables.h"

#include "vexa-jet/Failure.h"
#include "vexa-jet/Header.h"
#include "vexa-jet/Library.h"
#include "vexa-jet/TableReader.h"
#include "vexa-jet/TextDecoder.h"
#include "vexa-jet/Warnings.h"

#include <unistd.h>

#include <memory>
#include <string_view>
#include <vector>

namespace vexa_jet {

using platform::jet::Record;

namespace {

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
std::vector<MdbCatalogEntry*> UserTables(MdbHandle& database, const TextDecoder& decoder, Output& output)
{
    std::vector<MdbCatalogEntry*> tables;
    for (unsigned i = 0; i < database.num_catalog; ++i) {
        auto* entry = static_cast<MdbCatalogEntry*>(database.catalog->pdata[i]);
        if (IsCatalog(*entry)) {
            TableReader(*entry, decoder, output).Count();
        } else if (mdb_is_user_table(entry) != 0 && !IsOfTheEngine(*entry)) {
            tables.push_back(entry);
        }
    }
    return tables;
}

} // namespace

void WriteTables(std::uint64_t fileSize, Output& output)
{
    const Warnings warnings;
    const TextDecoder decoder(ReadHeader(STDIN_FILENO, fileSize));
    const Database database = OpenDatabase();
    const std::vector<MdbCatalogEntry*> tables = UserTables(*database, decoder, output);
    output.Raw(std::string_view(platform::jet::kStreamStart));
    output.Number32(static_cast<std::uint32_t>(tables.size()));
    output.EndRecord();
    for (MdbCatalogEntry* table : tables) {
        TableReader(*table, decoder, output).Write();
        warnings.RequireNone();
    }
    warnings.RequireNone();
    output.Begin(Record::End);
    output.EndRecord();
    output.Flush();
}

} // namespace vexa_jet
