// What each section of the report costs, as PDF and as RTF, when its fire holds ten times as much of one
// thing: from the stores, which are dropped before, to the file on the drive.

#include "Measure.h"
#include "common/ConnectConversions.h"
#include "common/ConnectStores.h"
#include "platform/base/ProgramFolder.h"
#include "platform/print/PdfFile.h"
#include "platform/print/PrintControl.h"
#include "platform/print/Toolkit.h"
#include "reports/ReportRun.h"
#include "reports/ReportUtilities.h"
#include "session/a1VEXA.h"
#include "session/u11Datafile.h"
#include "support/ScriptedDesktop.h"
#include "support/TempFolder.h"
#include "support/TestSession.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <map>
#include <stdexcept>
#include <string>

namespace {

constexpr int kFew = 40; // ten times what a fire of four alternatives has
constexpr int kMany = 10 * kFew;
constexpr double kAllowed = 11.0;
constexpr int kRuns = 5;

/// How much of everything a fire holds.
using Content = std::map<std::string, int>;

Content Little()
{
    return {{"alternatives", 3},
            {"topics", 3},
            {"paragraphs", 1},
            {"objectives", 3},
            {"issues", 3},
            {"items", 3},
            {"landunits", 3},
            {"resources", 3}};
}

/// A section, and what it is given ten times as much of.
struct Growth
{
    Integer section;
    const char* of;
};
constexpr Growth kGrowths[] = {
    {1, "topics"},
    {1, "paragraphs"},
    {2, "paragraphs"},
    {4, "objectives"},
    {5, "issues"},
    {6, "alternatives"},
    {6, "paragraphs"},
    {7, "alternatives"},
    {7, "landunits"},
    {7, "resources"},
    {8, "alternatives"},
    {8, "items"},
    {9, "alternatives"},
    {9, "issues"},
    {10, "alternatives"},
    {10, "objectives"},
};

/// A paragraph of rich text as often as the table `many_paragraphs` has rows.
constexpr const char* kBody = R"((SELECT '{\rtf1\ansi\deff0{\fonttbl{\f0 Arial;}}\f0\fs20 ' || group_concat(
    'The fire burns in \b mixed conifer\b0  above the river, and spotting was seen a quarter mile ahead of it.\par ',
    '') || '}' FROM many_paragraphs))";

// Keys: topics from 10001, threatened items from 20001, alternatives from 30001, objectives from
// 1001, issues from 5001; outcomes from 2 (1 is the Extreme one).
constexpr const char* kRows = R"(
CREATE TEMP TABLE body AS SELECT BODY AS text;
INSERT INTO Objectives(Key, Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority)
    SELECT 1000 + i, 'Objective ' || i, text, 6, 0, CASE i WHEN objectivesCount THEN 0 ELSE 1001 + i END, 10
    FROM many_objectives, body;
UPDATE Objectives SET ChildKey = 1001 WHERE Key = 6;
INSERT INTO Objectives(Key, Name, Explanation, ParentKey, ChildKey, SiblingKey, Priority)
    SELECT 5000 + i, 'Issue ' || i, text, 2, 0, CASE i WHEN issuesCount THEN 0 ELSE 5001 + i END, 10
    FROM many_issues, body;
UPDATE Objectives SET ChildKey = 5001 WHERE Key = 2;
INSERT INTO Items(ItemKey, ItemName, Heading, Body, ParentKey, ChildIndex)
    SELECT 10000 + i, 'Topic ' || i, 'Topic ' || i, text, 22, 100 + i FROM many_topics, body;
UPDATE Items SET Body = (SELECT text FROM body) WHERE ParentKey = 28;
INSERT INTO Items(ItemKey, ItemName, ParentKey, ChildIndex)
    SELECT 20000 + i, 'Threatened item ' || i, 23, i FROM many_items;
INSERT INTO ValuesAtRisk SELECT 20000 + i, i * 1000.0, 100 FROM many_items;
INSERT INTO Items(ItemKey, ItemName, Heading, Body, ParentKey, ChildIndex)
    SELECT 30000 + i, 'A' || i, 'Alternative ' || i, text, 26, i FROM many_alternatives, body;
INSERT OR REPLACE INTO Properties VALUES ('SelectedAlternativeKey', '30001');
INSERT INTO Outcomes(ItemKey, ParentKey, ChildIndex, Description, FireSize, ContainTime, ControlTime, Success,
                     CostSource, AdjustedCost)
    SELECT 2 * i, 30000 + i, 1, text, 100.0 * i, 3, 9, i % 90, 2, 1000.0 * i FROM many_alternatives, body
    UNION ALL
    SELECT 2 * i + 1, 30000 + i, 2, text, 200.0 * i, 5, 12, i % 51, 2, 2000.0 * i FROM many_alternatives, body;
