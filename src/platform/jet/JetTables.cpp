#include "platform/jet/JetTables.h"

#include "platform/base/LongWork.h"
#include "platform/data/Schema.h"
#include "platform/jet/JetError.h"
#include "platform/jet/JetReader.h"
#include "platform/jet/JetStream.h"

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

namespace {

using jet::CellMark;
using jet::CellType;
using jet::Record;

[[noreturn]] void Fail(const std::string& what) { throw JetError("The tables of the Jet database: " + what); }

ColumnType ColumnTypeOf(CellType type)
{
    switch (type) {
    case CellType::Boolean: return ColumnType::Boolean;
    case CellType::Byte:
    case CellType::Integer: return ColumnType::Integer;
    case CellType::Long: return ColumnType::Long;
    case CellType::Automatic: return ColumnType::Automatic;
    case CellType::Money: return ColumnType::Currency;
    case CellType::Single: return ColumnType::Single;
    case CellType::Double: return ColumnType::Double;
    case CellType::Text: return ColumnType::Text;
    }
    Fail("a column has no such type");
}

template <class Width> FieldValue Whole(std::int64_t value)
{
    if (value < std::numeric_limits<Width>::min() || value > std::numeric_limits<Width>::max()) {
        Fail("a number is too large for its column");
    }
    return value;
}

FieldValue WholeCell(CellType type, std::int64_t value)
{
    switch (type) {
    case CellType::Byte: return Whole<std::uint8_t>(value);
    case CellType::Integer: return Whole<Integer>(value);
    case CellType::Long:
    case CellType::Automatic: return Whole<Long>(value);
    default: Fail("a number stands where none belongs");
    }
}

FieldValue FloatingCell(CellType type, double value)
{
    const bool fits =
        type == CellType::Double ||
        (type == CellType::Single && std::abs(value) <= Double(std::numeric_limits<Single>::max()));
    if (!fits || !std::isfinite(value)) {
        Fail("a floating number stands where it does not belong");
    }
    return value;
}

FieldValue MoneyCell(std::int64_t tenThousandths)
{
    constexpr std::int64_t kScale = 10000;
    if (tenThousandths % kScale == 0) {
        return tenThousandths / kScale;
    }
    return ToDouble(Currency::FromTenThousandths(tenThousandths));
}

void Require(bool fits)
{
    if (!fits) {
        Fail("a cell stands where it does not belong");
    }
}

FieldValue ReadCell(JetReader& reader, CellType type)
{
    const auto mark = static_cast<CellMark>(reader.Byte());
    switch (mark) {
    case CellMark::Null: Require(type != CellType::Boolean); return std::monostate();
    case CellMark::False: Require(type == CellType::Boolean); return std::int64_t{0};
    case CellMark::True: Require(type == CellType::Boolean); return std::int64_t{-1};
    case CellMark::Whole: return WholeCell(type, reader.Number64());
    case CellMark::Money: Require(type == CellType::Money); return MoneyCell(reader.Number64());
    case CellMark::Floating: return FloatingCell(type, reader.Floating());
    case CellMark::Text: Require(type == CellType::Text); return reader.Text();
    }
    Fail("a cell has no such form");
}

/// The tables as they come.
class Tables
{
public:
    Tables(int file, Database& database) : m_reader(file), m_database(database) {}

    void Run()
    {
        for (const char c : std::string_view(jet::kStreamStart)) {
            ExpectByte(c);
        }
        m_count = m_reader.Number32();
        if (m_count > jet::kMostTables) {
            Fail("there are too many");
        }
        for (m_done = 0; m_done < m_count; ++m_done) {
            ExpectRecord(Record::Table);
            ReadTable();
        }
        ExpectRecord(Record::End);
        m_reader.Finish();
    }

private:
    void ExpectByte(char c)
    {
        const auto byte = static_cast<char>(m_reader.Byte());
        if (byte != c) {
            GiveUp(static_cast<Record>(byte));
        }
    }
    void ExpectRecord(Record record) { ExpectByte(static_cast<char>(record)); }

    [[noreturn]] void GiveUp(Record record)
    {
        if (record == Record::Failure) {
            Fail(m_reader.Text());
        }
        Fail("they are not told in order");
    }

    void ReadTable()
    {
        TableDefinition table;
        table.name = m_reader.Name();
        m_claimed = m_reader.Number32();
        ReadColumns(table);
        ReadKeys(table);
        TellProgress(table.name, static_cast<double>(m_done) / static_cast<double>(m_count));
        Schema(m_database).CreateTable(table);
        ReadRows(table);
    }

    void ReadColumns(TableDefinition& table)
    {
        m_types.assign(m_reader.Byte(), CellType::Text);
        if (m_types.empty()) {
            Fail(table.name + " has no columns");
        }
        for (CellType& type : m_types) {
            type = static_cast<CellType>(m_reader.Byte());
            const ColumnType columnType = ColumnTypeOf(type);
            table.columns.push_back({m_reader.Name(), columnType});
        }
    }

    void ReadKeys(TableDefinition& table)
    {
        m_keys.assign(m_reader.Byte(), 0);
        for (std::size_t& key : m_keys) {
            key = m_reader.Byte();
            if (key >= table.columns.size()) {
                Fail("the key of " + table.name + " has a column that is not there");
            }
            table.keys.push_back(table.columns[key].name);
        }
    }

    void ReadRows(const TableDefinition& table)
    {
        RowWriter writer(m_database, table.name);
        std::vector<FieldValue> row(m_types.size());
        std::uint32_t count = 0;
        auto record = static_cast<Record>(m_reader.Byte());
        for (; record == Record::Row; record = static_cast<Record>(m_reader.Byte())) {
            for (std::size_t i = 0; i < row.size(); ++i) {
                row[i] = ReadCell(m_reader, m_types[i]);
            }
            CheckKey(table, row);
            writer.Write(row);
            TellRows(table, ++count);
        }
        if (record != Record::TableEnd) {
            GiveUp(record);
        }
        if (m_reader.Number32() != count || m_claimed != count) {
            Fail(table.name + " has rows that cannot be read");
        }
    }

    /// The engine would allot a key that is null.
    void CheckKey(const TableDefinition& table, const std::vector<FieldValue>& row) const
    {
        for (const std::size_t key : m_keys) {
            if (std::holds_alternative<std::monostate>(row[key])) {
                Fail(table.name + " has a row without its key");
            }
        }
    }

    void TellRows(const TableDefinition& table, std::uint32_t count) const
    {
        constexpr std::uint32_t kOften = 1000;
        if (count % kOften == 0) {
            const double part = m_claimed > 0 ? std::min(1.0, double(count) / double(m_claimed)) : 0.0;
            TellProgress(table.name, (static_cast<double>(m_done) + part) / static_cast<double>(m_count));
        }
    }

    JetReader m_reader;
    Database& m_database;
    std::vector<CellType> m_types;   // of the table's columns
    std::vector<std::size_t> m_keys; // their places
    std::uint32_t m_claimed = 0;     // rows that the table should have
    std::uint32_t m_done = 0;
    std::uint32_t m_count = 0;
};

} // namespace

void ReadJetTables(int file, Database& database)
{
    Transaction whole(database);
    Tables(file, database).Run();
    whole.Commit();
    TellProgress({}, 1.0);
}

} // namespace platform
