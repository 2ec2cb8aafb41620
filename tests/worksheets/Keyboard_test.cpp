#include "platform/widgets/Grid.h"
#include "platform/widgets/Theme.h"
#include "worksheets/EveryPlace.h"
#include "worksheets/FocusWalk.h"
#include "worksheets/TopicTest.h"
#include "worksheets/Worksheet.h"
#include "worksheets/a3VEXAforms.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QSplitter>
#include <QTabBar>

#include <gmock/gmock.h>
#include <map>

using ::testing::IsEmpty;
namespace Theme = platform::Theme;

namespace {

constexpr int kLeastPixels = 12; // of a mark that one sees

class Keyboard : public EveryPlace
{
protected:
    /// The worksheet where a worksheet is shown, else the whole window: a dialog, the start form.
    static QWidget& PlaceIn(QWidget& shown)
    {
        Worksheet* worksheet = a3VEXAforms::CurrentWorksheet();
        return worksheet != nullptr && shown.isAncestorOf(worksheet) ? *worksheet : shown;
    }

    static void CheckWalk(QWidget& shown, const std::string& place)
    {
        QWidget& within = PlaceIn(shown);
        std::vector<QWidget*> stops = FocusWalk::Stops(within);
        if (stops.empty()) return;
        const std::vector<QWidget*> forward = FocusWalk::Walk(within, *FirstOf(within, stops), true);
        ASSERT_FALSE(forward.empty()) << place;
        stops = FocusWalk::Stops(within); // to enter a row enables the command on it
        EXPECT_THAT(FocusWalk::NamesOf(forward),
                    ::testing::UnorderedElementsAreArray(FocusWalk::NamesOf(stops)))
            << place;
        EXPECT_EQ(FocusWalk::StepsBack(forward, shown), KnownSteps(place)) << place;
        std::vector<QWidget*> back = FocusWalk::Walk(within, *forward.back(), false);
        std::reverse(back.begin(), back.end());
        EXPECT_EQ(FocusWalk::NamesOf(back), FocusWalk::NamesOf(forward)) << place;
    }

    /// The preview opens on its pages, and Tab leads on from them to what stands above.
    static std::vector<std::string> KnownSteps(const std::string& place)
    {
        if (place.find("preview") == 0) return {"PageView1 to cmdSave"};
        return {};
    }

    /// The first of the toolkit's chain, behind the place itself.
    static QWidget* FirstOf(QWidget& within, const std::vector<QWidget*>& stops)
    {
        QWidget* at = &within;
        do
            at = at->nextInFocusChain();
        while (std::find(stops.begin(), stops.end(), at) == stops.end());
        return at;
    }

    static void CheckFocusIsSeen(QWidget& shown, const std::string& place)
    {
        for (QWidget* control : FocusWalk::Stops(PlaceIn(shown)))
            EXPECT_GE(FocusWalk::PixelsOfFocus(*control), kLeastPixels)
                << place << ' ' << FocusWalk::NameOf(control);
    }
};

TEST_F(Keyboard, EveryPlaceOfASample_TabReachesEachControlOnceInOrderOfReading) { VisitAll(CheckWalk); }

TEST_F(Keyboard, EveryPlaceOfAnEmptyFile_TabReachesEachControlOnceInOrderOfReading)
{
    VisitEmptyFile(CheckWalk);
}

TEST_F(Keyboard, EveryPlaceOfASample_FocusIsSeen) { VisitAll(CheckFocusIsSeen); }

TEST_F(Keyboard, EveryPlaceOfAnEmptyFile_FocusIsSeen) { VisitEmptyFile(CheckFocusIsSeen); }

TEST_F(Keyboard, EveryPlaceInTheDark_FocusIsSeen)
{
    const QPalette before = QGuiApplication::palette();
    QApplication::setPalette(Theme::WithAccent(Theme::DarkPalette()));
    VisitAll(CheckFocusIsSeen);
    QApplication::setPalette(before);
}

// ---- Letters

/// The letters that Alt reaches at one time, each with those that answer to it.
using Letters = std::map<QChar, std::vector<std::string>>;

QChar LetterOf(const QString& caption)
{
    for (qsizetype at = caption.indexOf(QLatin1Char('&')); at >= 0 && at + 1 < caption.size();
         at = caption.indexOf(QLatin1Char('&'), at + 2)) {
        if (caption[at + 1] != QLatin1Char('&')) return caption[at + 1].toUpper();
    }
    return {};
}

void AddLetter(const QString& caption, Letters& letters)
{
    const QChar letter = LetterOf(caption);
    if (!letter.isNull()) letters[letter].push_back(caption.toStdString());
}

Letters LettersOf(QWidget& shown)
{
    Letters letters;
    for (QWidget* control : shown.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->window() != &shown) continue;
        if (const auto* button = qobject_cast<QAbstractButton*>(control)) AddLetter(button->text(), letters);
        if (const auto* tabs = qobject_cast<QTabBar*>(control)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                AddLetter(tabs->tabText(tab), letters);
        }
        const auto* label = qobject_cast<QLabel*>(control);
        if (label != nullptr && label->buddy() != nullptr && label->textFormat() != Qt::PlainText)
            AddLetter(label->text(), letters);
    }
    if (const auto* menus = shown.findChild<QMenuBar*>()) {
        for (const QAction* menu : menus->actions())
            AddLetter(menu->text(), letters);
    }
    return letters;
}

