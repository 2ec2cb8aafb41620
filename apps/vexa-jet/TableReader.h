#pragma once

#include "vexa-jet/Library.h"
#include "vexa-jet/Output.h"
#include "vexa-jet/Page.h"
#include "vexa-jet/TextDecoder.h"
#include "vexa-jet/Values.h"

#include <array>
#include <memory>
#include <string_view>
#include <vector>

namespace vexa_jet {

/// Reads one table, page by page and row by row.
class TableReader
{
public:
    /// Throws Failure for a definition that cannot be read.
    TableReader(MdbCatalogEntry& entry, const TextDecoder& decoder, Output& output);

    /// Writes definition and rows. Throws Failure for a row that cannot be read and for one that is missing.
    void Write();
    /// Goes through the rows without writing them.
    void Count();

private:
    struct TableRelease
    {
        void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
    };

    MdbColumn& Column(std::size_t place) const;
    std::vector<std::uint8_t> KeyPlaces() const;
    void CheckIndexes() const;
    void WriteDefinition();
    void WalkPages();
    void WalkRows();
    void ReadMovedRow(const Slot& slot);
    void ReadRow(const Slot& slot);
    void WriteRow(const Slot& slot, int columnsInRow);
    std::string_view FieldOf(const MdbField& field, const Slot& slot) const;

    MdbHandle& m_database;
    std::uint32_t m_tablePage;
    std::unique_ptr<MdbTableDef, TableRelease> m_table;
    Output& m_output;
    Values m_values;
    std::vector<MdbField> m_fields;
    std::array<unsigned char, MDB_PGSIZE> m_page{}; // the page that is gone through
    std::uint32_t m_rows = 0;
    bool m_writes = false;
};

} // namespace vexa_jet
