// The demo workspace's definition files: a game and a bot with categories, every option kind and
// the lists the options name; each opens on screen and comes back byte for byte on OK.

#include "definitions/options.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmOptions.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/workspace_data.h"

#include <QPushButton>
#include <filesystem>
#include <gtest/gtest.h>
#include <set>

namespace demo_definitions_test {

using namespace rd;
using namespace rd::test;

const std::filesystem::path kDemo = ROSTERDESK_DEMO;

// The option files of a game folder or a bot folder, loaded.
std::vector<OptionRow> optionsOf(const char* folder) {
    std::vector<OptionRow> rows;
    for (const char* file : {kOptionsFile, kUserOptionsFile}) {
        const auto more = LoadDefinitions(kDemo / folder / file);
        rows.insert(rows.end(), more.begin(), more.end());
    }
    return rows;
}

void expectEveryKindWithItsLists(const char* folder) {
    const auto rows = optionsOf(folder);
    std::set<std::string> kinds;
    bool category = false;
    for (const auto& row : rows) {
        category = category || row.isCategory;
        if (row.isCategory)
            continue;
        kinds.insert(row.type);
        const std::string keyword = TypeKeyword(kOptionTypeCaptions.at(std::stoul(row.type)));
        if (keyword == "WEAPON" || keyword == "VALUE LIST" || keyword == "TEXT LIST") {
            EXPECT_TRUE(std::filesystem::exists(kDemo / "Game-Paths/Quake2" / row.parameter))
                << folder << ": " << row.parameter;
        }
        if (keyword == "NUMBER") {
            EXPECT_TRUE(NormaliseNumberRange(row.parameter).accepted) << folder << ": " << row.parameter;
        }
    }
    EXPECT_TRUE(category) << folder;
    EXPECT_EQ(kinds.size(), kOptionTypeCount) << folder;
}

TEST(DemoDefinitions, TheGameUsesEveryOptionKindAndItsListsExist) {
    expectEveryKindWithItsLists("Game-Paths/Quake2");
}

TEST(DemoDefinitions, TheBotUsesEveryOptionKindAndItsListsExist) {
    expectEveryKindWithItsLists("Plug-Ins/Eraser");
}

TEST(DemoDefinitions, EveryDefinitionFileComesBackByteForByteFromTheScreens) {
    for (const char* folder : {"Game-Paths/Quake2", "Plug-Ins/Eraser"}) {
        for (const char* file : {kOptionsFile, kUserOptionsFile, kFlagsFile, kUserFlagsFile}) {
            SCOPED_TRACE(std::string(folder) + "/" + file);
            const std::string bytes = readBytes(kDemo / folder / file);
            ASSERT_FALSE(bytes.empty());
            TempWorkspace ws;
            ws.write(file, bytes);
            if (std::string(file).find("DM") == 0) {
                frmDMflags list(ws.path(file));
                EXPECT_GT(list.lvFlags->topLevelItemCount(), 0);
                list.cmdOK_Click();
            } else {
                frmOptions list(ws.path(file), "Quake2", ws.root());
                EXPECT_GT(list.lvOptions->topLevelItemCount(), 0);
                list.cmdOK_Click();
            }
            EXPECT_EQ(ws.read(file), bytes);
        }
    }
}

} // namespace demo_definitions_test
