// One test per check of the doctor: a workspace that holds exactly one fault gives exactly that
// finding; the same workspace without the fault gives none.

#include "tests/doctor/doctor_support.h"

#include <filesystem>
#include <gtest/gtest.h>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <sys/stat.h>
#endif

namespace checks_test {

using namespace rd;
using rd::test::concat;
using rd::test::DoctorWorkspace;
using rd::test::flag;
using rd::test::onlyFinding;
using rd::test::option;

TEST(DoctorChecks, TheBaseWorkspaceIsClean) {
    DoctorWorkspace d;
    const auto found = d.diagnose();
    EXPECT_TRUE(found.empty()) << rd::test::describe(found);
}

// ---- Profiles ----

TEST(DoctorChecks, ProfileNamingNoRecognisedBot) {
    DoctorWorkspace d;
    d.lines("Team B/profile.cfg", {"Eraser2", "skill=3"});
    EXPECT_TRUE(
        onlyFinding(d.diagnose(), Severity::Error, "Team B/profile.cfg", 1, {"\"Eraser2\"", "Plug-Ins"}));
}

TEST(DoctorChecks, ProfileBotIsComparedWithoutRegardToCase) {
    DoctorWorkspace d;
    d.lines("Team B/profile.cfg", {"ERASER"});
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, ProfileWhoseFirstLineIsEmpty) {
    DoctorWorkspace d;
    d.lines("Team B/profile.cfg", {"", "Eraser"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Team B/profile.cfg", 1, {"names no bot"}));
}

TEST(DoctorChecks, ProfileWithoutProfileCfg) {
    DoctorWorkspace d;
    d.ws.write("Scratch/notes.txt", "not a profile.cfg\r\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Scratch/profile.cfg", std::nullopt,
                            {"\"Scratch\"", "no profile.cfg"}));
}

// ---- Plug-in bots ----

TEST(DoctorChecks, SetupNamingNoGameFolder) {
    DoctorWorkspace d;
    d.setupLine(1, "Quake3");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 1,
                            {"\"Quake3\"", "no folder in Game-Paths"}));
}

TEST(DoctorChecks, SetupGameIsComparedWithoutRegardToCase) {
    DoctorWorkspace d;
    d.setupLine(1, "QUAKE2");
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, SetupWithAnEmptyGameLine) {
    DoctorWorkspace d;
    d.setupLine(1, "");
    EXPECT_TRUE(
        onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 1, {"names no game"}));
}

TEST(DoctorChecks, SetupEndingBeforeLine22) {
    DoctorWorkspace d;
    auto lines = d.setupLines();
    lines.resize(21);
    d.lines("Plug-Ins/Eraser/Setup.cfg", lines);
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", std::nullopt,
                            {"ends after line 21", "line 22"}));
}

TEST(DoctorChecks, SetupOfTwentyTwoLinesIsComplete) {
    DoctorWorkspace d;
    auto lines = d.setupLines();
    lines.resize(22);
    d.lines("Plug-Ins/Eraser/Setup.cfg", lines);
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, SetupAutoExecChoiceOutOfRange) {
    DoctorWorkspace d;
    d.setupLine(15, " 3 ");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 15,
                            {"AutoExec handling", "\" 3 \"", "0, 1 or 2"}));
}

TEST(DoctorChecks, SetupChatChoiceThatIsNoNumber) {
    DoctorWorkspace d;
    d.setupLine(16, "two");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 16,
                            {"chat handling", "\"two\""}));
}

TEST(DoctorChecks, SetupBotConfigChoiceOutOfRange) {
    DoctorWorkspace d;
    d.setupLine(22, " 2 ");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 22,
                            {"bot config file handling", "0 or 1"}));
}

TEST(DoctorChecks, SetupCopiedFileFolderOutOfRange) {
    DoctorWorkspace d;
    d.setupLine(5, " 3 ");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Setup.cfg", 5,
                            {"target folder of the Chat File", "\" 3 \""}));
}

