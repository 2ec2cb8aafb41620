#include "LegacyCases.h"
#include "platform/base/LongWork.h"
#include "support/ChildProcess.h"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using support::Json;
using support::ReadFile;

constexpr const char* kNotOurs = "The file does not appear to be a VEXA Plus file.\nIt cannot be opened.\n";
constexpr const char* kJetFile = "05.01.02-twin-level1.jet3.qel";

class JetFiles : public support::CliTest
{
protected:
    JetFiles() { fs::create_directory(folder.File("work")); }

    /// Writes the file anew, alone in its folder.
    std::string Put(const std::string& bytes)
    {
        fs::remove_all(folder.File("work"));
        fs::create_directory(folder.File("work"));
        const std::string file = folder.File("work/Fire.qel");
        support::WriteFile(file, bytes);
        return file;
    }
    std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.File("work"))) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    /// Nothing of the file was changed and nothing stands beside it.
    void ExpectUntouched(const std::string& bytes, const std::string& what)
    {
        EXPECT_EQ(Files(), std::vector<std::string>{"Fire.qel"}) << what;
        EXPECT_TRUE(ReadFile(folder.File("work/Fire.qel")) == bytes) << what;
    }
    /// It is refused by every opening, and cannot be read either.
    void ExpectRefused(const std::string& bytes, const std::string& what)
    {
        const std::string file = Put(bytes);
        const Result result = Run({"convert", file, "--yes"});
        EXPECT_EQ(result.status, 1) << what;
        EXPECT_TRUE(result.err == kNotOurs) << what;
        for (const char* command : {"dump", "check"}) {
            const Result read = Run({command, file});
            EXPECT_EQ(read.status, 1) << what << command;
            EXPECT_TRUE(read.out.empty()) << what << command;
            EXPECT_NE(read.err, "") << what << command;
        }
        ExpectUntouched(bytes, what);
    }
    static std::string Original(const char* name = kJetFile)
    {
        return ReadFile(support::DataFile(std::string("legacy/") + name));
    }
    static std::string With(std::string bytes, std::size_t place, char change)
    {
        bytes[place] = static_cast<char>(bytes[place] ^ change);
        return bytes;
    }
};

/// Every Jet file at hand.
std::vector<std::string> JetPaths()
{
    std::vector<std::string> paths;
    for (const std::string& folder : {support::DataFile("legacy"), support::CorpusFolder("legacy")}) {
        for (const support::LegacyCase& one :
             folder.empty() ? std::vector<support::LegacyCase>() : support::LegacyCases(folder)) {
            if (one.IsJet() && ReadFile(one.path).find("Standard Jet") == 4) {
                paths.push_back(one.path);
            }
        }
    }
    return paths;
}

} // namespace

TEST_F(JetFiles, Dump_IsThatOfTheSameTablesInTheOtherEngine)
{
    int compared = 0;
    for (const std::string& source : JetPaths()) {
        const std::string dump =
            source.substr(0, source.find(source.ends_with(".jet3.qel") ? ".jet3.qel" : ".qel")) +
            ".dump.json";
        if (!fs::exists(dump)) {
            continue;
        }
        const std::string bytes = ReadFile(source);
        const Result result = Run({"dump", Put(bytes)});
        EXPECT_EQ(result.status, 0) << source << result.err;
        EXPECT_TRUE(Json::parse(result.out).dump() == Json::parse(ReadFile(dump)).dump()) << source;
        ExpectUntouched(bytes, source);
        ++compared;
    }
    EXPECT_GE(compared, 7);
}

TEST_F(JetFiles, Check_ReadsThemToo)
{
    const std::string bytes = Original("06.01.01-hatchet-empty.jet3.qel");
    EXPECT_EQ(Run({"check", Put(bytes)}).out, "Properties: ProgramID is \"\", which is no edition\n");
    ExpectUntouched(bytes, "check");
}

