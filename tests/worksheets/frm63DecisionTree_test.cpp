#include "model/c53Outcome.h"
#include "model/g51Alternatives.h"
#include "session/SessionState.h"
#include "session/UIMode.h"
#include "worksheets/DecisionTreePicture.h"
#include "worksheets/WindowTest.h"
#include "worksheets/frm63DecisionTree.h"

#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QScrollBar>
#include <QSplitter>
#include <QTest>

#include <gmock/gmock.h>

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

constexpr const char* kNone =
    "There are no alternatives yet. Add one on the worksheet Identify Alternatives of the "
    "section Alternatives.";
constexpr const char* kCannotBeDrawn = "The tree of this alternative cannot be drawn because one of its "
                                       "figures cannot be read. Check its outcomes on the "
                                       "worksheet Outcomes of the section Alternatives.";
constexpr const char* kNoExtremeRow = "DELETE FROM Outcomes WHERE ParentKey = 0";
constexpr const char* kOnlyB = "DELETE FROM Items WHERE ParentKey = 26 AND ItemName <> 'B'";

class DecisionTreeWorksheet : public WindowTest
{
protected:
    /// The worksheet with a sample's alternatives, reached as a user reaches it.
    void ShowSample(const std::string& sql = {}, const std::string& name = "smith-creek")
    {
        StartWithSample(name, sql);
        GoTo(6, 2);
        QCoreApplication::processEvents();
        ASSERT_EQ(gCurrentTab, "tab63");
    }
    void Resize(int width, int height)
    {
        window->resize(width, height);
        QCoreApplication::processEvents();
    }
    QComboBox& Combo(int index) { return *Find<QComboBox>(Name("cboAlternative_", index).c_str()); }
    DecisionTreePicture& Picture(int index)
    {
        return *Find<DecisionTreePicture>(Name("picDecisionTree_", index).c_str());
    }
    std::string Description(int index) { return Picture(index).accessibleDescription().toStdString(); }
    void Press(QWidget& widget, Qt::Key key)
    {
        widget.setFocus();
        QTest::keyClick(&widget, key);
        QCoreApplication::processEvents();
    }
    void ExpectExtremeFailure() { ExpectReport("No outcome 1 of alternative 0: There is no row to move to"); }

private:
    static std::string Name(const std::string& control, int index) { return control + std::to_string(index); }
};

TEST_F(DecisionTreeWorksheet, Setup_FirstAndSecondAlternative)
{
    ShowSample();
    EXPECT_EQ(Combo(1).currentText().toStdString(), "A. Full perimeter control");
    EXPECT_EQ(Combo(2).currentText().toStdString(), "B. Confine on Wagon Road and Divide Ridge");
    EXPECT_EQ(Combo(1).count(), 3);
    EXPECT_EQ(Combo(2).count(), 3);
    EXPECT_THAT(Description(1), StartsWith("A. Full perimeter control\nExpected Objectives Score:  4.8\n"));
    EXPECT_THAT(Description(2),
                StartsWith("B. Confine on Wagon Road and Divide\nExpected Objectives Score:  6.3\n"));
    EXPECT_TRUE(Picture(2).isVisible());
}

TEST_F(DecisionTreeWorksheet, Setup_TracesAndChecksItsEntry)
{
    ShowSample();
    EXPECT_THAT(Lines(), Contains(HasSubstr("frm63DecisionTree.Setup")));
    EXPECT_TRUE(Entry("mnuWorksheet", 2)->isChecked());
    EXPECT_TRUE(Menu("mnuEdit")->isEnabled());
    EXPECT_TRUE(UIMode::NotBusy());
}

TEST_F(DecisionTreeWorksheet, OneAlternative_SecondPictureHiddenAndItsComboEmpty)
{
    ShowSample(kOnlyB);
    EXPECT_THAT(Description(1), StartsWith("B. Confine on"));
    EXPECT_TRUE(Picture(2).isHidden());
    EXPECT_EQ(Combo(2).count(), 0);
    EXPECT_TRUE(Combo(2).isVisible());
    EXPECT_FALSE(Combo(2).toolTip().isEmpty());
}

TEST_F(DecisionTreeWorksheet, ManyAlternatives_AllToChooseFrom)
{
    ShowSample({}, "granite-fork-complex");
    EXPECT_EQ(Combo(1).count(), 6);
    EXPECT_EQ(Combo(1).currentIndex(), 0);
    EXPECT_EQ(Combo(2).currentIndex(), 1);
    Press(Combo(2), Qt::Key_End);
    EXPECT_THAT(Description(2), StartsWith("F. Minimum response"));
}

