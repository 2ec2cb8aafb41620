#pragma once

class QWidget;
class Worksheet;

/// All worksheets by number and by key. Exactly one form is loaded at a time.
namespace a3VEXAforms {

/// Sets up the worksheet of that number in the current section; nothing where there is none.
void DisplayWorksheet(int worksheetNumber);
/// Sizes the worksheet shown, if one is.
void ResizeCurrentWorksheet();
/// Saves what the current worksheet holds. Throws what saving throws.
void UpdateCurrentWorksheet();
/// Unloads the form of the current worksheet, unsaved; gCurrentTab is empty then.
void UnloadCurrentWorksheet();
/// Gives a worksheet its place in the client area, above the tab strips.
void SizeWorksheet(QWidget& form);

/// UpdateCurrentWorksheet for who is about to leave the worksheet: false when it could not be saved, which
/// was told in one sentence and written to the logs; the worksheet and all that was typed then stay.
bool UpdateBeforeLeaving();
/// On the way out of the program: when saving fails the user may stay or leave without.
enum class Leaving { Saved, Unsaved, Stays };
Leaving UpdateBeforeClosing();

/// The introduction of a section, whose entry in the Section menu is checked.
void ShowIntroduction(int section);
/// The form that is loaded, or nothing.
Worksheet* CurrentWorksheet();

/// While it lives the worksheet shown still belongs to the file that was left: saving it would write one
/// file's texts into another, so UpdateCurrentWorksheet only traces.
class FileWasReplaced
{
public:
    FileWasReplaced();
    FileWasReplaced(const FileWasReplaced&) = delete;
    FileWasReplaced& operator=(const FileWasReplaced&) = delete;
    ~FileWasReplaced();
};

} // namespace a3VEXAforms
