#include "platform/base/Errors.h"
#include "session/SessionState.h"
#include "session/u11Datafile.h"
#include "session/u14Properties.h"
#include "support/ChildProcess.h"
#include "support/TestSession.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;
using support::ReadFile;
using u11Datafile::Status;
using u14Properties::Property_Get;
using Texts = std::vector<std::string>;

namespace {

constexpr const char* kOpenTitle = "Open VEXA Plus file";
constexpr const char* kNewTitle = "Create new VEXA Plus file";
constexpr const char* kSaveTitle = "Save As New VEXA Plus file";
const Texts kNotOurs = {"The file does not appear to be a VEXA Plus file.", "It cannot be opened."};

class u11DatafileTest : public support::TestSession
{
protected:
    void ExpectReplaceQuestion(const char* title, platform::Answer answer)
    {
        platform::Message message;
        message.title = title;
        message.lines = {"The file already exists.  Do you want to overwrite it?"};
        message.buttons = platform::Buttons::YesNo;
        message.preset = platform::Answer::No;
        message.icon = platform::Icon::Stop;
        desktop.Expect(message, answer);
    }
    void ExpectNothingOpen()
    {
        EXPECT_FALSE(gDatabaseOpen);
        EXPECT_EQ(gDatabase, nullptr);
        EXPECT_EQ(gProperties, nullptr);
    }
    /// Nothing beside the template, the data folder, the logs and these.
    void ExpectFiles(const Texts& names)
    {
        Texts there;
        for (const auto& entry : fs::directory_iterator(folder.Path())) {
            const std::string name = entry.path().filename().string();
            if (name != "QEL.new" && name != "VEXAData" && !name.ends_with(".LOG")) {
                there.push_back(name);
            }
        }
        std::sort(there.begin(), there.end());
        EXPECT_EQ(there, names);
    }
};

} // namespace

TEST_F(u11DatafileTest, OpenDatafile_OfACurrentFile_HasItOpenForThisSessionAlone)
{
    const std::string file = MakeFile();
    EXPECT_TRUE(u11Datafile::OpenDatafile(file));
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(Property_Get("DataFormatID"), "06.01.01");
    EXPECT_THROW(platform::Database(file, platform::Database::Mode::Exclusive), platform::Error);
    u11Datafile::CloseDatafile();
    ExpectNothingOpen();
}

TEST_F(u11DatafileTest, OpenDatafile_OfWhatIsNoDatabase_GivesTheTwoLinesAndTheCauseInTheErrorLog)
{
    support::WriteFile(folder.File("text.qel"), "Dear reader,\nthis merely bears the extension.\n");
    support::WriteFile(folder.File("short.qel"), "x");
    support::WriteFile(folder.File("empty.qel"), "");
    fs::create_directory(folder.File("folder.qel"));
    for (const char* name : {"text.qel", "short.qel", "empty.qel", "folder.qel", "missing.qel"}) {
        const std::string before = ReadFile(folder.File(name));
        desktop.ExpectText(kNotOurs);
        EXPECT_FALSE(u11Datafile::OpenDatafile(folder.File(name))) << name;
        ExpectNothingOpen();
        EXPECT_NE(ErrorLog().find("OpenDatafile " + folder.File(name) + ": "), std::string::npos) << name;
        EXPECT_EQ(ReadFile(folder.File(name)), before);
    }
    EXPECT_NE(ErrorLog().find("file is not a database"), std::string::npos);
    ExpectFiles({"empty.qel", "folder.qel", "short.qel", "text.qel"});
}

TEST_F(u11DatafileTest, OpenDatafile_OfAPathInQuotes_IsAnUnusableFile)
{
    const std::string file = MakeFile();
    desktop.ExpectText(kNotOurs);
    EXPECT_FALSE(u11Datafile::OpenDatafile("\"" + file + "\""));
}

