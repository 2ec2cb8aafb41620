#include "values/RowWalks.h"

#include "platform/base/Texts.h"
#include "session/u19RowData.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <string>
#include <system_error>

namespace {

std::optional<Long> WholeKey(Double value)
{
    if (value < std::numeric_limits<Long>::min() || value > std::numeric_limits<Long>::max()) {
        return std::nullopt;
    }
    const Long key = platform::ToLong(value);
    return Double(key) == value ? std::optional<Long>(key) : std::nullopt;
}

/// A key column declared as text compares with the plain digits of a key.
std::optional<Long> WrittenKey(const std::string& text)
{
    Long key = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), key);
    return read.ec == std::errc() && platform::TextOf(key) == text ? std::optional<Long>(key) : std::nullopt;
}

} // namespace

void RowWalks::DeleteRows(platform::Recordset rows)
{
    while (!rows.Eof()) {
        rows.Delete();
        rows.MoveNext();
    }
}

void RowWalks::DeleteRowsOf(platform::Recordset table, std::string_view keyColumn, Long key)
{
    if (table.RecordCount() == 0) {
        return;
    }
    for (table.MoveFirst(); !table.Eof(); table.MoveNext()) {
        if (u19RowData::ReadLong(table, keyColumn) == key) {
            table.Delete();
        }
    }
}

std::optional<Long> RowWalks::KeyIn(const platform::Recordset& rows, std::string_view column)
{
    const platform::FieldValue cell = rows.Value(column);
    if (const auto* whole = std::get_if<std::int64_t>(&cell)) {
        return WholeKey(static_cast<Double>(*whole));
    }
    if (const auto* floating = std::get_if<Double>(&cell)) {
        return WholeKey(*floating);
    }
    const auto* text = std::get_if<std::string>(&cell);
    return text == nullptr ? std::nullopt : WrittenKey(*text);
}
