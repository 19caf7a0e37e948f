#include "core/conversions.h"
#include "core/errors.h"

#include <gtest/gtest.h>

namespace conversions_test {

using namespace rd;

TEST(Conversions, NumericTextsAfterTrimmingBlanks) {
    for (const char* t : {"0", " 1 ", "-1 ", "+5", "1.5", ".5", "5.", "1e3", "2.5E-2", " 3"})
        EXPECT_TRUE(isNumeric(t)) << t;
    for (const char* t : {"", " ", "abc", "1.2.3", "-", ".", "1e", "1 2", "0x10", "1,5"})
        EXPECT_FALSE(isNumeric(t)) << t;
}

TEST(Conversions, LeadingValueTakesTheLongestNumericPrefix) {
    EXPECT_DOUBLE_EQ(leadingValue(" 2 "), 2);
    EXPECT_DOUBLE_EQ(leadingValue("12abc"), 12);
    EXPECT_DOUBLE_EQ(leadingValue("abc"), 0);
    EXPECT_DOUBLE_EQ(leadingValue("-1 "), -1);
    EXPECT_DOUBLE_EQ(leadingValue("1.5e1x"), 15);
    EXPECT_DOUBLE_EQ(leadingValue(""), 0);
}

TEST(Conversions, RoundingToIntegersTakesHalvesToEven) {
    EXPECT_EQ(toInt16("9.5"), 10);
    EXPECT_EQ(toInt16("10.5"), 10);
    EXPECT_EQ(toInt16("-2.5"), -2);
    EXPECT_EQ(toInt16("2.51"), 3);
    EXPECT_EQ(toInt32(" 7 "), 7);
    EXPECT_EQ(toByte(" 2 "), 2);
}

TEST(Conversions, TextThatIsNotNumericIsATypeMismatch) {
    try {
        toInt16("two");
        FAIL();
    } catch (const ConversionError& e) {
        EXPECT_STREQ(e.what(), "Type mismatch");
    }
    EXPECT_THROW(toByte(""), ConversionError);
}

TEST(Conversions, ValuesOutOfRangeOverflow) {
    EXPECT_EQ(toInt16("32767"), 32767);
    EXPECT_EQ(toInt16("-32768"), -32768);
    try {
        toInt16("32768");
        FAIL();
    } catch (const ConversionError& e) {
        EXPECT_STREQ(e.what(), "Overflow");
    }
    EXPECT_THROW(toByte("256"), ConversionError);
    EXPECT_THROW(toByte("-1"), ConversionError);
    EXPECT_THROW(toInt32("1e300"), ConversionError);
    EXPECT_THROW(toInt32("99999999999"), ConversionError);
}

TEST(Conversions, NumericPrintFormHasTheSignPlaceAndATrailingBlank) {
    EXPECT_EQ(numericPrintForm(0), " 0 ");
    EXPECT_EQ(numericPrintForm(1), " 1 ");
    EXPECT_EQ(numericPrintForm(-1), "-1 ");
    EXPECT_EQ(numericPrintForm(123), " 123 ");
}

TEST(Conversions, FlagsAreOffOnlyForZeroOrFalse) {
    for (const char* t : {"0", " 0 ", "false", " FALSE ", "False"})
        EXPECT_FALSE(flagFromText(t)) << t;
    for (const char* t : {"1", " 1 ", "2", "True", "yes", ""})
        EXPECT_TRUE(flagFromText(t)) << t;
}

} // namespace conversions_test
