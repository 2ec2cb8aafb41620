#include "session/u14Properties.h"

#include "session/SessionState.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"

namespace u14Properties {

namespace {

unsigned long g_version = 1;

platform::Recordset& Properties()
{
    OpenDatabase(); // tells when no file is open
    return *gProperties;
}

void AddProperty(std::string_view name, const std::string& value)
{
    ++g_version;
    gProperties->AddNew();
    gProperties->Set("Property", std::string(name));
    gProperties->Set("Value", value);
    gProperties->Update();
}

} // namespace

std::string Property_Get(std::string_view name)
{
    Properties().Seek(name);
    return u19RowData::ReadText(*gProperties, "Value");
}

std::string Property_GetOrAdd(std::string_view name, const std::string& preset)
{
    Properties().Seek(name);
    if (gProperties->NoMatch()) {
        AddProperty(name, preset);
        return preset;
    }
    return u19RowData::ReadText(*gProperties, "Value");
}

void Property_Set(std::string_view name, const std::string& value)
{
    // The edition check writes this one while the file is still being opened.
    if (name != "ProgramID" && !gDatabaseOpen) {
        u91Trace::TraceError("Property_Set: No database loaded");
        return;
    }
    Properties().Seek(name);
    if (gProperties->NoMatch()) {
        AddProperty(name, value);
    } else if (u19RowData::ReadText(*gProperties, "Value") != value) {
        ++g_version;
        gProperties->Edit();
        gProperties->Set("Value", value);
        gProperties->Update();
    }
}

unsigned long PropertiesVersion() { return g_version; }

void PropertiesReplaced() { ++g_version; }

} // namespace u14Properties
