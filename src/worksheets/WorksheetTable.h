#pragma once

#include <string_view>
#include <vector>

class QWidget;
class Worksheet;

/// What saves a worksheet when it is left.
enum class UpdateAction { Nothing, SituationItems, FormSaveChanges, Alternatives, SummaryItems };

/// What is dropped after a worksheet's form was unloaded.
enum class AfterUnload { KeepModel, ResetAlternatives };

/// One worksheet of the program.
struct WorksheetEntry
{
    int section;      // 2 to 7; 0: any section
    int tab;          // its number on the worksheet strip, from 1
    const char* key;  // what gCurrentTab holds while it is shown
    const char* form; // the form's given name
    const char* tabCaption;
    const char* menuCaption;
    int helpContextID; // 4000 + 100 times the section + 10 times the tab; the Report section counts as 8
    UpdateAction update;
    AfterUnload afterUnload;
    /// A new form of this worksheet, not yet loaded; the parent owns it.
    Worksheet* (*make)(QWidget* parent);
};

/// One section of the program, by its number on the section strip.
struct SectionEntry
{
    int section;
    const char* tabCaption;
    const char* menuCaption;
    bool shown;
};

/// Sections 1 to 8 in their order. The captions of menu and strip were laid out apart: 7 is the Report
/// section on the strip and reads "Comple&xity Analysis" in the menu.
const std::vector<SectionEntry>& Sections();

/// All sixteen worksheets; the Introduction, which every section has, comes first.
const std::vector<WorksheetEntry>& Worksheets();

/// The worksheet at this place, or nothing.
const WorksheetEntry* FindWorksheet(int section, int tab);
/// The worksheet of this key, or nothing.
const WorksheetEntry* FindWorksheet(std::string_view key);
/// The highest tab number of a section.
int LastTab(int section);
