#include "session/SessionState.h"

#include "platform/data/DatabaseError.h"

std::unique_ptr<platform::Database> gDatabase;
std::unique_ptr<platform::Recordset> gProperties;
bool gDatabaseOpen = false;
bool gCreatingNewFile = false;
Integer gCurrentSection = 0;
std::string gCurrentTab;

platform::Database& OpenDatabase()
{
    if (gDatabase == nullptr) {
        throw platform::DatabaseError(0, "No data file is open");
    }
    return *gDatabase;
}
