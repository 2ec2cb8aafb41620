#include "platform/base/ProgramFolder.h"
#include "program/session/Script.h"
#include "program/session/Session.h"
#include "session/SessionState.h"
#include "support/TestSession.h"
#include "worksheets/WorksheetTable.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPixmapCache>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <malloc.h>

extern Q_CORE_EXPORT quintptr qtHookData[]; // the toolkit's own, for tools that watch it

namespace {

std::atomic<int> g_objects = 0; // that are alive

void ObjectMade(QObject*) { ++g_objects; }
void ObjectGone(QObject*) { --g_objects; }

/// Counts the toolkit's objects from here on.
void CountObjects()
{
    constexpr int kMadeHook = 3, kGoneHook = 4;
    qtHookData[kMadeHook] = reinterpret_cast<quintptr>(&ObjectMade);
    qtHookData[kGoneHook] = reinterpret_cast<quintptr>(&ObjectGone);
}

int Descriptors()
{
    const std::filesystem::directory_iterator all("/proc/self/fd");
    return static_cast<int>(std::distance(begin(all), end(all)));
}

/// Memory in use, in kilobytes: what is in the machine's memory, and what was asked for and not given back.
struct Memory
{
    long resident = 0;
    long asked = 0;
};

Memory MemoryNow()
{
    long total = 0, resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    const struct mallinfo2 heap = ::mallinfo2();
    return {resident * (::sysconf(_SC_PAGESIZE) / 1024),
            static_cast<long>((heap.uordblks + heap.hblkhd) / 1024)};
}

struct Figures
{
    int objects = g_objects;
    int descriptors = Descriptors();
    Memory memory = MemoryNow();
};

std::ostream& operator<<(std::ostream& out, const Figures& figures)
{
    return out << figures.objects << " objects, " << figures.descriptors << " descriptors, "
               << figures.memory.resident << " KB resident, " << figures.memory.asked << " KB asked for";
}

/// Goes from worksheet to worksheet, all sixteen and every introduction, and round again.
class Walker
{
public:
    explicit Walker(Hands& hands) : m_hands(hands)
    {
        for (const SectionEntry& section : Sections()) {
            for (int tab = 1; section.shown && tab <= LastTab(section.section); ++tab)
                m_places.emplace_back(section.section, tab);
        }
    }
    void Step()
    {
        const auto [section, tab] = m_places[m_next];
        m_next = (m_next + 1) % m_places.size();
        m_hands.GoTo(section, tab);
    }

private:
    Hands& m_hands;
    std::vector<std::pair<int, int>> m_places;
    std::size_t m_next = 0;
};

class Soak : public ::testing::Test
{
protected:
    support::TempFolder m_folder;
    std::string m_file = m_folder.File("Fire.qel");

    Soak()
    {
        platform::SetProgramFolder(m_folder.Path());
        support::CopyFile(support::BuiltFile("QEL.new"), m_folder.File("QEL.new"));
        support::CopyFile(support::BuiltFile("samples/smith-creek.qel"), m_file);
        for (const Change& change : Changes())
            m_values.push_back(InFile(m_file, change));
    }
    ~Soak() override { platform::SetProgramFolder({}); }

    /// So many changes of worksheet; after some of them something is typed.
    Figures Walk(Session& session, Walker& walker, int steps)
    {
        constexpr int kTypesAfter = 5;
        for (int i = 1; i <= steps; ++i) {
            walker.Step();
            if (i % kTypesAfter == 0) ChangeOne(session.hands());
        }
        return Rest(session.hands());
    }
    /// Whatever is made on first use is made.
    void UseAll(Session& session)
    {
        for (std::size_t i = 0; i < 2 * Changes().size(); ++i)
            ChangeOne(session.hands());
    }

private:
    /// The figures, on the same worksheet each time and with nothing left to be done.
    static Figures Rest(Hands& hands)
    {
        hands.GoTo(2, 1);
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QPixmapCache::clear(); // the pictures that the toolkit keeps, up to a limit of its own
        return {};
    }
    void ChangeOne(Hands& hands)
    {
        const std::size_t place = m_next++ % Changes().size();
        const Change& change = Changes()[place];
        const std::string value = change.value(m_random, m_values[place]);
        change.make(hands, value);
        m_values[place] = value;
    }

    std::minstd_rand m_random{7};
    std::vector<std::string> m_values;
    std::size_t m_next = 0;
};

} // namespace

TEST_F(Soak, ManyChangesOfWorksheets_NothingGrows)
{
    const char* set = std::getenv("VEXA_SOAK");
    const int changes = set == nullptr ? 300 : std::atoi(set);
    CountObjects();
    Session session(m_file, [](const std::string& text) { ADD_FAILURE() << text; });
    ASSERT_TRUE(gDatabaseOpen);
    Walker walker(session.hands());
    UseAll(session);
    const Figures early = Walk(session, walker, changes / 10);
    const Figures late = Walk(session, walker, changes - changes / 10);
    std::cout << "after " << changes / 10 << " changes of worksheet: " << early << "\nafter " << changes
              << ": " << late << '\n';
    EXPECT_EQ(late.objects, early.objects);
    EXPECT_EQ(late.descriptors, early.descriptors);
#ifndef __SANITIZE_ADDRESS__     // which keeps what is given back
    constexpr long kMost = 1024; // kilobytes, for all of them
    EXPECT_LT(late.memory.asked - early.memory.asked, kMost);
#endif
}