TEST_F(DecisionTreeWorksheet, ChoosingByKeys_RedrawsThatPanelOnly)
{
    ShowSample();
    const std::string second = Description(2);
    Press(Combo(1), Qt::Key_Down);
    EXPECT_THAT(Description(1), StartsWith("B. Confine on"));
    Press(Combo(1), Qt::Key_Down);
    EXPECT_THAT(Description(1), StartsWith("C. Monitor with point protection\n"));
    EXPECT_EQ(Description(2), second);
    Press(Combo(2), Qt::Key_Up);
    EXPECT_THAT(Description(2), StartsWith("A. Full perimeter control\n"));
}

TEST_F(DecisionTreeWorksheet, ChoosingAgain_ShowsTheModelAsItIsNow)
{
    ShowSample();
    g51Alternatives::AlternativeCollection().At(1)->Outcome(1)->SetSuccess(10);
    EXPECT_THAT(Description(1), HasSubstr("\n55%\n45%\n"));
    Press(Combo(1), Qt::Key_Down);
    Press(Combo(1), Qt::Key_Up);
    EXPECT_THAT(Description(1), HasSubstr("\n10%\n90%\n"));
}

TEST_F(DecisionTreeWorksheet, NoAlternatives_SentenceAndNoError)
{
    StartWithNewFile();
    GoTo(6, 2);
    EXPECT_EQ(Description(1), kNone);
    EXPECT_TRUE(Picture(1).Tree().IsEmpty());
    EXPECT_TRUE(Picture(2).isHidden());
    EXPECT_EQ(Combo(1).count(), 0);
    EXPECT_FALSE(Combo(1).isEnabled());
    EXPECT_EQ(Combo(1).toolTip().toStdString(), kNone);
}

TEST_F(DecisionTreeWorksheet, ExtremeRowMissing_ToldOnceAndNeverFromPainting)
{
    ExpectExtremeFailure();
    ShowSample(kNoExtremeRow);
    EXPECT_EQ(Description(1), kCannotBeDrawn);
    EXPECT_EQ(Description(2), kCannotBeDrawn);
    EXPECT_TRUE(UIMode::NotBusy());
    for (int i = 0; i < 5; ++i) {
        Picture(1).repaint();
        Picture(1).grab();
        Resize(900 + i, 700);
    }
}

TEST_F(DecisionTreeWorksheet, ExtremeRowMissing_EachChoiceIsTold)
{
    ExpectExtremeFailure();
    ShowSample(kNoExtremeRow);
    ExpectExtremeFailure();
    Press(Combo(1), Qt::Key_Down);
    EXPECT_EQ(Combo(1).currentIndex(), 1);
    EXPECT_EQ(Description(1), kCannotBeDrawn);
}

TEST_F(DecisionTreeWorksheet, OneBadAlternative_TheOtherIsDrawn)
{
    const std::string ofA = "(SELECT ItemKey FROM Items WHERE ParentKey = 26 AND ItemName = 'A')";
    // A Success no complement of which fits.
    ExpectReport("Overflow: 32-bit difference");
    ShowSample("UPDATE Outcomes SET Success = -2147483648 WHERE ChildIndex = 1 AND ParentKey = " + ofA);
    EXPECT_EQ(Description(1), kCannotBeDrawn);
    EXPECT_THAT(Description(2), StartsWith("B. Confine on"));
    Press(Combo(1), Qt::Key_Down);
    EXPECT_THAT(Description(1), StartsWith("B. Confine on"));
}

TEST_F(DecisionTreeWorksheet, Painting_AsksNoFile)
{
    ShowSample();
    const QImage before = Picture(1).grab().toImage();
    Close();
    EXPECT_EQ(Picture(1).grab().toImage(), before);
}

