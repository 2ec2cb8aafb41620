#include "worksheets/FromBound.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Case
{
    Single top;
    const char* from;
};

TEST(FromBound, EveryStep)
{
    const std::vector<Case> cases = {
        {-5.0F, ""},       {0.0F, ""},         {0.1F, "0.11"},          {0.5F, "0.51"},   {0.84F, "0.85"},
        {0.9F, "1"},       {1.0F, "1.1"},      {5.0F, "5.1"},           {5.3F, "5.4"},    {8.0F, "8.1"},
        {9.9F, "10"},      {10.0F, "11"},      {10.5F, "11"},           {300.0F, "301"},  {1000.0F, "1001"},
        {1000.5F, "1001"}, {1000.99F, "1001"}, {9999998.0F, "9999999"}, {9999999.0F, ""}, {1e30F, ""},
    };
    for (const Case& c : cases)
        EXPECT_EQ(FromBound(c.top), c.from) << c.top;
}

TEST(FromBound, WhatRoundsToNineTenths_LeadsOnToOne)
{
    for (const Single top : {0.85F, 0.9F, 0.94F})
        EXPECT_EQ(FromBound(top), "1") << top;
    EXPECT_EQ(FromBound(0.95F), "0.96");
    EXPECT_EQ(FromBound(0.99F), "1");
}

TEST(FromBound, NineAlone_LeadsOnToTen)
{
    EXPECT_EQ(FromBound(9.0F), "10");
    EXPECT_EQ(FromBound(8.9F), "9");
    EXPECT_EQ(FromBound(9.1F), "9.2");
    EXPECT_EQ(FromBound(9.5F), "9.6");
}

} // namespace