TEST_F(u11DatafileTest, OpenDatafile_OfAFileThatAnotherHasOpen_GivesTheTwoLinesAndTheCause)
{
    const std::string file = MakeFile();
    const platform::Database other(file, platform::Database::Mode::Exclusive);
    desktop.ExpectText(kNotOurs);
    EXPECT_FALSE(u11Datafile::OpenDatafile(file));
    EXPECT_NE(ErrorLog().find("database is locked"), std::string::npos);
}

TEST_F(u11DatafileTest, OpenDatafile_WithATableOrColumnMissing_GivesTheTwoLines)
{
    for (const char* sql : {"DROP TABLE Properties",
                            "ALTER TABLE Properties RENAME COLUMN Value TO Wert",
                            "ALTER TABLE Properties RENAME COLUMN Property TO Name; DROP TABLE FMZList; "
                            "UPDATE Properties SET Value = '' "
                            "WHERE Name = 'ProgramID'"}) {
        const std::string file = MakeFile(sql);
        const std::string before = ReadFile(file);
        desktop.ExpectText(kNotOurs);
        EXPECT_FALSE(u11Datafile::OpenDatafile(file)) << sql;
        ExpectNothingOpen();
        EXPECT_TRUE(ReadFile(file) == before) << sql;
    }
}

TEST_F(u11DatafileTest, OpenDatafile_WhileAnotherFileIsOpen_LeavesOnlyTheNewOneOpen)
{
    OpenNew();
    const std::string second = MakeFile({}, "Second.qel");
    EXPECT_TRUE(u11Datafile::OpenDatafile(second));
    EXPECT_NO_THROW(platform::Database(path, platform::Database::Mode::Exclusive)) << "the first is let go";
    desktop.ExpectText(kNotOurs);
    EXPECT_FALSE(u11Datafile::OpenDatafile(folder.File("missing.qel")));
    ExpectNothingOpen();
}

TEST_F(u11DatafileTest, QueryOpen_AsksInTheDataFolderAndWritesTheName)
{
    const std::string file = MakeFile();
    desktop.ExpectFile(kOpenTitle, file);
    desktop.lookAtFileRequest = [this](const platform::FileRequest& request) {
        EXPECT_EQ(request.kind, platform::FileRequest::Kind::Open);
        EXPECT_EQ(request.folder, folder.File("VEXAData"));
        EXPECT_EQ(request.extension, "qel");
        EXPECT_EQ(request.fileName, "");
        EXPECT_EQ(request.filter, "VEXA Plus files (*.qel)|*.qel|All Files (*.*)|*.*");
    };
    EXPECT_EQ(u11Datafile::QueryOpenDatafile(), Status::Ready);
    EXPECT_EQ(Property_Get("FullFileName"), file);
    EXPECT_EQ(u11Datafile::DatafileName(), "Fire.qel");
    EXPECT_EQ(LogLines(), Texts{"   u11Datafile.QueryOpenDatafile"});
    path = file;
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property = 'FullFileName'"), (support::Rows{{file}}));
}

TEST_F(u11DatafileTest, QueryOpen_Cancelled_LeavesTheOpenFileOpen)
{
    OpenNew();
    desktop.ExpectFile(kOpenTitle, "");
    EXPECT_EQ(u11Datafile::QueryOpenDatafile(), Status::Cancelled);
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_EQ(Property_Get("ProgramID"), "Basic");
}

TEST_F(u11DatafileTest, QueryOpen_ThatFails_HasClosedTheOldFileFirst)
{
    OpenNew();
    desktop.ExpectFile(kOpenTitle, folder.File("missing.qel"));
    desktop.ExpectText(kNotOurs);
    EXPECT_EQ(u11Datafile::QueryOpenDatafile(), Status::Failed);
    ExpectNothingOpen();
}

