// The plug-in writers (Setup.cfg, Chatfiles.cfg, Skills.cfg, the AutoExec wizard's commands)
// never leave half a file: a full disk at the first byte, in the middle or inside the last line,
// a failing flush or a refused rename leaves the old file byte for byte and no temporary file;
// Retry then saves the new file, and the files after it are saved too.

#include "plugins/setupfiles.h"
#include "plugins/wizard.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::TempWorkspace;

PluginSetup edited() {
    PluginSetup setup;
    setup.chat = 2;
    setup.chatFiles = {"chat1.txt", "chat2.txt", "taunts.txt"};
    setup.skillHandling = 1;
    setup.startSkill = "2";
    setup.skills = {"Low", "Mid", "Top"};
    setup.routeFolder = "routes";
    return setup;
}

// A bot with setup files other than what edited() saves.
void oldBot(const TempWorkspace& ws) {
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Quake2", "Eraser", " 0 ", "old bots.cfg"});
    ws.writeLines("Plug-Ins/Eraser/Chatfiles.cfg", {"old.txt"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"0", "Old"});
}

TEST(PluginSaveFaults, SetupCfgSurvivesEveryFaultAndRetrySavesItAndTheFilesAfterIt) {
    TempWorkspace ws;
    oldBot(ws);
    const auto folder = ws.path("Plug-Ins/Eraser");
    const PluginSetup setup = edited();
    expectSavesSurviveFaults(
        ws.path("Plug-Ins/Eraser/Setup.cfg"),
        [&](StepRunner& runner) { SavePluginSetup(folder, setup, runner); }, crlf(setupLines(setup)));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Chatfiles.cfg"), crlf(setup.chatFiles));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"2", "Low", "Mid", "Top"}));
}

TEST(PluginSaveFaults, ChatfilesCfgSurvivesEveryFaultAndRetrySavesItAndSkillsCfgAfterIt) {
    TempWorkspace ws;
    oldBot(ws);
    const auto folder = ws.path("Plug-Ins/Eraser");
    const PluginSetup setup = edited();
    expectSavesSurviveFaults(
        ws.path("Plug-Ins/Eraser/Chatfiles.cfg"),
        [&](StepRunner& runner) { SavePluginSetup(folder, setup, runner); }, crlf(setup.chatFiles), 1);
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Setup.cfg"), crlf(setupLines(setup)));
    EXPECT_EQ(ws.read("Plug-Ins/Eraser/Skills.cfg"), crlf({"2", "Low", "Mid", "Top"}));
}

TEST(PluginSaveFaults, SkillsCfgSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    oldBot(ws);
    const auto folder = ws.path("Plug-Ins/Eraser");
    const PluginSetup setup = edited();
    expectSavesSurviveFaults(
        ws.path("Plug-Ins/Eraser/Skills.cfg"),
        [&](StepRunner& runner) { SavePluginSetup(folder, setup, runner); }, crlf({"2", "Low", "Mid", "Top"}),
        2);
}

TEST(PluginSaveFaults, TheWizardCommandsSurviveEveryFaultAndRetrySavesThem) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/ExecCommands.cfg", {"old command", "old description"});
    const std::vector<WizardCommand> commands{{"set skill 2", "Skill two"}, {"fraglimit 20", "Twenty frags"}};
    expectSavesSurviveFaults(
        ws.path("Plug-Ins/Eraser/ExecCommands.cfg"),
        [&](StepRunner& runner) { runner.step([&] { SaveWizardCommands(ws.root(), "Eraser", commands); }); },
        crlf({"set skill 2", "Skill two", "fraglimit 20", "Twenty frags"}));
}

} // namespace savefaults_test