TEST(DoctorChecks, BotWithoutSetupCfg) {
    DoctorWorkspace d;
    d.ws.folder("Plug-Ins/ACE");
    EXPECT_TRUE(
        onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/ACE/Setup.cfg", std::nullopt, {"no Setup.cfg"}));
}

// ---- Games ----

TEST(DoctorChecks, GameWithoutRecord) {
    DoctorWorkspace d;
    d.ws.folder("Game-Paths/LanParty");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/LanParty/LanParty.Gme", std::nullopt,
                            {"\"LanParty\"", "no record"}));
}

TEST(DoctorChecks, RecordProgramFolderMissing) {
    DoctorWorkspace d;
    d.recordLine(1, d.at("quake3", true));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 1,
                            {"program folder", "quake3", "does not exist"}));
}

TEST(DoctorChecks, RecordMapsFolderMissing) {
    DoctorWorkspace d;
    d.recordLine(2, d.at("quake2/baseq2/levels", true));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 2,
                            {"maps folder", "levels", "does not exist"}));
}

TEST(DoctorChecks, RecordModelsFolderMissing) {
    DoctorWorkspace d;
    d.recordLine(5, d.at("quake2/baseq2/skins"));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 5,
                            {"models folder", "skins", "does not exist"}));
}

TEST(DoctorChecks, RecordNamingNoModelsFolder) {
    DoctorWorkspace d;
    d.recordLine(5, "");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 5,
                            {"names no models folder"}));
}

TEST(DoctorChecks, RecordFoldersAreFoundWithoutRegardToCase) {
    DoctorWorkspace d;
    std::string main = d.at("QUAKE2/BaseQ2/MAPS", true);
    d.recordLine(2, main);
    EXPECT_TRUE(d.diagnose().empty()) << rd::test::describe(d.diagnose());
}

TEST(DoctorChecks, ShortRecordUsesTheDefaultsOfTheMissingLines) {
    DoctorWorkspace d;
    // Only line 1: the maps and models folders take their defaults, c:\quake2\baseq2\..., which
    // are not on this machine; the finding has no line, as the record has none to point at.
    d.lines("Game-Paths/Quake2/Quake2.Gme", {d.at("quake2", true)});
    d.ws.write("Game-Paths/Quake2/Female.cfg", ""); // nothing to check against the models
    d.lines("Game-Paths/Quake2/Deathmatch.map", {"[V2]", "q2dm1", "The Edge"}); // no loose map
    const auto found = d.diagnose();
    ASSERT_EQ(found.size(), 2u) << rd::test::describe(found);
    EXPECT_EQ(found[0].line, std::nullopt);
    EXPECT_NE(
        found[0].message.find("\"c:\\quake2\\baseq2\\maps\" (the default, as the record has no line 2)"),
        std::string::npos)
        << found[0].message;
    EXPECT_NE(found[1].message.find("\"c:\\quake2\\baseq2\\players\" (the default"), std::string::npos)
        << found[1].message;
}

TEST(DoctorChecks, RecordStartTypeThatIsNoNumber) {
    DoctorWorkspace d;
    d.recordLine(9, "Hidden");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 9,
                            {"start type \"Hidden\" is not a number"}));
}

TEST(DoctorChecks, RecordStartTypeOutOfRange) {
    DoctorWorkspace d;
    d.recordLine(9, " 6 ");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Quake2.Gme", 9,
                            {"\" 6 \"", "start types 0 to 5"}));
}

TEST(DoctorChecks, TemplateStartTypeThatIsNoNumber) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Template.cfg", {"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "",
                                               "<PATH>baseq2\\players", "_i.pcx", "", "tris.md2", "x"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Template.cfg", 9,
                            {"\"x\" is not a number"}));
}

// ---- Option definitions ----

TEST(DoctorChecks, OptionKeysThatClashWithoutRegardToCase) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"},
                    option("Skill Level", "2", "optSkill", "", "+set a %s", "", "0", "A"),
                    option("Other Skill", "2", "OPTSKILL", "", "+set b %s", "", "0", "B")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 7,
                            {"\"OPTSKILL\"", "\"Other Skill\"", "\"optSkill\"", "\"Skill Level\" (line 2)"}));
}

