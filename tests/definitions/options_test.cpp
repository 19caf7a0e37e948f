#include "definitions/options.h"

#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::options_test {
namespace {

using test::crlf;
using test::TempWorkspace;

OptionRow option(std::string name, std::string key) {
    OptionRow row;
    row.name = std::move(name);
    row.key = std::move(key);
    row.type = "0";
    return row;
}

TEST(OptionFile, DoubleBracketLineLoadsAsCategoryBots) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"[[Bots]]"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0].isCategory);
    EXPECT_EQ(rows[0].name, "Bots");
}

TEST(OptionFile, LoneOpenBracketLoadsAsCategoryOpenBracket) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"["});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0].isCategory);
    EXPECT_EQ(rows[0].name, "[");
}

TEST(OptionFile, EmptyBracketsLoadAsCategoryCloseBracket) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"[]"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_TRUE(rows[0].isCategory);
    EXPECT_EQ(rows[0].name, "]");
}

TEST(OptionFile, OptionRowReadsNameTypeAndSixTabFieldsInFileOrder) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"[Game Play]", "Deathmatch", "0",
                                  "Deathm\t\t+set deathmatch 1\t+set deathmatch 0\t0\tTurn deathmatch on"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0], OptionRow::category("Game Play"));
    const OptionRow& o = rows[1];
    EXPECT_FALSE(o.isCategory);
    EXPECT_EQ(o.name, "Deathmatch");
    EXPECT_EQ(o.type, "0");
    EXPECT_EQ(o.key, "Deathm");
    EXPECT_EQ(o.parameter, "");
    EXPECT_EQ(o.checked, "+set deathmatch 1");
    EXPECT_EQ(o.unchecked, "+set deathmatch 0");
    EXPECT_EQ(o.where, "0");
    EXPECT_EQ(o.helpText, "Turn deathmatch on");
}

TEST(OptionFile, LoadThenSaveGivesTheSameBytes) {
    TempWorkspace ws;
    const std::string bytes = crlf({"[Game Play]", "Deathmatch", "0",
                                    "Deathm\t\t+set deathmatch 1\t+set deathmatch 0\t0\tTurn deathmatch on",
                                    "[Bots]", " Skill ", "3", "Skill\t1:10\t+set skill \t\t1\t"});
    ws.write("Options.cfg", bytes);
    SaveDefinitions(ws.path("Opt-User.cfg"), LoadDefinitions(ws.path("Options.cfg")));
    EXPECT_EQ(ws.read("Opt-User.cfg"), bytes);
}

TEST(OptionFile, SaveWritesCategoryInBracketsAndOptionAsThreeLines) {
    TempWorkspace ws;
    OptionRow o;
    o.name = "Frag limit";
    o.type = "3";
    o.key = "Fragl";
    o.parameter = "0:100";
    o.checked = "+set fraglimit %s";
    o.unchecked = "";
    o.where = "1";
    o.helpText = "Frags to win";
    SaveDefinitions(ws.path("Opt-User.cfg"), {OptionRow::category("Rules"), o});
    EXPECT_EQ(ws.read("Opt-User.cfg"),
              "[Rules]\r\nFrag limit\r\n3\r\nFragl\t0:100\t+set fraglimit %s\t\t1\tFrags "
              "to win\r\n");
}

TEST(OptionFile, HelpTextWithTabIsCutOnReload) {
    TempWorkspace ws;
    OptionRow o = option("Gravity", "Gravi");
    o.helpText = "first part\tsecond part";
    SaveDefinitions(ws.path("Options.cfg"), {o});
    EXPECT_EQ(ws.read("Options.cfg"), crlf({"Gravity", "0", "Gravi\t\t\t\t\tfirst part\tsecond part"}));
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].helpText, "first part");
}

TEST(OptionFile, SavingAnEmptySetWritesAnEmptyFile) {
    TempWorkspace ws;
    ws.write("Opt-User.cfg", "old content\r\n");
    SaveDefinitions(ws.path("Opt-User.cfg"), {});
    EXPECT_TRUE(ws.exists("Opt-User.cfg"));
    EXPECT_EQ(ws.read("Opt-User.cfg"), "");
}

TEST(OptionFile, MissingFileLoadsAsAnEmptySet) {
    TempWorkspace ws;
    EXPECT_TRUE(LoadDefinitions(ws.path("Options.cfg")).empty());
}

TEST(OptionFile, FileNameIsFoundWhateverItsCase) {
    TempWorkspace ws;
    ws.writeLines("OPTIONS.CFG", {"[Found]"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].name, "Found");
}

TEST(OptionFile, FileCutShortInsideAnOptionRowGivesEmptyTrailingFields) {
    TempWorkspace ws;
    ws.write("Options.cfg", "Lonely option\r\n7");
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].name, "Lonely option");
    EXPECT_EQ(rows[0].type, "7");
    EXPECT_EQ(rows[0].key, "");
    EXPECT_EQ(rows[0].helpText, "");
}

