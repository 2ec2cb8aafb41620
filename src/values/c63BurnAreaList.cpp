#include "values/c63BurnAreaList.h"

#include "platform/data/Database.h"
#include "session/SessionState.h"
#include "values/FixedRows.h"
#include "values/RowWalks.h"
#include "values/g33FMUs.h"

namespace {

Single PartOf(Long percent) { return platform::ToSingle(Double(percent) / 100.0); }

} // namespace

Single c63BurnAreaList::AverageNVCPerAcre() const
{
    return AverageByLevel([](const c34NVCTable& table, Long fil) { return table.FilTotal(fil); });
}

Single c63BurnAreaList::ResourceNVCPerAcre(Long resource) const
{
    // Kept: with no land units gains count whatever `UseNVCGains` says, unlike in the average over all
    // resources.
    if (m_defaultArea) {
        return AverageByLevel(
            [resource](const c34NVCTable& table, Long fil) { return table.NVCCellValue(resource, fil); });
    }
    return AverageByLevel(
        [resource](const c34NVCTable& table, Long fil) { return table.NVCCellFilteredValue(resource, fil); });
}

Single c63BurnAreaList::CostBySize(Single acres) const
{
    if (m_defaultArea) {
        return platform::ToSingle(Double(acres) * Double(g33FMUs::GetAACTable(0).CostForSize(acres)));
    }
    return CostOverAreas(acres, [acres](Double rate, Double part) { return Double(acres) * rate * part; });
}

Single c63BurnAreaList::CostPerAcre(Single acres) const
{
    if (m_defaultArea) {
        return g33FMUs::GetAACTable(0).CostForSize(acres);
    }
    return CostOverAreas(acres, [](Double rate, Double part) { return rate * part; });
}

c64BurnArea& c63BurnAreaList::BurnArea(Long fmuKey)
{
    if (fmuKey != 0) {
        return m_areas.Member(fmuKey);
    }
    if (!m_defaultArea) {
        throw platform::MissingMember("default burn area", fmuKey);
    }
    return *m_defaultArea;
}

Long c63BurnAreaList::FMUPercent(Long position) const
{
    if (m_areas.Count() < 2) {
        return 100;
    }
    return FMUPercents()[FixedRow(position, m_areas.Count(), "burn areas")];
}

void c63BurnAreaList::Initialize(Long outcomeKey)
{
    m_outcomeKey = outcomeKey;
    m_areas = platform::Collection<c64BurnArea>("burn areas");
    m_defaultArea.reset();
    if (g33FMUs::FMUCount() < 1) {
        m_defaultArea.emplace().Initialize(outcomeKey, 0);
        return;
    }
    AddEmptyAreas();
    platform::Recordset rows = OpenDatabase().OpenQuery(platform::Query::OutcomeFMZsOfOutcome, outcomeKey);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::optional<Long> key = RowWalks::KeyIn(rows, "FMZKey");
        c64BurnArea* area = key ? m_areas.Find(*key) : nullptr;
        if (area != nullptr) {
            area->InitializeFrom(rows, outcomeKey, *key);
        }
    }
}

void c63BurnAreaList::AddEmptyAreas()
{
    for (const c33FMU& unit : g33FMUs::FMUCollection()) {
        m_areas.Add(unit.ItemKey(), c64BurnArea(m_outcomeKey, unit.ItemKey()));
    }
}

/// The share of each area: truncated, so that three equal portions give 33 each, save where no area has a
/// portion: there each gets an equal share, rounded.
std::vector<Long> c63BurnAreaList::FMUPercents() const
{
    const Long count = m_areas.Count();
    if (count < 2) {
        return std::vector<Long>(static_cast<std::size_t>(count), 100);
    }
    Long total = 0;
    for (const c64BurnArea& area : m_areas) {
        total = platform::Add(total, area.FMUPortion());
    }
    std::vector<Long> percents;
    for (const c64BurnArea& area : m_areas) {
        percents.push_back(total == 0 ? platform::ToLong(100.0 / Double(count))
                                      : platform::Multiply(area.FMUPortion(), 100) / total);
    }
    return percents;
}

/// `term` of each level by its share, and with land units by the share of the area. Each step runs at the
/// floating unit's higher precision up to the single that is kept.
template <class Term> Single c63BurnAreaList::AverageByLevel(Term term) const
{
    Single sum = 0;
    const auto addArea = [&](const c64BurnArea& area, const c34NVCTable& table, Single weight) {
        for (Long fil = 1; fil <= c64BurnArea::kLevels; ++fil) {
            const Single part = PartOf(area.FILPercent(fil));
            sum = platform::ToSingle(Extended(term(table, fil)) * Extended(weight) * Extended(part) +
                                     Extended(sum));
        }
    };
    if (m_defaultArea) {
        addArea(*m_defaultArea, g33FMUs::GetNVCTable(0), 1);
        return sum;
    }
    const std::vector<Long> percents = FMUPercents();
    for (Long position = 1; position <= m_areas.Count(); ++position) {
        const c64BurnArea& area = m_areas.At(position);
        addArea(area,
                g33FMUs::GetNVCTable(area.FMUKey()),
                PartOf(percents[static_cast<std::size_t>(position) - 1]));
    }
    return sum;
}

/// `term` of each land unit's rate by the share of its area. The rate is that of the whole size, not of the
/// part.
template <class Term> Single c63BurnAreaList::CostOverAreas(Single acres, Term term) const
{
    const std::vector<Long> percents = FMUPercents();
    Single sum = 0;
    for (Long position = 1; position <= m_areas.Count(); ++position) {
        const Single rate = g33FMUs::GetAACTable(m_areas.At(position).FMUKey()).CostForSize(acres);
        const Single part = PartOf(percents[static_cast<std::size_t>(position) - 1]);
        sum = platform::ToSingle(term(Double(rate), Double(part)) + Double(sum));
    }
    return sum;
}
