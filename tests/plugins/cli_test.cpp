// rosterdesk-cli over plug-in setup files and wizard command lists.

#include "tests/plugins/cli_run.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::cli_test {
namespace {

using test::crlf;
using test::runCli;
using test::TempWorkspace;

const std::vector<std::string> kFullSetup{
    "Quake2", "Eraser",       " 0 ",   "bots.cfg",     " 1 ",        "chat.txt", " 2 ", "maps.txt",
    " 0 ",    "autoexec.cfg", "-1 ",   "launcher.cfg", " 1 ",        "tw.cfg",   " 2 ", " 1 ",
    "routes", "*.zipped",     "skins", "readme.txt",   "male/grunt", " 1 ",      " 3"};

TEST(CliSetup, ShowPrintsTheWholeRecord) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", kFullSetup);
    ws.writeLines("Plug-Ins/Eraser/ChatFiles.cfg", {"hello.txt", "caf\xE9.txt"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"2", "Easy", "Hard"});
    const auto run = runCli(ws.root(), {"show", "setup", ws.path("Plug-Ins/Eraser").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    const auto json = run.json();
    const auto expected = nlohmann::json::parse(R"({
        "game": "Quake2", "botFolder": "Eraser",
        "files": [{"folder": 0, "name": "bots.cfg"}, {"folder": 1, "name": "chat.txt"},
                  {"folder": 2, "name": "maps.txt"}, {"folder": 0, "name": "autoexec.cfg"},
                  {"folder": -1, "name": "launcher.cfg"}, {"folder": 1, "name": "tw.cfg"}],
        "autoExec": 2, "chat": 1, "routeFolder": "routes", "routeFilter": "*.zipped",
        "skinsFolder": "skins", "readme": "readme.txt", "defaultSkin": "male/grunt",
        "botConfig": 1, "usesArenas": true, "startArena": " 3",
        "chatFiles": ["hello.txt", "caf\u00e9.txt"], "startSkill": "2", "skills": ["Easy", "Hard"],
        "skillHandling": 1})");
    EXPECT_EQ(json, expected);
    // Keys in the documented order.
    std::vector<std::string> keys;
    const auto ordered = nlohmann::ordered_json::parse(run.out);
    for (auto it = ordered.begin(); it != ordered.end(); ++it)
        keys.push_back(it.key());
    EXPECT_EQ(keys, (std::vector<std::string>{"game", "botFolder", "files", "autoExec", "chat", "routeFolder",
                                              "routeFilter", "skinsFolder", "readme", "defaultSkin",
                                              "botConfig", "usesArenas", "startArena", "chatFiles",
                                              "startSkill", "skills", "skillHandling"}));
}

TEST(CliSetup, ShortSetupReportsTheConversionAndGivesStatusOne) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Action"});
    const auto run = runCli(ws.root(), {"show", "setup", ws.path("Plug-Ins/Eraser").string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("Type mismatch"), std::string::npos) << run.err;
    const auto json = run.json();
    EXPECT_EQ(json["game"], "Action");
    EXPECT_TRUE(json["botConfig"].is_null());
    EXPECT_EQ(json["routeFilter"], "*.zipped");
}

TEST(CliSetup, MissingFolderIsStatusTwoWithCouldNotFind) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    const auto run = runCli(ws.root(), {"show", "setup", ws.path("Plug-Ins/Ghost").string()});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Could not find Ghost\n");
}

TEST(CliSetup, ResaveRoundTripsAFullSetupByteForByte) {
    TempWorkspace ws;
    std::vector<std::string> lines = kFullSetup;
    lines[14] = " 1 ";
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", lines);
    ws.writeLines("Plug-Ins/Eraser/ChatFiles.cfg", {"a.txt"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"2", "Easy"});
    const auto run = runCli(ws.root(), {"resave", "setup", ws.path("Plug-Ins/Eraser").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, "null\n");
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(lines));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/ChatFiles.cfg"), crlf({"a.txt"}));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"2", "Easy"}));
}

TEST(CliSetup, ResaveOfAnEmptyFolderWritesTheDefaults) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/New");
    const auto run = runCli(ws.root(), {"resave", "setup", ws.path("Plug-Ins/New").string()});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(ws.read("Plug-Ins/New/Setup.Cfg"),
              crlf({"Quake2", "Eraser",   " 0 ", "bots.cfg",     " 0 ", "chat.txt",
                    " 0 ",    "maps.txt", " 0 ", "autoexec.cfg", " 0 ", "launcher.cfg",
                    " 0 ",    "tw.cfg",   " 0 ", " 0 ",          "",    "*.zipped",
                    "",       "",         "",    " 0 ",          ""}));
    EXPECT_EQ(ws.read("Plug-Ins/New/Chatfiles.cfg"), "");
    EXPECT_FALSE(ws.exists("Plug-Ins/New/Skills.cfg"));
}

