#include "CliTest.h"
#include "support/ChildProcess.h"
#include "vexa-cli/Commands.h"

#include <filesystem>

namespace {

namespace fs = std::filesystem;
using support::ReadFile;
using support::WriteFile;

class Report : public support::CliTest
{
protected:
    ~Report() override { vexa_cli::SetReportCommand(nullptr); }

    std::vector<std::string> FilesIn(const std::string& name) const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.File(name)))
            names.push_back(entry.path().filename().string());
        std::sort(names.begin(), names.end());
        return names;
    }
};

TEST_F(Report, WithoutTheToolkit_IsRefusedClearly)
{
    vexa_cli::SetReportCommand(nullptr);
    const Result result = Run({"report", CopySample("smith-creek"), folder.File("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "Reports are made by the program vexa-report, which is missing here.\n");
}

class MadeReport : public Report
{
protected:
    MadeReport() { vexa_cli::SetReportCommand(&vexa_cli::Report); }

    /// What a program prints to standard output and error, and at its end "status" and its exit status.
    static std::string Output(const std::string& command)
    {
        std::string output;
        FILE* pipe = ::popen((command + " 2>&1; echo status $?").c_str(), "r");
        for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
            output += static_cast<char>(c);
        ::pclose(pipe);
        return output;
    }
};

TEST_F(MadeReport, Pdf_IsWrittenWithTitleAndOutlineAndNothingIsSaid)
{
    const Result result = Run({"report", CopySample("smith-creek"), folder.File("out.PDF")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    const std::string pdf = ReadFile(folder.File("out.PDF"));
    EXPECT_TRUE(pdf.starts_with("%PDF-"));
    for (const char* part : {"/Title", "/Outlines", "/FontFile2"})
        EXPECT_NE(pdf.find(part), std::string::npos) << part;
    EXPECT_EQ(pdf.find("/Author"), std::string::npos);
}

TEST_F(MadeReport, Rtf_HoldsTheSectionsAskedForInTheirOrder)
{
    const Result result =
        Run({"report", CopySample("smith-creek"), folder.File("out.rtf"), "--sections", "10,2"});
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string rtf = ReadFile(folder.File("out.rtf"));
    EXPECT_TRUE(rtf.starts_with("{\\rtf1"));
    const std::size_t tree = rtf.find("Decision Tree");
    const std::size_t summary = rtf.find("Decision Summary");
    ASSERT_NE(tree, std::string::npos);
    EXPECT_LT(summary, tree);
    EXPECT_EQ(rtf.find("Daily Review"), std::string::npos);
}

TEST_F(MadeReport, Folder_GetsAPictureOfEveryPageAndLosesThoseOfTheLastReport)
{
    fs::create_directory(folder.File("pages"));
    WriteFile(folder.File("pages/page-17.png"), "old");
    WriteFile(folder.File("pages/page-1.png"), "old");
    WriteFile(folder.File("pages/page-a.png"), "mine");
    WriteFile(folder.File("pages/notes.txt"), "mine");
    const Result result =
        Run({"report", CopySample("smith-creek"), folder.File("pages"), "--sections", "2,3"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(
        FilesIn("pages"),
        (std::vector<std::string>{"notes.txt", "page-1.png", "page-2.png", "page-3.png", "page-a.png"}));
    EXPECT_TRUE(ReadFile(folder.File("pages/page-1.png")).starts_with("\x89PNG"));
}

TEST_F(MadeReport, FolderThatIsNotThere_IsMade)
{
    const Result result =
        Run({"report", CopySample("juniper-gap"), folder.File("new/pages"), "--sections", "3"});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_EQ(FilesIn("new/pages"), std::vector<std::string>{"page-1.png"});
}

TEST_F(MadeReport, OtherExtension_IsWrongUsage)
{
    const Result result = Run({"report", CopySample("juniper-gap"), folder.File("out.docx")});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.err, "OUT must end in .pdf or .rtf, or be a folder: " + folder.File("out.docx") + "\n");
    EXPECT_FALSE(fs::exists(folder.File("out.docx")));
}

TEST_F(MadeReport, SectionOutsideTheTable_IsWrongUsage)
{
    for (const char* sections : {"0", "11", "1,x", ""}) {
        const Result result =
            Run({"report", CopySample("juniper-gap"), folder.File("out.pdf"), "--sections", sections});
        EXPECT_EQ(result.status, 2) << sections;
        EXPECT_FALSE(fs::exists(folder.File("out.pdf")));
    }
}

TEST_F(MadeReport, TargetIsTheDataFile_IsRefusedAndTheFileStays)
{
    const std::string file = CopySample("juniper-gap");
    const std::string pdf = folder.File("fire.pdf");
    fs::create_hard_link(file, pdf);
    const std::string before = ReadFile(file);
    EXPECT_EQ(Run({"report", file, pdf}).status, 2);
    EXPECT_EQ(ReadFile(file), before);
}

TEST_F(MadeReport, FileThatIsNone_FailsAndLeavesAnOldReport)
{
    WriteFile(folder.File("Fire.qel"), "no data file");
    WriteFile(folder.File("out.pdf"), "old");
    const Result result = Run({"report", folder.File("Fire.qel"), folder.File("out.pdf")});
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.err, "");
    EXPECT_EQ(ReadFile(folder.File("out.pdf")), "old");
}

TEST_F(MadeReport, PlaceThatCannotBeWritten_FailsAndNamesIt)
{
    const std::string file = CopySample("juniper-gap");
    WriteFile(folder.File("plain"), "");
    for (const char* name : {"nowhere/out.pdf", "nowhere/out.rtf", "plain/pages"}) {
        const Result result = Run({"report", file, folder.File(name)});
        EXPECT_EQ(result.status, 1) << name;
        EXPECT_NE(result.err.find(folder.File(name)), std::string::npos) << result.err;
        EXPECT_NE(result.err.find("could not be written"), std::string::npos) << result.err;
    }
}

TEST_F(MadeReport, FullDisk_LeavesTheOldFilesWhole)
{
    const std::string file = CopySample("granite-fork-complex");
    fs::create_directory(folder.File("pages"));
    for (const char* name : {"out.pdf", "out.rtf", "pages/page-1.png"})
        WriteFile(folder.File(name), "old");
    EXPECT_EQ(support::InChild([&] {
                  const support::FileSizeLimit full(16 * 1024);
                  for (const char* name : {"out.pdf", "out.rtf", "pages"}) {
                      const Result result = Run({"report", file, folder.File(name), "--sections", "2,3,10"});
                      EXPECT_EQ(result.status, 1) << name;
                      EXPECT_NE(result.err.find("could not be written"), std::string::npos) << result.err;
                  }
              }),
              0);
    for (const char* name : {"out.pdf", "out.rtf", "pages/page-1.png"})
        EXPECT_EQ(ReadFile(folder.File(name)), "old") << name;
    EXPECT_EQ(FilesIn("pages"), std::vector<std::string>{"page-1.png"});
}

TEST_F(MadeReport, DataFile_IsNotChanged)
{
    const std::string file = CopySample("smith-creek");
    Run({"report", file, folder.File("first.pdf")}); // what opening adds is there now
    const auto rows = Run({"dump", file}).out;
    Run({"report", file, folder.File("second.rtf")});
    EXPECT_EQ(Run({"dump", file}).out, rows);
}

TEST_F(MadeReport, FileWithoutAnything_GivesAllSections)
{
    const Result result = Run({"report", MakeFile(), folder.File("out.pdf")});
    EXPECT_EQ(result.status, 0) << result.err;
    EXPECT_TRUE(ReadFile(folder.File("out.pdf")).starts_with("%PDF-"));
}

TEST_F(MadeReport, TheProgramItself_NeedsNoDisplayAndSaysNothing)
{
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u XDG_RUNTIME_DIR -u QT_QPA_PLATFORM"
                                " -u QT_LOGGING_RULES VEXA_HOME='" +
                                folder.Path() + "' '" + support::BuiltFile("vexa-cli") + "' report '" +
                                CopySample("smith-creek") + "' '" + folder.File("out.pdf") + "'";
    EXPECT_EQ(Output(command), "status 0\n");
    EXPECT_TRUE(ReadFile(folder.File("out.pdf")).starts_with("%PDF-"));
}

TEST_F(MadeReport, TheProgramsOtherCommands_LoadNoToolkit)
{
    const std::string output = Output("LD_DEBUG=libs '" + support::BuiltFile("vexa-cli") + "' --version");
    EXPECT_NE(output.find("libsqlite3"), std::string::npos) << output;
    EXPECT_EQ(output.find("libQt"), std::string::npos);
}

} // namespace
