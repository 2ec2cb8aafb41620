#include "platform/base/LongWork.h"
#include "platform/data/DatabaseError.h"
#include "platform/jet/JetError.h"
#include "platform/jet/JetReader.h"
#include "platform/jet/JetStream.h"
#include "platform/jet/JetTables.h"
#include "support/TestSession.h"

#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstring>
#include <filesystem>

namespace {

using namespace std::string_literals;
using support::Rows;

template <class Number> std::string Bytes(Number value)
{
    std::string bytes(sizeof value, '\0');
    std::memcpy(bytes.data(), &value, sizeof value);
    return bytes;
}
std::string Name(const std::string& name) { return Bytes(static_cast<std::uint16_t>(name.size())) + name; }
std::string Text(const std::string& text)
{
    return "s" + Bytes(static_cast<std::uint32_t>(text.size())) + text;
}
std::string Whole(std::int64_t value) { return "i" + Bytes(value); }

std::string Start(std::uint32_t tables) { return platform::jet::kStreamStart + Bytes(tables); }
/// A table with a Long key and one more column of a type.
std::string Table(std::uint32_t claimed, char type, const std::string& rows, std::uint32_t count)
{
    return "T" + Name("t") + Bytes(claimed) + "\x02\x04"s + Name("k") + type + Name("v") + "\x01\0"s + rows +
           "E" + Bytes(count);
}
std::string Row(std::int64_t key, const std::string& cell) { return "R" + Whole(key) + cell; }
std::string OneCell(char type, const std::string& cell)
{
    return Start(1) + Table(1, type, Row(1, cell), 1) + "Z";
}

constexpr char kBoolean = 1;
constexpr char kByte = 2;
constexpr char kInteger = 3;
constexpr char kLong = 4;
constexpr char kMoney = 6;
constexpr char kSingle = 7;
constexpr char kDouble = 8;
constexpr char kText = 9;

/// Tables read from a program that is made to write what a test wants.
class JetReaderTest : public ::testing::Test
{
protected:
    ~JetReaderTest() override { platform::SetJetReaderProgram({}); }

    void Script(const std::string& commands, std::chrono::milliseconds patience = {})
    {
        support::WriteFile(folder.File("reader"), "#!/bin/sh\n" + commands + "\n");
        std::filesystem::permissions(folder.File("reader"), std::filesystem::perms::owner_all);
        platform::SetJetReaderProgram(folder.File("reader"), patience);
    }
    /// Reads what a program writes; the cause of a failure.
    std::string Read(const std::string& stream, const std::string& then = {})
    {
        support::WriteFile(folder.File("stream"), stream);
        Script("cat '" + folder.File("stream") + "'\n" + then);
        return ReadScript();
    }
    std::string ReadScript()
    {
        const std::string input = folder.File("input");
        support::WriteFile(input, std::string(100, 'x'));
        support::WriteFile(folder.File("new"), "");
        const int file = ::open(input.c_str(), O_RDONLY | O_CLOEXEC);
        std::string cause;
        try {
            platform::Database database(folder.File("new"), platform::Database::Mode::Importing);
            platform::ReadJetTables(file, database);
        } catch (const platform::Error& error) {
            cause = error.what();
        }
        ::close(file);
        return cause;
    }
    Rows Cells() { return support::QuerySql(folder.File("new"), "SELECT v, typeof(v) FROM t"); }
    support::TempFolder folder;
};

} // namespace

