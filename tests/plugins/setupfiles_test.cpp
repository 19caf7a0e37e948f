// Plug-in setup files: Setup.cfg, ChatFiles.cfg and Skills.cfg, loading with defaults and saving.

#include "core/steprunner.h"
#include "core/textfile.h"
#include "plugins/setupfiles.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::setupfiles_test {
namespace {

using test::crlf;
using test::TempWorkspace;

struct Loaded {
    std::optional<PluginSetup> setup;
    std::vector<std::string> errors;
};

Loaded load(const TempWorkspace& ws, const std::string& bot) {
    Loaded loaded;
    StepRunner runner(collectAndIgnore(loaded.errors));
    loaded.setup = LoadPluginSetup(pluginFolder(ws.root(), bot), runner);
    return loaded;
}

std::vector<std::string> save(const TempWorkspace& ws, const std::string& bot, const PluginSetup& setup) {
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    SavePluginSetup(pluginFolder(ws.root(), bot), setup, runner);
    return errors;
}

const std::vector<std::string> kFullSetup{
    "Quake2", "Eraser",       " 0 ",   "bots.cfg",     " 1 ",        "chat.txt", " 2 ", "maps.txt",
    " 0 ",    "autoexec.cfg", "-1 ",   "launcher.cfg", " 1 ",        "tw.cfg",   " 1 ", " 2 ",
    "routes", "*.zipped",     "skins", "readme.txt",   "male/grunt", " 1 ",      " 3"};

TEST(PluginSetup, OnlyTheFirstLineGivesDefaultsAndTheLine22ConversionFailure) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Gladiator/Setup.cfg", {"Action"});
    const Loaded loaded = load(ws, "Gladiator");
    ASSERT_TRUE(loaded.setup);
    const PluginSetup& s = *loaded.setup;
    EXPECT_EQ(s.game, "Action");
    EXPECT_EQ(s.botFolder, "Eraser");
    const char* names[] = {"bots.cfg", "chat.txt", "maps.txt", "autoexec.cfg", "launcher.cfg", "tw.cfg"};
    for (int i = 0; i < kCopiedFileCount; ++i) {
        EXPECT_EQ(s.files[i].folder, 0) << i;
        EXPECT_EQ(s.files[i].name, names[i]) << i;
    }
    EXPECT_EQ(s.autoExec, 0);
    EXPECT_EQ(s.chat, 0);
    EXPECT_EQ(s.routeFolder, "");
    EXPECT_EQ(s.routeFilter, "*.zipped");
    EXPECT_EQ(s.skinsFolder, "");
    EXPECT_EQ(s.readme, "");
    EXPECT_EQ(s.defaultSkin, "");
    ASSERT_EQ(loaded.errors, std::vector<std::string>{"Type mismatch"});
    EXPECT_FALSE(s.botConfig);
    // Ignore went on with line 23.
    EXPECT_FALSE(s.usesArenas);
}

TEST(PluginSetup, Line22FailureRetriedGoesOnlyAsFarAsTheHandlerSays) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"Action"});
    int calls = 0;
    StepRunner runner(
        [&calls](const std::string&) { return ++calls < 3 ? TrapChoice::Retry : TrapChoice::Abort; });
    const auto setup = LoadPluginSetup(pluginFolder(ws.root(), "B"), runner);
    ASSERT_TRUE(setup);
    EXPECT_EQ(calls, 3);
    EXPECT_TRUE(runner.aborted());
    EXPECT_FALSE(setup->botConfig);
}

TEST(PluginSetup, FolderWithoutSkillsAndChatFilesLoadsEmptyListsAndSkillHandlingZero) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", kFullSetup);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_TRUE(loaded.setup->chatFiles.empty());
    EXPECT_TRUE(loaded.setup->skills.empty());
    EXPECT_EQ(loaded.setup->startSkill, "");
    EXPECT_EQ(loaded.setup->skillHandling, 0);
}