TEST_F(u11DatafileTest, QueryNew_CopiesTheTemplateAndMarksIt)
{
    const std::string file = folder.File("Made.qel");
    desktop.ExpectFile(kNewTitle, file);
    desktop.lookAtFileRequest = [this](const platform::FileRequest& request) {
        EXPECT_EQ(request.kind, platform::FileRequest::Kind::Save);
        EXPECT_EQ(request.folder, folder.File("VEXAData"));
        EXPECT_EQ(request.fileName, "Fire1.qel");
        EXPECT_EQ(request.extension, "qel");
    };
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Ready);
    EXPECT_FALSE(gCreatingNewFile);
    EXPECT_EQ(Property_Get("FullFileName"), file);
    EXPECT_EQ(Property_Get("ProgramID"), "Basic");
    EXPECT_EQ(LogLines(), Texts{"   u11Datafile.QueryNewDatafile"});
    Close();
    ExpectFiles({"Made.qel"});
    EXPECT_EQ(support::QuerySql(folder.File("QEL.new"),
                                "SELECT * FROM Properties WHERE Property = 'FullFileName' AND Value <> ''"),
              support::Rows())
        << "the template is as it was";
}

TEST_F(u11DatafileTest, QueryNew_OfATemplateWithoutAMark_IsBasicAfterwards)
{
    support::ExecuteSql(folder.File("QEL.new"),
                        "UPDATE Properties SET Value = '' WHERE Property = 'ProgramID'; DELETE FROM FMZList");
    desktop.ExpectFile(kNewTitle, folder.File("Made.qel"));
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Ready);
    EXPECT_EQ(Property_Get("ProgramID"), "Basic");
}

TEST_F(u11DatafileTest, QueryNew_Cancelled_TouchesNothing)
{
    OpenNew();
    desktop.ExpectFile(kNewTitle, "");
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Cancelled);
    EXPECT_TRUE(gDatabaseOpen);
}

TEST_F(u11DatafileTest, QueryNew_OverAnExistingFile_AsksFirst)
{
    const std::string file = MakeFile("UPDATE Items SET Body = 'mine' WHERE ItemKey = 11", "Old.qel");
    const std::string before = ReadFile(file);
    desktop.ExpectFile(kNewTitle, file);
    ExpectReplaceQuestion("Replace file?", platform::Answer::No);
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Cancelled);
    EXPECT_TRUE(ReadFile(file) == before);
    desktop.ExpectFile(kNewTitle, file);
    ExpectReplaceQuestion("Replace file?", platform::Answer::Yes);
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Ready);
    path = file;
    EXPECT_EQ(Query("SELECT * FROM Items WHERE Body = 'mine'"), support::Rows());
}

TEST_F(u11DatafileTest, QueryNew_OverAFileThatAnotherHasOpen_LeavesItWhole)
{
    const std::string file = MakeFile({}, "Held.qel");
    const std::string before = ReadFile(file);
    const platform::Database holder(file, platform::Database::Mode::Exclusive);
    desktop.ExpectText({"Unable to create new file."});
    EXPECT_EQ(u11Datafile::CreateDatafile(file), Status::Failed);
    EXPECT_TRUE(ReadFile(file) == before);
    EXPECT_NE(ErrorLog().find("database is locked"), std::string::npos);
}

TEST_F(u11DatafileTest, SaveAs_OntoAFileThatAnotherHasOpen_LeavesItWhole)
{
    OpenNew();
    u14Properties::Property_Set("FullFileName", path);
    const std::string file = MakeFile({}, "Held.qel");
    const std::string before = ReadFile(file);
    const platform::Database holder(file, platform::Database::Mode::Exclusive);
    desktop.ExpectFile("Save As New VEXA Plus file", file);
    ExpectReplaceQuestion("Delete", platform::Answer::Yes);
    desktop.ExpectText({"Unable to save file."});
    EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Failed);
    EXPECT_TRUE(ReadFile(file) == before);
}

TEST_F(u11DatafileTest, QueryNew_OverAFileThatIsNoDataFile_TakesItsPlace)
{
    support::WriteFile(folder.File("Notes.qel"), "not a database");
    EXPECT_EQ(u11Datafile::CreateDatafile(folder.File("Notes.qel")), Status::Ready);
}

