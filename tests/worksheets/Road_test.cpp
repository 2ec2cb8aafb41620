#include "model/g51Alternatives.h"
#include "platform/base/Formats.h"
#include "platform/widgets/ListBox.h"
#include "platform/widgets/RichTextEdit.h"
#include "worksheets/Road.h"
#include "worksheets/RoadFigures.h"
#include "worksheets/RoadFile.h"
#include "worksheets/Worksheet.h"
#include "worksheets/WorksheetTable.h"

#include <QLabel>
#include <QTabBar>
#include <QToolButton>

#include <gmock/gmock.h>

using platform::Format;
using ::testing::ElementsAre;
using ::testing::StartsWith;

namespace {

// Rows of the resources that every new file lists, from 0.
enum Resource : Long { CrewT1 = 0, EngineT3 = 4, LoadLAT = 24, Overhead = 30, Mules = 35 };

/// From an empty file through all sixteen worksheets to a decision, by mouse and keys.
class RoadByMouse : public Road
{
protected:
    /// The outcomes by their rows in every grid; hides those of the sample.
    enum Outcome : Long { ATarget = 1, BTarget = 2, Extreme = 3 };

    // ---- Situation
    void MakeFile()
    {
        ExpectNewFile();
        Start();
        Press("cmdNew");
        ASSERT_EQ(Caption(), "VEXA Basic:  [Road.qel]  New");
        NoteItemKeys();
    }
    void FillGeneral()
    {
        Visit(2, 2);
        Write("txtVEXA", "VX-06-117");
        Write("txtName", "Elk Ridge");
        Write("txtIncident", "MT-BRF-0412");
        Write("txtStartDate", "08/19/2006");
        Write("txtStartTime", "1530");
        Write("txtJurisdiction", "Bitter Root County");
        Write("txtArea", "Northern Rockies");
        Write("txtUnit", "West Fork");
        Write("txtCode", "P1-C7Q2");
        Write("txtFireSize", "340");
        EXPECT_EQ(Caption(), "VEXA Basic:  [Road.qel]  Elk Ridge");
    }
    void WriteConditions()
    {
        Visit(2, 3);
        Write("txtBody", "Lodgepole with ");
        GridHands::Key(Qt::Key_B, Qt::ControlModifier);
        Type("much dead");
        GridHands::Key(Qt::Key_B, Qt::ControlModifier);
        Type(" timber:");
        GridHands::Key(Qt::Key_Return);
        ClickOn(*Find<QToolButton>("cmdBullets"));
        Type("slash");
        GridHands::Key(Qt::Key_Return);
        Type("dry grass");
        ClickRow(List("lstTopics"), 1);
        EXPECT_EQ(Body().Text(), "");
        ClickRow(List("lstTopics"), 0);
        EXPECT_EQ(Body().Text(), "Lodgepole with much dead timber:\nslash\ndry grass");
    }
    void AddTopic()
    {
        Press("cmdNewTopic");
        EXPECT_TRUE(Find<QWidget>("txtHeading")->hasFocus());
        Type("Access");
        EXPECT_EQ(List("lstTopics").List(8), "Access");
        Write("txtBody", "One bridge, eight tons.");
    }

    // ---- Objectives
    void NameSafetyIssues()
    {
        Visit(3, 2);
        AddIssue("Snags", "Burned roots.");
        AddIssue("Steep ground", "Rolling rocks.");
        EXPECT_THAT(GridHands(GridOf("Grid1")).Column(0),
                    ElementsAre("Safety", "    Snags", "    Steep ground"));
    }
    void AddIssue(const char* name, const char* description)
    {
        Press("cmdAdd");
        EXPECT_TRUE(Find<QWidget>("txtName")->hasFocus());
        Type(name);
        Write("txtBody", description);
    }
    void DescribeObjectives()
    {
        Visit(3, 3);
        Write("txtBody", "Nine homes.");
        GridHands(GridOf("Grid1")).Click(4, 0);
        EXPECT_EQ(Find<QLineEdit>("txtName")->text(), QStringLiteral("Feasibility"));
        Write("txtBody", "Crews by Friday.");
    }

