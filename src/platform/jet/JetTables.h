#pragma once

#include "platform/data/Database.h"

namespace platform {

/// Reads the tables of a Jet database, an open file, into an empty database: rows, nulls, types, primary keys
/// and automatic ones. Tells how far it is. Throws JetError and DatabaseError; the database is of no use
/// then.
void ReadJetTables(int file, Database& database);

} // namespace platform
