#include "platform/base/Clock.h"
#include "platform/richtext/RtfReader.h"
#include "platform/widgets/Grid.h"
#include "session/SessionState.h"
#include "session/g0Items.h"
#include "worksheets/TopicTest.h"

#include <functional>

namespace {

/// Sees every use of a mouse.
class MouseWatch : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        used = used || event->type() == QEvent::MouseButtonPress;
        return false;
    }
    bool used = false;
};

/// The essential parts of the way to a decision, by keyboard alone.
class RoadByKeys : public TopicTest
{
protected:
    RoadByKeys()
    {
        qApp->installEventFilter(&m_watch);
        platform::SetClock([] { return platform::LocalTime{2006, 8, 21, 7, 42, 9}; });
    }
    ~RoadByKeys() override { platform::SetClock({}); }

    /// To whatever has the focus, else to the window.
    void Strike(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget* focused = QApplication::focusWidget();
        QTest::keyClick(focused == nullptr ? window.get() : focused, key, modifiers);
        QCoreApplication::processEvents();
    }
    /// The next worksheet; the keys lead into it, to its first control or the one that it prefers.
    void Arrive(const char* tab, const char* control)
    {
        Strike(Qt::Key_PageDown, Qt::ControlModifier);
        ExpectIn(tab, control);
    }
    /// The same by the digit of an entry of the Worksheet menu.
    void ArriveByMenu(Qt::Key digit, const char* tab, const char* control)
    {
        Strike(Qt::Key_W, Qt::AltModifier);
        QTest::keyClick(Menu("mnuWorksheet"), digit);
        QCoreApplication::processEvents();
        ExpectIn(tab, control);
    }
    static void ExpectIn(const char* tab, const char* control)
    {
        EXPECT_EQ(gCurrentTab, tab);
        EXPECT_EQ(Focused(), control) << tab;
    }
    void NextSection() { Strike(Qt::Key_PageDown, Qt::ControlModifier | Qt::ShiftModifier); }
    /// Texts for one field after the other, each ended by Enter.
    void Fill(const std::vector<const char*>& texts)
    {
        for (const char* text : texts) {
            Keys(text);
            Strike(Qt::Key_Return);
        }
    }
    /// A button by its letter, which on the start form shows its press for a moment; until that is done.
    void StrikeLetter(Qt::Key letter, const std::function<bool()>& done)
    {
        Strike(letter, Qt::AltModifier);
        ASSERT_TRUE(QTest::qWaitFor(done)) << static_cast<char>(letter);
    }
    platform::Grid& GridOf(const char* name) { return *Find<platform::Grid>(name); }

    void MakeFile()
    {
        OpenSample("granite-fork-complex"); // its keys are the highest, and keys go on from file to file
        g0Items::LastItemKey();
        Close();
        Start();
        path = folder.File("Road.qel");
        desktop.ExpectFile("Create new VEXA Plus file", path);
        StrikeLetter(Qt::Key_N, [] { return gCurrentTab == "tab11"; });
        m_lastItemKey = g0Items::LastItemKey();
    }
    void Describe()
    {
        Arrive("tab22", "txtVEXA");
        Fill({"VX-1", "Elk Ridge", "MT-4", "08/19/2006", "1530", "08/21/2006"});
        ArriveByMenu(Qt::Key_3, "tab23", "lstTopics");
        Strike(Qt::Key_Down);
        TabTo("txtBody");
        Keys("Steep.");
        Strike(Qt::Key_Return);
        Strike(Qt::Key_B, Qt::ControlModifier);
        Keys("Two roads.");
    }
    void NameAnIssue()
    {
        NextSection();
        Arrive("tab32", "txtName");
        StrikeLetter(Qt::Key_A, [this] { return GridOf("Grid1").Rows() == 3; });
        Keys("Snags");
        TabTo("txtBody");
        Keys("Burned roots.");
    }
    void AddAlternatives()
    {
        NextSection();
        Arrive("tab42", "lstAlternatives");
        AddAlternative(1, "Direct line", "Crews on all flanks.");
        AddAlternative(2, "Confine", "Burn out.");
    }
    void AddAlternative(Long count, const char* name, const char* body)
    {
        const auto& list = *Find<platform::ListBox>("lstAlternatives");
        StrikeLetter(Qt::Key_A, [&] { return list.ListCount() == count; });
        Keys(name);
        TabTo("txtBody");
        Keys(body);
    }
    void PredictOutcomes()
    {
        Arrive("tab43", "grdOutcomes");
        Predict("900", "6", "10");
        Predict("2500", "12", "20");
        Predict("12000", "30", "45");
    }
    void Predict(const char* size, const char* contain, const char* control)
    {
        TabTo("txtSize");
        Fill({size, contain, control}); // Enter in the last box leads nowhere
        TabTo("grdOutcomes", Qt::Key_Backtab);
        Strike(Qt::Key_Down);
    }
    void GiveProbabilities()
    {
        Arrive("tab44", "lstAlternatives");
        TabTo("txtSuccess1");
        Keys("80");
        TabTo("lstAlternatives", Qt::Key_Backtab);
        Strike(Qt::Key_Down);
        TabTo("txtSuccess1");
        Keys("60");
    }
    void RateAll()
    {
        NextSection();
        Arrive("tab52", "lstObjectives");
        TabTo("Grid1");
        Fill({"8", "6", "3"});
        Arrive("tab53", "lstObjectives");
        for (int objective = 0; objective < 4; ++objective) {
            TabTo("Grid1");
            Fill({"5.5", "7", "2"});
            TabTo("lstObjectives", Qt::Key_Backtab);
            Strike(Qt::Key_Down);
        }
    }
    void Lose()
    {
        Arrive("tab54", "grdItems");
        StrikeLetter(Qt::Key_A, [this] { return GridOf("grdItems").Rows() == 2; });
        Keys("Lodge");
        Strike(Qt::Key_Return);
        TabTo("grdImpacts");
        TypeLosses({"5000", "7000"});
    }
    void TypeLosses(const std::vector<const char*>& losses)
    {
        Strike(Qt::Key_Home, Qt::ControlModifier);
        Strike(Qt::Key_End);
        Fill(losses);
    }
    void PriceAndDecide()
    {
        Arrive("tab56", "grdOutcomes");
        Strike(Qt::Key_Down);
        TabTo("txtAdjustedCost");
        Keys("250000");
        NextSection();
        Arrive("tab63", "cboAlternative_1");
        Arrive("tab65", "txtBody");
        TabTo("cboAlternatives", Qt::Key_Backtab);
        Strike(Qt::Key_End);
        TabTo("lstTopics");
        Strike(Qt::Key_Down);
        Keys("Safer.");
    }
    void LeaveByMenu()
    {
        Strike(Qt::Key_F, Qt::AltModifier);
        ASSERT_TRUE(Menu("mnuFile")->isVisible());
        QTest::keyClick(Menu("mnuFile"), Qt::Key_X);
        ASSERT_TRUE(QTest::qWaitFor([] { return !gDatabaseOpen; }));
    }
    support::Rows Ask(const std::string& sql) { return support::QuerySql(path, sql); }

