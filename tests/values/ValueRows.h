#pragma once

#include <array>
#include <string>
#include <vector>

/// SQL that puts rows of the value tables into a data file before it is opened.
namespace value_rows {

inline std::string Text(long long number) { return std::to_string(number); }

/// The six cells of a resource under a land unit.
inline std::string Nvc(int unit, int resource, const std::string& cells)
{
    return "INSERT OR REPLACE INTO NVCPerAcre VALUES (" + Text(unit) + "," + Text(resource) + "," + cells +
           ");";
}

inline std::string SizeClass(int unit, int row, const std::string& topSizeAndCost)
{
    return "INSERT OR REPLACE INTO SuppressionPerAcreCost VALUES (" + Text(unit) + "," + Text(row) + "," +
           topSizeAndCost + ");";
}

/// A land unit with tables of zeros.
inline std::string LandUnit(int key)
{
    std::string sql =
        "INSERT INTO FMZList VALUES (" + Text(key) + ",'C" + Text(key) + "','Unit " + Text(key) + "');";
    for (int resource = 1; resource <= 14; ++resource) {
        sql += Nvc(key, resource, "0,0,0,0,0,0");
    }
    for (int row = 1; row <= 9; ++row) {
        sql += SizeClass(key, row, "0,0");
    }
    return sql;
}

/// Portion and six level portions of an outcome in a land unit.
inline std::string Area(int outcome, int unit, const std::string& portions)
{
    return "INSERT OR REPLACE INTO OutcomeFMZs VALUES (" + Text(outcome) + "," + Text(unit) + "," + portions +
           ");";
}

/// An alternative with its Target and Fallback.
inline std::string Alternative(int key, int place, int targetKey, int fallbackKey)
{
    const std::string name = place == 1 ? "A" : "B";
    const auto outcome = [key](int outcomeKey, int index) {
        return "INSERT INTO Outcomes (ItemKey, ParentKey, ChildIndex, Success, CostSource) VALUES (" +
               Text(outcomeKey) + "," + Text(key) + "," + Text(index) + ",0,1);";
    };
    return "INSERT INTO Items (ItemKey, ItemName, ParentKey, ChildIndex) VALUES (" + Text(key) + ",'" + name +
           "',26," + Text(place) + ");" + outcome(targetKey, 1) + outcome(fallbackKey, 2);
}

/// A threatened item. Keys below those of the template's last item never meet the key of a new one.
inline std::string Item(int key, const std::string& name)
{
    return "INSERT INTO Items (ItemKey, ItemName, ItemText, ParentKey, ChildIndex) VALUES (" + Text(key) +
           ",'" + name + "','Notes of " + name + "',23," + Text(key) + ");";
}

inline std::string AtRisk(int key, const std::string& potentialLoss, int probability = 100)
{
    return "INSERT INTO ValuesAtRisk VALUES (" + Text(key) + "," + potentialLoss + "," + Text(probability) +
           ");";
}

inline std::string Impact(int outcome, int item, const std::string& loss)
{
    return "INSERT INTO ItemImpacts VALUES (" + Text(outcome) + "," + Text(item) + "," + loss + ");";
}

inline std::string Protection(int outcome, int item, int percent)
{
    return "INSERT INTO ValuesProtected VALUES (" + Text(outcome) + "," + Text(item) + "," + Text(percent) +
           ",NULL);";
}

inline std::string Type(int key, int place, const std::string& unitType, const std::string& cost)
{
    return "INSERT INTO SRTypes VALUES (" + Text(key) + ",NULL," + Text(place) + ",'Long " + Text(key) +
           "','Short " + Text(key) + "','" + unitType + "','units'," + cost + ");";
}

inline std::string Use(int key, int outcome, int index, int type, int quantity, int periods)
{
    return "INSERT INTO SRUses VALUES (" + Text(key) + "," + Text(outcome) + "," + Text(index) + "," +
           Text(type) + "," + Text(quantity) + "," + Text(periods) + ");";
}

} // namespace value_rows
