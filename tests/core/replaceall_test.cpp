#include "core/replaceall.h"

#include "core/errors.h"
#include "core/text.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace replaceall_test {

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

TEST(ReplaceAll, EndlessGrowthIsStoppedWithAnError) {
    // Every replacement of "ab" by "bbaa" in "aab" leaves a new "ab" behind it.
    EXPECT_THROW(ReplaceAll("aab", "ab", "bbaa", true), rd::RosterError);
}

// The rule as words: find the first occurrence from the very beginning, rebuild, start again.
std::string restartingReplace(std::string text, const std::string& find, const std::string& replacement,
                              bool caseSensitive) {
    for (int rounds = 0; rounds < 500 && text.size() < 500; ++rounds) {
        const std::size_t at = caseSensitive ? text.find(find) : rd::findNoCase(text, find);
        if (at == std::string::npos)
            return text;
        text = text.substr(0, at) + replacement + text.substr(at + find.size());
    }
    return "<endless>";
}

TEST(ReplaceAll, AgreesWithSearchingFromTheBeginningEveryTime) {
    std::mt19937 random(1234);
    const std::string letters = "aAbB";
    auto word = [&](std::size_t most) {
        std::string w(std::uniform_int_distribution<std::size_t>(0, most)(random), ' ');
        for (char& c : w)
            c = letters[std::uniform_int_distribution<std::size_t>(0, letters.size() - 1)(random)];
        return w;
    };
    int compared = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string source = word(12), find = word(3), replacement = word(4);
        const bool caseSensitive = (i % 2) == 0;
        const std::string expected = restartingReplace(source, find, replacement, caseSensitive);
        if (expected == "<endless>" || find.empty() ||
            (caseSensitive ? replacement.find(find) != std::string::npos
                           : rd::containsNoCase(replacement, find)))
            continue;
        ASSERT_EQ(ReplaceAll(source, find, replacement, caseSensitive), expected)
            << source << " / " << find << " / " << replacement << " / " << caseSensitive;
        ++compared;
    }
    EXPECT_GT(compared, 5000);
}

} // namespace replaceall_test
