#pragma once

#include <string>

/// Asks for the rich text file that the report is saved to; an empty text when the user cancelled, and when
/// it would replace the open data file, which is told. Its name is at first that of the data file, in the
/// folder "docs" of the program's folder.
std::string GetRtfFileName();
/// The path of the open data file, which no report may replace.
std::string OpenDataFile();