/// Those that share a letter, as "S: Printer &Setup, &Section".
std::vector<std::string> Shared(const Letters& letters)
{
    std::vector<std::string> shared;
    for (const auto& [letter, captions] : letters) {
        std::string told;
        for (const std::string& caption : captions)
            told += (told.empty() ? "" : ", ") + caption;
        if (captions.size() > 1) shared.push_back(told);
    }
    return shared;
}

class Mnemonics : public EveryPlace
{
protected:
    /// Given captions that clash of themselves: Alt and the letter moves between the two.
    static std::vector<std::string> Known(const std::string& place)
    {
        if (place == "tab83") return {"Printer &Setup, &Section"};
        return {};
    }
    static void Check(QWidget& shown, const std::string& place)
    {
        EXPECT_EQ(Shared(LettersOf(shown)), Known(place)) << place;
    }
};

TEST_F(Mnemonics, EveryPlace_LettersMeanOneThing) { VisitAll(Check); }

TEST_F(Mnemonics, EntriesOfEachMenu_LettersMeanOneThing)
{
    StartWithSample();
    for (int section = 2; section <= 7; ++section) {
        GoTo(section, 1);
        for (const QMenu* menu :
             window->menuBar()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly)) {
            Letters letters;
            for (const QAction* entry : menu->actions()) {
                EXPECT_TRUE(entry->isSeparator() || !entry->isVisible() || !entry->text().isEmpty())
                    << menu->title().toStdString();
                if (entry->isVisible()) AddLetter(entry->text(), letters);
            }
            EXPECT_THAT(Shared(letters), IsEmpty()) << menu->title().toStdString();
        }
    }
}

// ---- Ways out, and dividers

class Ways : public TopicTest
{
protected:
    static QSplitterHandle* Divider(QWidget& within)
    {
        for (QSplitterHandle* handle : within.findChildren<QSplitterHandle*>()) {
            if (handle->isVisible()) return handle;
        }
        return nullptr;
    }
};

TEST_F(Ways, CtrlTab_LeavesAGridFromTheCellThatIsEdited)
{
    StartWithSample();
    GoTo(5, 2);
    auto* grid = Find<platform::Grid>("Grid1");
    grid->setFocus();
    grid->Select(1, 3);
    Key(Qt::Key_F2);
    ASSERT_TRUE(grid->IsEditing());
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys("4");
    Key(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Focused(), "txtRating");
    EXPECT_EQ(grid->Text(1, 3), "4");
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(grid->hasFocus());
    Key(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_FALSE(grid->hasFocus() || grid->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(Ways, F6ToTheDividerBetweenPanes_ArrowsHomeAndEndMoveItAndTabLeadsBack)
{
    StartWithSample();
    GoTo(2, 3);
    QSplitterHandle* divider = Divider(Shown());
    ASSERT_NE(divider, nullptr);
    const int before = divider->x();
    Heading().setFocus();
    Key(Qt::Key_F6);
    ASSERT_TRUE(divider->hasFocus());
    Key(Qt::Key_Right);
    EXPECT_EQ(divider->x(), before + Theme::GroupGap());
    Key(Qt::Key_Left);
    EXPECT_EQ(divider->x(), before);
    Key(Qt::Key_Home);
    EXPECT_LT(divider->x(), before);
    EXPECT_GT(Topics().width(), 0);
    Key(Qt::Key_End);
    EXPECT_GT(divider->x(), before);
    EXPECT_TRUE(Body().isVisible());
    Key(Qt::Key_Tab);
    EXPECT_TRUE(Heading().hasFocus());
}

TEST_F(Ways, F6AgainInPanesWithinPanes_LeadsFurtherOut)
{
    StartWithSample();
    GoTo(5, 5);
    auto* reasons = Find<QWidget>("txtCostRationale");
    reasons->setFocus();
    Key(Qt::Key_F6);
    auto* inner = qobject_cast<QSplitterHandle*>(QApplication::focusWidget());
    ASSERT_NE(inner, nullptr);
    EXPECT_EQ(inner->orientation(), Qt::Vertical);
    EXPECT_GE(FocusWalk::PixelsOfFocus(*inner), kLeastPixels);
    inner->setFocus();
    Key(Qt::Key_F6);
    auto* outer = qobject_cast<QSplitterHandle*>(QApplication::focusWidget());
    ASSERT_NE(outer, nullptr);
    EXPECT_EQ(outer->orientation(), Qt::Horizontal);
    Key(Qt::Key_Escape);
    EXPECT_TRUE(reasons->hasFocus());
}

TEST_F(Ways, F6InAGridsCell_EndsTheEditWithTheTextKept)
{
    StartWithSample();
    GoTo(5, 2);
    auto* grid = Find<platform::Grid>("Grid1");
    grid->setFocus();
    grid->Select(1, 3);
    Key(Qt::Key_F2);
    Key(Qt::Key_A, Qt::ControlModifier);
    Keys("4");
    Key(Qt::Key_F6);
    EXPECT_NE(qobject_cast<QSplitterHandle*>(QApplication::focusWidget()), nullptr);
    EXPECT_EQ(grid->Text(1, 3), "4");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(grid->hasFocus() || grid->isAncestorOf(QApplication::focusWidget()));
}

} // namespace
