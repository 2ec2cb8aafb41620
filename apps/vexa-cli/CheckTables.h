#pragma once

#include "platform/data/Database.h"
#include "vexa-cli/Findings.h"

namespace vexa_cli {

/// Tables and columns that are missing, tables without their key, keys that are empty or twice there, and
/// cells that do not fit their column: texts in number columns, numbers beyond the column's width.
void CheckTables(platform::Database& database, Findings& findings);

} // namespace vexa_cli