TEST(OptionFile, ThirdLineWithFewerThanFiveTabsGivesEmptyTrailingFields) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"Timelimit", "2", "Timel\tx\t+set timelimit"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0].key, "Timel");
    EXPECT_EQ(rows[0].parameter, "x");
    EXPECT_EQ(rows[0].checked, "+set timelimit");
    EXPECT_EQ(rows[0].unchecked, "");
    EXPECT_EQ(rows[0].where, "");
    EXPECT_EQ(rows[0].helpText, "");
}

TEST(OptionFile, BlankLineIsReadAsTheNameOfAnOptionRow) {
    TempWorkspace ws;
    ws.writeLines("Options.cfg", {"", "1", "K\tP\tC\tU\t2\tH", "[Next]"});
    const auto rows = LoadDefinitions(ws.path("Options.cfg"));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_FALSE(rows[0].isCategory);
    EXPECT_EQ(rows[0].name, "");
    EXPECT_EQ(rows[0].where, "2");
    EXPECT_EQ(rows[1], OptionRow::category("Next"));
}

TEST(SplitTabFields, TextAfterTheSixthTabIsLost) {
    const auto fields = SplitTabFields("a\tb\tc\td\te\tf\tg", 6);
    ASSERT_EQ(fields.size(), 6u);
    EXPECT_EQ(fields[4], "e");
    EXPECT_EQ(fields[5], "f");
}

TEST(SplitTabFields, NoTabPutsWholeLineInFirstField) {
    const auto fields = SplitTabFields("no tabs here", 6);
    EXPECT_EQ(fields, (std::vector<std::string>{"no tabs here", "", "", "", "", ""}));
}

TEST(KeyGeneration, SkillLevelAloneGivesSkill) {
    EXPECT_EQ(MakeKey({}, "Skill Level"), "Skill");
}

TEST(KeyGeneration, SecondSkillLevelGivesSkillL) {
    EXPECT_EQ(MakeKey({option("Skill Level", "Skill")}, "Skill Level"), "SkillL");
}

TEST(KeyGeneration, ShortNameThatClashesGetsCounterAppended) {
    std::vector<OptionRow> rows{option("Frags", "Frags")};
    EXPECT_EQ(MakeKey(rows, "Frags"), "Frags1");
    rows.push_back(option("Frags", "Frags1"));
    EXPECT_EQ(MakeKey(rows, "Frags"), "Frags2");
}

TEST(KeyGeneration, EmptyNameGivesOptThenOpt1ThenOpt2) {
    std::vector<OptionRow> rows;
    EXPECT_EQ(MakeKey(rows, ""), "Opt");
    rows.push_back(option("", "Opt"));
    EXPECT_EQ(MakeKey(rows, ""), "Opt1");
    rows.push_back(option("", "Opt1"));
    EXPECT_EQ(MakeKey(rows, ""), "Opt2");
}

TEST(KeyGeneration, EqualsSignsAndBlanksAreRemoved) {
    EXPECT_EQ(MakeKey({}, "a = b"), "ab");
}

TEST(KeyGeneration, LongNameWithNoUniquePrefixGetsCounterOnWholeName) {
    const std::vector<OptionRow> rows{option("x", "Abcdef"), option("y", "Abcde")};
    EXPECT_EQ(MakeKey(rows, "Abcdef"), "Abcdef1");
}

TEST(KeyGeneration, RowBeingEditedDoesNotClashWithItself) {
    const std::vector<OptionRow> rows{option("Skill Level", "Skill")};
    EXPECT_EQ(MakeKey(rows, "Skill Level", 0), "Skill");
}

TEST(KeyUniqueness, KeysDifferingOnlyInCaseClash) {
    const std::vector<OptionRow> rows{option("Skill", "optSkill")};
    EXPECT_FALSE(IsKeyUnique(rows, "OPTSKILL"));
    EXPECT_TRUE(IsKeyUnique(rows, "OPTSKILL", 0));
    EXPECT_TRUE(IsKeyUnique(rows, "optSkil"));
}

TEST(KeyUniqueness, CategoryRowsTakePartWithTheirEmptyKey) {
    const std::vector<OptionRow> rows{OptionRow::category("Rules")};
    EXPECT_FALSE(IsKeyUnique(rows, ""));
    EXPECT_TRUE(IsKeyUnique(rows, "x"));
}

TEST(OptionNameRule, NameBeginningWithBracketIsRefusedWithTrailingBlank) {
    EXPECT_EQ(
        optionNameRefusal("[Bots"),
        std::optional<std::string>("Sorry, the option name cannot begin with a [ (open square bracket) "));
    EXPECT_EQ(optionNameRefusal("Bots ["), std::nullopt);
    EXPECT_EQ(optionNameRefusal(""), std::nullopt);
}

TEST(NumberRangeParameter, TenToOneIsSwappedToOneToTen) {
    const auto check = NormaliseNumberRange("10:1");
    EXPECT_TRUE(check.accepted);
    EXPECT_EQ(check.text, "1:10");
}

TEST(NumberRangeParameter, SwapUsesTrimmedTexts) {
    EXPECT_EQ(NormaliseNumberRange(" 10 : 1 ").text, "1:10");
}

