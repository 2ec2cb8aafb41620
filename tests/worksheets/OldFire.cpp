#include "worksheets/OldFire.h"

#include "platform/richtext/RtfReader.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>

namespace {

using Texts = std::vector<std::string>;

// ---- The fires

const std::vector<Sight> kTwinButtes = {{"tab22", "Shoshone Field Office (fictional)"},
                                        {"tab23", "Max spotting \u00bd mile."},
                                        {"tab23", "3) other see map: 17 %"}, // in braces that are not escaped
                                        {"tab32", "Temp\u00e9rature: 31 \u00b0C; rel. humidity: 14 %."},
                                        {"tab42", "C:\\FIREMAPS\\plan_b.jpg"},
                                        {"tab43", "16,777,216"},
                                        {"tab43", "1250.5"},
                                        {"tab44", "See {runs A, B} in C:\\RERAP\\out.txt"},
                                        {"tab44", "Past fires of this size in cheatgrass and sage: 7 of 10"},
                                        {"tab52", "See {note}; line 1"},
                                        {"tab54", "$1,234,568"},
                                        {"tab54", "-$5,000"},
                                        {"tab54", "O'Brien's cabin"},
                                        {"tab56", "2,220,000"}, // 40 teams, 3 days, 18,500
                                        {"tab56", "47,200"},    // 85 acres, 555.56
                                        {"tab63", "Size:  16777216 acres. Control: 12 days"},
                                        {"tab63", "Expected Loss:  $12,000,000"},
                                        {"tab65", "A. Confine to East Butte"},
                                        {"frm562", "\u00c9quipe de br\u00fblage"}};
const std::vector<Sight> kBearpaw = {{"tab22", "640"},
                                     {"tab23", "Helicopters: 1 medium (call (406) 555-0172)."},
                                     {"tab32", "Success rests on helicopters: with none, take {50%} off."},
                                     {"tab43", "33333.33"},
                                     {"tab44", "Probability of fallback outcome if fire exceeds target"},
                                     {"tab52", "7.25"},
                                     {"tab54", "$1,234,568"},
                                     {"tab54", "Timber sale {unit 7}"},
                                     {"tab56", "176,000"},   // 12 crews, 3 days, 4,125; 40 helicopters, 675
                                     {"tab56", "2,600,000"}, // 33,333.33 acres, 78.12
                                     {"tab63", "Fallback Outcome"},
                                     {"tab63", "Expected Loss:  $17,000,000"},
                                     {"tab65", "B. Confine to Bearpaw Bench"}};
const std::vector<Sight> kAngsjo = {{"tab22", "L\u00e4nsstyrelsen; tv\u00e5 mark\u00e4gare"},
                                    {"tab42", "Modified: hold Bl\u00e5b\u00e4rsb\u00e4cken, flank the rest"},
                                    {"tab63", "Expected Loss:  $12,000,000"}};
const std::vector<Sight> kEpaule = {{"tab22", "Parc r\u00e9gional \u00ab Haute-For\u00eat \u00bb"},
                                    {"tab42", "\"Box and burn\" from la route foresti\u00e8re 33"},
                                    {"tab63", "Expected Loss:  $240,000"}};

// ---- Where the texts of the old tables are to be read

struct TextsOfTable
{
    const char* place; // empty: no worksheet has them
    bool onPaper;
    const char* query;
    bool ofShownOutcomes = false; // the query is narrowed to them
};

/// Analyses of the first level had no Fallback.
constexpr const char* kShownOutcomes =
    " AND (ChildIndex = 1 OR (coalesce(Success, 0) <> -1 AND NOT EXISTS (SELECT 1 FROM Properties WHERE "
    "Property = 'AnalysisLevel' AND Value = '1')))";

const TextsOfTable kTexts[] = {
    // The facts had other keys in the older of the formats.
    {"tab22",
     true,
     "SELECT Body FROM Items WHERE ItemKey IN (11, 52, 53, 54, 55, 57, 61, 62) OR ItemKey BETWEEN 211 AND "
     "224"},
    {"tab23", false, "SELECT ItemName, ItemText FROM Items WHERE ParentKey = 22"},
    {"tab23", true, "SELECT Heading, Body FROM Items WHERE ParentKey = 22"},
    {"tab32", true, "SELECT Name, Explanation FROM Objectives WHERE Key = 2 OR ParentKey = 2"},
    {"tab33", true, "SELECT Name, Explanation FROM Objectives WHERE ParentKey = 1"},
    {"", true, "SELECT Name, Explanation FROM Objectives WHERE ParentKey > 2"},
    {"tab42", true, "SELECT ItemName, Heading, Body FROM Items WHERE ParentKey = 26"},
    {"tab43", true, "SELECT Description, ContainTime, ControlTime FROM Outcomes WHERE 1", true},
    {"tab52", true, "SELECT Name FROM Objectives WHERE ParentKey = 2"},
    {"tab52",
     true,
     "SELECT s.Description FROM Scores s, Objectives o, Outcomes WHERE o.Key = CriterionKey AND o.ParentKey "
     "= 2 "
     "AND OutcomeKey = ItemKey",
     true},
    {"tab53", true, "SELECT Name, Explanation FROM Objectives WHERE ParentKey = 1"},
    {"tab54", true, "SELECT ItemName FROM Items WHERE ParentKey = 23"},
    {"tab56", false, "SELECT CostRationale FROM Outcomes WHERE 1", true},
    // The report says in its own words what other costs are based on.
    {"", true, "SELECT CostRationale FROM Outcomes WHERE AdjustedCost > 0", true},
    {"tab65", false, "SELECT Heading, Body, ItemText FROM Items WHERE ItemKey IN (291, 292)"},
    {"tab82", true, "SELECT Heading, Body FROM Items WHERE ParentKey = 28"},
    {"tab82", false, "SELECT ItemText FROM Items WHERE ParentKey = 28"},
    {"frm562", false, "SELECT LongName FROM SRTypes"}};

std::string QueryOf(const TextsOfTable& texts)
{
    return std::string(texts.query) + (texts.ofShownOutcomes ? kShownOutcomes : "");
}

/// The lines of a text as a reader sees them.
void AppendLines(const std::string& text, Texts& lines)
{
    const bool isRich = platform::richtext::IsRtf(text);
    std::istringstream stream(isRich ? platform::richtext::RtfToPlainText(text) : text);
    for (std::string line; std::getline(stream, line);) {
        const QString trimmed = QString::fromStdString(line).trimmed();
        if (!trimmed.isEmpty()) lines.push_back(trimmed.toStdString());
    }
}

QJsonObject Parsed(const QByteArray& dump) { return QJsonDocument::fromJson(dump).object(); }

std::vector<QJsonObject> RowsOf(const QJsonObject& dump, const QString& table)
{
    std::vector<QJsonObject> rows;
    for (const QJsonValueConstRef row : dump.value(table).toArray()) {
        const QJsonObject all = row.toObject();
        QJsonObject filled;
        for (auto cell = all.begin(); cell != all.end(); ++cell) {
            const bool isEmpty = cell->isNull() || *cell == QJsonValue(QString()) || *cell == QJsonValue(0);
            if (!isEmpty) filled.insert(cell.key(), *cell);
        }
        rows.push_back(filled);
    }
    return rows;
}

} // namespace

