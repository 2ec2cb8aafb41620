#include "platform/data/Database.h"
#include "platform/data/Recordset.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/FileAsItStands.h"
#include "vexa-cli/JsonWriter.h"
#include "vexa-cli/Names.h"

#include <algorithm>
#include <optional>
#include <ostream>
#include <variant>

namespace vexa_cli {

namespace {

void WriteField(JsonWriter& json, const platform::FieldValue& field)
{
    if (std::holds_alternative<std::monostate>(field)) {
        json.Null();
    } else if (const auto* whole = std::get_if<std::int64_t>(&field)) {
        json.Value(*whole);
    } else if (const auto* floating = std::get_if<Double>(&field)) {
        json.Value(*floating);
    } else {
        json.Value(std::get<std::string>(field));
    }
}

void WriteTable(JsonWriter& json, platform::Database& database, const std::string& table)
{
    json.Key(table);
    json.BeginArray();
    platform::Recordset rows = database.OpenTable(table);
    const std::vector<std::string> columns = rows.ColumnNames();
    if (rows.RecordCount() > 0) {
        for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
            json.BeginObject();
            for (const std::string& column : columns) {
                json.Key(column);
                WriteField(json, rows.Value(column));
            }
            json.EndObject();
        }
    }
    json.EndArray();
}

/// The first name that no table bears.
std::optional<std::string> Unknown(const std::vector<std::string>& names,
                                   const std::vector<std::string>& tables)
{
    for (const std::string& name : names) {
        const auto isIt = [&](const std::string& table) { return SameName(name, table); };
        if (std::none_of(tables.begin(), tables.end(), isIt)) {
            return name;
        }
    }
    return std::nullopt;
}

bool Wanted(const std::string& table, const std::vector<std::string>& names)
{
    const auto isIt = [&](const std::string& name) { return SameName(name, table); };
    return names.empty() || std::any_of(names.begin(), names.end(), isIt);
}

} // namespace

ExitStatus Dump(const Request& request, Console& console)
{
    const std::unique_ptr<platform::Database> file = OpenAsItStands(request.files.front());
    platform::Database& database = *file;
    std::vector<std::string> tables = database.TableNames();
    std::sort(tables.begin(), tables.end(), NameBefore);
    if (const std::optional<std::string> name = Unknown(request.tables, tables)) {
        console.err << request.files.front() << ": there is no table " << *name << " in it\n";
        return ExitStatus::Failed;
    }
    // Written at the end, so that a damaged page leaves no half document behind.
    JsonWriter json(JsonWriter::Layout::Pretty);
    json.BeginObject();
    for (const std::string& table : tables) {
        if (Wanted(table, request.tables)) {
            WriteTable(json, database, table);
        }
    }
    json.EndObject();
    console.out << json.Take();
    return ExitStatus::Done;
}

} // namespace vexa_cli
