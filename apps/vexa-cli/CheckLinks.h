#pragma once

#include "platform/data/Database.h"
#include "vexa-cli/Findings.h"

namespace vexa_cli {

/// Keys that point to no row. What a delete leaves behind on purpose (values of items that are gone, gaps and
/// equal places among siblings) is none of it.
void CheckLinks(platform::Database& database, Findings& findings);

/// The two trees of Objectives: links to no row, circles, rows in neither tree.
void CheckObjectiveTrees(platform::Database& database, Findings& findings);

} // namespace vexa_cli
