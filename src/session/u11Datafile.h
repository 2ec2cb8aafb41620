#pragma once

#include "platform/base/Numbers.h"

#include <string>
#include <string_view>

/// Which files may be opened, and how a file comes into being.
namespace u11Datafile {

/// What the callers of the three queries decide on.
enum class Status : Long {
    Ready = 1,     // a file is open
    Cancelled = 2, // nothing was touched
    Failed = 3     // the message was shown; the old file may be closed already
};

Status QueryOpenDatafile();
Status QueryNewDatafile();
Status QuerySaveDatafileAs();
/// The work of QueryNewDatafile behind its dialog: template to path, opened, marked as this edition's.
Status CreateDatafile(const std::string& path);

/// Opens the file for this process alone, checks its format (asking where it must be converted) and its
/// edition. False after a refusal, whose message was shown; the cause of an engine error stands in
/// "ERROR.LOG".
bool OpenDatafile(const std::string& path);
/// Writes the path into the file that was just opened under it. False, with a message, when that fails: the
/// file is closed again.
bool NameDatafile(const std::string& path);
/// Assumes an open file.
void CloseDatafile();
/// The open file's name without its folder.
std::string DatafileName();
/// The highest key of a table, 0 for an empty one. Throws DatabaseError.
Long LastKeyInTable(std::string_view table, std::string_view keyColumn);

} // namespace u11Datafile
