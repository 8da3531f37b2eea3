#include "core/basic.h"

#include <gtest/gtest.h>

#include <optional>

using namespace quorvane::basic;

TEST(Basic, WholeNumbersRoundHalvesToEvenWithinSixteenBitsAndOtherNumbersReadAsWritten)
{
    const std::optional<int> none;
    const std::pair<const char*, std::optional<int>> whole[] = {
        {"2.5", 2},        {"3.5", 4},       {"-2.5", -2}, {" 60 ", 60},  {"32767.4", 32767}, {"-32768", -32768},
        {"32767.5", none}, {"-32769", none}, {"", none},   {"abc", none}, {"5x", none}};
    for (const auto& [text, value] : whole)
        EXPECT_EQ(toInteger(QString(text)), value) << text;
    EXPECT_EQ(toLong(QString("70000")), 70000);

    EXPECT_FLOAT_EQ(*toSingle("0.4"), 0.4f);
    EXPECT_FALSE(toSingle("fast") || toSingle(""));
    const std::pair<const char*, double> leading[] = {
        {"12abc", 12.0}, {"  -3.5e2x", -350.0}, {"01436", 1436.0}, {"abc", 0.0}, {"", 0.0}};
    for (const auto& [text, value] : leading)
        EXPECT_DOUBLE_EQ(leadingNumber(text), value) << text;
    EXPECT_DOUBLE_EQ(wholePart(-1.5), -2.0);
    EXPECT_DOUBLE_EQ(wholePart(2.99), 2.0);
    for (const auto& [value, text] : {std::pair(0.8f, "0.8"), {0.1f, "0.1"}, {2.0f, "2"}, {10.5f, "10.5"}})
        EXPECT_EQ(general(value), text);
}