TEST(PluginSetup, MissingFolderIsNotFound) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    const Loaded loaded = load(ws, "Nobody");
    EXPECT_FALSE(loaded.setup);
    EXPECT_EQ(std::string(kCouldNotFind) + "Nobody", "Could not find Nobody");
}

TEST(PluginSetup, MissingSetupFileLoadsTheDefaultsWithNoBotConfigWhichSavesAsZero) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_EQ(*loaded.setup, PluginSetup{});
    EXPECT_TRUE(save(ws, "B", *loaded.setup).empty());
    EXPECT_EQ(ws.read("Plug-Ins/B/Setup.Cfg"),
              crlf({"Quake2", "Eraser",   " 0 ", "bots.cfg",     " 0 ", "chat.txt",
                    " 0 ",    "maps.txt", " 0 ", "autoexec.cfg", " 0 ", "launcher.cfg",
                    " 0 ",    "tw.cfg",   " 0 ", " 0 ",          "",    "*.zipped",
                    "",       "",         "",    " 0 ",          ""}));
}

TEST(PluginSetup, FullSetupLoadsEveryField) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", kFullSetup);
    ws.writeLines("Plug-Ins/B/ChatFiles.cfg", {"one.txt", "", "three.txt"});
    ws.writeLines("Plug-Ins/B/Skills.cfg", {"2", "Easy", "Hard"});
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(loaded.errors.empty());
    const PluginSetup& s = *loaded.setup;
    EXPECT_EQ(s.files[1].folder, 1);
    EXPECT_EQ(s.files[2].folder, 2);
    EXPECT_EQ(s.files[4].folder, -1);
    EXPECT_EQ(s.autoExec, 1);
    EXPECT_EQ(s.chat, 2);
    EXPECT_EQ(s.routeFolder, "routes");
    EXPECT_EQ(s.skinsFolder, "skins");
    EXPECT_EQ(s.readme, "readme.txt");
    EXPECT_EQ(s.defaultSkin, "male/grunt");
    EXPECT_EQ(s.botConfig, 1);
    EXPECT_EQ(s.chatFiles, (std::vector<std::string>{"one.txt", "", "three.txt"}));
    EXPECT_EQ(s.startSkill, "2");
    EXPECT_EQ(s.skills, (std::vector<std::string>{"Easy", "Hard"}));
    EXPECT_EQ(s.skillHandling, 1);
}

TEST(PluginSetup, FullSetupRoundTripsByteForByte) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", kFullSetup);
    ws.writeLines("Plug-Ins/B/ChatFiles.cfg", {"one.txt", "", "three.txt"});
    ws.writeLines("Plug-Ins/B/Skills.cfg", {"2", "Easy", "Hard"});
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(save(ws, "B", *loaded.setup).empty());
    EXPECT_EQ(ws.read("Plug-Ins/B/Setup.cfg"), crlf(kFullSetup));
    EXPECT_EQ(ws.read("Plug-Ins/B/ChatFiles.cfg"), crlf({"one.txt", "", "three.txt"}));
    EXPECT_EQ(ws.read("Plug-Ins/B/Skills.cfg"), crlf({"2", "Easy", "Hard"}));
    EXPECT_FALSE(ws.listed("Plug-Ins/B/Setup.Cfg"));
    EXPECT_FALSE(ws.listed("Plug-Ins/B/Chatfiles.cfg"));
}

TEST(PluginSetup, FilesAreTestedAndOpenedWithoutRegardToCase) {
    TempWorkspace ws;
    ws.writeLines("plug-ins/B/SETUP.CFG", kFullSetup);
    ws.writeLines("plug-ins/B/chatfiles.CFG", {"c.txt"});
    ws.writeLines("plug-ins/B/skills.CFG", {"1", "Only"});
    const Loaded loaded = load(ws, "b");
    ASSERT_TRUE(loaded.setup);
    EXPECT_EQ(loaded.setup->chat, 2);
    EXPECT_EQ(loaded.setup->chatFiles, std::vector<std::string>{"c.txt"});
    EXPECT_EQ(loaded.setup->skills, std::vector<std::string>{"Only"});
}

