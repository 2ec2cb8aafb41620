#include "platform/data/DatabaseError.h"
#include "session/SessionState.h"
#include "vexa-cli/CheckFixedRows.h"
#include "vexa-cli/CheckLinks.h"
#include "vexa-cli/CheckTables.h"
#include "vexa-cli/Commands.h"
#include "vexa-cli/FileAsItStands.h"

#include <ostream>

namespace vexa_cli {

namespace {

void CheckEngine(platform::Database& database, Findings& findings)
{
    try {
        for (const std::string& fault : database.IntegrityFaults()) {
            findings.Add("engine", fault);
        }
    } catch (const platform::DatabaseError& error) {
        findings.Add("engine", error.what()); // too damaged to be gone through
    }
}

/// The format that the file says it has; nothing when it does not say.
std::string FormatOf(platform::Database& database, Findings& findings)
{
    try {
        platform::Recordset properties = database.OpenTable("Properties");
        properties.Seek("DataFormatID");
        if (!properties.NoMatch() && !properties.IsNull("Value")) {
            return properties.Text("Value");
        }
        findings.Add("Properties", "there is no row DataFormatID, so it is no data file");
    } catch (const platform::DatabaseError& error) {
        findings.Add("Properties", error.what());
    }
    return {};
}

/// Tables, keys, rows and links are those of today's format.
void CheckContents(platform::Database& database, const std::string& format, Findings& findings)
{
    if (format != kDataFormat && format != "06.00.beta") {
        findings.Add("format", "it is " + format + ", not " + kDataFormat + "; only the engine was checked");
        return;
    }
    CheckTables(database, findings);
    CheckFixedRows(database, findings);
    CheckLinks(database, findings);
}

} // namespace

ExitStatus Check(const Request& request, Console& console)
{
    const std::unique_ptr<platform::Database> file = OpenAsItStands(request.files.front());
    platform::Database& database = *file;
    database.TableNames(); // fails for what is no database at all
    Findings findings;
    CheckEngine(database, findings);
    const std::string format = FormatOf(database, findings);
    if (!format.empty()) {
        CheckContents(database, format, findings);
    }
    for (const std::string& line : findings.Lines()) {
        console.out << line << '\n';
    }
    if (findings.Lines().empty()) {
        console.out << "ok\n";
    }
    return ExitStatus::Done;
}

} // namespace vexa_cli