TEST_F(u11DatafileTest, QueryNew_OverTheOpenFile_StartsItAnew)
{
    OpenNew("UPDATE Properties SET Value = 'x' WHERE Property = 'FullFileName'; INSERT INTO Items (ItemKey) "
            "VALUES (9001)");
    desktop.ExpectFile(kNewTitle, path);
    ExpectReplaceQuestion("Replace file?", platform::Answer::Yes);
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Ready);
    EXPECT_EQ(Query("SELECT * FROM Items WHERE ItemKey = 9001"), support::Rows());
}

TEST_F(u11DatafileTest, QueryNew_WithoutTheTemplate_GivesTheTwoLinesAndTheOldFileStaysClosed)
{
    OpenNew();
    fs::remove(folder.File("QEL.new"));
    desktop.ExpectFile(kNewTitle, folder.File("Made.qel"));
    desktop.ExpectText({"Source file QEL.new is missing.", "Unable to create new file."});
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Failed);
    ExpectNothingOpen();
    ExpectFiles({"Fire.qel"});
}

TEST_F(u11DatafileTest, QueryNew_ThatCannotCopy_SaysSoAndTheCauseIsInTheErrorLog)
{
    desktop.ExpectFile(kNewTitle, folder.File("none/Made.qel"));
    desktop.ExpectText({"Unable to create new file."});
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Failed);
    EXPECT_NE(ErrorLog().find("No such file or directory"), std::string::npos);
}

TEST_F(u11DatafileTest, QueryNew_OnAFullDisk_LeavesTheOldFileOfThatNameWhole)
{
    const std::string file = MakeFile({}, "Old.qel");
    const std::string before = ReadFile(file);
    desktop.ExpectFile(kNewTitle, file);
    ExpectReplaceQuestion("Replace file?", platform::Answer::Yes);
    desktop.ExpectText({"Unable to create new file."});
    {
        const support::FileSizeLimit full(before.size() / 2);
        EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Failed);
    }
    EXPECT_TRUE(ReadFile(file) == before);
    EXPECT_FALSE(gCreatingNewFile);
    ExpectFiles({"Old.qel"});
}

TEST_F(u11DatafileTest, QueryNew_OfATemplateOfAnotherEdition_Fails)
{
    support::ExecuteSql(folder.File("QEL.new"),
                        "UPDATE Properties SET Value = 'Standard' WHERE Property = 'ProgramID'");
    desktop.ExpectFile(kNewTitle, folder.File("Made.qel"));
    desktop.ExpectText({"This is a VEXA Standard file.", "It cannot be opened in Basic mode."});
    EXPECT_EQ(u11Datafile::QueryNewDatafile(), Status::Failed);
    ExpectNothingOpen();
    EXPECT_FALSE(gCreatingNewFile);
}

TEST_F(u11DatafileTest, SaveAs_CopiesTheFileAndGoesOnInTheCopy)
{
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    u14Properties::Property_Set("UseNVCGains", "Yes");
    const std::string target = folder.File("Copy.qel");
    desktop.ExpectFile(kSaveTitle, target);
    desktop.lookAtFileRequest = [](const platform::FileRequest& request) {
        EXPECT_EQ(request.kind, platform::FileRequest::Kind::Save);
        EXPECT_EQ(request.folder, "") << "left as it is";
        EXPECT_EQ(request.fileName, "Fire1.qel");
        EXPECT_EQ(request.extension, "qel");
        EXPECT_EQ(request.filter, "VEXA Plus files (*.qel)|*.qel|All Files (*.*)|*.*");
    };
    EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Ready);
    EXPECT_EQ(Property_Get("FullFileName"), target);
    EXPECT_EQ(Property_Get("UseNVCGains"), "Yes");
    u14Properties::Property_Set("UseNVCGains", "No");
    EXPECT_EQ(Query("SELECT Value FROM Properties WHERE Property IN ('FullFileName', 'UseNVCGains') ORDER BY "
                    "Property"),
              (support::Rows{{path}, {"Yes"}}))
        << "the first file stays as it was";
}