TEST(DoctorChecks, OptionThirdLineWithFewerThanFiveTabs) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg", {"[Mine]", "Dedicated", "0", "Dedic\t\t+set dedicated 1\t\t0"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"\"Dedicated\"", "holds 4 TABs", "five"}));
}

TEST(DoctorChecks, OptionFileEndingInsideAnOption) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg", {"[Mine]", "Dedicated", "0"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 2,
                            {"ends inside the option \"Dedicated\""}));
}

TEST(DoctorChecks, OptionWithoutKey) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Dedicated", "0", "", "", "+x", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"\"Dedicated\" has no key"}));
}

TEST(DoctorChecks, OptionTypeOutsideZeroToEleven) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Dedicated", "12", "Dedic", "", "+x", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 3,
                            {"type of the option \"Dedicated\" is \"12\"", "0 to 11"}));
}

TEST(DoctorChecks, OptionTypeThatIsNoNumber) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Dedicated", "Checkbox", "Dedic", "", "+x", "", "0", "")}));
    EXPECT_TRUE(
        onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 3, {"\"Checkbox\""}));
}

TEST(DoctorChecks, NumberParameterTheEditorRefuses) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Gravity", "3", "Gravi", "800", "+set sv_gravity %s", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"range \"800\"", "\"Gravity\"", "refuses"}));
}

TEST(DoctorChecks, NumberParameterTheEditorWouldSwapIsAccepted) {
    DoctorWorkspace d;
    d.lines(
        "Game-Paths/Quake2/Opt-User.cfg",
        concat({{"[Mine]"}, option("Gravity", "3", "Gravi", "2000:100", "+set sv_gravity %s", "", "0", "")}));
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, ListParameterNamingAMissingListFile) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Weapon", "5", "Weapo", "weapons.val", "use %s", "", "2", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"\"weapons.val\"", "\"Weapon\"", rd::test::fileName("Game-Paths/Quake2")}));
}

TEST(DoctorChecks, BotListParameterIsLookedUpInItsGamesFolder) {
    DoctorWorkspace d;
    // Eraser plays Quake2: its options' lists are Quake2's. Another game's list does not count.
    d.lines("Game-Paths/Other/Other.Gme", d.recordLines());
    d.lines("Game-Paths/Other/bots.lst", {"one"});
    d.lines("Plug-Ins/Eraser/Opt-User.cfg",
            concat({{"[Mine]"}, option("Bot Names", "6", "BotNa", "bots.lst", "%s", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Opt-User.cfg", 4,
                            {"\"bots.lst\"", rd::test::fileName("Game-Paths/Quake2")}));
}

TEST(DoctorChecks, ListParameterThatIsEmpty) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Map", "6", "MapNa", "", "+map %s", "", "2", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"\"Map\" names no list file"}));
}

TEST(DoctorChecks, EnableOptionNamingAMissingCategory) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Team Options", "9", "TeamO", "", "Mine", "Teams", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"disables the category \"Teams\""}));
}

TEST(DoctorChecks, EnableOptionFindsTheCategoriesOfItsGamesBots) {
    DoctorWorkspace d;
    // The game's "Bot Options" enables [Bots], which only Eraser's Options.cfg holds: Eraser
    // plays Quake2, so the launcher shows both files together.
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[My Settings]"}, option("Bot Options", "9", "BotOp", "", "Bots", "", "0", "")}));
    EXPECT_TRUE(d.diagnose().empty());
    // Without a bot of this game that holds [Bots], nothing holds it.
    d.lines(
        "Plug-Ins/Eraser/Options.cfg",
        concat({{"[Robots]"}, option("Bot Skill", "7", "BotSk", "skill.val", "+set skill %s", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"\"Bot Options\" enables the category \"Bots\""}));
}

TEST(DoctorChecks, EnableOptionOfABotFindsTheCategoriesOfItsGame) {
    DoctorWorkspace d;
    d.lines("Plug-Ins/Eraser/Opt-User.cfg",
            concat({{"[Mine]"}, option("Frags", "9", "Frags", "", "Game Play", "", "0", "")}));
    EXPECT_TRUE(d.diagnose().empty());
    // Another game's category does not count.
    d.lines("Game-Paths/Other/Other.Gme", d.recordLines());
    d.lines("Game-Paths/Other/Options.cfg", {"[Other Play]"});
    d.lines("Plug-Ins/Eraser/Opt-User.cfg",
            concat({{"[Mine]"}, option("Frags", "9", "Frags", "", "Other Play", "", "0", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/Opt-User.cfg", 4,
                            {"enables the category \"Other Play\""}));
}

TEST(DoctorChecks, EnableCategoriesAreComparedWithoutRegardToCase) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Team Options", "9", "TeamO", "", "MINE", "game play", "0", "")}));
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, WhereThatIsNotZeroOneOrTwo) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Opt-User.cfg",
            concat({{"[Mine]"}, option("Dedicated", "0", "Dedic", "", "+x", "", "3", "")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", 4,
                            {"Where of the option \"Dedicated\" is \"3\""}));
}

// ---- Deathmatch flags ----

TEST(DoctorChecks, FlagNumberThatIsNotAnInteger) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/DMcustom.cfg", flag("Half Damage", "1.5", "0"));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/DMcustom.cfg", 3,
                            {"checked value \"1.5\"", "\"Half Damage\"", "not a whole number"}));
}

