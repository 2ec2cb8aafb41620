#pragma once

#include "platform/base/Numbers.h"
#include "platform/data/Database.h"
#include "platform/data/Recordset.h"

#include <memory>
#include <string>

// Where the user stands. One thread, so no lock. Opened and closed by u11Datafile alone.

/// The open data file, or nothing.
extern std::unique_ptr<platform::Database> gDatabase;
/// The table Properties of the open file on its primary key, open as long as the file; shared by every
/// property call, so nobody may hold a position on it across one.
extern std::unique_ptr<platform::Recordset> gProperties;
/// A file is open and gDatabase and gProperties are valid.
extern bool gDatabaseOpen;
/// True only while a file copied from the template is being opened.
extern bool gCreatingNewFile;
/// 1 to 7; 1 is what LoadFromFile writes before the tabs are there.
extern Integer gCurrentSection;
/// "tab11" to "tab83", or empty when no worksheet is shown.
extern std::string gCurrentTab;

/// This edition.
inline constexpr const char* EditionName = "Basic";
inline constexpr const char* kProgramTitle = "VEXA Basic";
inline constexpr const char* kProgramVersion = "06.6";
inline constexpr const char* kDataFormat = "06.01.01";

/// The open file, for stores; throws DatabaseError when none is open.
platform::Database& OpenDatabase();