const std::vector<OldFire>& OldFire::All()
{
    static const std::vector<OldFire> fires = {
        {"05.01.02-twin-level1", ".jet3.qel", false, false, kTwinButtes},
        {"04.01.01-bearpaw-20", ".jet3.qel", true, true, kBearpaw},
        {"05.01.02-twin-level1", ".qel", false, false, kTwinButtes},
        {"05.01.02-angsjo-level3", ".qel", false, true, kAngsjo},
        {"04.01.01-bearpaw-20", ".qel", true, true, kBearpaw},
        {"04.01.01-epaule-17", ".qel", true, false, kEpaule}};
    return fires;
}

std::string OldFire::Path() const
{
    const std::string file = std::string("legacy/") + name + ending;
    if (std::filesystem::exists(support::DataFile(file))) return support::DataFile(file);
    const char* corpus = std::getenv("VEXA_CORPUS");
    const std::string path = corpus == nullptr ? "" : std::string(corpus) + "/" + file;
    return std::filesystem::exists(path) ? path : "";
}

std::vector<Sight> OldFire::TextsOnWorksheets() const
{
    std::vector<Sight> sights = figures;
    for (const TextsOfTable& texts : kTexts) {
        if (*texts.place == '\0') continue;
        for (const std::string& line : Ask(QueryOf(texts)))
            sights.push_back({texts.place, line});
    }
    return sights;
}

Texts OldFire::TextsOnPaper() const
{
    Texts lines;
    for (const TextsOfTable& texts : kTexts) {
        if (!texts.onPaper) continue;
        const Texts more = Ask(QueryOf(texts));
        lines.insert(lines.end(), more.begin(), more.end());
    }
    return lines;
}

QJsonObject OldFire::Converted() const
{
    const std::string dump = support::DataFile(std::string("legacy/") + name + ".expected.json");
    return Parsed(QByteArray::fromStdString(support::ReadFile(dump)));
}

Texts OldFire::Ask(const std::string& query) const
{
    Texts lines;
    // The same tables in the engine of today.
    const std::string twin = support::DataFile(std::string("legacy/") + name + ".sqlite.qel");
    for (const Texts& row : support::QuerySql(twin, query)) {
        for (const std::string& cell : row) {
            if (cell != "NULL") AppendLines(cell, lines);
        }
    }
    return lines;
}

QJsonObject DumpedByCompanion(const std::string& path)
{
    QProcess companion;
    companion.start(QString::fromStdString(support::BuiltFile("vexa-cli")),
                    {QStringLiteral("dump"), QString::fromStdString(path)});
    EXPECT_TRUE(companion.waitForFinished());
    return Parsed(companion.readAllStandardOutput());
}

std::map<std::string, int> ChangedRows(const QJsonObject& before, const QJsonObject& after)
{
    std::map<std::string, int> changed;
    EXPECT_EQ(before.keys(), after.keys());
    for (const QString& table : after.keys()) {
        if (table == QLatin1String("Properties")) continue;
        const std::vector<QJsonObject> old = RowsOf(before, table);
        const std::vector<QJsonObject> rows = RowsOf(after, table);
        EXPECT_GE(rows.size(), old.size()) << table.toStdString();
        for (const QJsonObject& row : rows) {
            if (std::find(old.begin(), old.end(), row) == old.end()) ++changed[table.toStdString()];
        }
    }
    return changed;
}