    // ---- Alternatives
    void AddAlternatives()
    {
        Visit(4, 2);
        AddAlternative("Direct line", "Crews on all flanks.");
        AddAlternative("Confine to the ridge", "Burn out from the roads.");
        EXPECT_EQ(List("lstAlternatives").List(0), "A. Direct line");
        EXPECT_EQ(List("lstAlternatives").List(1), "B. Confine to the ridge");
    }
    void AddAlternative(const char* name, const char* body)
    {
        Press("cmdAdd");
        EXPECT_TRUE(Find<QWidget>("txtName")->hasFocus());
        Type(name);
        Write("txtBody", body);
    }
    void PredictOutcomes()
    {
        Visit(4, 3);
        Predict(ATarget, {"900", "6", "10"}, "Held at the creek.");
        Predict(BTarget, {"2,500", "12", "20"}, "Held at the ridge road.");
        Predict(Extreme, {"12000", "30", "45"}, "Runs to the valley.");
        EXPECT_EQ(GridOf("grdOutcomes").Value(BTarget, 2), 2500.0);
    }
    struct Prediction
    {
        const char* size;
        const char* contain;
        const char* control;
    };
    void Predict(Outcome row, const Prediction& outcome, const char* description)
    {
        GridHands(GridOf("grdOutcomes")).Click(row, 0);
        Write("txtSize", outcome.size);
        Write("txtContain", outcome.contain);
        Write("txtControl", outcome.control);
        Write("txtBody", description);
    }
    void GiveProbabilities()
    {
        Visit(4, 4);
        Write("txtSuccess1", "80");
        Write("txtRationale1", "Light winds.");
        ClickRow(List("lstAlternatives"), 1);
        Write("txtSuccess1", "60");
        Write("txtRationale1", "Roads are wide.");
        EXPECT_EQ(LabelText("lblFailure_1"), "40");
        EXPECT_EQ(LabelText("lblSize_3"), "12000");
    }

    // ---- Analysis
    GridHands Ratings() { return GridHands(GridOf("Grid1")); }
    void Rate(const char* a, const char* b, const char* extreme)
    {
        Ratings().Type(ATarget, 3, a);
        Ratings().Type(BTarget, 3, b);
        Ratings().Type(Extreme, 3, extreme);
    }
    void RateSafety()
    {
        Visit(5, 2);
        Rate("8", "6", "3");
        Ratings().Click(BTarget, 1);
        EXPECT_EQ(LabelText("lblOutcome"), "B. Confine to the ridge Target");
        Write("txtRating", "Fallers ahead of crews.");
        ClickRow(List("lstObjectives"), 2);
        EXPECT_EQ(LabelText("lblCriterion"), "Steep ground");
        Rate("7", "7", "2");
    }
    void RateObjectives()
    {
        Visit(5, 3);
        Rate("5.5", "6", "2");
        EXPECT_EQ(Ratings().BarSays(ATarget, 4), "55 %");
        Ratings().Drag(ATarget, 4, 0.55, 0.82);
        EXPECT_EQ(Ratings().Text(ATarget, 3), "8"); // a drag gives whole numbers
        RateObjective(1, "7", "8", "3");
        RateObjective(2, "6", "7", "1");
        RateObjective(3, "5.5", "9", "4");
    }
    void RateObjective(Long row, const char* a, const char* b, const char* extreme)
    {
        ClickRow(List("lstObjectives"), row);
        Rate(a, b, extreme);
    }
    void EnterLosses()
    {
        Visit(5, 4);
        NameItem("Ridge lodge");
        Lose(ATarget, "5000");
        Lose(BTarget, "7000");
        NameItem("Fences");
        Lose(BTarget, "1,500"); // read up to its comma
        Lose(Extreme, "40000");
        EXPECT_EQ(Losses(), (std::vector<std::string>{"$0", "$1", "$40,000"}));
        GridHands(GridOf("grdItems")).Click(1, 0);
        EXPECT_EQ(Losses(), (std::vector<std::string>{"$5,000", "$7,000", "$0"}));
    }
    void NameItem(const char* name)
    {
        Press("cmdAddItem");
        Type(name);
        EXPECT_EQ(LabelText("lblCriterion"), name);
    }
    void Lose(Outcome row, const char* dollars)
    {
        GridHands(GridOf("grdImpacts")).Type(row, 3, dollars);
        GridHands::Key(Qt::Key_Return);
    }
    std::vector<std::string> Losses()
    {
        const GridHands losses(GridOf("grdImpacts"));
        return {losses.Shown(ATarget, 3), losses.Shown(BTarget, 3), losses.Shown(Extreme, 3)};
    }

