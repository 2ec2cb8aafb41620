#include "platform/data/DatabaseError.h"

#include <sqlite3.h>

namespace platform {

namespace {
/// The rest of an extended code tells more of the same.
int PrimaryCode(int code) { return code & 0xFF; }
} // namespace

bool DatabaseError::FileIsLost() const
{
    switch (PrimaryCode(Number())) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
    case SQLITE_FULL: return true;
    default: return false;
    }
}

bool DatabaseError::FileIsKept() const
{
    const int code = PrimaryCode(Number());
    return code == SQLITE_BUSY || code == SQLITE_READONLY;
}

} // namespace platform
