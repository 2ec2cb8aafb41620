#include "datafile_builder/ResourceTypes.h"

#include <array>

namespace datafile_builder {

void AddResourceType(DatafileWriter& writer, const SourceObject& type, Long position)
{
    static constexpr std::array columns{Column{"LongName", ColumnKind::plainText},
                                        Column{"ShortName", ColumnKind::plainText},
                                        Column{"UnitType", ColumnKind::plainText},
                                        Column{"UnitName", ColumnKind::plainText},
                                        Column{"UnitCost", ColumnKind::money}};
    type.Require({"LongName", "ShortName", "UnitType", "UnitName", "UnitCost"});
    const std::string unitType = type.Text("UnitType");
    if (unitType != "time" && unitType != "item") type.Refuse("UnitType must be \"time\" or \"item\"");
    const std::string name = type.Text("ShortName");
    if (!writer.FirstRow("SELECT 1 FROM SRTypes WHERE ShortName = ?", {name}).empty()) {
        type.Refuse("there is already a resource type \"" + name + "\"");
    }
    Row row = type.Cells(columns);
    row.emplace_back("ChildIndex", std::int64_t{position});
    writer.Add("SRTypes", row);
}

} // namespace datafile_builder
