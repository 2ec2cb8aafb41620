#include "platform/base/Errors.h"
#include "platform/widgets/ListBox.h"

#include <QAccessible>
#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class ListBoxTest : public ::testing::Test
{
protected:
    using Log = std::vector<std::string>;

    ListBoxTest()
    {
        auto* column = new QVBoxLayout(&form);
        column->addWidget(before);
        column->addWidget(list);
        for (const char* text : {"Direct", "Indirect", "Confine"}) {
            rows.AddItem(text);
            rows.SetItemData(rows.NewIndex(), 11 + rows.NewIndex());
        }
        list->Show(rows);
        QObject::connect(list, &platform::ListBox::Click, [this] { Note("Click"); });
        QObject::connect(list, &platform::ListBox::Picked, [this] { Note("Picked"); });
        form.show();
        form.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        before->setFocus();
    }
    void Note(const char* event) { log.push_back(event + (" " + std::to_string(list->ListIndex()))); }
    Log Taken()
    {
        Log taken;
        taken.swap(log);
        return taken;
    }
    void ClickOn(int row)
    {
        const QPoint place = list->visualItemRect(list->item(row)).center();
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    }

    platform::ListContents rows;
    Log log;
    QWidget form;
    QLineEdit* before = new QLineEdit(&form);
    platform::ListBox* list =
        new platform::ListBox(QStringLiteral("lstAlternatives"), QStringLiteral("Alternatives"), &form);
};

TEST_F(ListBoxTest, Show_SelectsNoneAndRaisesNothing)
{
    EXPECT_EQ(list->ListCount(), 3);
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_EQ(list->List(1), "Indirect");
    EXPECT_EQ(list->ItemData(1), 12);
    list->SetListIndex(1);
    Taken();
    list->Show(rows);
    EXPECT_EQ(list->ListIndex(), -1);
    list->Clear();
    EXPECT_EQ(list->ListCount(), 0);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(ListBoxTest, SelectInCode_RaisesClickOnceItMoves)
{
    list->SetListIndex(2);
    list->SetListIndex(2);
    list->SetListIndex(0);
    EXPECT_EQ(Taken(), (Log{"Click 2", "Click 0"}));
}

TEST_F(ListBoxTest, OutsideItsRows_Throws)
{
    EXPECT_THROW(list->SetListIndex(3), platform::OutOfBounds);
    EXPECT_THROW(list->SetListIndex(-1), platform::OutOfBounds);
    EXPECT_THROW(list->List(3), platform::OutOfBounds);
    EXPECT_THROW(list->ItemData(-1), platform::OutOfBounds);
    EXPECT_THROW(list->SetList(3, ""), platform::OutOfBounds);
}

TEST_F(ListBoxTest, MouseClick_ChoosesThenPicksTheSameRowAgainToo)
{
    ClickOn(1);
    EXPECT_EQ(Taken(), (Log{"Click 1", "Picked 1"}));
    ClickOn(1);
    EXPECT_EQ(Taken(), (Log{"Picked 1"}));
}

TEST_F(ListBoxTest, Keys_ChooseByArrowsAndPickByEnterAndBlank)
{
    list->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return, Qt::Key_Space, Qt::Key_Up})
        QTest::keyClick(list, key);
    EXPECT_EQ(Taken(), (Log{"Click 0", "Click 1", "Picked 1", "Picked 1", "Click 0"}));
    QTest::keyClick(list, Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Taken(), (Log{"Picked 0"}));
}

TEST_F(ListBoxTest, EnterOnNoRow_PicksNothing)
{
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(ListBoxTest, FocusComesIn_ChoosesNoRow)
{
    QTest::keyClick(before, Qt::Key_Tab);
    EXPECT_TRUE(list->hasFocus());
    EXPECT_EQ(list->ListIndex(), -1);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(ListBoxTest, AddItemAndSetList_RaiseNothing)
{
    list->SetListIndex(0);
    Taken();
    list->AddItem("Point protection", 14);
    list->SetList(0, "Direct attack");
    EXPECT_EQ(list->ListIndex(), 0);
    EXPECT_EQ(list->List(3), "Point protection");
    EXPECT_EQ(list->ItemData(3), 14);
    EXPECT_EQ(list->List(0), "Direct attack");
    EXPECT_EQ(list->ItemData(0), 11);
    EXPECT_EQ(Taken(), Log{});
}

TEST_F(ListBoxTest, ScreenReader_ReadsNameAndRows)
{
    QAccessibleInterface* read = QAccessible::queryAccessibleInterface(list);
    EXPECT_EQ(read->text(QAccessible::Name), QStringLiteral("Alternatives"));
    ASSERT_EQ(read->childCount(), 3);
    EXPECT_EQ(read->child(2)->text(QAccessible::Name), QStringLiteral("Confine"));
}

TEST_F(ListBoxTest, TextsBeyondTheLetters_StayWhole)
{
    const std::string text = "Région \xF0\x9F\x94\xA5 " + std::string(300, 'x');
    list->AddItem(text, 15);
    EXPECT_EQ(list->List(3), text);
}

} // namespace

TEST_F(ListBoxTest, Focus_IsSeenThoughTheSelectionLooksTheSame)
{
    list->SetListIndex(1);
    const QColor ground = list->viewport()->grab().toImage().pixelColor(1, 1);
    list->setFocus();
    ASSERT_TRUE(list->hasFocus());
    EXPECT_NE(list->viewport()->grab().toImage().pixelColor(1, 1), ground);
    before->setFocus();
    EXPECT_EQ(list->viewport()->grab().toImage().pixelColor(1, 1), ground);
}
