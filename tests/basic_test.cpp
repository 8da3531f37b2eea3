#include "core/basic.h"

#include <gtest/gtest.h>

using namespace quorvane::basic;

TEST(Basic, WholeNumbersRoundHalvesToEvenWithinSixteenBits)
{
    EXPECT_EQ(toInteger(QString("2.5")), 2);
    EXPECT_EQ(toInteger(QString("3.5")), 4);
    EXPECT_EQ(toInteger(QString("-2.5")), -2);
    EXPECT_EQ(toInteger(QString(" 60 ")), 60);
    EXPECT_EQ(toInteger(QString("32767.4")), 32767);
    EXPECT_EQ(toInteger(QString("-32768")), -32768);
    EXPECT_FALSE(toInteger(QString("32767.5")));
    EXPECT_FALSE(toInteger(QString("-32769")));
    EXPECT_FALSE(toInteger(QString("")));
    EXPECT_FALSE(toInteger(QString("abc")));
    EXPECT_FALSE(toInteger(QString("5x")));
    EXPECT_EQ(toLong(QString("70000")), 70000);
}

TEST(Basic, SingleNumbersAndLeadingNumbers)
{
    EXPECT_FLOAT_EQ(*toSingle("0.4"), 0.4f);
    EXPECT_FALSE(toSingle("fast"));
    EXPECT_FALSE(toSingle(""));
    EXPECT_DOUBLE_EQ(leadingNumber("12abc"), 12.0);
    EXPECT_DOUBLE_EQ(leadingNumber("  -3.5e2x"), -350.0);
    EXPECT_DOUBLE_EQ(leadingNumber("01436"), 1436.0);
    EXPECT_DOUBLE_EQ(leadingNumber("abc"), 0.0);
    EXPECT_DOUBLE_EQ(leadingNumber(""), 0.0);
    EXPECT_DOUBLE_EQ(wholePart(-1.5), -2.0);
    EXPECT_DOUBLE_EQ(wholePart(2.99), 2.0);
}

TEST(Basic, SingleNumbersShowInTheirShortestForm)
{
    EXPECT_EQ(general(0.8f), "0.8");
    EXPECT_EQ(general(0.1f), "0.1");
    EXPECT_EQ(general(2.0f), "2");
    EXPECT_EQ(general(10.5f), "10.5");
}