TEST(CliSetup, DamagedFilesGiveClearErrorsAndNoCrash) {
    TempWorkspace ws;
    std::string garbage;
    for (int i = 0; i < 3000; ++i)
        garbage += static_cast<char>((i * 7919) % 256);
    ws.write("Plug-Ins/B/Setup.cfg", garbage);
    ws.folder("Plug-Ins/B/ChatFiles.cfg");
    ws.write("Plug-Ins/B/Skills.cfg", std::string(10 * 1024 * 1024, 's'));
    const auto show = runCli(ws.root(), {"show", "setup", ws.path("Plug-Ins/B").string()});
    EXPECT_EQ(show.status, 1);
    EXPECT_NE(show.err.find("Sod it!  Something has gone wrong!"), std::string::npos) << show.err;
    EXPECT_NO_THROW(show.json());
    const auto resave = runCli(ws.root(), {"resave", "setup", ws.path("Plug-Ins/B").string()});
    EXPECT_EQ(resave.status, 1);
    EXPECT_NE(resave.err.find("is a folder"), std::string::npos) << resave.err;
}

TEST(CliWizardFile, ShowAndResaveAnOddList) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/ExecCommands.cfg", {"set a 1", "Sets a", "bind x"});
    const auto show = runCli(ws.root(), {"show", "wizard", ws.path("Plug-Ins/B/ExecCommands.cfg").string()});
    ASSERT_EQ(show.status, 0) << show.err;
    EXPECT_EQ(show.json(), nlohmann::json::parse(R"([{"command": "set a 1", "description": "Sets a"},
                                                     {"command": "bind x", "description": ""}])"));
    const auto resave =
        runCli(ws.root(), {"resave", "wizard", ws.path("Plug-Ins/B/ExecCommands.cfg").string()});
    ASSERT_EQ(resave.status, 0) << resave.err;
    EXPECT_EQ(ws.read("Plug-Ins/B/ExecCommands.cfg"), crlf({"set a 1", "Sets a", "bind x", ""}));
}

TEST(CliWizardFile, ResaveOfAnEmptyFileWritesNothing) {
    TempWorkspace ws;
    ws.write("Plug-Ins/B/ExecCommands.cfg", "");
    const auto resave =
        runCli(ws.root(), {"resave", "wizard", ws.path("Plug-Ins/B/ExecCommands.cfg").string()});
    EXPECT_EQ(resave.status, 0) << resave.err;
    EXPECT_EQ(ws.read("Plug-Ins/B/ExecCommands.cfg"), "");
}

TEST(CliWizardFile, MissingFileIsStatusTwo) {
    TempWorkspace ws;
    const auto show = runCli(ws.root(), {"show", "wizard", ws.path("nothing.cfg").string()});
    EXPECT_EQ(show.status, 2);
    EXPECT_EQ(show.out, "");
    EXPECT_NE(show.err, "");
}

TEST(CliWizard, OwnListOfTheBot) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/ExecCommands.cfg", {"a", "b"});
    const auto run = runCli(ws.root(), {"wizard", "B"});
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.json(), nlohmann::json::parse(R"([{"command": "a", "description": "b"}])"));
}

TEST(CliWizard, DefaultListOfTheGameOnlyWithDefaultOption) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/B/Setup.cfg", {"Action"});
    ws.writeLines("Game-Paths/Action/ExecCommands.cfg", {"g", "game default"});
    const auto without = runCli(ws.root(), {"wizard", "B"});
    EXPECT_EQ(without.status, 0) << without.err;
    EXPECT_EQ(without.json(), nlohmann::json::array());
    const auto with = runCli(ws.root(), {"wizard", "B", "--default"});
    EXPECT_EQ(with.status, 0) << with.err;
    EXPECT_EQ(with.json(), nlohmann::json::parse(R"([{"command": "g", "description": "game default"}])"));
    EXPECT_FALSE(ws.exists("Plug-Ins/B/ExecCommands.cfg"));
}

TEST(CliWizard, NeitherListGivesStartFromScratchAndStatusOne) {
    TempWorkspace ws;
    ws.folder("Plug-Ins/B");
    const auto run = runCli(ws.root(), {"wizard", "B", "--default"});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.json(), nlohmann::json::array());
    EXPECT_EQ(run.err,
              "Oh.  You don't seem to have one of those either.  Sorry, you'll have to start from scratch\n");
}

TEST(CliWizard, UnknownBotIsStatusTwo) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    const auto run = runCli(ws.root(), {"wizard", "Ghost"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Could not find Ghost\n");
}

} // namespace
} // namespace rd::cli_test