TEST_F(JetFiles, DatabasesOfOthers_AreReadAndRefused)
{
    const std::string corpus = support::CorpusFolder("jet3");
    if (corpus.empty()) {
        GTEST_SKIP() << "VEXA_CORPUS names no folder with such files";
    }
    int compared = 0;
    for (const auto& entry : fs::directory_iterator(corpus)) {
        if (entry.path().extension() != ".mdb") {
            continue;
        }
        const std::string bytes = ReadFile(entry.path().string());
        const std::string file = Put(bytes);
        const std::string dump = ReadFile(fs::path(entry.path()).replace_extension(".dump.json").string());
        EXPECT_TRUE(Json::parse(Run({"dump", file}).out).dump() == Json::parse(dump).dump()) << entry.path();
        EXPECT_EQ(Run({"convert", file, "--yes"}).err, kNotOurs) << entry.path();
        ExpectUntouched(bytes, entry.path().string());
        ++compared;
    }
    EXPECT_EQ(compared, 4);
}

TEST_F(JetFiles, PasswordAndOtherVersions_AreRefused)
{
    constexpr std::size_t kEngine = 13; // "Standard Jet DB"
    constexpr std::size_t kVersion = 0x14;
    constexpr std::size_t kPassword = 0x42;
    ExpectRefused(With(Original(), kPassword, 'a'), "password");
    EXPECT_NE(ErrorLog().find("password"), std::string::npos);
    ExpectRefused(With(Original(), kVersion, 2), "version 2");
    ExpectRefused(With(Original(), kVersion, 1), "the other version");
    ExpectRefused(With(Original(), kEngine, 'X'), "another engine");
    std::string later = Original();
    later.replace(kEngine, 3, "ACE");
    ExpectRefused(later, "the later engine");
}

TEST_F(JetFiles, FileCutAnywhere_IsRefused)
{
    const std::string bytes = Original();
    for (std::size_t size = 19; size < bytes.size(); size += 7919) {
        ExpectRefused(bytes.substr(0, size), std::to_string(size));
    }
    ExpectRefused(bytes.substr(0, 2048), "the first page alone");
}

TEST_F(JetFiles, TableThatIsMissing_FailsWithTheFileAsItWas)
{
    std::string bytes = Original();
    int renamed = 0;
    for (std::size_t place = bytes.find("Outcomes"); place != std::string::npos;
         place = bytes.find("Outcomes", place + 1)) {
        bytes[place] = 'X';
        ++renamed;
    }
    ASSERT_GT(renamed, 0);
    const std::string file = Put(bytes);
    EXPECT_EQ(Run({"convert", file}).status, 3);
    const Result result = Run({"convert", file, "--yes"});
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.err.ends_with(kNotOurs)) << result.err;
    ExpectUntouched(bytes, "no Outcomes");
}

TEST_F(JetFiles, BytesChangedAnywhere_NeitherCrashNorHangNorTouchTheFile)
{
    const char* many = std::getenv("VEXA_MUTATIONS");
    const int count = many == nullptr ? 120 : std::atoi(many);
    const std::vector<std::string> paths = JetPaths();
    std::uint32_t random = 8;
    const auto next = [&random](std::size_t below) {
        random = random * 1664525U + 1013904223U;
        return static_cast<std::size_t>(random >> 8U) % below;
    };
    int readable = 0;
    int converted = 0;
    auto longest = std::chrono::steady_clock::duration::zero();
    for (int i = 0; i < count; ++i) {
        std::string bytes = ReadFile(paths[next(paths.size())]);
        const std::size_t changes = std::size_t{1} << next(8);
        const std::size_t page = next(bytes.size() / 2048) * 2048;
        for (std::size_t j = 0; j < changes; ++j) {
            const std::size_t place = i % 2 == 0 ? 20 + next(bytes.size() - 20) : page + next(2048);
            bytes[std::max<std::size_t>(place, 20)] = static_cast<char>(next(256));
        }
        const std::string file = Put(bytes);
        const auto before = std::chrono::steady_clock::now();
        const Result dump = Run({"dump", file});
        EXPECT_TRUE(dump.status == 0 || (dump.status == 1 && dump.out.empty() && !dump.err.empty())) << i;
        ExpectUntouched(bytes, std::to_string(i));
        const int status = Run({"convert", file, "--yes"}).status;
        longest = std::max(longest, std::chrono::steady_clock::now() - before);
        EXPECT_TRUE(status == 0 || status == 1) << i;
        if (Files().size() == 2) {
            EXPECT_TRUE(ReadFile(file + ".jet") == bytes) << i;
            EXPECT_EQ(Run({"dump", file}).status, 0) << i;
            ++converted;
        } else {
            ExpectUntouched(bytes, std::to_string(i));
        }
        readable += dump.status == 0 ? 1 : 0;
    }
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(longest).count();
    std::cout << count << " changed files: " << readable << " can be read, " << converted
              << " were converted; the longest took " << milliseconds << " ms\n";
    EXPECT_LT(milliseconds, 25000);
}

