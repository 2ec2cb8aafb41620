#pragma once

#include "platform/data/Database.h"
#include "vexa-cli/Findings.h"

namespace vexa_cli {

/// The rows that every data file must hold, since the program reads or edits them and never adds them: the
/// two roots, a category, the Extreme outcome, the standard topics, the rows of the value and cost tables;
/// and the edition.
void CheckFixedRows(platform::Database& database, Findings& findings);

} // namespace vexa_cli
