// The map category and arena writers never leave half a file: a full disk at the first byte, in
// the middle or inside the last line, a failing flush or a refused rename leaves the old file
// byte for byte and no temporary file; Retry then saves the new file.

#include "maps/arenas.h"
#include "maps/categories.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace savefaults_test {

using namespace rd;
using rd::test::crlf;
using rd::test::expectSavesSurviveFaults;
using rd::test::TempWorkspace;

TEST(MapSaveFaults, ACategoryFileSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Duel.map", {"[V2]", "q2dm1", "The Edge"});
    const auto path = ws.path("Game-Paths/Quake2/Duel.map");
    MapCategory category;
    category.maps = {{"q2dm1", "The Edge"}, {"q2dm2", "Tokay's Towers"}, {"q2dm8", "Lost Hallways"}};
    expectSavesSurviveFaults(
        path, [&](StepRunner& runner) { runner.step([&] { SaveCategory(path, category); }); },
        crlf({"[V2]", "q2dm1", "The Edge", "q2dm2", "Tokay's Towers", "q2dm8", "Lost Hallways"}));
}

TEST(MapSaveFaults, AnArenaFileSurvivesEveryFaultAndRetrySavesIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/q2dm1.ra2", {"arena one"});
    const auto path = ws.path("Game-Paths/Quake2/q2dm1.ra2");
    expectSavesSurviveFaults(
        path,
        [&](StepRunner& runner) {
            runner.step([&] { SaveArenas(path, {"arena one", "arena two", "arena 3"}); });
        },
        crlf({"arena one", "arena two", "arena 3"}));
}

} // namespace savefaults_test
