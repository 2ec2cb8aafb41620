#include "platform/base/Errors.h"
#include "support/TestSession.h"
#include "values/g34NVCResources.h"

#include <gtest/gtest.h>

namespace {

class NVCResources : public support::TestSession
{};

TEST_F(NVCResources, Names_AreReadByIndex)
{
    OpenNew("UPDATE NVCResources SET ResourceName = 'First' WHERE ResourceIndex = 1;"
            "UPDATE NVCResources SET ResourceName = 'Last' WHERE ResourceIndex = 14;");
    EXPECT_EQ(g34NVCResources::NVCResourceName(1), "First");
    EXPECT_EQ(g34NVCResources::NVCResourceName(14), "Last");
}

TEST_F(NVCResources, MissingRowOrNull_IsAnEmptyName)
{
    OpenNew("DELETE FROM NVCResources WHERE ResourceIndex = 3;"
            "UPDATE NVCResources SET ResourceName = NULL WHERE ResourceIndex = 4;");
    EXPECT_EQ(g34NVCResources::NVCResourceName(3), "");
    EXPECT_EQ(g34NVCResources::NVCResourceName(4), "");
}

TEST_F(NVCResources, IndexOutside_IsABoundsError)
{
    OpenNew();
    EXPECT_THROW(g34NVCResources::NVCResourceName(0), platform::OutOfBounds);
    EXPECT_THROW(g34NVCResources::NVCResourceName(15), platform::OutOfBounds);
}

TEST_F(NVCResources, AnotherFile_HasItsOwnNames)
{
    OpenNew("UPDATE NVCResources SET ResourceName = 'Old' WHERE ResourceIndex = 2;");
    EXPECT_EQ(g34NVCResources::NVCResourceName(2), "Old");
    OpenNew("UPDATE NVCResources SET ResourceName = 'New' WHERE ResourceIndex = 2;"
            "DELETE FROM NVCResources WHERE ResourceIndex = 1;");
    EXPECT_EQ(g34NVCResources::NVCResourceName(2), "New");
    EXPECT_EQ(g34NVCResources::NVCResourceName(1), "");
}

} // namespace
