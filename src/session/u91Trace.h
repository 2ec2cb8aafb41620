#pragma once

#include <string>

/// The running log "VEXA.LOG" and the record of errors "ERROR.LOG" in the program folder. Each call opens its
/// file, writes and closes it, so that a crash loses nothing; a log that cannot be written stops nobody.
namespace u91Trace {

/// Empties VEXA.LOG first: it holds the last run only.
void TraceProgramStart(const std::string& text);
void TraceProgramEnd(const std::string& text);
void Trace(const std::string& text);
void TraceLoad(const std::string& text);
void TraceUnload(const std::string& text);
void TraceStart(const std::string& text);
void TraceFinished(const std::string& text);
void TraceWarning(const std::string& text);
/// Written to both logs; in ERROR.LOG with the date.
void TraceError(const std::string& text);

} // namespace u91Trace