TEST_F(u11DatafileTest, SaveAs_OntoItself_DoesNothingWithoutAWord)
{
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    fs::create_symlink(path, folder.File("Link.qel"));
    fs::create_directory(folder.File("sub"));
    for (const std::string& target :
         {path, folder.File("Link.qel"), folder.File("sub/../Fire.qel"), folder.File("./Fire.qel")}) {
        desktop.ExpectFile(kSaveTitle, target);
        EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Cancelled) << target;
        EXPECT_TRUE(gDatabaseOpen);
        EXPECT_EQ(Property_Get("FullFileName"), path);
    }
}

TEST_F(u11DatafileTest, SaveAs_Cancelled_LeavesEverything)
{
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    desktop.ExpectFile(kSaveTitle, "");
    EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Cancelled);
    EXPECT_TRUE(gDatabaseOpen);
}

TEST_F(u11DatafileTest, SaveAs_OntoAnotherFile_AsksUnderTheTitleDelete)
{
    const std::string other = MakeFile("INSERT INTO Items (ItemKey) VALUES (9001)", "Other.qel");
    const std::string before = ReadFile(other);
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    desktop.ExpectFile(kSaveTitle, other);
    ExpectReplaceQuestion("Delete", platform::Answer::No);
    EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Cancelled);
    EXPECT_TRUE(gDatabaseOpen);
    EXPECT_TRUE(ReadFile(other) == before);
    desktop.ExpectFile(kSaveTitle, other);
    ExpectReplaceQuestion("Delete", platform::Answer::Yes);
    EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Ready);
    Close();
    EXPECT_EQ(support::QuerySql(other, "SELECT * FROM Items WHERE ItemKey = 9001"), support::Rows());
}

TEST_F(u11DatafileTest, SaveAs_ThatCannotCopy_LeavesTheFileClosedAndTheTargetWhole)
{
    const std::string other = MakeFile({}, "Other.qel");
    const std::string before = ReadFile(other);
    OpenNew();
    ASSERT_TRUE(u11Datafile::NameDatafile(path));
    desktop.ExpectFile(kSaveTitle, other);
    ExpectReplaceQuestion("Delete", platform::Answer::Yes);
    desktop.ExpectText({"Unable to save file."});
    {
        const support::FileSizeLimit full(before.size() / 2);
        EXPECT_EQ(u11Datafile::QuerySaveDatafileAs(), Status::Failed);
    }
    ExpectNothingOpen();
    EXPECT_TRUE(ReadFile(other) == before);
    EXPECT_NE(ErrorLog().find("Copying " + path), std::string::npos);
    ExpectFiles({"Fire.qel", "Other.qel"});
}

TEST_F(u11DatafileTest, NameDatafile_OnAFullDisk_ClosesTheFileAndSaysSo)
{
    const std::string file = MakeFile();
    ASSERT_TRUE(u11Datafile::OpenDatafile(file));
    desktop.ExpectText({"The file cannot be written, so it cannot be opened."});
    {
        const support::FileSizeLimit full(100);
        EXPECT_FALSE(u11Datafile::NameDatafile(file));
    }
    ExpectNothingOpen();
    EXPECT_TRUE(u11Datafile::OpenDatafile(file));
    EXPECT_TRUE(gDatabase->IntegrityFaults().empty());
}

TEST_F(u11DatafileTest, LastKeyInTable_OfAnEmptyTable_IsZero)
{
    OpenNew("DELETE FROM SRUses; DELETE FROM Items; INSERT INTO Items (ItemKey) VALUES (77), (9)");
    EXPECT_EQ(u11Datafile::LastKeyInTable("SRUses", "ItemKey"), 0);
    EXPECT_EQ(u11Datafile::LastKeyInTable("Items", "ItemKey"), 77);
}
