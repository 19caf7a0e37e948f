// The demo installation's maps are real maps: rosterdesk-cli reads their cards on the generated
// demo workspace, and the one map kept damaged says what is wrong with it.
#include "tests/support/process_data.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <string>

namespace demo_maps_test {

using nlohmann::json;
using rd::test::ProgramRun;

ProgramRun mapinfo(const std::string& map) {
    return rd::test::runProgram(ROSTERDESK_CLI,
                                {"--root", ROSTERDESK_DEMO_WORKSPACE, "mapinfo", "Quake2", map});
}

TEST(DemoMaps, EveryMapOfTheDemoCatalogueButOneHasACardWithAFloorPlan) {
    const ProgramRun catalogue =
        rd::test::runProgram(ROSTERDESK_CLI, {"--root", ROSTERDESK_DEMO_WORKSPACE, "catalogue", "Quake2"});
    ASSERT_EQ(catalogue.status, 0) << catalogue.err;
    int damaged = 0;
    for (const auto& row : catalogue.json()) {
        const ProgramRun run = mapinfo(row["name"].get<std::string>());
        const json card = run.json();
        if (card.contains("error")) {
            ++damaged;
            EXPECT_EQ(run.status, 1);
            EXPECT_EQ(card["name"], "q2duel");
            EXPECT_EQ(card["error"], "damaged map: an entity has no closing brace");
            continue;
        }
        EXPECT_EQ(run.status, 0) << run.err;
        EXPECT_GT(card["planEdges"].get<int>(), 0) << card.dump();
    }
    EXPECT_EQ(damaged, 1);
}

TEST(DemoMaps, DeathmatchAndCtfMapsHaveTheirTitlesSpawnsAndFlags) {
    const json edge = mapinfo("q2dm1").json();
    EXPECT_EQ(edge["title"], "The Edge");
    EXPECT_EQ(edge["deathmatchSpawns"], 8);
    EXPECT_EQ(edge["ctf"], false);
    const json ctf = mapinfo("q2ctf1").json();
    EXPECT_EQ(ctf["title"], "McKinley Revival");
    EXPECT_EQ(ctf["ctf"], true);
    EXPECT_EQ(ctf["teamSpawns"], json::parse("[4, 4]"));
    EXPECT_EQ(mapinfo("city2").json()["title"], "");
}

} // namespace demo_maps_test