TEST_F(DecisionTreeWorksheet, Picture_ScrollsByKeysWhereItDoesNotFit)
{
    ShowSample();
    Resize(640, 480);
    DecisionTreePicture& picture = Picture(2);
    const QScrollBar& across = *picture.horizontalScrollBar();
    const QScrollBar& down = *picture.verticalScrollBar();
    ASSERT_GT(across.maximum(), 0);
    ASSERT_GT(down.maximum(), 0);
    Press(picture, Qt::Key_Right);
    EXPECT_GT(across.value(), 0);
    Press(picture, Qt::Key_Down);
    EXPECT_GT(down.value(), 0);
    Press(picture, Qt::Key_End);
    EXPECT_EQ(across.value(), across.maximum());
    EXPECT_EQ(down.value(), down.maximum());
    Press(picture, Qt::Key_Home);
    EXPECT_EQ(across.value(), 0);
    EXPECT_EQ(down.value(), 0);
}

TEST_F(DecisionTreeWorksheet, Picture_ReachedByTab)
{
    ShowSample();
    Press(Combo(1), Qt::Key_Tab);
    EXPECT_TRUE(Picture(1).hasFocus());
    Press(Picture(1), Qt::Key_Tab);
    EXPECT_TRUE(Combo(2).hasFocus());
}

TEST_F(DecisionTreeWorksheet, Pictures_OneSizeForBoth)
{
    ShowSample();
    for (int width = 808; width < 1600; width += 91) {
        Resize(width, width * 5 / 8);
        EXPECT_EQ(Picture(1).Scale().across, Picture(2).Scale().across) << width;
        EXPECT_EQ(Picture(1).Scale().font, Picture(2).Scale().font) << width;
        EXPECT_GE(Picture(1).Scale().font.pointSizeF(), window->font().pointSizeF()) << width;
    }
}

TEST_F(DecisionTreeWorksheet, SmallestWindow_TreesWithoutFallbackAreWhole)
{
    ShowSample();
    window->setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
    Press(Combo(2), Qt::Key_End);
    Resize(800, 600);
    for (const int index : {1, 2}) {
        EXPECT_EQ(Picture(index).horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(Picture(index).verticalScrollBar()->maximum(), 0);
    }
}

TEST_F(DecisionTreeWorksheet, LargerFont_LargerTree)
{
    ShowSample();
    const double before = Picture(1).Scale().across;
    QFont font = window->font();
    font.setPointSizeF(2 * font.pointSizeF());
    window->setFont(font);
    QCoreApplication::processEvents();
    EXPECT_GE(Picture(1).Scale().font.pointSizeF(), font.pointSizeF());
    EXPECT_GT(Picture(1).Scale().across, before);
}

TEST_F(DecisionTreeWorksheet, Panels_SideBySideWhereTwoWholeTreesCanBeRead)
{
    ShowSample();
    const QSplitter& splitter = *Find<frm63DecisionTree>("frm63DecisionTree")->findChild<QSplitter*>();
    Resize(1600, 1000);
    EXPECT_EQ(splitter.orientation(), Qt::Vertical);
    Resize(3 * Picture(2).FullTreeWidth(), 1000);
    EXPECT_EQ(splitter.orientation(), Qt::Horizontal);
    EXPECT_GE(Picture(1).width(), Picture(1).FullTreeWidth());
    Resize(808, 608);
    EXPECT_EQ(splitter.orientation(), Qt::Vertical);
}

TEST_F(DecisionTreeWorksheet, ScreenReader_NamesLabelsAndTexts)
{
    ShowSample();
    for (const int index : {1, 2}) {
        EXPECT_FALSE(Picture(index).accessibleName().isEmpty());
        EXPECT_EQ(Description(index), Picture(index).Tree().Words());
        auto* combo = QAccessible::queryAccessibleInterface(&Combo(index));
        const auto labels = combo->relations(QAccessible::Label);
        ASSERT_EQ(labels.size(), 1);
        EXPECT_EQ(labels.first().first->text(QAccessible::Name).toStdString(),
                  "Select Alternative to display");
    }
}

TEST_F(DecisionTreeWorksheet, MarkForTests_StaysAtTheEndOfTheDescription)
{
    ShowSample();
    Picture(1).setAccessibleDescription(QStringLiteral("x #picDecisionTree_1"));
    Press(Combo(1), Qt::Key_Down);
    EXPECT_THAT(Description(1), StartsWith("B. Confine on"));
    EXPECT_TRUE(Picture(1).accessibleDescription().endsWith(QLatin1String(" #picDecisionTree_1")));
}

TEST_F(DecisionTreeWorksheet, Leaving_WritesNothing)
{
    ShowSample();
    ForbidWrites();
    GoTo(6, 1);
    EXPECT_EQ(gCurrentTab, "tab11");
}

} // namespace