TEST(DoctorChecks, FlagNumberThatIsText) {
    DoctorWorkspace d;
    d.lines("Plug-Ins/Eraser/DMflags.cfg", flag("Bots Stay", "0", "abc"));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Plug-Ins/Eraser/DMflags.cfg", 3,
                            {"unchecked value \"abc\""}));
}

TEST(DoctorChecks, FlagValuesBothZero) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/DMcustom.cfg", concat({{"[Teams]"}, flag("Nothing", "0", "0")}));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/DMcustom.cfg", 4,
                            {"\"Nothing\"", "both zero"}));
}

TEST(DoctorChecks, FlagValuesBothNonZero) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/DMcustom.cfg", flag("Everything", "4", "8"));
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/DMcustom.cfg", 3,
                            {"\"Everything\"", "both non-zero"}));
}

TEST(DoctorChecks, FlagFileEndingInsideAFlag) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/DMcustom.cfg", {"[Teams]", "Cut Short", ""});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/DMcustom.cfg", 2,
                            {"ends inside the flag \"Cut Short\""}));
}

// ---- Maps, arenas, models ----

TEST(DoctorChecks, CategoryListingAMapThatIsNotInstalled) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Deathmatch.map", {"[V2]", "q2dm1", "The Edge", "q2dm9", "Not Here"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/Deathmatch.map", 4,
                            {"\"q2dm9\" is not installed"}));
}

TEST(DoctorChecks, OldLayoutCategoryListingAMapThatIsNotInstalled) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Classic.map", {"q2dm2", "base1"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/Classic.map", 2,
                            {"\"base1\" is not installed"}));
}

TEST(DoctorChecks, CategoryMapsAreComparedWithoutRegardToCase) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Deathmatch.map", {"[ARENA]", "Q2DM1", "The Edge", "loose1", "Loose"});
    EXPECT_TRUE(d.diagnose().empty());
}

TEST(DoctorChecks, ArenaFileOfAMapThatIsNotInstalled) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/q2dm9.ra2", {"Somewhere"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/q2dm9.ra2", std::nullopt,
                            {"\"q2dm9\", which is not installed"}));
}

TEST(DoctorChecks, FemaleNameWithoutModelFolder) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/Female.cfg", {"FEMALE", "Jezebel"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/Female.cfg", 2,
                            {"\"Jezebel\" has no folder"}));
}

TEST(DoctorChecks, ValueListWithoutTheLastValue) {
    DoctorWorkspace d;
    d.lines("Game-Paths/Quake2/skill.val", {"Easy", "0", "Hard"});
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/skill.val", 3,
                            {"\"Hard\" has no value line"}));
}

// ---- Line ends ----

TEST(DoctorChecks, LinesEndingInLineFeedAlone) {
    DoctorWorkspace d;
    d.ws.write("Game-Paths/Quake2/maps.lst", "q2dm1\r\nq2dm2\nq2dm3\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Game-Paths/Quake2/maps.lst", 2,
                            {"line feed alone", "(2 lines end so)"}));
}

