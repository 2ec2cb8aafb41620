#include "platform/base/Files.h"
#include "platform/base/LongWork.h"
#include "platform/data/Schema.h"
#include "platform/jet/JetError.h"
#include "platform/jet/JetFile.h"
#include "platform/jet/JetReader.h"
#include "platform/jet/JetReplacement.h"
#include "support/ChildProcess.h"
#include "support/TestSession.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using platform::JetReplacement;
using support::ReadFile;
using Texts = std::vector<std::string>;

constexpr const char* kJetFile = "legacy/06.01.01-hatchet-empty.jet3.qel";

class JetFileTest : public ::testing::Test
{
protected:
    JetFileTest()
    {
        platform::SetJetReaderProgram(support::BuiltFile("vexa-jet"));
        support::CopyFile(support::DataFile(kJetFile), m_path);
    }
    ~JetFileTest() override { platform::SetJetReaderProgram({}); }

    Texts Files() const
    {
        Texts names;
        for (const auto& entry : fs::directory_iterator(m_folder.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    bool IsOriginal(const std::string& name) const { return ReadFile(m_folder.File(name)) == m_original; }
    void TakeName() const { JetReplacement(m_path).TakeName(); }
    /// Any user may start the reader then, also where the build lies in a folder of root's own.
    void BringReader()
    {
        const std::string reader = m_programs.File("vexa-jet");
        support::CopyFile(support::BuiltFile("vexa-jet"), reader);
        fs::permissions(m_programs.Path(), fs::perms::all);
        fs::permissions(reader, fs::perms::all);
        platform::SetJetReaderProgram(reader);
    }

    support::TempFolder m_folder;
    support::TempFolder m_programs;
    const std::string m_path = m_folder.File("Fire.qel");
    const std::string m_original = ReadFile(support::DataFile(kJetFile));
};

} // namespace

TEST_F(JetFileTest, JetFiles_AreToldByTheirHeadAlone)
{
    EXPECT_TRUE(platform::IsJetFile(m_path));
    const auto is = [this](const std::string& bytes) {
        support::WriteFile(m_folder.File("x"), bytes);
        return platform::IsJetFile(m_folder.File("x"));
    };
    EXPECT_TRUE(is(m_original.substr(0, 19)));
    EXPECT_TRUE(is("xxxxStandard ACE DB"));
    EXPECT_FALSE(is(m_original.substr(0, 18)));
    EXPECT_FALSE(is(""));
    EXPECT_FALSE(is("SQLite format 3"));
    EXPECT_FALSE(platform::IsJetFile(m_folder.Path()));
    EXPECT_FALSE(platform::IsJetFile(m_folder.File("missing")));
    ASSERT_EQ(::mkfifo(m_folder.File("pipe").c_str(), 0600), 0);
    EXPECT_FALSE(platform::IsJetFile(m_folder.File("pipe"))) << "and it does not wait for a writer";
}

TEST_F(JetFileTest, ReadJetFile_LeavesFileAndFolderAsTheyAre)
{
    const auto database = platform::ReadJetFile(m_path);
    EXPECT_TRUE(database->HasTable("Properties"));
    EXPECT_TRUE(database->IntegrityFaults().empty());
    EXPECT_TRUE(IsOriginal("Fire.qel"));
    EXPECT_EQ(Files(), Texts{"Fire.qel"});
}

TEST_F(JetFileTest, Replacement_TakesTheNameAndKeepsTheOriginal)
{
    fs::permissions(m_path, fs::perms(0640));
    TakeName();
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.jet"}));
    EXPECT_TRUE(IsOriginal("Fire.qel.jet"));
    EXPECT_EQ(fs::status(m_path).permissions(), fs::perms(0640));
    EXPECT_EQ(support::QuerySql(m_path, "PRAGMA application_id; PRAGMA integrity_check"),
              (support::Rows{{"1363495990"}, {"ok"}}));
    EXPECT_EQ(support::QuerySql(
                  m_path, "SELECT group_concat(name) FROM pragma_table_info('NVCPerAcre') WHERE pk > 0"),
              (support::Rows{{"FMZKey,ResourceIndex"}}));
    EXPECT_EQ(support::QuerySql(m_path, "SELECT count(*) FROM Properties WHERE Property = 'dataformatid'"),
              (support::Rows{{"1"}}));
    EXPECT_EQ(support::QuerySql(m_path,
                                "INSERT INTO Objectives (Name) VALUES ('new'); SELECT count(*) FROM "
                                "Objectives WHERE Name = 'new' AND Key > 7"),
              (support::Rows{{"1"}}));
}

TEST_F(JetFileTest, ReplacementThatIsGivenUp_LeavesNothing)
{
    {
        JetReplacement replacement(m_path);
        EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.import~"}));
        const auto database = replacement.TakeDatabase();
        platform::Transaction change(*database);
        platform::Schema(*database).DropTable("Items");
        change.Commit();
    }
    EXPECT_EQ(Files(), Texts{"Fire.qel"});
    EXPECT_TRUE(IsOriginal("Fire.qel"));
}

TEST_F(JetFileTest, KeptNames_AreNeverTakenTwice)
{
    support::WriteFile(m_folder.File("Fire.qel.jet"), "mine");
    fs::create_symlink("nowhere", m_folder.File("Fire.qel.jet2"));
    TakeName();
    EXPECT_EQ(ReadFile(m_folder.File("Fire.qel.jet")), "mine");
    EXPECT_TRUE(fs::is_symlink(m_folder.File("Fire.qel.jet2")));
    EXPECT_TRUE(IsOriginal("Fire.qel.jet3"));
}

TEST_F(JetFileTest, LeftoversOfAKill_GoWithTheNextOpening)
{
    // Killed between the original's second name and the new database's taking the first.
    support::WriteFile(m_folder.File("Fire.qel.import~"), "half a database");
    fs::create_hard_link(m_path, m_folder.File("Fire.qel.jet"));
    JetReplacement(m_path).TakeDatabase();
    EXPECT_EQ(Files(), Texts{"Fire.qel"});
    // The same on a file system without links.
    support::WriteFile(m_folder.File("Fire.qel.import~"), "half a database");
    support::WriteFile(m_folder.File("Fire.qel.keep~"), "half a copy");
    support::WriteFile(m_folder.File("Fire.qel.jet"), "mine");
    fs::copy_file(m_path, m_folder.File("Fire.qel.jet2"));
    JetReplacement(m_path).TakeDatabase();
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.jet"}));
}

TEST_F(JetFileTest, CopyThatSomebodyPutThere_IsNoLeftover)
{
    fs::copy_file(m_path, m_folder.File("Fire.qel.jet"));
    JetReplacement(m_path).TakeDatabase();
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.jet"}));
}

TEST_F(JetFileTest, SecondReplacement_IsRefusedAndDisturbsNothing)
{
    JetReplacement first(m_path);
    EXPECT_THROW(JetReplacement second(m_path), platform::JetError);
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.import~"}));
    first.TakeDatabase();
    first.TakeName();
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.jet"}));
}

TEST_F(JetFileTest, LinkToAJetFile_IsFollowed)
{
    fs::create_directory(m_folder.File("links"));
    fs::create_symlink("../Fire.qel", m_folder.File("links/Link.qel"));
    JetReplacement(m_folder.File("links/Link.qel")).TakeName();
    EXPECT_EQ(Files(), (Texts{"Fire.qel", "Fire.qel.jet", "links"}));
    EXPECT_TRUE(fs::is_symlink(m_folder.File("links/Link.qel")));
    EXPECT_FALSE(platform::IsJetFile(m_path));
}

TEST_F(JetFileTest, FileThatCannotBeRead_LeavesNothingBehind)
{
    support::WriteFile(m_path, m_original.substr(0, m_original.size() / 2));
    EXPECT_THROW(JetReplacement replacement(m_path), platform::Error);
    EXPECT_THROW(platform::ReadJetFile(m_path), platform::Error);
    EXPECT_EQ(Files(), Texts{"Fire.qel"});
}

TEST_F(JetFileTest, FileOrFolderThatMayNotBeWritten_IsRefused)
{
    const bool asRoot = ::geteuid() == 0;
    BringReader();
    fs::permissions(m_folder.Path(), fs::perms::all);
    const auto refused = [&](fs::perms file, fs::perms folder) {
        fs::permissions(m_path, file);
        fs::permissions(m_folder.Path(), folder);
        const int failed = support::InChild([&] {
            if (support::BecomeOrdinaryUser()) {
                EXPECT_THROW(JetReplacement replacement(m_path), platform::JetError);
                EXPECT_TRUE(platform::ReadJetFile(m_path)->HasTable("Items")) << "reading is allowed";
            }
        });
        fs::permissions(m_folder.Path(), fs::perms::all);
        return failed == 0;
    };
    EXPECT_TRUE(refused(fs::perms(0444), fs::perms::all)) << asRoot;
    EXPECT_TRUE(refused(fs::perms(0666), fs::perms(0555))) << asRoot;
    EXPECT_EQ(Files(), Texts{"Fire.qel"});
}

TEST_F(JetFileTest, FullDisk_LeavesTheOriginalAlone)
{
    for (const rlim_t room : {0U, 4096U, 50000U}) {
        EXPECT_EQ(support::InChild([&] {
                      const support::FileSizeLimit full(room);
                      EXPECT_THROW(JetReplacement(m_path).TakeName(), platform::Error) << room;
                  }),
                  0);
        EXPECT_EQ(Files(), Texts{"Fire.qel"}) << room;
        EXPECT_TRUE(IsOriginal("Fire.qel"));
    }
}

TEST_F(JetFileTest, Progress_GoesUpToItsEnd)
{
    std::vector<double> parts;
    platform::SetProgressListener([&](const std::string&, double part) { parts.push_back(part); });
    platform::ReadJetFile(m_path);
    platform::SetProgressListener({});
    EXPECT_GT(parts.size(), 10U);
    EXPECT_TRUE(std::is_sorted(parts.begin(), parts.end()));
    EXPECT_EQ(parts.back(), 1.0);
}
