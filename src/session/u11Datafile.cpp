#include "session/u11Datafile.h"

#include "platform/base/Desktop.h"
#include "platform/base/Files.h"
#include "platform/base/ProgramFolder.h"
#include "platform/data/DatabaseError.h"
#include "platform/jet/JetFile.h"
#include "platform/jet/JetReplacement.h"
#include "session/EditionCheck.h"
#include "session/FormatCheck.h"
#include "session/SessionState.h"
#include "session/u12qelFiles.h"
#include "session/u13Folders.h"
#include "session/u14Properties.h"
#include "session/u19RowData.h"
#include "session/u91Trace.h"

namespace u11Datafile {

namespace {

/// Sets gCreatingNewFile for as long as it lives.
class CreatingNewFile
{
public:
    CreatingNewFile() { gCreatingNewFile = true; }
    CreatingNewFile(const CreatingNewFile&) = delete;
    CreatingNewFile& operator=(const CreatingNewFile&) = delete;
    ~CreatingNewFile() { gCreatingNewFile = false; }
};

void CloseHandles()
{
    gProperties.reset();
    gDatabase.reset();
    u14Properties::PropertiesReplaced();
}

void UseDatabase(std::unique_ptr<platform::Database> database)
{
    gDatabase = std::move(database);
    gProperties = std::make_unique<platform::Recordset>(gDatabase->OpenTable("Properties"));
}

void OpenHandles(const std::string& path)
{
    UseDatabase(std::make_unique<platform::Database>(path, platform::Database::Mode::Exclusive));
}

std::string StoredProperty(const char* name)
{
    gProperties->Seek(name);
    return u19RowData::ReadText(*gProperties, "Value");
}

bool FormatIsCurrent() { return FormatCheck::BringToCurrent(StoredProperty("DataFormatID")); }

std::unique_ptr<platform::JetReplacement> ReadJetFile(const std::string& path)
{
    const platform::Hourglass hourglass;
    return std::make_unique<platform::JetReplacement>(path);
}

/// A file of the older engine: its tables are brought to the current format in a new file, which then takes
/// its place. False, with the file as it was, when the user declined or the format is refused.
bool ReplaceJetFile(const std::string& path)
{
    const std::unique_ptr<platform::JetReplacement> replacement = ReadJetFile(path);
    UseDatabase(replacement->TakeDatabase());
    const bool passed = FormatIsCurrent();
    CloseHandles();
    if (passed) {
        replacement->TakeName();
    }
    return passed;
}

bool OpenFormat(const std::string& path)
{
    if (platform::IsJetFile(path)) {
        if (!ReplaceJetFile(path)) {
            return false;
        }
        OpenHandles(path);
        return true;
    }
    OpenHandles(path);
    return FormatIsCurrent();
}

bool OpenAndCheck(const std::string& path)
{
    CloseDatafile(); // where one is still open: exactly one file is open at a time
    if (!OpenFormat(path)) {
        return false;
    }
    return EditionCheck::CheckMode(EditionName, StoredProperty("ProgramID"));
}

/// Marks the file that was just opened as open under this path. An engine error closes it again.
bool SettleDatafile(const std::string& path, bool isNew, const char* words)
{
    try {
        u14Properties::Property_Set("FullFileName", path);
        if (isNew) {
            u14Properties::Property_Set("ProgramID", EditionName);
        }
        return true;
    } catch (const platform::DatabaseError& error) {
        u91Trace::TraceError(path + ": " + error.what());
        CloseDatafile();
        platform::ShowMessage({words});
        return false;
    }
}

Status StatusOf(bool ready) { return ready ? Status::Ready : Status::Failed; }

/// A data file that is to be replaced, held so that nobody opens it meanwhile; nothing where no data file
/// stands. Throws DatabaseError for one that another program has open or that is read-only.
std::unique_ptr<platform::Database> HoldTarget(const std::string& target)
{
    if (platform::FileExists(target)) {
        try {
            return std::make_unique<platform::Database>(target, platform::Database::Mode::Exclusive);
        } catch (const platform::DatabaseError& error) {
            if (error.FileIsKept()) {
                throw;
            }
        }
    }
    return nullptr;
}

/// The cause of a failure, empty for success.
std::string CopyOver(const std::string& source, const std::string& target)
{
    try {
        const std::unique_ptr<platform::Database> held = HoldTarget(target);
        return platform::CopyWhole(source, target);
    } catch (const platform::DatabaseError& error) {
        return error.what();
    }
}

bool CopyDatafile(const std::string& source, const std::string& target, const char* words)
{
    const std::string cause = CopyOver(source, target);
    if (!cause.empty()) {
        u91Trace::TraceError("Copying " + source + " to " + target + ": " + cause);
        platform::ShowMessage({words});
    }
    return cause.empty();
}

constexpr const char* kUnableToCreate = "Unable to create new file.";
constexpr const char* kUnableToSave = "Unable to save file.";

} // namespace

bool OpenDatafile(const std::string& path)
{
    bool passed = false;
    try {
        passed = OpenAndCheck(path);
    } catch (const platform::Error& error) {
        // The handles are let go here too: a file that was refused must not stay locked.
        CloseHandles();
        u91Trace::TraceError("OpenDatafile " + path + ": " + error.what());
        platform::ShowMessage({"The file does not appear to be a VEXA Plus file.", "It cannot be opened."});
        return false;
    }
    if (passed) {
        gDatabaseOpen = true;
    } else {
        CloseHandles();
    }
    return passed;
}

void CloseDatafile()
{
    CloseHandles();
    gDatabaseOpen = false;
}

Status QueryOpenDatafile()
{
    u91Trace::Trace("u11Datafile.QueryOpenDatafile");
    const std::string path = u12qelFiles::ChooseFileToOpen();
    if (path.empty()) {
        return Status::Cancelled;
    }
    if (gDatabaseOpen) {
        CloseDatafile();
    }
    return StatusOf(OpenDatafile(path) && NameDatafile(path));
}

bool NameDatafile(const std::string& path)
{
    return SettleDatafile(path, false, "The file cannot be written, so it cannot be opened.");
}

Status QueryNewDatafile()
{
    u91Trace::Trace("u11Datafile.QueryNewDatafile");
    const std::string path = u12qelFiles::ChooseNewFile();
    return path.empty() ? Status::Cancelled : CreateDatafile(path);
}

Status CreateDatafile(const std::string& path)
{
    if (gDatabaseOpen) {
        CloseDatafile();
    }
    const std::string source = platform::InProgramFolder("QEL.new");
    if (!platform::FileExists(source)) {
        u91Trace::TraceError("There is no " + source);
        platform::ShowMessage({"Source file QEL.new is missing.", kUnableToCreate});
        return Status::Failed;
    }
    if (!CopyDatafile(source, path, kUnableToCreate)) {
        return Status::Failed;
    }
    const CreatingNewFile creating;
    return StatusOf(OpenDatafile(path) && SettleDatafile(path, true, kUnableToCreate));
}

Status QuerySaveDatafileAs()
{
    const std::string source = u14Properties::Property_Get("FullFileName");
    const std::string target = u12qelFiles::ChooseSaveAsFile();
    if (target.empty()) {
        return Status::Cancelled;
    }
    CloseDatafile();
    if (!CopyDatafile(source, target, kUnableToSave)) {
        return Status::Failed;
    }
    return StatusOf(OpenDatafile(target) && SettleDatafile(target, false, kUnableToSave));
}

std::string DatafileName() { return u13Folders::FileNameOf(u14Properties::Property_Get("FullFileName")); }

Long LastKeyInTable(std::string_view table, std::string_view keyColumn)
{
    return OpenDatabase().LastKeyInTable(table, keyColumn);
}

} // namespace u11Datafile
