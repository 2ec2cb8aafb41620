#include "vexa-cli/CheckLinks.h"

#include "platform/base/Errors.h"
#include "platform/base/Texts.h"
#include "platform/data/Recordset.h"
#include "session/g0Items.h"
#include "vexa-cli/LongRows.h"

#include <utility>

namespace vexa_cli {

namespace {

/// The keys that a file has, for what points to them. A table that could not be read has none and is not
/// asked.
class FileKeys
{
public:
    explicit FileKeys(platform::Database& database)
        : m_items(database, "Items", {"ItemKey", "ParentKey"}), m_objectives(database, "Objectives", {"Key"}),
          m_outcomes(database, "Outcomes", {"ItemKey", "ParentKey", "ChildIndex"}),
          m_landUnits(database, "FMZList", {"Key"}), m_types(database, "SRTypes", {"ItemKey"})
    {}

    struct Target
    {
        const char* what;
        std::set<Long> keys;
        bool known = false;
    };
    Target Group(Long group, const char* what) const
    {
        Target target{what, {}, m_items.IsWhole()};
        for (const std::vector<LongCell>& row : m_items.Rows()) {
            if (row[0] && row[1] == group) {
                target.keys.insert(*row[0]);
            }
        }
        return target;
    }
    Target Alternatives() const { return Group(g0Items::AlternativeGroup, "an alternative"); }
    Target ThreatenedItems() const { return Group(g0Items::ThreatenedGroup, "a threatened item"); }
    Target Objectives() const
    {
        return {"a row of Objectives", m_objectives.Numbers(0), m_objectives.IsWhole()};
    }
    Target Outcomes() const { return {"an outcome", m_outcomes.Numbers(0), m_outcomes.IsWhole()}; }
    Target ResourceTypes() const { return {"a row of SRTypes", m_types.Numbers(0), m_types.IsWhole()}; }
    /// Key 0, the default land unit, counts in every file.
    Target LandUnits() const
    {
        Target target{"a land unit", m_landUnits.Numbers(0), m_landUnits.IsWhole()};
        target.keys.insert(0);
        return target;
    }
    const LongRows& OutcomeRows() const { return m_outcomes; }

private:
    LongRows m_items;
    LongRows m_objectives;
    LongRows m_outcomes;
    LongRows m_landUnits;
    LongRows m_types;
};

std::string NameOf(const std::vector<LongCell>& row, std::size_t keys)
{
    return "row " + CellText(row[0]) + (keys == 2 ? "/" + CellText(row[1]) : "");
}

/// Every row of `table` (its first `keys` columns name it) whose cell in the last of `columns` is no key of
/// the target.
void CheckColumn(platform::Database& database,
                 const char* table,
                 std::initializer_list<const char*> columns,
                 std::size_t keys,
                 const FileKeys::Target& target,
                 Findings& findings)
{
    if (!target.known) {
        return;
    }
    const char* column = *(columns.end() - 1);
    const LongRows rows(database, table, columns);
    for (const std::vector<LongCell>& row : rows.Rows()) {
        const LongCell& cell = row.back();
        if (!cell || !target.keys.contains(*cell)) {
            findings.Add(std::string(table) + "." + column,
                         NameOf(row, keys) + " points to " + CellText(cell) + ", which is not " +
                             target.what);
        }
    }
}

void CheckColumns(platform::Database& database, const FileKeys& keys, Findings& findings)
{
    const FileKeys::Target outcomes = keys.Outcomes();
    const auto check = [&](const char* table,
                           std::initializer_list<const char*> columns,
                           std::size_t count,
                           const FileKeys::Target& target) {
        CheckColumn(database, table, columns, count, target, findings);
    };
    check("Scores", {"OutcomeKey", "CriterionKey", "OutcomeKey"}, 2, outcomes);
    check("Scores", {"OutcomeKey", "CriterionKey"}, 2, keys.Objectives());
    check("OutcomeFMZs", {"OutcomeKey", "FMZKey", "OutcomeKey"}, 2, outcomes);
    check("OutcomeFMZs", {"OutcomeKey", "FMZKey"}, 2, keys.LandUnits());
    check("ItemImpacts", {"OutcomeKey", "ItemKey", "OutcomeKey"}, 2, outcomes);
    check("ItemImpacts", {"OutcomeKey", "ItemKey"}, 2, keys.ThreatenedItems());
    check("SRUses", {"ItemKey", "OutcomeKey"}, 1, outcomes);
    check("SRUses", {"ItemKey", "SRTypeKey"}, 1, keys.ResourceTypes());
    check("NVCPerAcre", {"FMZKey"}, 1, keys.LandUnits());
    check("SuppressionPerAcreCost", {"FMZKey"}, 1, keys.LandUnits());
}

/// Every alternative has its Target and its Fallback once; every other outcome but the Extreme one has an
/// alternative.
void CheckOutcomes(const FileKeys& keys, Findings& findings)
{
    const FileKeys::Target alternatives = keys.Alternatives();
    if (!alternatives.known || !keys.OutcomeRows().IsWhole()) {
        return;
    }
    std::map<std::pair<Long, Long>, int> counts;
    for (const std::vector<LongCell>& row : keys.OutcomeRows().Rows()) {
        ++counts[{row[1].value_or(-1), row[2].value_or(-1)}];
        if (row[1] != 0 && !alternatives.keys.contains(row[1].value_or(-1))) {
            findings.Add("Outcomes.ParentKey",
                         NameOf(row, 1) + " points to " + CellText(row[1]) + ", which is not " +
                             alternatives.what);
        }
    }
    for (const Long alternative : alternatives.keys) {
        for (const auto& [index, name] : {std::pair(Long{1}, "Target"), std::pair(Long{2}, "Fallback")}) {
            if (const int count = counts[{alternative, index}]; count != 1) {
                findings.Add("Outcomes",
                             "alternative " + std::to_string(alternative) + " has " +
                                 (count == 0 ? "no " : "more than one ") + name);
            }
        }
    }
}

/// The key in a property's text; nothing when it is no number of 32 bits.
LongCell SelectedKey(const std::string& text)
{
    try {
        return platform::ToLong(platform::Val(text));
    } catch (const platform::Overflow&) {
        return std::nullopt;
    }
}

void CheckSelection(platform::Database& database, const FileKeys& keys, Findings& findings)
{
    try {
        platform::Recordset properties = database.OpenTable("Properties");
        properties.Seek("SelectedAlternativeKey");
        const std::string text = properties.NoMatch() ? std::string() : properties.Text("Value");
        const LongCell key = SelectedKey(text);
        const FileKeys::Target alternatives = keys.Alternatives();
        if (!key || (*key >= 1 && alternatives.known && !alternatives.keys.contains(*key))) {
            findings.Add("Properties", "SelectedAlternativeKey is \"" + text + "\", which is no alternative");
        }
    } catch (const platform::Error&) {
        return; // told by CheckTables
    }
}

} // namespace

void CheckLinks(platform::Database& database, Findings& findings)
{
    const FileKeys keys(database);
    CheckObjectiveTrees(database, findings);
    CheckOutcomes(keys, findings);
    CheckColumns(database, keys, findings);
    CheckSelection(database, keys, findings);
}

} // namespace vexa_cli