TEST(PluginSetup, NewFilesGetTheSaveSpelling) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    PluginSetup setup;
    setup.chatFiles = {"x.txt"};
    EXPECT_TRUE(save(ws, "B", setup).empty());
    EXPECT_TRUE(ws.exists("Plug-Ins/B/Setup.Cfg"));
    EXPECT_EQ(ws.read("Plug-Ins/B/Chatfiles.cfg"), crlf({"x.txt"}));
}

TEST(PluginSetup, ClearedArenaBoxSavesAnEmptyLastLine) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    PluginSetup setup;
    setup.usesArenas = false;
    setup.startArena = "5";
    setup.botConfig = 0;
    save(ws, "B", setup);
    const std::string bytes = ws.read("Plug-Ins/B/Setup.Cfg");
    EXPECT_EQ(bytes.substr(bytes.size() - 9), "\r\n 0 \r\n\r\n");
}

TEST(PluginSetup, LastLineWithBlanksAroundANumberSelectsArenasKeepingTheBlanks) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullSetup;
    lines.back() = " 3";
    ws.writeLines("Plug-Ins/B/Setup.cfg", lines);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(loaded.setup->usesArenas);
    EXPECT_EQ(loaded.setup->startArena, " 3");
}

TEST(PluginSetup, LastLineThatIsNotANumberMeansNoArenas) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullSetup;
    lines.back() = "three";
    ws.writeLines("Plug-Ins/B/Setup.cfg", lines);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_FALSE(loaded.setup->usesArenas);
    EXPECT_EQ(loaded.setup->startArena, "");
}

TEST(PluginSetup, SkillHandlingOneWithAnEmptyListDeletesSkillsAndLoadsAsZero) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", kFullSetup);
    ws.writeLines("Plug-Ins/B/Skills.cfg", {"2", "Easy"});
    PluginSetup setup = *load(ws, "B").setup;
    setup.skillHandling = 1;
    setup.skills.clear();
    EXPECT_TRUE(save(ws, "B", setup).empty());
    EXPECT_FALSE(ws.exists("Plug-Ins/B/Skills.cfg"));
    EXPECT_EQ(load(ws, "B").setup->skillHandling, 0);
}

TEST(PluginSetup, SkillHandlingZeroDeletesSkillsEvenWithLevels) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/skills.cfg", {"2", "Easy"});
    PluginSetup setup;
    setup.skillHandling = 0;
    setup.skills = {"Easy"};
    save(ws, "B", setup);
    EXPECT_FALSE(ws.exists("Plug-Ins/B/skills.cfg"));
}

TEST(PluginSetup, SkillsFileWithOnlyTheStartSkillGivesSkillHandlingZero) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Skills.cfg", {"4"});
    const Loaded loaded = load(ws, "B");
    EXPECT_EQ(loaded.setup->startSkill, "4");
    EXPECT_TRUE(loaded.setup->skills.empty());
    EXPECT_EQ(loaded.setup->skillHandling, 0);
}

TEST(PluginSetup, AutoExecChoiceTwoSavesAsOneAndLoadsAsLauncherCfg) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    PluginSetup setup;
    setup.autoExec = 2;
    setup.botConfig = 0;
    save(ws, "B", setup);
    EXPECT_EQ(readAllLines(ws.path("Plug-Ins/B/Setup.Cfg")).at(14), " 1 ");
    EXPECT_EQ(load(ws, "B").setup->autoExec, 1);
}

TEST(PluginSetup, EmptyChatListWritesAZeroByteFile) {
    TempWorkspace ws;
    ws.write("Plug-Ins/B/ChatFiles.cfg", crlf({"old.txt"}));
    PluginSetup setup;
    save(ws, "B", setup);
    EXPECT_EQ(ws.read("Plug-Ins/B/ChatFiles.cfg"), "");
}

