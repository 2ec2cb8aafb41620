#include "vexa-cli/CheckTables.h"

#include "platform/base/Errors.h"
#include "platform/data/Recordset.h"
#include "vexa-cli/FileShape.h"
#include "vexa-cli/Names.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <variant>

namespace vexa_cli {

namespace {

/// The part of a finding that names the row: its key cells.
std::string RowName(const platform::Recordset& rows, const std::vector<std::string>& keys)
{
    std::string name = "row ";
    for (std::size_t i = 0; i < keys.size(); ++i) {
        name += (i == 0 ? "" : "/") + (rows.IsNull(keys[i]) ? std::string("null") : rows.Text(keys[i]));
    }
    return name;
}

/// Reads the cell in the width of its column; throws where it does not fit.
void ReadInItsWidth(const platform::Recordset& rows, const ColumnShape& column)
{
    switch (column.kind) {
    case CellKind::Long: rows.LongValue(column.name); return;
    case CellKind::Integer: platform::ToInteger(Double(rows.LongValue(column.name))); return;
    case CellKind::Single: rows.SingleValue(column.name); return;
    case CellKind::Currency: rows.CurrencyValue(column.name); return;
    case CellKind::Text: return;
    }
}

/// One table against its shape.
class TableCheck
{
public:
    TableCheck(platform::Database& database, const TableShape& shape, Findings& findings)
        : m_database(database), m_shape(shape), m_findings(findings)
    {}

    void Run()
    {
        if (!m_database.HasTable(m_shape.name)) {
            m_findings.Add(m_shape.name, "the table is missing");
            return;
        }
        try {
            platform::Recordset rows = m_database.OpenTable(m_shape.name);
            const std::vector<std::string> columns = rows.ColumnNames();
            CheckColumns(columns);
            CheckKey(columns);
            CheckRows(rows);
        } catch (const platform::Error& error) {
            m_findings.Add(m_shape.name, std::string("cannot be read to its end: ") + error.what());
        }
    }

private:
    static bool Contains(const std::vector<std::string>& names, const std::string& name)
    {
        return std::any_of(
            names.begin(), names.end(), [&](const std::string& other) { return SameName(name, other); });
    }

    void CheckColumns(const std::vector<std::string>& columns)
    {
        for (const ColumnShape& column : m_shape.columns) {
            if (Contains(columns, column.name)) {
                m_present.push_back(column);
            } else {
                m_findings.Add(m_shape.name, "the column " + column.name + " is missing");
            }
        }
    }

    void CheckKey(const std::vector<std::string>& columns)
    {
        m_keys = m_database.PrimaryKey(m_shape.name);
        const auto fits = [](const std::string& told, const std::string& found) {
            return told.empty() || SameName(told, found);
        };
        if (std::equal(m_shape.keys.begin(), m_shape.keys.end(), m_keys.begin(), m_keys.end(), fits)) {
            return;
        }
        m_findings.Add(m_shape.name,
                       m_keys.empty() ? "there is no primary key" : "the primary key is another one");
        m_keys.clear();
        std::copy_if(m_shape.keys.begin(),
                     m_shape.keys.end(),
                     std::back_inserter(m_keys),
                     [&](const std::string& key) { return Contains(columns, key); });
        m_keyIsWhole = m_keys.size() == m_shape.keys.size();
    }

    void CheckRows(platform::Recordset& rows)
    {
        if (rows.RecordCount() == 0) {
            return;
        }
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
            const std::string name = RowName(rows, m_keys);
            CheckRowKey(rows, name);
            for (const ColumnShape& column : m_present) {
                CheckCell(rows, column, name);
            }
        }
    }

    void CheckRowKey(const platform::Recordset& rows, const std::string& name)
    {
        for (const std::string& key : m_keys) {
            if (rows.IsNull(key)) {
                m_findings.Add(m_shape.name + " keys", name + " has no " + key);
            }
        }
        if (m_keyIsWhole && !m_seen.insert(name).second) {
            m_findings.Add(m_shape.name + " keys", name + " is there more than once");
        }
    }

    void CheckCell(const platform::Recordset& rows, const ColumnShape& column, const std::string& name)
    {
        const std::string kind = m_shape.name + "." + column.name;
        const bool isText = std::holds_alternative<std::string>(rows.Value(column.name));
        if (isText && column.kind != CellKind::Text) {
            m_findings.Add(kind, name + " holds a text where a number belongs");
        }
        try {
            ReadInItsWidth(rows, column);
        } catch (const platform::Error&) {
            m_findings.Add(kind, name + " holds a number beyond the column's width");
        }
    }

    platform::Database& m_database;
    const TableShape& m_shape;
    Findings& m_findings;
    std::vector<ColumnShape> m_present;
    std::vector<std::string> m_keys;
    bool m_keyIsWhole = true;
    std::set<std::string> m_seen;
};

} // namespace

void CheckTables(platform::Database& database, Findings& findings)
{
    for (const TableShape& shape : DatafileShape()) {
        TableCheck(database, shape, findings).Run();
    }
}

} // namespace vexa_cli
