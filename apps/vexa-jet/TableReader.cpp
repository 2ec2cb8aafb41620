#include "vexa-jet/TableReader.h"

#include "vexa-jet/Failure.h"

#include <algorithm>
#include <string>

namespace vexa_jet {

using platform::jet::CellType;
using platform::jet::Record;

namespace {
constexpr int kPrimaryKey = 1; // among the types of index
constexpr int kMovedSize = 4;
} // namespace

TableReader::TableReader(MdbCatalogEntry& entry, const TextDecoder& decoder, Output& output)
    : m_database(*entry.mdb), m_tablePage(static_cast<std::uint32_t>(entry.table_pg)),
      m_table(mdb_read_table(&entry)), m_output(output), m_values(m_database, decoder, output)
{
    const bool isRead = m_table != nullptr && mdb_read_columns(m_table.get()) != nullptr;
    const bool fits = isRead && m_table->num_cols > 0 && m_table->num_cols <= platform::jet::kMostColumns &&
                      m_table->columns->len == m_table->num_cols;
    if (!fits) {
        throw Failure(std::string("the table ") + entry.object_name + " has no columns that can be read");
    }
    mdb_read_indices(m_table.get());
    CheckIndexes();
    m_fields.resize(m_table->num_cols);
}

MdbColumn& TableReader::Column(std::size_t place) const
{
    return *static_cast<MdbColumn*>(m_table->columns->pdata[place]);
}

std::vector<std::uint8_t> TableReader::KeyPlaces() const
{
    std::vector<std::uint8_t> places;
    for (guint i = 0; m_table->indices != nullptr && i < m_table->indices->len; ++i) {
        const auto& index = *static_cast<MdbIndex*>(m_table->indices->pdata[i]);
        if (index.index_type != kPrimaryKey) {
            continue;
        }
        for (unsigned key = 0; key < std::min(index.num_keys, unsigned{MDB_MAX_IDX_COLS}); ++key) {
            const int place = index.key_col_num[key] - 1; // counted from 1
            if (place < 0 || place >= static_cast<int>(m_table->num_cols)) {
                throw Failure(std::string("the key of ") + m_table->name + " has no column");
            }
            places.push_back(static_cast<std::uint8_t>(place));
        }
        break;
    }
    return places;
}

/// They are not used, but a file that was cut lacks them first.
void TableReader::CheckIndexes() const
{
    constexpr unsigned kRelation = 2; // an index without pages of its own
    for (guint i = 0; m_table->indices != nullptr && i < m_table->indices->len; ++i) {
        const auto& index = *static_cast<MdbIndex*>(m_table->indices->pdata[i]);
        if (index.index_type == kRelation) {
            continue;
        }
        const unsigned char* page = ReadSecondPageBytes(m_database, index.first_pg);
        if (page[0] != MDB_PAGE_INDEX && page[0] != MDB_PAGE_LEAF) {
            throw Failure(std::string("an index of ") + m_table->name + " is damaged");
        }
    }
}

void TableReader::WriteDefinition()
{
    m_output.Begin(Record::Table);
    m_output.Name(m_table->name);
    m_output.Number32(m_table->num_rows);
    m_output.Byte(static_cast<std::uint8_t>(m_table->num_cols));
    for (std::size_t i = 0; i < m_table->num_cols; ++i) {
        m_output.Byte(static_cast<std::uint8_t>(CellTypeOf(Column(i))));
        m_output.Name(Column(i).name);
    }
    const std::vector<std::uint8_t> keys = KeyPlaces();
    m_output.Byte(static_cast<std::uint8_t>(keys.size()));
    for (const std::uint8_t key : keys) {
        m_output.Byte(key);
    }
    m_output.EndRecord();
}

void TableReader::Write()
{
    WriteDefinition();
    m_writes = true;
    WalkPages();
    m_output.Begin(Record::TableEnd);
    m_output.Number32(m_rows);
    m_output.EndRecord();
}

void TableReader::Count() { WalkPages(); }

void TableReader::WalkPages()
{
    mdb_rewind_table(m_table.get());
    while (mdb_read_next_dpg(m_table.get()) != 0) {
        std::copy(std::begin(m_database.pg_buf), std::end(m_database.pg_buf), m_page.begin());
        WalkRows();
    }
    if (m_rows != m_table->num_rows) {
        throw Failure(std::string(m_table->name) + " should have " + std::to_string(m_table->num_rows) +
                      " rows, not " + std::to_string(m_rows));
    }
}

void TableReader::WalkRows()
{
    const Page page(m_database, m_page.data());
    const int count = page.RowCount();
    for (int row = 0; row < count; ++row) {
        const Slot slot = page.SlotOf(row);
        if (slot.isHidden) {
            continue; // deleted, or reached from the place it was moved away from
        }
        if (slot.isMoved) {
            ReadMovedRow(slot);
        } else {
            ReadRow(slot);
        }
    }
}

void TableReader::ReadMovedRow(const Slot& slot)
{
    if (slot.size < kMovedSize) {
        throw Failure("a row was moved nowhere");
    }
    const RowPlace place(Number32(m_page.data() + slot.start));
    const Page page = ReadSecondPage(m_database, place.page);
    const Slot target = page.SlotOf(place.row);
    if (page.Owner() != m_tablePage || target.isMoved) {
        throw Failure("a row was moved out of its table");
    }
    // The library looks at rows in its first buffer only.
    std::copy(std::begin(m_database.alt_pg_buf), std::end(m_database.alt_pg_buf), m_database.pg_buf);
    ReadRow(target);
    std::copy(m_page.begin(), m_page.end(), m_database.pg_buf);
}

void TableReader::ReadRow(const Slot& slot)
{
    ++m_rows;
    if (slot.size == 0) {
        throw Failure("a row is empty");
    }
    const int columns =
        mdb_crack_row(m_table.get(), slot.start, static_cast<std::size_t>(slot.size), m_fields.data());
    if (columns < 0) {
        throw Failure(std::string("a row of ") + m_table->name + " is damaged");
    }
    if (m_writes) {
        WriteRow(slot, columns);
    }
}

void TableReader::WriteRow(const Slot& slot, int columnsInRow)
{
    m_output.Begin(Record::Row);
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        const MdbColumn& column = Column(i);
        const MdbField& field = m_fields[i];
        // A column that was added behind the row was written is not in it.
        const bool isNull = field.is_null != 0 || column.col_num >= columnsInRow;
        if (column.col_type == MDB_BOOL) {
            m_output.Boolean(!isNull);
        } else if (isNull) {
            m_output.Null();
        } else {
            m_values.Write(column, FieldOf(field, slot));
        }
    }
    m_output.EndRecord();
}

std::string_view TableReader::FieldOf(const MdbField& field, const Slot& slot) const
{
    if (field.siz < 0 || field.start < slot.start || field.start + field.siz > slot.start + slot.size) {
        throw Failure(std::string("a cell of ") + m_table->name + " stands outside its row");
    }
    return {reinterpret_cast<const char*>(m_database.pg_buf + field.start),
            static_cast<std::size_t>(field.siz)};
}

} // namespace vexa_jet