TEST_F(JetReaderTest, CellsOfEveryType_ArriveInTheirColumns)
{
    const struct
    {
        char type;
        std::string cell;
        std::vector<std::string> value;
    } cases[] = {
        {kBoolean, "t", {"-1", "integer"}},
        {kBoolean, "f", {"0", "integer"}},
        {kByte, Whole(255), {"255", "integer"}},
        {kInteger, Whole(-32768), {"-32768", "integer"}},
        {kLong, Whole(2147483647), {"2147483647", "integer"}},
        {kLong, "n", {"NULL", "null"}},
        {kMoney, "m" + Bytes(std::int64_t{-20000}), {"-2", "integer"}},
        {kMoney, "m" + Bytes(std::int64_t{612345679}), {"61234.5679", "real"}},
        {kSingle, "d" + Bytes(0.10000000149011612), {"0.100000001490116", "real"}},
        {kDouble, "d" + Bytes(1e300), {"1.0e+300", "real"}},
        {kText, Text(""), {"", "text"}},
        {kText, Text("12"), {"12", "text"}},
        {kText, "n", {"NULL", "null"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Read(OneCell(c.type, c.cell)), "") << c.value[0];
        EXPECT_EQ(Cells(), Rows{c.value});
    }
}

TEST_F(JetReaderTest, CellThatDoesNotFitItsColumn_IsRefused)
{
    const struct
    {
        char type;
        std::string cell;
    } cases[] = {
        {kBoolean, "n"},
        {kBoolean, Whole(1)},
        {kByte, Whole(256)},
        {kByte, Whole(-1)},
        {kInteger, Whole(32768)},
        {kLong, Whole(2147483648)},
        {kLong, "t"},
        {kLong, "d" + Bytes(1.0)},
        {kLong, Text("1")},
        {kMoney, Whole(1)},
        {kSingle, "d" + Bytes(1e39)},
        {kDouble, "d" + Bytes(std::numeric_limits<double>::infinity())},
        {kDouble, "d" + Bytes(std::nan(""))},
        {kText, Whole(1)},
        {kText, Text("\xFF")},
        {kText, "x"},
    };
    for (const auto& c : cases) {
        EXPECT_NE(Read(OneCell(c.type, c.cell)), "") << int(c.type) << c.cell[0];
    }
}

TEST_F(JetReaderTest, StreamThatEndsAnywhere_IsRefused)
{
    const std::string stream = Start(1) + Table(1, kText, Row(1, Text("text")), 1) + "Z";
    for (std::size_t size = 0; size < stream.size(); ++size) {
        EXPECT_NE(Read(stream.substr(0, size)), "") << size;
    }
    EXPECT_EQ(Read(stream), "");
    EXPECT_NE(Read(stream + "Z"), "") << "something behind the end";
    EXPECT_NE(Read(stream, "exit 1"), "") << "a program that was not content";
    EXPECT_NE(Read(stream, "kill -SEGV $$"), "");
}

TEST_F(JetReaderTest, StreamWithAnyByteChanged_IsReadOrRefused)
{
    const std::string stream = Start(1) + Table(1, kText, Row(1, Text("text")), 1) + "Z";
    for (std::size_t i = 0; i < stream.size(); ++i) {
        for (const char change : {'\x01', '\x80', '\xFF'}) {
            std::string changed = stream;
            changed[i] = static_cast<char>(changed[i] ^ change);
            Read(changed); // no crash, no hang
        }
    }
}

TEST_F(JetReaderTest, RowsThatAreMissing_AreAFailure)
{
    EXPECT_NE(Read(Start(1) + Table(2, kText, Row(1, "n"), 1) + "Z"), "") << "fewer than the file claims";
    EXPECT_NE(Read(Start(1) + Table(1, kText, Row(1, "n"), 2) + "Z"), "") << "fewer than were read";
    EXPECT_EQ(Read(Start(1) + Table(0, kText, "", 0) + "Z"), "");
    EXPECT_NE(Read(Start(2) + Table(0, kText, "", 0) + "Z"), "") << "a table is missing";
}

TEST_F(JetReaderTest, KeysThatAreTwiceThereOrNull_AreAFailure)
{
    EXPECT_NE(Read(Start(1) + Table(2, kText, Row(7, "n") + Row(7, "n"), 2) + "Z").find("UNIQUE"),
              std::string::npos);
    EXPECT_NE(Read(Start(1) + Table(1, kText, "Rnn", 1) + "Z").find("without its key"), std::string::npos);
}

TEST_F(JetReaderTest, NamesThatCannotBe_AreAFailure)
{
    const auto table = [](const std::string& name, const std::string& column) {
        return Start(1) + "T" + Name(name) + Bytes(std::uint32_t{0}) + "\x01\x04"s + Name(column) + "\0E"s +
               Bytes(std::uint32_t{0}) + "Z";
    };
    EXPECT_EQ(Read(table("Paste \"Errors\"]; DROP", "a'b\"")), "");
    EXPECT_EQ(support::QuerySql(folder.File("new"), "SELECT name FROM sqlite_schema"),
              (Rows{{"Paste \"Errors\"]; DROP"}}));
    EXPECT_NE(Read(table("", "a")), "");
    EXPECT_NE(Read(table("a", "")), "");
    EXPECT_NE(Read(table("sqlite_master", "a")), "");
    EXPECT_NE(Read(table("\xFF", "a")), "");
    EXPECT_NE(Read(table(std::string(2000, 'n'), "a")), "");
    const std::string twice = "T" + Name("t") + Bytes(std::uint32_t{0}) + "\x01\x04"s + Name("c") + "\0E"s +
                              Bytes(std::uint32_t{0});
    EXPECT_NE(Read(Start(2) + twice + twice + "Z"), "");
}

TEST_F(JetReaderTest, WordsOfTheProgram_AreTheCause)
{
    EXPECT_NE(Read("F" + Bytes(std::uint32_t{5}) + "words").find("words"), std::string::npos);
    EXPECT_NE(Read(Start(1) + "F" + Bytes(std::uint32_t{5}) + "words").find("words"), std::string::npos);
}

TEST_F(JetReaderTest, ProgramThatWritesWithoutEnd_IsStopped)
{
    Script("cat '" + folder.File("stream") + "'; yes");
    support::WriteFile(folder.File("stream"),
                       Start(1) + "T" + Name("t") + Bytes(std::uint32_t{0}) + "\x01\x09"s + Name("v") +
                           "\0Rs"s + Bytes(std::uint32_t{32 << 20}));
    EXPECT_NE(ReadScript().find("more than such a file can hold"), std::string::npos);
}

TEST_F(JetReaderTest, ProgramThatHangs_IsStoppedInTime)
{
    for (const char* hang : {"sleep 60", "while :; do :; done", "printf VEXAJET1; sleep 60"}) {
        Script(hang, std::chrono::milliseconds(300));
        EXPECT_NE(ReadScript().find("takes too long"), std::string::npos) << hang;
    }
}

TEST_F(JetReaderTest, ProgramThatIsNotThere_IsNamed)
{
    platform::SetJetReaderProgram(folder.File("nobody"));
    EXPECT_NE(ReadScript().find(folder.File("nobody")), std::string::npos);
}

TEST_F(JetReaderTest, ListenerThatThrows_EndsTheReading)
{
    platform::SetProgressListener([](const std::string&, double) { throw platform::JetError("enough"); });
    EXPECT_EQ(Read(OneCell(kText, "n")), "enough");
    platform::SetProgressListener({});
}
