#include "platform/base/ChangedFlag.h"

#include <gtest/gtest.h>

#include <string>

TEST(ChangedFlag, AWriteOfAnEqualValue_CountsAsAChange)
{
    platform::ChangedFlag changed;
    std::string field = "same";
    EXPECT_FALSE(changed.IsSet());
    changed.Write(field, "same");
    EXPECT_TRUE(changed.IsSet());
    changed.Clear();
    EXPECT_FALSE(changed.IsSet());
    changed.Set();
    EXPECT_TRUE(changed.IsSet());
}
