#include "definitions/numberrange.h"

#include <clocale>
#include <gtest/gtest.h>

namespace rd::numberrange_test {
namespace {

TEST(NumberRangeDialog, MinTenMaxOneNoDecimalsGivesOneToTen) {
    EXPECT_EQ(formatNumberRange("10", "1", "0"), std::optional<std::string>("1:10"));
}

TEST(NumberRangeDialog, DecimalsTwoGiveTwoPlacesOnBothSides) {
    EXPECT_EQ(formatNumberRange("1.5", "10", "2"), std::optional<std::string>("1.50:10.00"));
}

TEST(NumberRangeDialog, MinRoundedToOnePlace) {
    EXPECT_EQ(formatNumberRange("2.345", "5", "1"), std::optional<std::string>("2.3:5.0"));
}

TEST(NumberRangeDialog, OpeningOnQuarterToFiveShowsTwoDecimals) {
    const auto fields = parseNumberRange("0.25:5");
    EXPECT_EQ(fields.min, "0.25");
    EXPECT_EQ(fields.max, "5");
    EXPECT_EQ(fields.decimals, "2");
}

TEST(NumberRangeDialog, NonNumericMinLeavesTheParameterUnchanged) {
    EXPECT_EQ(formatNumberRange("abc", "5", "0"), std::nullopt);
    EXPECT_EQ(formatNumberRange("1", "", "0"), std::nullopt);
}

TEST(NumberRangeDialog, OpeningWithoutColonOrWithLeadingColonShowsZeros) {
    for (const char* text : {"", "15", ":15"}) {
        const auto fields = parseNumberRange(text);
        EXPECT_EQ(fields.min, "0") << text;
        EXPECT_EQ(fields.max, "0") << text;
        EXPECT_EQ(fields.decimals, "0") << text;
    }
}

TEST(NumberRangeDialog, OpeningOnNonNumericPartsShowsZeroForThem) {
    const auto fields = parseNumberRange(" 3 :x");
    EXPECT_EQ(fields.min, "3");
    EXPECT_EQ(fields.max, "0");
}

TEST(NumberRangeDialog, NonNumericDecimalsCountAsZero) {
    EXPECT_EQ(formatNumberRange("1.6", "9.2", "many"), std::optional<std::string>("2:9"));
}

TEST(NumberRangeDialog, HalvesRoundAwayFromZeroOnTheDecimalDigits) {
    EXPECT_EQ(formatFixed(2.25, 1), "2.3");
    EXPECT_EQ(formatFixed(-2.25, 1), "-2.3");
    EXPECT_EQ(formatFixed(0.5, 0), "1");
    EXPECT_EQ(formatFixed(9.995, 2), "10.00");
    EXPECT_EQ(formatFixed(0.04, 1), "0.0");
    EXPECT_EQ(formatFixed(-0.04, 1), "0.0");
}

TEST(NumberRangeDialog, AtLeastOneDigitBeforeThePoint) {
    EXPECT_EQ(formatFixed(0.125, 3), "0.125");
}

TEST(NumberRangeDialog, DecimalPointIsADotWhateverTheLocale) {
    const char* set = std::setlocale(LC_ALL, "de_DE.UTF-8");
    if (!set)
        set = std::setlocale(LC_ALL, "C.UTF-8");
    EXPECT_EQ(formatNumberRange("1,5", "2", "1"), std::nullopt); // a comma is not a decimal point
    EXPECT_EQ(formatNumberRange("1.5", "2", "1"), std::optional<std::string>("1.5:2.0"));
    std::setlocale(LC_ALL, "C");
}

} // namespace
} // namespace rd::numberrange_test