namespace {

/// Files as a kill may leave them: the name opens, as the one or the other, and nothing is lost.
class KilledImport : public JetFiles
{
protected:
    /// Runs the conversion in a process of its own that kills itself where `arm` says.
    template <class Arm> int RunKilled(const std::string& file, Arm arm)
    {
        return support::InChild([&] {
            arm();
            Run({"convert", file, "--yes"});
        });
    }
    void ExpectWhole(const std::string& file, const std::string& what)
    {
        const bool isNew = ReadFile(file).starts_with("SQLite format 3");
        EXPECT_TRUE(ReadFile(isNew ? file + ".jet" : file) == m_original) << what;
        const Result result = Run({"convert", file, "--yes"});
        EXPECT_EQ(result.status, 0) << what << result.err;
        EXPECT_EQ(Files(), (std::vector<std::string>{"Fire.qel", "Fire.qel.jet"})) << what;
        EXPECT_TRUE(ReadFile(file + ".jet") == m_original) << what;
        EXPECT_EQ(support::QuerySql(file, "PRAGMA integrity_check"), support::Rows{{"ok"}}) << what;
    }
    const std::string m_original = Original();
};

} // namespace

TEST_F(KilledImport, AtEverySignOfProgress_LeavesOneOfTheTwoFilesWhole)
{
    int killed = 0;
    for (int moment = 0; moment < 60; moment += 3) {
        const std::string file = Put(m_original);
        const int ended = RunKilled(file, [moment] {
            int told = 0;
            platform::SetProgressListener([told, moment](const std::string&, double) mutable {
                if (told++ == moment) {
                    ::raise(SIGKILL);
                }
            });
        });
        killed += ended == -SIGKILL ? 1 : 0;
        ExpectWhole(file, std::to_string(moment));
    }
    EXPECT_GE(killed, 8);
}

TEST_F(KilledImport, AtManyMoments_LeavesOneOfTheTwoFilesWhole)
{
    for (int i = 0; i < 40; ++i) {
        const std::string file = Put(m_original);
        const pid_t child = ::fork();
        if (child == 0) {
            Run({"convert", file, "--yes"});
            ::_exit(0);
        }
        ::usleep(static_cast<useconds_t>(i * 2500));
        ::kill(child, SIGKILL);
        support::WaitFor(child);
        ExpectWhole(file, std::to_string(i));
    }
}

TEST_F(KilledImport, AReaderThatIsKilled_IsAFailureLikeAnyOther)
{
    support::WriteFile(folder.File("reader"),
                       "#!/bin/sh\n'" + support::BuiltFile("vexa-jet") +
                           "' | head -c 20000\nkill -KILL $$\n");
    fs::permissions(folder.File("reader"), fs::perms::owner_all);
    platform::SetJetReaderProgram(folder.File("reader"));
    ExpectRefused(m_original, "killed");
}
