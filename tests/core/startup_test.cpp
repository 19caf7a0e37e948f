#include "core/startup.h"

#include <gtest/gtest.h>

namespace startup_test {

using namespace rd;

TEST(StartUp, EmptyCommandLineOpensTheMainWindowWithTheDesignedFonts) {
    const auto d = decideStartup("");
    EXPECT_EQ(d.screen, FirstScreen::MainWindow);
    EXPECT_EQ(d.fontSize, 0);
    EXPECT_EQ(d.fontName, "");
}

TEST(StartUp, FontSizeThatIsNotNumericIsIgnored) {
    EXPECT_EQ(decideStartup("FONTSIZE=abc").fontSize, 0);
}

TEST(StartUp, FontSizeTenSetsTen) {
    EXPECT_EQ(decideStartup("FONTSIZE=10").fontSize, 10);
}

TEST(StartUp, FontSizeHalvesRoundToEven) {
    EXPECT_EQ(decideStartup("FONTSIZE=9.5").fontSize, 10);
    EXPECT_EQ(decideStartup("FONTSIZE=10.5").fontSize, 10);
}

TEST(StartUp, FontSizeOutsideSixteenBitsIsIgnored) {
    EXPECT_EQ(decideStartup("FONTSIZE=40000").fontSize, 0);
}

TEST(StartUp, FontSizeKeyIsFoundWithoutRegardToCase) {
    EXPECT_EQ(decideStartup("fontsize=12").fontSize, 12);
}

TEST(StartUp, QuotedFontNameKeepsItsBlanks) {
    EXPECT_EQ(decideStartup("FONTNAME='MS Sans Serif'").fontName, "MS Sans Serif");
    EXPECT_EQ(decideStartup("FONTNAME=\"MS Sans Serif\"").fontName, "MS Sans Serif");
}

TEST(StartUp, UnquotedFontNameEndsAtTheFirstBlank) {
    EXPECT_EQ(decideStartup("FONTNAME=MS Sans Serif").fontName, "MS");
}

TEST(StartUp, FontSettingsUseTheUntrimmedCommandLine) {
    // A value at the very end is the same trimmed or not; a leading blank must not matter either.
    const auto d = decideStartup("  FONTSIZE=11 FONTNAME=Arial  ");
    EXPECT_EQ(d.fontSize, 11);
    EXPECT_EQ(d.fontName, "Arial");
}

TEST(StartUp, GameKeyOpensTheGameEditorWhateverItsCase) {
    const auto d = decideStartup("game=Quake2");
    EXPECT_EQ(d.screen, FirstScreen::GameEditor);
    EXPECT_EQ(d.argument, "Quake2");
}

TEST(StartUp, BotKeyOpensThePluginEditor) {
    const auto d = decideStartup("BOT=Eraser FONTSIZE=9");
    EXPECT_EQ(d.screen, FirstScreen::PluginEditor);
    EXPECT_EQ(d.argument, "Eraser");
    EXPECT_EQ(d.fontSize, 9);
}

TEST(StartUp, GameWinsOverBot) {
    const auto d = decideStartup("BOT=Eraser GAME=Quake2");
    EXPECT_EQ(d.screen, FirstScreen::GameEditor);
    EXPECT_EQ(d.argument, "Quake2");
}

TEST(StartUp, BlankAfterGameEqualsMakesTheGameValueBotEqualsEraser) {
    const auto d = decideStartup("GAME= BOT=Eraser");
    EXPECT_EQ(d.screen, FirstScreen::GameEditor);
    EXPECT_EQ(d.argument, "BOT=Eraser");
}

TEST(StartUp, KeysInsideLongerWordsCount) {
    const auto d = decideStartup("MYGAME=x");
    EXPECT_EQ(d.screen, FirstScreen::GameEditor);
    EXPECT_EQ(d.argument, "x");
}

TEST(StartUp, CustomMapsWordOpensTheCustomMapsEditorInAnyCaseAndPosition) {
    EXPECT_EQ(decideStartup("customMAPS").screen, FirstScreen::CustomMaps);
    EXPECT_EQ(decideStartup("/CustomMaps").screen, FirstScreen::CustomMaps);
    EXPECT_EQ(decideStartup("  CUSTOMMAPS  ").screen, FirstScreen::CustomMaps);
}

TEST(StartUp, CustomMapsWithABlankDoesNotCount) {
    EXPECT_EQ(decideStartup("Custom Maps").screen, FirstScreen::MainWindow);
}

TEST(StartUp, BotWinsOverCustomMaps) {
    EXPECT_EQ(decideStartup("CustomMaps BOT=x").screen, FirstScreen::PluginEditor);
}

TEST(StartUp, EmptyGameValueFallsThroughToTheNextStep) {
    EXPECT_EQ(decideStartup("GAME=").screen, FirstScreen::MainWindow);
    EXPECT_EQ(decideStartup("GAME= ").screen, FirstScreen::MainWindow);
}

TEST(StartUp, CommandLineIsTheArgumentsJoinedByOneBlank) {
    const char* argv[] = {"rosterdesk", "FONTNAME='MS", "Sans", "Serif'", "GAME=Quake2"};
    EXPECT_EQ(joinCommandLine(5, argv), "FONTNAME='MS Sans Serif' GAME=Quake2");
    EXPECT_EQ(decideStartup(joinCommandLine(5, argv)).fontName, "MS Sans Serif");
}

} // namespace startup_test
