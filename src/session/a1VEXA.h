#pragma once

#include <string>

/// The session: from the start of the program to its first worksheet, and what is closed when a file is left.
/// None of these throws for what the user can cause; engine faults below a screen go to the event loop's
/// guard.
namespace a1VEXA {

/// No file: shows the start form.
void StartWithoutFile();
/// Opens the file of the command line and shows it. After a failure no start form stands (the message was
/// shown).
void StartWithFile(const std::string& path);
/// File, New; File, Open; File, Save As.
void NewFile();
void OpenFile();
void SaveFileAs();
/// Leaves the current file's screens and goes back to the start form.
void ReturnToStart();
/// Builds the screens for the file that was just opened.
void LoadFromFile();
/// Drops every collection of the previous file; saves nothing.
void ClearAllStores();
void CloseDatafileIfOpen();
/// File, Go to VEXA Standard: hands the file over to the sibling program and leaves.
void GoToStandard();

} // namespace a1VEXA