TEST(DoctorChecks, LastLineWithoutTerminator) {
    DoctorWorkspace d;
    d.ws.write("Plug-Ins/Eraser/ChatFiles.cfg", "insults.txt\r\ntaunts.txt");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Plug-Ins/Eraser/ChatFiles.cfg", 2,
                            {"last line has no CR LF"}));
}

TEST(DoctorChecks, CarriageReturnWithoutLineFeed) {
    DoctorWorkspace d;
    d.ws.write("Game-Paths/Quake2/ExecCommands.cfg", "set fraglimit 30\rset timelimit 20\r\nEnd soon\r\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, "Game-Paths/Quake2/ExecCommands.cfg", 1,
                            {"carriage return without a line feed"}));
}

TEST(DoctorChecks, LineEndsAreCheckedBeyondTheLinesTheProgramReads) {
    DoctorWorkspace d;
    // The main window reads only the first line of profile.cfg; the launcher reads them all.
    d.ws.write("Team A/profile.cfg", "Eraser\r\nskill=3\nmaps=q2dm1\r\n");
    EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Error, "Team A/profile.cfg", 2, {"line feed alone"}));
}

TEST(DoctorChecks, LineEndsOfEveryFileTheLauncherReads) {
    const std::vector<std::string> files = {"Team A/profile.cfg",
                                            "Plug-Ins/Eraser/Setup.cfg",
                                            "Plug-Ins/Eraser/ChatFiles.cfg",
                                            "Plug-Ins/Eraser/Skills.cfg",
                                            "Plug-Ins/Eraser/ExecCommands.cfg",
                                            "Plug-Ins/Eraser/Options.cfg",
                                            "Plug-Ins/Eraser/DMflags.cfg",
                                            "Game-Paths/Quake2/Quake2.Gme",
                                            "Game-Paths/Quake2/Template.cfg",
                                            "Game-Paths/Quake2/ExecCommands.cfg",
                                            "Game-Paths/Quake2/Options.cfg",
                                            "Game-Paths/Quake2/Opt-User.cfg",
                                            "Game-Paths/Quake2/DMflags.cfg",
                                            "Game-Paths/Quake2/DMcustom.cfg",
                                            "Game-Paths/Quake2/skill.val",
                                            "Game-Paths/Quake2/maps.lst",
                                            "Game-Paths/Quake2/Deathmatch.map",
                                            "Game-Paths/Quake2/Classic.map",
                                            "Game-Paths/Quake2/q2dm1.ra2",
                                            "Game-Paths/Quake2/Female.cfg"};
    for (const auto& file : files) {
        DoctorWorkspace d;
        d.setupLine(23, "1"); // a last line that is not empty: the bot starts in arena 1
        std::string bytes = d.ws.read(file);
        ASSERT_GE(bytes.size(), 2u) << file;
        bytes.resize(bytes.size() - 2); // the last line loses its CR LF
        d.ws.write(file, bytes);
        std::size_t lines = 1;
        for (std::size_t at = bytes.find("\r\n"); at != std::string::npos; at = bytes.find("\r\n", at + 2))
            ++lines;
        EXPECT_TRUE(onlyFinding(d.diagnose(), Severity::Warning, file, lines, {"last line has no CR LF"}))
            << file;
    }
}

// ---- Files that cannot be read ----

TEST(DoctorChecks, DefinitionFileThatCannotBeRead) {
    DoctorWorkspace d;
    const auto file = d.ws.path("Game-Paths/Quake2/Opt-User.cfg");
#ifdef _WIN32
    // Held open by another program that shares it with nobody.
    HANDLE held =
        ::CreateFileW(file.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    const auto found = d.diagnose();
    ::CloseHandle(held);
    const char* why = "Permission denied";
#else
    // A named pipe: not a plain file.
    std::filesystem::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    const auto found = d.diagnose();
    const char* why = "not a plain file";
#endif
    EXPECT_TRUE(onlyFinding(found, Severity::Error, "Game-Paths/Quake2/Opt-User.cfg", std::nullopt,
                            {"cannot be read", why}));
}

} // namespace checks_test
