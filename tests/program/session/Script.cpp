#include "program/session/Script.h"

#include "platform/richtext/RtfReader.h"
#include "support/TestSession.h"

#include <QString>

namespace {

using Random = std::minstd_rand;

QString Q(const std::string& text) { return QString::fromStdString(text); }

std::string Words(Random& random, const std::string&)
{
    static const char* const kWords[] = {"ridge", "creek", "it's", "\"Divide\"", "100 %", "{b}", "a;b|c"};
    std::string text;
    for (int i = 0; i < 4; ++i)
        text += (i == 0 ? "" : " ") + std::string(kWords[random() % std::size(kWords)]);
    return text + " " + std::to_string(random() % 100000);
}

std::string Whole(Random& random, const std::string&) { return std::to_string(1 + random() % 9999); }

/// As the file has a floating number.
std::string Floating(Random& random, const std::string& old) { return Whole(random, old) + ".0"; }

std::string Percent(Random& random, const std::string&) { return std::to_string(1 + random() % 99) + ".0"; }

std::string Score(Random& random, const std::string&)
{
    return std::to_string(random() % 10) + (random() % 2 == 0 ? ".0" : ".5");
}

/// One more or, where there is one more already, one less.
template <int Usual> std::string MoreOrLess(Random&, const std::string& old)
{
    return std::to_string(old == std::to_string(Usual) ? Usual + 1 : Usual);
}

template <int Section, int Worksheet> void Visit(Hands& hands) { hands.GoTo(Section, Worksheet); }
/// The introduction of the section: the worksheet is left, and so is saved.
void Leave(Hands& hands) { hands.ClickTab("vsTab2", 1); }

template <const char* const& Box> void WriteGeneral(Hands& hands, const std::string& value)
{
    hands.GoTo(2, 2);
    hands.Write(Box, Q(value));
    Leave(hands);
}

constexpr const char* kIncident = "txtIncident";
constexpr const char* kUnit = "txtUnit";
constexpr const char* kCode = "txtCode";

/// Another row of the list saves the row that is left.
template <int Row> void WriteTopic(Hands& hands, const std::string& value)
{
    hands.GoTo(2, 3);
    hands.ClickRow("lstTopics", Row);
    hands.Write("txtBody", Q(value));
    hands.ClickRow("lstTopics", Row + 1);
}

void AddOrDeleteTopic(Hands& hands, const std::string& value)
{
    hands.GoTo(2, 3);
    if (value == "9") {
        hands.Press("cmdNewTopic");
        Hands::Type(QStringLiteral("Access"));
    } else {
        hands.ClickRow("lstTopics", 8);
        hands.Press("cmdDelete");
    }
    Leave(hands);
}

void AddOrDeleteIssue(Hands& hands, const std::string& value)
{
    hands.GoTo(3, 2);
    if (value == "5") {
        hands.Press("cmdAdd");
        Hands::Type(QStringLiteral("Gusts"));
    } else {
        hands.ClickCell("Grid1", Hands::kLastRow, 0);
        hands.Press("cmdDelete");
    }
    Leave(hands);
}

void AddOrDeleteAlternative(Hands& hands, const std::string& value)
{
    hands.GoTo(4, 2);
    if (value == "4") {
        hands.Press("cmdAdd");
        Hands::Type(QStringLiteral("Full control from the air"));
    } else {
        hands.ClickRow("lstAlternatives", 3);
        hands.Press("cmdDelete");
    }
    Leave(hands);
}

void WriteObjective(Hands& hands, const std::string& value)
{
    hands.GoTo(3, 3);
    hands.ClickCell("Grid1", 4, 0);
    hands.Write("txtBody", Q(value));
    Leave(hands);
}

void WriteAlternative(Hands& hands, const std::string& value)
{
    hands.GoTo(4, 2);
    hands.ClickRow("lstAlternatives", 1);
    hands.Write("txtBody", Q(value));
    hands.ClickRow("lstAlternatives", 0);
}

void WriteSize(Hands& hands, const std::string& value)
{
    hands.GoTo(4, 3);
    hands.ClickCell("grdOutcomes", 1, 0);
    hands.Write("txtSize", Q(value).chopped(2));
    hands.ClickCell("grdOutcomes", 2, 0);
}

void WriteDays(Hands& hands, const std::string& value)
{
    hands.GoTo(4, 3);
    hands.ClickCell("grdOutcomes", Hands::kLastRow, 0);
    hands.Write("txtControl", Q(value));
    Leave(hands);
}

void WriteSuccess(Hands& hands, const std::string& value)
{
    hands.GoTo(4, 4);
    hands.ClickRow("lstAlternatives", 2);
    hands.Write("txtSuccess1", Q(value).chopped(2));
    Leave(hands);
}

template <int Criterion, int Row> void Rate(Hands& hands, const std::string& value)
{
    hands.GoTo(5, 3);
    hands.ClickRow("lstObjectives", Criterion);
    hands.WriteCell("Grid1", Row, 3, Q(value));
    Leave(hands);
}

void WriteLoss(Hands& hands, const std::string& value)
{
    hands.GoTo(5, 4);
    hands.ClickCell("grdItems", 2, 0);
    hands.WriteCell("grdImpacts", 3, 3, Q(value));
    Leave(hands);
}

void WriteCost(Hands& hands, const std::string& value)
{
    hands.GoTo(5, 5);
    hands.ClickCell("grdOutcomes", Hands::kLastRow, 0);
    hands.Write("txtAdjustedCost", Q(value));
    hands.ClickCell("grdOutcomes", 1, 0);
    Leave(hands);
}

void WriteSummary(Hands& hands, const std::string& value)
{
    hands.GoTo(7, 2);
    hands.ClickRow("lstTopics", 1);
    hands.Write("txtBody", Q(value));
    Leave(hands);
}

} // namespace