    // ---- Costs
    void EstimateCosts()
    {
        Visit(5, 5);
        InCostPerAcre([this] { FillCostPerAcre(); });
        BackInWindow();
        GridHands(Outcomes()).Click(BTarget, 0);
        MarkOption("optSRUse");
        InResources([this] { ListResources(); });
        BackInWindow();
        GridHands(Outcomes()).Click(Extreme, 0);
        Write("txtAdjustedCost", "4,200,000");
        Write("txtCostRationale", "As the fire of 2000.");
        GridHands(Outcomes()).Click(BTarget, 0);
        Write("txtCostRationale", "By the order list.");
        costsShown = GridHands(Outcomes()).Column(kCost);
        EXPECT_THAT(costsShown, ElementsAre("180,000", "559,000", "4,200,000"));
        EXPECT_EQ(LabelText("lblSize"), "225,000");
        EXPECT_EQ(LabelText("lblSRUse"), "559,000");
    }
    void FillCostPerAcre()
    {
        GridHands costs(GridIn("grdCosts"));
        costs.Type(2, 1, "1000");
        costs.Type(2, 2, "200");
        EXPECT_EQ(costs.Text(3, 0), "1001");
        costs.Type(3, 2, "90");
        perAcreShown = GridHands(GridIn("grdOutcomes")).Column(3);
        bySizeShown = GridHands(GridIn("grdOutcomes")).Column(4);
        EXPECT_THAT(perAcreShown, ElementsAre("200", "90", "90"));
        EXPECT_THAT(bySizeShown, ElementsAre("180,000", "225,000", "1,080,000"));
    }
    void ListResources()
    {
        GridHands(GridIn("grdOutcomes")).Click(BTarget, 0);
        AddLine(CrewT1, "2", "10");
        AddLine(EngineT3, "5", "12");
        AddLine(LoadLAT, "3", nullptr);
        AddLine(Overhead, "9", "9");
        NewMules();
        AddLine(Mules, "4", "8");
        MoveLoadsToTheTop();
        DeleteOverhead();
        totalOfB = In<QLabel>("pnlCost").text().toStdString();
        EXPECT_EQ(totalOfB, "$558,800");
        CopyToA();
    }
    GridHands Uses() { return GridHands(GridIn("grdSRList")); }
    /// An entry of the master list; its periods too, unless it is counted by the piece.
    void AddLine(Resource resource, const char* quantity, const char* periods)
    {
        ClickRow(In<platform::ListBox>("lstSRMaster"), resource);
        Type(quantity);
        if (periods == nullptr) return;
        GridHands::Key(Qt::Key_Tab);
        Type(periods);
    }
    void NewMules()
    {
        Click("cmdAddItem");
        Type("Mule string with packer");
        WriteIn(In<QWidget>("txtShortName"), "Mules");
        WriteIn(In<QWidget>("txtUnits"), "days");
        WriteIn(In<QWidget>("txtCost"), "900");
        Click("cmdOK");
    }
    void MoveLoadsToTheTop()
    {
        Uses().Type(3, 0, "1");
        GridHands::Key(Qt::Key_Return);
        EXPECT_THAT(Uses().Column(2), ElementsAre("Load LAT", "Crew T1", "Engine T3", "Overhead", "Mules"));
    }
    void DeleteOverhead()
    {
        Uses().Click(4, 2);
        Click("cmdDelete");
        EXPECT_THAT(Uses().Column(0), ElementsAre("1", "2", "3", "4"));
        EXPECT_THAT(Uses().Column(5), ElementsAre("36000", "260000", "234000", "28800"));
    }
    void CopyToA()
    {
        GridHands(GridIn("grdOutcomes")).Click(ATarget, 0);
        auto& tabs = In<QTabBar>("TabStrip1");
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
        GridHands(GridIn("grdLists")).Click(1, 0);
        Click("cmdCopy");
        EXPECT_THAT(Uses().Column(2), ElementsAre("Load LAT", "Crew T1", "Engine T3", "Mules"));
        Uses().Type(2, 3, "6");
        totalOfA = In<QLabel>("pnlCost").text().toStdString();
        EXPECT_EQ(totalOfA, "$454,800");
    }

