#pragma once

#include "platform/print/PrintText.h"

#include <string>

/// What the reports of objectives and of safety issues share: each row is a table of its own, so that the
/// page tests between them are the reports' own.
namespace ObjectiveRows {

inline constexpr const char* columns = "7800|>2100|^800;";

/// The space below the heading: rows begin here on every page.
constexpr double firstRow = 1620.0;

/// Whether a row that needs this height beside its description runs over the page. Asked in the lower part of
/// the page alone.
bool RunsOver(const std::string& description, double need);
void WriteCategory(const std::string& name);
void WriteItem(platform::print::PrintCells cells);
/// Indented below its row.
void WriteDescription(const std::string& description);

} // namespace ObjectiveRows