    Long m_lastItemKey = 0;
    MouseWatch m_watch;
};

TEST_F(RoadByKeys, EmptyFileToDecision_NoMouseIsNeeded)
{
    MakeFile();
    Describe();
    NameAnIssue();
    AddAlternatives();
    PredictOutcomes();
    GiveProbabilities();
    RateAll();
    Lose();
    PriceAndDecide();
    LeaveByMenu();
    EXPECT_FALSE(m_watch.used);
    const std::string a = std::to_string(m_lastItemKey + 1);
    const std::string b = std::to_string(m_lastItemKey + 2);
    const std::string lodge = std::to_string(m_lastItemKey + 3);
    EXPECT_EQ(Ask("SELECT Body FROM Items WHERE ItemKey IN (11, 52, 61, 62, 221) ORDER BY ItemKey"),
              (support::Rows{{"Elk Ridge"}, {"MT-4"}, {"08/19/2006"}, {"1530"}, {"VX-1"}}));
    EXPECT_EQ(
        platform::richtext::RtfToPlainText(Ask("SELECT Body FROM Items WHERE ItemKey = 232").at(0).at(0)),
        "Steep.\nTwo roads.");
    EXPECT_EQ(Ask("SELECT Name FROM Objectives WHERE ParentKey = 2"), (support::Rows{{"Snags"}}));
    EXPECT_EQ(Ask("SELECT ItemKey, ParentKey, FireSize, ContainTime, ControlTime, Success, AdjustedCost, "
                  "CostSource "
                  "FROM Outcomes WHERE Success >= 0 ORDER BY ItemKey"),
              (support::Rows{{"1", "0", "12000.0", "30", "45", "0.0", "0", "1"},
                             {"2", a, "900.0", "6", "10", "80.0", "0", "1"},
                             {"4", b, "2500.0", "12", "20", "60.0", "250000", "8"}}));
    EXPECT_EQ(
        Ask("SELECT OutcomeKey, group_concat(CAST(Value AS TEXT), ' ') FROM Scores GROUP BY OutcomeKey"),
        (support::Rows{
            {"1", "2.0 2.0 2.0 2.0 3.0"}, {"2", "5.5 5.5 5.5 5.5 8.0"}, {"4", "7.0 7.0 7.0 7.0 6.0"}}));
    EXPECT_EQ(Ask("SELECT * FROM ItemImpacts"), (support::Rows{{"2", lodge, "5000"}, {"4", lodge, "7000"}}));
    EXPECT_EQ(Ask("SELECT Value FROM Properties WHERE Property = 'SelectedAlternativeKey'"),
              support::Rows{{b}});
    EXPECT_EQ(
        platform::richtext::RtfToPlainText(Ask("SELECT Body FROM Items WHERE ItemKey = 292").at(0).at(0)),
        "Safer.");
}

TEST_F(RoadByKeys, LetterOfAButton_ActsAheadOfTheNextKey)
{
    MakeFile();
    NextSection();
    Arrive("tab32", "txtName");
    Strike(Qt::Key_A, Qt::AltModifier);
    Keys("Steep ground");
    EXPECT_EQ(GridOf("Grid1").Text(1, 0), "Safety");
    EXPECT_EQ(GridOf("Grid1").Text(2, 0), "    Steep ground");
}

} // namespace
