// The definition writers (option lists, flag lists, value and text lists) never leave half a
// file: a full disk at the first byte, in the middle or inside the last line, a failing flush or
// a refused rename leaves the old file byte for byte and no temporary file; Retry then saves the
// new file.

#include "definitions/dmflags.h"
#include "definitions/lists.h"
#include "definitions/options.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::TempWorkspace;

std::vector<OptionRow> optionRows(int count, const std::string& tag) {
    std::vector<OptionRow> rows;
    for (int i = 0; i < count; ++i) {
        if (i % 10 == 0) {
            rows.push_back(OptionRow::category("Category " + std::to_string(i) + tag));
            continue;
        }
        OptionRow row;
        row.name = "Option " + std::to_string(i) + tag;
        row.type = std::to_string(i % 12);
        row.key = "Key" + std::to_string(i);
        row.checked = "+set o" + std::to_string(i) + " 1";
        row.where = "0";
        row.helpText = "Help " + tag;
        rows.push_back(std::move(row));
    }
    return rows;
}

TEST(DefinitionSaveFaults, AnOptionListSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    const auto path = ws.path("Game-Paths/Quake2/Options.cfg");
    ws.folder("Game-Paths/Quake2");
    SaveDefinitions(path, optionRows(300, " old"));
    TempWorkspace expected;
    SaveDefinitions(expected.path("Options.cfg"), optionRows(400, " new"));
    const auto descriptions = expectSavesSurviveFaults(
        path,
        [&](StepRunner& runner) { runner.step([&] { SaveDefinitions(path, optionRows(400, " new")); }); },
        expected.read("Options.cfg"));
    EXPECT_EQ(descriptions.size(), 5u);
}

TEST(DefinitionSaveFaults, AFlagListSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    const auto path = ws.path("Game-Paths/Quake2/DMcustom.cfg");
    std::vector<FlagRow> rows{FlagRow::category("Weapons"),
                              FlagRow{false, "Weapons Stay", "4", "0", "<DMFlags>", "help"},
                              FlagRow{false, "Falling Damage", "0", "8", "<DMFlags>", "more help"}};
    ws.writeLines("Game-Paths/Quake2/DMcustom.cfg", {"[Old]", "Old flag", "", "<DMFlags>\t1\t0\told"});
    expectSavesSurviveFaults(
        path, [&](StepRunner& runner) { runner.step([&] { SaveDMflags(path, rows); }); },
        crlf({"[Weapons]", "Weapons Stay", "", "<DMFlags>\t4\t0\thelp", "Falling Damage", "",
              "<DMFlags>\t0\t8\tmore help"}));
}

TEST(DefinitionSaveFaults, ValueAndTextListsSurviveEveryFaultAndRetrySavesThem) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/skill.val", {"Easy", "0", "Hard", "3"});
    ws.writeLines("Game-Paths/Quake2/maps.lst", {"q2dm1"});
    const auto values = ws.path("Game-Paths/Quake2/skill.val");
    expectSavesSurviveFaults(
        values,
        [&](StepRunner& runner) {
            runner.step([&] { SaveList(values, {{"Easy", "0"}, {"Medium", "1"}, {"Hard", "2"}}, true); });
        },
        crlf({"Easy", "0", "Medium", "1", "Hard", "2"}));
    const auto texts = ws.path("Game-Paths/Quake2/maps.lst");
    expectSavesSurviveFaults(
        texts,
        [&](StepRunner& runner) {
            runner.step([&] { SaveList(texts, {{"q2dm1", "q2dm1"}, {"q2dm2", "q2dm2"}}, false); });
        },
        crlf({"q2dm1", "q2dm2"}));
}

} // namespace savefaults_test