    // ---- Comparison and report
    void LookAtTrees()
    {
        Visit(6, 2);
        treeA = TreeShown(1);
        treeB = TreeShown(2);
        EXPECT_EQ(treeA,
                  "A. Direct line\n"
                  "Expected Objectives Score:  5.8\nExpected Safety Score:  6.5\n"
                  "Expected Cost:  $980,000\nExpected Loss:  $12,000\n80%\n20%\n"
                  "Target Outcome\nSize:  900 acres. Control: 10 days\n"
                  "Objectives Score:  6.6\nSafety Score:  7.5\n"
                  "Estimated Cost:  $180,000\nEstimated Loss:  $5,000\n"
                  "Extreme Outcome\nSize:  12000 acres. Control: 45 days\n"
                  "Objectives Score:  2.5\nSafety Score:  2.5\n"
                  "Estimated Cost:  $4,200,000\nEstimated Loss:  $40,000");
        EXPECT_THAT(treeB,
                    StartsWith("B. Confine to the ridge\n"
                               "Expected Objectives Score:  5.5\nExpected Safety Score:  4.9\n"
                               "Expected Cost:  $2,000,000\nExpected Loss:  $20,000\n60%\n40%\n"
                               "Target Outcome\nSize:  2500 acres. Control: 20 days\n"
                               "Objectives Score:  7.5\nSafety Score:  6.5\n"
                               "Estimated Cost:  $559,000\nEstimated Loss:  $7,001\n"));
    }
    void Decide()
    {
        Visit(6, 3);
        EXPECT_EQ(LabelText("lblLeastCost"), "A. Direct line");
        EXPECT_EQ(Body().Text(), "");
        Choose(*Find<QComboBox>("cboAlternatives"), 1);
        EXPECT_EQ(Body().Text(), "Burn out from the roads.\n\nHeld at the ridge road.");
        ClickOn(Body());
        GridHands::Key(Qt::Key_End, Qt::ControlModifier);
        Type(" As agreed.");
        ClickRow(List("lstTopics"), 1);
        Write("txtBody", "Safer, though it costs more.");
    }
    void AddSummaryTopic()
    {
        Visit(7, 2);
        EXPECT_EQ(LabelText("lblAlternative"), "B. Confine to the ridge");
        Press("cmdNewTopic");
        Type("Smoke");
        Write("txtBody", "Call the health office.");
    }
    void LookAtReport()
    {
        Visit(7, 3);
        EXPECT_EQ(gCurrentTab, "tab83");
    }

    void Travel()
    {
        MakeFile();
        FillGeneral();
        WriteConditions();
        AddTopic();
        NameSafetyIssues();
        DescribeObjectives();
        AddAlternatives();
        PredictOutcomes();
        GiveProbabilities();
        RateSafety();
        RateObjectives();
        EnterLosses();
        EstimateCosts();
        LookAtTrees();
        Decide();
        AddSummaryTopic();
        LookAtReport();
        window->close();
    }
    void CheckAllWereVisited()
    {
        std::set<std::string> all;
        for (const WorksheetEntry& worksheet : ::Worksheets())
            all.insert(worksheet.key);
        EXPECT_EQ(all.size(), 16U);
        EXPECT_EQ(visited, all);
    }

    void CheckFigures(const RoadFigures& a, const RoadFigures& b)
    {
        EXPECT_EQ(a.TreeWords(), treeA);
        EXPECT_EQ(b.TreeWords(), treeB);
        EXPECT_THAT(costsShown,
                    ElementsAre(Format(a.target.cost, "#,0"),
                                Format(b.target.cost, "#,0"),
                                Format(a.extreme.cost, "#,0")));
        EXPECT_THAT(perAcreShown,
                    ElementsAre(Format(a.target.costPerAcre, "#,0"),
                                Format(b.target.costPerAcre, "#,0"),
                                Format(a.extreme.costPerAcre, "#,0")));
        EXPECT_THAT(bySizeShown,
                    ElementsAre(Format(a.target.costBySize, "#,0"),
                                Format(b.target.costBySize, "#,0"),
                                Format(a.extreme.costBySize, "#,0")));
        EXPECT_EQ(Format(a.target.linesTotal, "$#,0"), totalOfA);
        EXPECT_EQ(Format(b.target.linesTotal, "$#,0"), totalOfB);
    }

    std::vector<std::string> perAcreShown;
    std::vector<std::string> bySizeShown;
    std::vector<std::string> costsShown;
    std::string totalOfA;
    std::string totalOfB;
    std::string treeA;
    std::string treeB;
};

TEST_F(RoadByMouse, EmptyFileToDecision_AllOfItStandsInTheFile)
{
    Travel();
    CheckAllWereVisited();
    const RoadFile file(path, LastItemKey());
    file.CheckItems();
    file.CheckLooksOfConditions();
    file.CheckObjectives();
    file.CheckScores();
    file.CheckOutcomes();
    file.CheckLosses();
    file.CheckCosts();
    file.CheckTheRest();
    const QJsonObject document = EvaluatedByCompanion(path, folder.Path());
    const RoadFigures a = RoadFigures::OfDocument(document, 0);
    const RoadFigures b = RoadFigures::OfDocument(document, 1);
    CheckFigures(a, b);
    Open(path);
    EXPECT_EQ(RoadFigures::OfModel(*g51Alternatives::AlternativeCollection().At(1)), a);
    EXPECT_EQ(RoadFigures::OfModel(*g51Alternatives::AlternativeCollection().At(2)), b);
}

} // namespace
