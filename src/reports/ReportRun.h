#pragma once

#include "platform/base/Numbers.h"

#include <array>
#include <functional>
#include <string>

/// A run of the report: which sections are ticked, where they go, and their order. What a section throws ends
/// the run, with no file written and no pages left: DatabaseError and the errors of the figures, PrintError
/// for an export that fails (the old file stays whole) and PrintCancelled.
namespace ReportRun {

constexpr Integer sectionCount = 10;

/// How many sections are ticked.
Integer nSelected();
/// Whether a section, 1 to 10, is ticked. Throws OutOfBounds.
bool bSelected(Integer section);
/// Takes the ticks of sections 1 to 10, before every run.
void SelectSections(const std::array<bool, sectionCount>& ticked);
/// The name of a section, 1 to 10, as its check box has it: "Decision, Rationale". Throws OutOfBounds.
const char* SectionName(Integer section);

/// How far a run has come.
struct Progress
{
    Integer section = 0; // its number, 1 to 10
    Integer done = 0;    // how many of the ticked ones are finished
    Long page = 0;       // the last that has ended, from 1
};

/// Told at every page that ends and behind every section; events may run in it. False cancels the run. An
/// empty one, as at first, listens to nothing.
void OnProgress(std::function<bool(const Progress&)> listener);

/// Produces for the preview; the caller shows it.
void PreviewSelectedSections();
/// Produces for the printer.
void PrintSelectedSections();
/// Produces into a rich text file. An empty name does nothing: the dialog was cancelled.
void SaveSelectedSections(const std::string& fileName);

/// Walks the ticked sections in number order, each on a page of its own, and goes where the control is told
/// to.
void ProduceSelectedSections();
/// One section; a number outside of 1 to 10 does nothing.
void ProduceSection(Integer section);

/// A new page has begun.
void vsPrinter1_NewPage();

} // namespace ReportRun
