#include "core/keylookup.h"

#include <gtest/gtest.h>

namespace keylookup_test {

using rd::KeyLookup;
using rd::lookupKey;

TEST(KeyLookup, QuotedValueKeepsItsBlanks) {
    EXPECT_EQ(lookupKey("-x BOT='Eraser two' GAME=Quake2", "BOT"), "Eraser two");
}

TEST(KeyLookup, KeyIsMatchedWithoutRegardToCase) {
    EXPECT_EQ(lookupKey("bot=Eraser", "BOT"), "Eraser");
}

TEST(KeyLookup, KeyInsideALongerWordCounts) {
    EXPECT_EQ(lookupKey("ROBOT=abc", "BOT"), "abc");
}

TEST(KeyLookup, KeyAtTheEndWithNothingBehindItIsEmpty) {
    EXPECT_EQ(lookupKey("-x BOT=", "BOT"), "");
}

TEST(KeyLookup, ApostropheEndsTheValueAtTheSecondApostrophe) {
    EXPECT_EQ(lookupKey("NAME='it's'", "NAME"), "it");
}

TEST(KeyLookup, AppendsEqualsSignToTheCallersKey) {
    std::string key = "GAME";
    EXPECT_EQ(KeyLookup("GAME=Quake2", key), "Quake2");
    EXPECT_EQ(key, "GAME=");
}

TEST(KeyLookup, MissingKeyIsEmpty) {
    EXPECT_EQ(lookupKey("FONTSIZE=10", "BOT"), "");
}

TEST(KeyLookup, QuotedValueAtTheVeryEndWithoutClosingQuoteLosesOnlyTheOpeningQuote) {
    EXPECT_EQ(lookupKey("x NAME=\"MS Sans Serif", "NAME"), "MS Sans Serif");
    EXPECT_EQ(lookupKey("x NAME='MS Sans", "NAME"), "MS Sans");
}

TEST(KeyLookup, KeyThatOccursTwiceTakesTheFirst) {
    EXPECT_EQ(lookupKey("BOT=one BOT=two", "BOT"), "one");
}

TEST(KeyLookup, ApostropheQuotedValueMayHoldADoubleQuote) {
    EXPECT_EQ(lookupKey("NAME='say \"hi\" now' x", "NAME"), "say \"hi\" now");
}

TEST(KeyLookup, UnquotedValueBeginningWithABlankYieldsTheNextWord) {
    EXPECT_EQ(lookupKey("KEY= x y", "KEY"), "x");
}

TEST(KeyLookup, BlankAfterEqualsRunsToTheNextBlankAfterIt) {
    EXPECT_EQ(lookupKey("GAME= BOT=Eraser", "GAME"), "BOT=Eraser");
}

TEST(KeyLookup, DoubleQuotedValue) {
    EXPECT_EQ(lookupKey("FONTNAME=\"MS Sans Serif\" x", "FONTNAME"), "MS Sans Serif");
}

} // namespace keylookup_test
