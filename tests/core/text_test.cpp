#include "core/text.h"

#include <gtest/gtest.h>

namespace text_test {

using namespace rd;

TEST(CodePage, UpperCaseCoversAccentedLettersAndTheFourPairs) {
    EXPECT_EQ(upperCase("caf\xE9"), "CAF\xC9");
    EXPECT_EQ(upperCase("\x9A\x9C\x9E\xFF"), "\x8A\x8C\x8E\x9F");
    EXPECT_EQ(upperCase("\xF7\xD7"), "\xF7\xD7"); // division and multiplication signs stay
    EXPECT_EQ(lowerCase("\xC0\x8A"), "\xE0\x9A");
}

TEST(CodePage, ComparisonWithoutRegardToCase) {
    EXPECT_TRUE(equalsNoCase("Plug-Ins", "PLUG-INS"));
    EXPECT_TRUE(equalsNoCase("\xC9quipe", "\xE9QUIPE"));
    EXPECT_FALSE(equalsNoCase("Eraser", "Eraser2"));
    EXPECT_EQ(findNoCase("my FontSize=3", "FONTSIZE="), 3u);
    EXPECT_EQ(findNoCase("abc", "d"), std::string::npos);
}

TEST(CodePage, EveryByteSurvivesTheTripThroughUtf8) {
    std::string all;
    for (int b = 1; b <= 0xFF; ++b)
        all += static_cast<char>(b);
    all += '\0';
    EXPECT_EQ(utf8ToCp1252(cp1252ToUtf8(all)), all);
    EXPECT_EQ(cp1252ToUtf8("\x80"), "\xE2\x82\xAC"); // euro sign
    EXPECT_EQ(cp1252ToUtf8("\x81"), "\xC2\x81");     // unassigned byte kept as its C1 control
}

TEST(CodePage, TextsOutsideTheCodePageBecomeQuestionMarks) {
    EXPECT_EQ(utf8ToCp1252("\xE4\xB8\xAD"), "?");
}

TEST(CodePage, TrimRemovesBlanksOnly) {
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("\ta\t"), "\ta\t");
    EXPECT_EQ(trimLeft("  a "), "a ");
    EXPECT_EQ(trimRight("  a "), "  a");
}

} // namespace text_test
