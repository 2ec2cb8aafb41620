#include "program/Programs.h"
#include "program/session/Script.h"
#include "support/TestSession.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <sstream>

using programs::Ended;
using programs::Ground;
using programs::Running;

namespace {

/// How many kills; more of them with VEXA_KILLS, and other moments with VEXA_SEED.
int Setting(const char* name, int usual)
{
    const char* set = std::getenv(name);
    return set == nullptr ? usual : std::atoi(set);
}

/// One change of the script, as far as it is known from outside.
struct Cell
{
    std::string saved;
    std::string begun;
    bool isBegun = false;

    bool Allows(const std::string& found) const { return found == saved || (isBegun && found == begun); }
};

class KilledSession : public ::testing::Test
{
protected:
    KilledSession()
    {
        for (const Change& change : Changes())
            m_cells.push_back({InFile(m_file, change), {}, false});
        for (const char* query : kUntouched)
            m_untouched.push_back(support::QuerySql(m_file, query));
    }

    /// Runs the session until it is killed, some time after its file is open.
    void RunAndKill(int milliseconds)
    {
        Running session = StartSession({});
        ASSERT_TRUE(programs::Within([&] { return !session.IsRunning() || !Notes().empty(); }));
        programs::Pause(milliseconds);
        session.Kill();
        EXPECT_EQ(session.Wait(), -SIGKILL) << support::ReadFile(m_notes);
    }
    /// Runs the session until it has written so many times.
    void RunUntilWrite(int writes)
    {
        Running session = StartSession({std::to_string(writes)});
        EXPECT_EQ(session.Wait(), -SIGKILL) << support::ReadFile(m_notes);
    }
    /// Takes up what the session noted.
    void TakeNotes()
    {
        for (const std::string& line : Notes()) {
            std::istringstream words(line);
            std::string what;
            std::size_t place = 0;
            words >> what >> place;
            if (what == "begin") {
                Cell& cell = m_cells.at(place);
                std::getline(words >> std::ws, cell.begun);
                cell.isBegun = true;
            } else if (what == "saved") {
                m_cells.at(place) = {m_cells.at(place).begun, {}, false};
                ++saves;
            } else {
                EXPECT_EQ(line, "open");
            }
        }
    }
    /// The file opens as it would for the user, is sound, and lacks nothing that was saved.
    void CheckFile()
    {
        // What begins so was to be taken back; the journal of a finished change stays, but says nothing.
        journals += support::ReadFile(m_file + "-journal").starts_with("\xD9\xD5\x05\xF9") ? 1 : 0;
        const Ended evaluated = m_ground.RunCompanion({"evaluate", m_file});
        EXPECT_EQ(evaluated.status, 0) << evaluated.err;
        EXPECT_EQ(m_ground.RunCompanion({"check", m_file}).out, "ok\n");
        EXPECT_EQ(support::QuerySql(m_file, "PRAGMA integrity_check"), support::Rows{{"ok"}});
        CheckUntouched();
        for (std::size_t i = 0; i < m_cells.size(); ++i)
            CheckCell(m_cells[i], Changes()[i]);
    }
    int UpTo(int most) { return 1 + static_cast<int>(m_random() % static_cast<unsigned>(most)); }
    void Tell(int kills) const
    {
        std::cout << kills << " kills, " << inHand << " of them within a change (" << afterSave
                  << " had been saved already), " << journals << " within a write; " << saves
                  << " saves told of, none lost\n";
    }

    int saves = 0;     // that the sessions told of
    int inHand = 0;    // kills in the middle of a change
    int afterSave = 0; // of them between the save and its note
    int journals = 0;  // kills in the middle of a write, which the next opening took back

private:
    Running StartSession(std::vector<std::string> more)
    {
        std::filesystem::remove(m_notes);
        more.insert(more.begin(), {m_file, m_notes, std::to_string(m_random())});
        return m_ground.Start("vexa-session", more);
    }
    void CheckCell(Cell& cell, const Change& change)
    {
        const std::string found = InFile(m_file, change);
        EXPECT_TRUE(cell.Allows(found))
            << change.query << "\nfound  " << found << "\nsaved  " << cell.saved << "\nbegun  " << cell.begun;
        inHand += cell.isBegun ? 1 : 0;
        afterSave += cell.isBegun && found == cell.begun ? 1 : 0;
        cell = {found, {}, false};
    }
    /// Lines that are whole.
    std::vector<std::string> Notes() const
    {
        std::vector<std::string> lines;
        const std::string notes = support::ReadFile(m_notes);
        std::istringstream stream(notes.substr(0, notes.rfind('\n') + 1));
        for (std::string line; std::getline(stream, line);)
            lines.push_back(line);
        return lines;
    }
    /// Asks for what no change is of.
    static constexpr const char* kUntouched[] = {
        "SELECT * FROM SRUses",
        "SELECT * FROM SRTypes",
        "SELECT * FROM SuppressionPerAcreCost",
        "SELECT * FROM NVCPerAcre",
        "SELECT * FROM NVCResources",
        "SELECT * FROM ValuesAtRisk",
        "SELECT * FROM Scores WHERE OutcomeKey NOT IN (1, 2) AND OutcomeKey < 8",
        "SELECT * FROM ItemImpacts WHERE OutcomeKey <> 5 AND OutcomeKey < 8",
        "SELECT * FROM OutcomeFMZs WHERE OutcomeKey < 8",
        "SELECT * FROM Outcomes WHERE ItemKey IN (3, 4, 5, 7)",
        "SELECT Key, Name, ParentKey, ChildKey, Priority FROM Objectives WHERE Key <= 10",
        "SELECT ItemKey, ItemName, Heading, ParentKey, ChildIndex FROM Items WHERE ItemKey <= 306"};

    void CheckUntouched() const
    {
        for (std::size_t i = 0; i < std::size(kUntouched); ++i)
            EXPECT_TRUE(support::QuerySql(m_file, kUntouched[i]) == m_untouched[i]) << kUntouched[i];
    }

    Ground m_ground;
    std::string m_file = m_ground.CopySample();
    std::string m_notes = m_ground.File("notes");
    std::minstd_rand m_random{static_cast<unsigned>(Setting("VEXA_SEED", 1))};
    std::vector<Cell> m_cells;
    std::vector<support::Rows> m_untouched;
};

} // namespace

TEST_F(KilledSession, AtAnyMoment_AllThatWasSavedIsThere)
{
    const int kills = Setting("VEXA_KILLS", 10);
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        ASSERT_NO_FATAL_FAILURE(RunAndKill(UpTo(2000)));
        TakeNotes();
        CheckFile();
    }
    Tell(kills);
    EXPECT_GT(saves, 0);
}

TEST_F(KilledSession, InTheMidstOfWriting_AllThatWasSavedIsThere)
{
    const int kills = Setting("VEXA_KILLS", 10);
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        RunUntilWrite(UpTo(150));
        TakeNotes();
        CheckFile();
    }
    Tell(kills);
    EXPECT_GT(saves, 0);
    EXPECT_GT(journals, 0);
}
