// A bot added from another bot's files (or from none) loads as the setup editor shows it.

#include "plugins/setupfiles.h"
#include "profiles/botcommands.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::addbot_setup_test {
namespace {

using test::TempWorkspace;

TEST(AddedBotSetup, CopiedSetupLoadsInTheNewBot) {
    TempWorkspace ws;
    ws.writeLines("Plug-Ins/Eraser/Setup.cfg", {"Action", "Gladiator", " 1 ", "mybots.cfg"});
    ws.writeLines("Plug-Ins/Eraser/Skills.cfg", {"3", "Novice", "Expert"});
    ws.folder("Plug-Ins/Eraser/routes");
    std::vector<std::string> errors;
    StepRunner adding(collectAndIgnore(errors));
    ASSERT_EQ(AddBot(ws.root(), "Clone", "Eraser", adding).result, AddBotResult::Created);
    StepRunner loading(collectAndIgnore(errors));
    const auto setup = LoadPluginSetup(pluginFolder(ws.root(), "Clone"), loading);
    ASSERT_TRUE(setup);
    EXPECT_EQ(setup->game, "Action");
    EXPECT_EQ(setup->botFolder, "Gladiator");
    EXPECT_EQ(setup->files[0], (CopiedFile{1, "mybots.cfg"}));
    EXPECT_EQ(setup->skills, (std::vector<std::string>{"Novice", "Expert"}));
    EXPECT_EQ(setup->skillHandling, 1);
    // The short Setup.cfg ends before line 22.
    EXPECT_EQ(errors, std::vector<std::string>{"Type mismatch"});
}

TEST(AddedBotSetup, BotWithoutBaseLoadsTheDefaults) {
    TempWorkspace ws;
    ws.folder("Plug-Ins");
    std::vector<std::string> errors;
    StepRunner runner(collectAndIgnore(errors));
    ASSERT_EQ(AddBot(ws.root(), "Fresh", "", runner).result, AddBotResult::Created);
    const auto setup = LoadPluginSetup(pluginFolder(ws.root(), "Fresh"), runner);
    ASSERT_TRUE(setup);
    EXPECT_EQ(*setup, PluginSetup{});
    EXPECT_TRUE(errors.empty());
}

} // namespace
} // namespace rd::addbot_setup_test