TEST(NumberRangeParameter, OrderedRangeStaysAsTyped) {
    const auto check = NormaliseNumberRange(" 1 : 10");
    EXPECT_TRUE(check.accepted);
    EXPECT_EQ(check.text, " 1 : 10");
}

TEST(NumberRangeParameter, MalformedTextsAreRefusedAndKeptAsTyped) {
    for (const std::string text : {"a:5", ":5", "5", "5:-", "-", "5:b"}) {
        const auto check = NormaliseNumberRange(text);
        EXPECT_FALSE(check.accepted) << text;
        EXPECT_EQ(check.text, text);
    }
}

TEST(NumberRangeParameter, EmptyParameterIsAcceptedWithoutCheck) {
    const auto check = NormaliseNumberRange("");
    EXPECT_TRUE(check.accepted);
    EXPECT_EQ(check.text, "");
}

TEST(NumberRangeParameter, RangeThatRoundsEqualIsNotSwapped) {
    const auto check = NormaliseNumberRange("1.4:1.2");
    EXPECT_TRUE(check.accepted);
    EXPECT_EQ(check.text, "1.4:1.2");
}

TEST(NumberRangeParameter, NegativeBoundsAreSwapped) {
    EXPECT_EQ(NormaliseNumberRange("-5:-10").text, "-10:-5");
}

TEST(NumberRangeParameter, BeyondThirtyTwoBitsIsRefusedNotCrashed) {
    EXPECT_FALSE(NormaliseNumberRange("1:99999999999").accepted);
}

TEST(NumberRangeParameter, WarningIsFiveLinesJoinedByCrLf) {
    EXPECT_EQ(
        numberRangeWarning(),
        "Incorrect format - this needs to be : \r\nmin:max\r\nWhere 'min' is the minimum integer allowed and "
        "'max' the maximum.  For example:\r\n1:10\r\nThis specifies a range from 1 to 10");
}

TEST(FolderFlagParameter, YesWordsBecomeOneAnythingElseZero) {
    for (const char* yes : {"TRUE", "true", "Yes", "ok", "1", "-1"})
        EXPECT_EQ(NormaliseFolderFlag(yes), "1") << yes;
    for (const char* no : {"", "0", "no", " 1", "2", "y"})
        EXPECT_EQ(NormaliseFolderFlag(no), "0") << no;
}

TEST(OptionTypes, CaptionsInIndexOrder) {
    EXPECT_STREQ(kOptionTypeCaptions[0], "Yes or No Checkbox");
    EXPECT_STREQ(kOptionTypeCaptions[3], "Number");
    EXPECT_STREQ(kOptionTypeCaptions[9], "Enable/Disable Categories");
    EXPECT_STREQ(kOptionTypeCaptions[11], "Folder name");
}

TEST(OptionTypes, HelpTextsKeepTheirDoubleBlanks) {
    EXPECT_STREQ(kOptionTypeHelp[1],
                 "This gives the user three options - yes, no or 'don't care'.  If 'don't care' "
                 "is selected then the option will be ignored by Tarnwick");
    EXPECT_STREQ(kOptionTypeHelp[11], "This returns a folder from disk.");
}

TEST(OptionTypes, EachCaptionGivesItsKeyword) {
    const std::vector<std::string> expected{"CHECKBOX",   "TRISTATE", "NORMAL TEXT", "NUMBER",
                                            "MODEL/SKIN", "WEAPON",   "TEXT LIST",   "VALUE LIST",
                                            "FILENAME",   "ENABLE",   "ALWAYS",      "FOLDER"};
    for (std::size_t i = 0; i < kOptionTypeCount; ++i)
        EXPECT_EQ(TypeKeyword(kOptionTypeCaptions[i]), expected[i]) << i;
}

TEST(OptionTypes, TristateCheckboxIsTristateByFirstMatch) {
    EXPECT_EQ(TypeKeyword("Tristate Checkbox"), "TRISTATE");
    EXPECT_EQ(TypeKeyword("a number of things"), "NUMBER");
    EXPECT_EQ(TypeKeyword("Nothing known"), "");
}

TEST(OptionTypes, OnlyNumberListsAndFolderNeedAParameter) {
    for (std::size_t i = 0; i < kOptionTypeCount; ++i) {
        const bool needs = i == 3 || i == 5 || i == 6 || i == 7 || i == 11;
        EXPECT_EQ(TypeNeedsParameter(TypeKeyword(kOptionTypeCaptions[i])), needs) << i;
    }
}

TEST(DefinitionSet, BotGameNameIsFirstLineOfSetupFile) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "eraser"});
    EXPECT_EQ(botGameName(ws.root(), "Eraser"), "Quake2");
    EXPECT_EQ(botGameName(ws.root(), "eraser"), "Quake2");
}

TEST(DefinitionSet, BotWithoutSetupFileHasEmptyGameName) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/Crbot");
    EXPECT_EQ(botGameName(ws.root(), "Crbot"), "");
}

TEST(DefinitionSet, GameFolderIsBelowGamePaths) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    EXPECT_EQ(gameDefinitionFolder(ws.root(), "quake2"), ws.path("Game-Paths/Quake2"));
}

} // namespace
} // namespace rd::options_test