TEST(PluginSetup, ChoiceOutsideTheListsIsAFailureAndTheDefaultStays) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullSetup;
    lines[14] = " 3 ";
    lines[15] = "-1 ";
    lines[21] = " 2 ";
    ws.writeLines("Plug-Ins/B/Setup.cfg", lines);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    ASSERT_EQ(loaded.errors.size(), 3u);
    EXPECT_EQ(loaded.errors[0], "Control array element '3' doesn't exist");
    EXPECT_EQ(loaded.errors[1], "Overflow");
    EXPECT_EQ(loaded.errors[2], "Control array element '2' doesn't exist");
    EXPECT_EQ(loaded.setup->autoExec, 0);
    EXPECT_EQ(loaded.setup->chat, 0);
    EXPECT_FALSE(loaded.setup->botConfig);
    EXPECT_EQ(loaded.setup->routeFolder, "routes");
    EXPECT_TRUE(loaded.setup->usesArenas);
}

TEST(PluginSetup, FolderChoiceIsTheLeadingNumberOfItsLine) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullSetup;
    lines[2] = "2 maps";
    lines[4] = "none";
    ws.writeLines("Plug-Ins/B/Setup.cfg", lines);
    const Loaded loaded = load(ws, "B");
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_EQ(loaded.setup->files[0].folder, 2);
    EXPECT_EQ(loaded.setup->files[1].folder, 0);
}

TEST(PluginSetup, NoChatChoiceLeavesLine16Out) {
    PluginSetup setup;
    setup.chat = -1;
    const auto lines = setupLines(setup);
    EXPECT_EQ(lines.size(), 22u);
    EXPECT_EQ(lines[15], "");
    EXPECT_EQ(setupLines(PluginSetup{}).size(), 23u);
}

TEST(PluginSetup, BinaryGarbageLoadsWithoutCrashingAndReportsThroughTheTrap) {
    TempWorkspace ws;
    std::string garbage;
    unsigned state = 99;
    for (int i = 0; i < 5000; ++i) {
        state = state * 1103515245u + 12345u;
        garbage += static_cast<char>((state >> 16) & 0xFF);
        if (i % 150 == 149)
            garbage += "\r\n";
    }
    ws.write("Plug-Ins/B/Setup.cfg", garbage);
    ws.write("Plug-Ins/B/ChatFiles.cfg", garbage);
    ws.write("Plug-Ins/B/Skills.cfg", garbage);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_FALSE(loaded.errors.empty());
    EXPECT_FALSE(loaded.setup->chatFiles.empty());
    EXPECT_FALSE(loaded.setup->botConfig);
}

TEST(PluginSetup, TenMegabyteSingleLineIsTheGameName) {
    TempWorkspace ws;
    const std::string huge(10 * 1024 * 1024, 'q');
    ws.write("Plug-Ins/B/Setup.cfg", huge);
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_EQ(loaded.setup->game.size(), huge.size());
    EXPECT_EQ(loaded.errors, std::vector<std::string>{"Type mismatch"});
}

TEST(PluginSetup, FolderStandingWhereSetupShouldBeCountsAsMissingAndFailsOnSave) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B/Setup.cfg");
    ws.writeLines("Plug-Ins/B/Skills.cfg", {"1", "Easy"});
    const Loaded loaded = load(ws, "B");
    ASSERT_TRUE(loaded.setup);
    EXPECT_TRUE(loaded.errors.empty());
    EXPECT_EQ(loaded.setup->game, "Quake2");
    const auto errors = save(ws, "B", *loaded.setup);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_NE(errors[0].find("is a folder"), std::string::npos) << errors[0];
    // The later steps still ran.
    EXPECT_EQ(ws.read("Plug-Ins/B/Chatfiles.cfg"), "");
    EXPECT_EQ(ws.read("Plug-Ins/B/Skills.cfg"), crlf({"1", "Easy"}));
}

} // namespace
} // namespace rd::setupfiles_test