INSERT INTO FMZList SELECT i, 'U' || i, 'Land unit ' || i FROM many_landunits;
INSERT INTO SuppressionPerAcreCost SELECT i, SizeClass, SizeClass * 5000, 100 * SizeClass
    FROM many_landunits, SuppressionPerAcreCost WHERE FMZKey = 0;
INSERT INTO NVCPerAcre SELECT i, ResourceIndex, Fil1, 3.25, Fil3, -10.5, Fil5, Fil6
    FROM many_landunits, NVCPerAcre WHERE FMZKey = 0;
INSERT INTO OutcomeFMZs SELECT ItemKey, i, 1, 0, 1, 2, 5, 0, 0 FROM Outcomes, many_landunits;
INSERT INTO Scores SELECT ItemKey, Key, (ItemKey + Key) % 21 / 2.0, 'why' FROM Outcomes, Objectives WHERE Key > 2;
INSERT INTO ItemImpacts SELECT Outcomes.ItemKey, 20000 + i, (Outcomes.ItemKey * i) % 1000 FROM Outcomes, many_items;
INSERT INTO SRUses SELECT NULL, Outcomes.ItemKey, i, 1 + i % 6, i % 5 + 1, i % 7 + 1 FROM Outcomes, many_resources;
)";

void Replace(std::string& text, const std::string& word, const std::string& by)
{
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + by.size()))
        text.replace(at, word.size(), by);
}

std::string SqlOf(const Content& content)
{
    std::string sql = kRows;
    Replace(sql, "BODY", kBody);
    std::string numbers = "BEGIN;";
    for (const auto& [of, count] : content) {
        numbers += "CREATE TEMP TABLE many_" + of +
                   " AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
                   std::to_string(count) + ") SELECT i FROM n;";
        Replace(sql, of + "Count", std::to_string(count));
    }
    return numbers + sql + "COMMIT";
}

double Clock() { return 1000.0 * double(std::clock()) / CLOCKS_PER_SEC; }

/// The least of the runs: what else the machine does only adds to them.
struct Costs
{
    double pdf = 1e9, rtf = 1e9;
};

class Bench
{
public:
    void Measure(const Growth& growth)
    {
        const std::string few = FireOf(growth.of, kFew), many = FireOf(growth.of, kMany);
        std::array<bool, ReportRun::sectionCount> ticked{};
        ticked.at(static_cast<std::size_t>(growth.section) - 1) = true;
        ReportRun::SelectSections(ticked);
        Costs first, fewCosts, manyCosts;
        Take(few, first); // fonts are loaded
        for (int run = 0; run < kRuns; ++run) {
            Take(few, fewCosts);
            Take(many, manyCosts);
        }
        const std::string what = std::string(ReportRun::SectionName(growth.section)) + ", " +
                                 std::to_string(kMany) + " / " + std::to_string(kFew) + " " + growth.of;
        bench::PrintRow("pdf of " + what, manyCosts.pdf, fewCosts.pdf, kAllowed);
        bench::PrintRow("rtf of " + what, manyCosts.rtf, fewCosts.rtf, kAllowed);
    }

private:
    std::string FireOf(const std::string& of, int count)
    {
        Content content = Little();
        content.at(of) = count;
        const std::string path = m_folder.File(of + std::to_string(count) + ".qel");
        support::CopyFile(support::BuiltFile("QEL.new"), path);
        support::ExecuteSql(path, SqlOf(content));
        return path;
    }
    void Take(const std::string& fire, Costs& costs)
    {
        if (!u11Datafile::OpenDatafile(fire)) throw std::runtime_error("cannot open " + fire);
        double start = Clock();
        ReportRun::PreviewSelectedSections();
        platform::print::WritePdf(ReportUtilities::VSPrinter1().Pages(), m_folder.File("out.pdf"), {});
        costs.pdf = std::min(costs.pdf, Clock() - start);
        a1VEXA::ClearAllStores();
        start = Clock();
        ReportRun::SaveSelectedSections(m_folder.File("out.rtf"));
        costs.rtf = std::min(costs.rtf, Clock() - start);
        a1VEXA::ClearAllStores();
        a1VEXA::CloseDatafileIfOpen();
    }

    const support::TempFolder m_folder;
};

} // namespace

int main()
{
    const support::TempFolder home;
    platform::SetProgramFolder(home.Path());
    support::ScriptedDesktop desktop;
    platform::SetDesktop(&desktop);
    ConnectStores();
    ConnectConversions();
    const platform::print::Toolkit toolkit;
    Bench bench;
    for (const Growth& growth : kGrowths)
        bench.Measure(growth);
    ReportUtilities::EndReports();
    return 0;
}