const std::vector<Change>& Changes()
{
    static const std::vector<Change> changes = {
        {"SELECT Body FROM Items WHERE ItemKey = 52", Words, WriteGeneral<kIncident>},
        {"SELECT Body FROM Items WHERE ItemKey = 54", Words, WriteGeneral<kUnit>},
        {"SELECT Body FROM Items WHERE ItemKey = 217", Words, WriteGeneral<kCode>},
        {"SELECT Body FROM Items WHERE ItemKey = 81", Words, WriteTopic<0>},
        {"SELECT Body FROM Items WHERE ItemKey = 88", Words, WriteTopic<5>},
        {"SELECT count(*) FROM Items WHERE ParentKey = 22", MoreOrLess<8>, AddOrDeleteTopic},
        {"SELECT count(*) FROM Objectives WHERE ParentKey = 2", MoreOrLess<4>, AddOrDeleteIssue},
        {"SELECT count(*) FROM Items WHERE ParentKey = 26", MoreOrLess<3>, AddOrDeleteAlternative},
        {"SELECT Explanation FROM Objectives WHERE Key = 6", Words, WriteObjective},
        {"SELECT Body FROM Items WHERE ItemKey = 298", Words, WriteAlternative},
        {"SELECT FireSize FROM Outcomes WHERE ItemKey = 2", Floating, WriteSize},
        {"SELECT ControlTime FROM Outcomes WHERE ItemKey = 1", Whole, WriteDays},
        {"SELECT Success FROM Outcomes WHERE ItemKey = 6", Percent, WriteSuccess},
        {"SELECT Value FROM Scores WHERE OutcomeKey = 2 AND CriterionKey = 3", Score, Rate<0, 1>},
        {"SELECT Value FROM Scores WHERE OutcomeKey = 1 AND CriterionKey = 6",
         Score,
         Rate<3, Hands::kLastRow>},
        {"SELECT ItemLoss FROM ItemImpacts WHERE OutcomeKey = 5 AND ItemKey = 301", Whole, WriteLoss},
        {"SELECT AdjustedCost FROM Outcomes WHERE ItemKey = 1", Whole, WriteCost},
        {"SELECT Body FROM Items WHERE ItemKey = 292", Words, WriteSummary},
    };
    return changes;
}

std::string InFile(const std::string& path, const Change& change)
{
    const support::Rows rows = support::QuerySql(path, change.query);
    const std::string text = rows.empty() ? "NULL" : rows[0][0];
    return platform::richtext::IsRtf(text) ? platform::richtext::RtfToPlainText(text) : text;
}
