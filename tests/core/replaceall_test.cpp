#include "core/replaceall.h"

#include <gtest/gtest.h>

using rd::ReplaceAll;

TEST(ReplaceAll, EmptySourceComesBackEmpty) {
    EXPECT_EQ(ReplaceAll("", "a", "b", true), "");
    EXPECT_EQ(ReplaceAll("", "a", "b", false), "");
}

TEST(ReplaceAll, EmptySearchTextLeavesTheSourceUnchanged) {
    EXPECT_EQ(ReplaceAll("abc", "", "x", true), "abc");
    EXPECT_EQ(ReplaceAll("abc", "", "x", false), "abc");
}

TEST(ReplaceAll, ReplacementContainingTheSearchTextIsNeverAttempted) {
    EXPECT_EQ(ReplaceAll("banana", "a", "aa", true), "banana");
    EXPECT_EQ(ReplaceAll("banana", "a", "xax", false), "banana");
}

TEST(ReplaceAll, ReplacementEqualToTheSearchTextLeavesTheSourceUnchanged) {
    EXPECT_EQ(ReplaceAll("banana", "an", "an", true), "banana");
}

TEST(ReplaceAll, ReplacementHoldingTheSearchTextInOtherCaseIsRefusedWithoutRegardToCase) {
    EXPECT_EQ(ReplaceAll("banana", "a", "A", false), "banana");
    EXPECT_EQ(ReplaceAll("banana", "a", "xAx", false), "banana");
}

TEST(ReplaceAll, ReplacementHoldingTheSearchTextInOtherCaseIsMadeWhenCaseMatters) {
    EXPECT_EQ(ReplaceAll("banana", "a", "A", true), "bAnAnA");
    EXPECT_EQ(ReplaceAll("banana", "a", "xAx", true), "bxAxnxAxnxAx");
}

TEST(ReplaceAll, CaseSensitiveSearchSkipsOtherCase) {
    EXPECT_EQ(ReplaceAll("Cat cat CAT", "cat", "dog", true), "Cat dog CAT");
}

TEST(ReplaceAll, SearchWithoutRegardToCaseFindsEveryCase) {
    EXPECT_EQ(ReplaceAll("Cat cat CAT", "cat", "dog", false), "dog dog dog");
}

TEST(ReplaceAll, SearchWithoutRegardToCaseUsesTheCodePageLetters) {
    // 0xC9 is E acute, 0xE9 its lower case.
    EXPECT_EQ(ReplaceAll("caf\xC9!", "\xE9", "e", false), "cafe!");
    EXPECT_EQ(ReplaceAll("caf\xC9!", "\xE9", "e", true), "caf\xC9!");
}

TEST(ReplaceAll, EverySearchStartsAgainFromTheBeginning) {
    // Removing "ab" from "aabb" leaves "ab", which is removed in turn.
    EXPECT_EQ(ReplaceAll("aabb", "ab", "", true), "");
    EXPECT_EQ(ReplaceAll("xaaabbby", "ab", "", true), "xy");
    // A replacement that forms a new occurrence with the text before it.
    EXPECT_EQ(ReplaceAll("aab", "ab", "b", true), "b");
}

TEST(ReplaceAll, CrLfPairsFormedByRemovalAreRemovedToo) {
    EXPECT_EQ(ReplaceAll("a\r\r\n\nb", "\r\n", "", true), "ab");
    EXPECT_EQ(ReplaceAll("a\rb\nc", "\r\n", "", true), "a\rb\nc");
}

TEST(ReplaceAll, LongerReplacementReplacesEveryOccurrence) {
    EXPECT_EQ(ReplaceAll("one\r\ntwo\r\nthree", "\r\n", "<LF>", true), "one<LF>two<LF>three");
}

TEST(ReplaceAll, NoOccurrenceLeavesTheSourceUnchanged) {
    EXPECT_EQ(ReplaceAll("hello", "z", "y", false), "hello");
}
