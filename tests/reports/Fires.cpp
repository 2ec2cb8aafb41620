#include "Fires.h"

#include "support/GeneratedFire.h"
#include "support/TestSession.h"

#include <random>

namespace support {

namespace {

// A generated fire has a Fallback in every alternative, costs by size or by resource, and no land units.

constexpr const char* kItems =
    "INSERT OR REPLACE INTO Items (ItemKey, ItemName, Body) VALUES (11, '', 'Generated'), (221, '', 'G-1'), "
    "(52, '', 'I-52'), (222, '', '11/21/2026'), (223, '', '0930'), (53, '', 'State'), (55, '', 'Basin'), "
    "(54, '', 'Unit 4'), (217, '', 'P7'), (61, '', '11/19/2026'), (62, '', '1415'), (57, '', '1,234.5');"
    "INSERT INTO Properties VALUES ('SelectedAlternativeKey', '1001');";

constexpr const char* kLandUnits =
    "INSERT INTO FMZList VALUES (2, 'N', 'North slope'), (5, 'S', 'South slope'), (9, 'R', 'Riparian');"
    "INSERT INTO SuppressionPerAcreCost SELECT units.Key, SizeClass, TopSize, Cost * units.Key / 3.7 "
    "FROM FMZList units, SuppressionPerAcreCost costs WHERE costs.FMZKey = 0;"
    "INSERT INTO NVCPerAcre SELECT units.Key, ResourceIndex, Fil1, Fil2, Fil3, Fil4 * units.Key / 2.3, "
    "Fil5, Fil6 FROM FMZList units, NVCPerAcre cells WHERE cells.FMZKey = 0;"
    "INSERT INTO OutcomeFMZs SELECT ItemKey, units.Key, (ItemKey * units.Key) % 13, 0, 1, 2, 5, 0, 0 "
    "FROM Outcomes, FMZList units;";

/// Sizes, times, chances, costs, lines and scores of every kind, others for each seed.
class OtherFigures
{
public:
    explicit OtherFigures(unsigned seed) : m_numbers(seed) {}

    std::string For(int alternatives)
    {
        std::string sql =
            "UPDATE SuppressionPerAcreCost SET Cost = SizeClass * " + Number(9999) + " / 64.0;" +
            "UPDATE NVCPerAcre SET Fil4 = ResourceIndex * " + Number(500) + " / 64.0 - 9;" +
            "UPDATE NVCPerAcre SET Fil4 = 0, Fil2 = 0 WHERE ResourceIndex % 3 = " + Number(4) + ";" +
            "UPDATE Objectives SET Priority = (Key + " + Number(9) + ") % 11 WHERE Key > 2;" +
            "UPDATE Scores SET Value = (OutcomeKey * 31 + CriterionKey * " + Number(50) + ") % 101 / 10.0;";
        for (int key = 1; key <= 2 * alternatives + 1; ++key)
            sql += Outcome(std::to_string(key));
        return sql + "UPDATE Outcomes SET Success = -1 WHERE ChildIndex = 2 AND ItemKey % 3 = " + Number(3) +
               ";";
    }

private:
    std::string Number(unsigned below) { return std::to_string(m_numbers() % below); }
    /// One in three is one of the ends.
    std::string Percent()
    {
        const unsigned kind = static_cast<unsigned>(m_numbers() % 6);
        return kind == 0 ? "0" : kind == 1 ? "100" : Number(101);
    }
    std::string Outcome(const std::string& key)
    {
        const std::string row = " WHERE OutcomeKey = " + key + ";";
        return "UPDATE Outcomes SET FireSize = " + Number(1'000'000) + " / (1.0 + " + Number(70) +
               "), ContainTime = " + Number(30) + ", ControlTime = " + Number(60) +
               ", Success = " + Percent() + ", SuccessRationale = substr('Because it is so', " + Number(18) +
               "), DailyContainCost = " + Number(99'999) + " / 3.0, DailyControlCost = " + Number(7'777) +
               " / 9.0, AdjustedCost = " + Number(987'654'321) + " / 8.0, CostSource = 1 << " + Number(5) +
               ", CostRationale = 'As " + Number(9) + " others' WHERE ItemKey = " + key + ";" +
               "DELETE FROM SRUses WHERE ItemIndex > " + Number(7) + " AND OutcomeKey = " + key + ";" +
               "UPDATE SRUses SET Quantity = ItemIndex * " + Number(999) + ", Periods = " + Number(60) +
               ", SRTypeKey = 1 + (ItemIndex + " + Number(30) + ") % 30" + row +
               "UPDATE ItemImpacts SET ItemLoss = ItemKey * " + Number(99'999) + " / 7.0" + row;
    }

    std::mt19937 m_numbers;
};

} // namespace

std::vector<Fire> Fires()
{
    std::vector<Fire> fires{{"smith_creek", "smith-creek", 0, ""},
                            {"granite_fork_complex", "granite-fork-complex", 0, ""},
                            {"juniper_gap", "juniper-gap", 0, ""},
                            {"as_generated", "", 2, ""},
                            {"one_land_unit", "", 1, "INSERT INTO FMZList VALUES (3, 'A', 'Alone');"}};
    for (unsigned seed = 1; seed <= 8; ++seed) {
        const int alternatives = static_cast<int>(seed % 5) + 1;
        const std::string figures = kItems + OtherFigures(seed).For(alternatives);
        fires.push_back({"seed_" + std::to_string(seed),
                         "",
                         alternatives,
                         seed % 2 == 0 ? figures + kLandUnits : figures});
    }
    return fires;
}

void Generate(const Fire& fire, const std::string& path)
{
    GenerateFire(path, fire.alternatives);
    ExecuteSql(path, "BEGIN;" + fire.sql + "COMMIT;");
}

} // namespace support
