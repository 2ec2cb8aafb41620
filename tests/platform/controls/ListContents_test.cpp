#include "platform/base/Errors.h"
#include "platform/controls/ListContents.h"

#include <gtest/gtest.h>

using platform::ListContents;

TEST(ListContents, ANewList_IsEmptyWithNothingSelected)
{
    const ListContents list;
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.NewIndex(), -1);
}

TEST(ListContents, AddItem_AppendsAndTellsItsPlace)
{
    ListContents list;
    list.AddItem("first");
    EXPECT_EQ(list.NewIndex(), 0);
    list.AddItem("second");
    EXPECT_EQ(list.NewIndex(), 1);
    list.SetItemData(list.NewIndex(), 77);
    EXPECT_EQ(list.Rows()[1].text, "second");
    EXPECT_EQ(list.ItemData(1), 77);
    EXPECT_EQ(list.ItemData(0), 0);
    EXPECT_EQ(list.ListIndex(), -1) << "adding selects nothing";
}

TEST(ListContents, Clear_ForgetsRowsAndSelection)
{
    ListContents list;
    list.AddItem("first");
    list.SetListIndex(0);
    list.Clear();
    EXPECT_EQ(list.ListCount(), 0);
    EXPECT_EQ(list.ListIndex(), -1);
    EXPECT_EQ(list.NewIndex(), -1);
}

TEST(ListContents, ARowThatIsNotThere_Throws)
{
    ListContents list;
    list.AddItem("only");
    for (const Long index : {-2, 1, 99}) {
        EXPECT_THROW(list.SetListIndex(index), platform::OutOfBounds) << index;
        EXPECT_THROW(list.ItemData(index), platform::OutOfBounds) << index;
        EXPECT_THROW(list.SetItemData(index, 1), platform::OutOfBounds) << index;
    }
    EXPECT_THROW(list.ItemData(-1), platform::OutOfBounds);
    list.SetListIndex(-1);
    EXPECT_EQ(list.ListIndex(), -1);
}
