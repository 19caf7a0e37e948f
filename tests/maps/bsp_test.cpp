// Map cards read from Quake 2 maps: the title, spawn points, CTF flags and weapons from the entity
// text, the world's bounds and the floor plan from its geometry, whether the map lies loose or
// inside an archive, and every damaged map giving no card with the reason why.

#include "maps/bsp.h"

#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <limits>
#include <set>

namespace rd::bsp_test {

using test::BspBuilder;
using test::BspEntity;
using test::BspMap;
using test::buildBsp;
using test::entityText;
using test::TempWorkspace;

// One room of 256 x 128 units, floor at 0 and ceiling at 128, and these entities.
BspMap oneRoom(const std::vector<BspEntity>& entities) {
    BspBuilder builder;
    builder.addRoom(0, 0, 256, 128, 0, 128);
    return builder.build(entityText(entities));
}

CardResult cardOf(const std::vector<BspEntity>& entities) {
    return ReadMapCardFromBytes(buildBsp(oneRoom(entities)));
}

CardResult cardOfText(const std::string& entityLump) {
    BspBuilder builder;
    builder.addRoom(0, 0, 256, 128, 0, 128);
    return ReadMapCardFromBytes(buildBsp(builder.build(entityLump)));
}

// The plan's lines as point pairs, each written "(x1,y1)-(x2,y2)" with the smaller point first.
std::set<std::string> planLines(const MapCard& card) {
    std::set<std::string> out;
    for (const auto& line : card.plan.lines) {
        auto a = card.plan.points.at(line[0]);
        auto b = card.plan.points.at(line[1]);
        if (b < a)
            std::swap(a, b);
        const auto text = [](const std::array<float, 2>& p) {
            return "(" + std::to_string(static_cast<int>(p[0])) + "," +
                   std::to_string(static_cast<int>(p[1])) + ")";
        };
        out.insert(text(a) + "-" + text(b));
    }
    return out;
}

std::string damaged(const std::string& what) {
    return std::string(kDamagedMap) + what;
}

// ---- entities -----------------------------------------------------------------------------

TEST(MapCard, TheTitleIsTheWorldsMessage) {
    const CardResult result = cardOf({{{"classname", "worldspawn"}, {"message", "The Edge"}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "The Edge");
}

TEST(MapCard, AWorldWithoutAMessageHasAnEmptyTitle) {
    const CardResult result = cardOf({{{"classname", "worldspawn"}, {"sky", "unit1_"}},
                                      {{"classname", "light"}, {"message", "not the world's"}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "");
}

TEST(MapCard, QuotedValuesKeepTheirBlanksAndTheirCodePageBytes) {
    // The value runs from one double quote to the next, blanks and braces included; only the blanks
    // at its ends go.
    const CardResult result =
        cardOf({{{"classname", "worldspawn"}, {"message", " Tokay's  Towers {\xE9} "}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Tokay's  Towers {\xE9}");
}

TEST(MapCard, LineBreaksInTheMessageBecomeOneBlank) {
    const CardResult result =
        cardOf({{{"classname", "worldspawn"}, {"message", "The Frag Pipe\\nby id \\n"}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "The Frag Pipe by id");
}

TEST(MapCard, TheMessageOfTheFirstWorldCountsAndAKeyGivenTwiceTakesItsLastValue) {
    const CardResult result =
        cardOf({{{"classname", "worldspawn"}, {"message", "First"}, {"message", "Second"}},
                {{"classname", "worldspawn"}, {"message", "Third"}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Second");
}

TEST(MapCard, CountsDeathmatchSpawnsSingleStartsAndTeamSpawns) {
    std::vector<BspEntity> entities{{{"classname", "worldspawn"}}};
    for (int i = 0; i < 7; ++i)
        entities.push_back(
            {{"origin", std::to_string(i * 64) + " 0 24"}, {"classname", "info_player_deathmatch"}});
    entities.push_back({{"classname", "info_player_start"}});
    entities.push_back({{"classname", "info_player_start"}, {"targetname", "unit2"}});
    for (int i = 0; i < 3; ++i)
        entities.push_back({{"classname", "info_player_team1"}});
    entities.push_back({{"classname", "info_player_team2"}});
    const CardResult result = cardOf(entities);
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.deathmatchSpawns, 7);
    EXPECT_EQ(result.card.singleStarts, 2);
    EXPECT_EQ(result.card.teamSpawns, (std::array<int, 2>{3, 1}));
    EXPECT_FALSE(result.card.ctf);
}

TEST(MapCard, KeysMatchWithoutRegardToCaseAndClassnamesWithIt) {
    const CardResult result = cardOf({{{"ClassName", "worldspawn"}, {"MESSAGE", "Lost Hallways"}},
                                      {{"CLASSNAME", "info_player_deathmatch"}},
                                      {{"classname", "Info_Player_Deathmatch"}}});
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Lost Hallways");
    // The game spawns nothing for a classname spelt otherwise, so it is not a spawn point.
    EXPECT_EQ(result.card.deathmatchSpawns, 1);
}

TEST(MapCard, EitherTeamsFlagMakesACtfMap) {
    EXPECT_TRUE(cardOf({{{"classname", "worldspawn"}}, {{"classname", "item_flag_team1"}}}).card.ctf);
    EXPECT_TRUE(cardOf({{{"classname", "worldspawn"}}, {{"classname", "item_flag_team2"}}}).card.ctf);
    EXPECT_FALSE(cardOf({{{"classname", "worldspawn"}}, {{"classname", "item_flag"}}}).card.ctf);
}

TEST(MapCard, WeaponsAreListedOnceEachTheGamesOwnInInventoryOrderThenOthersInByteOrder) {
    std::vector<BspEntity> entities{{{"classname", "worldspawn"}}};
    for (const char* weapon : {"weapon_railgun", "weapon_zapper", "weapon_shotgun", "weapon_railgun",
                               "weapon_bfg", "weapon_Zapper", "weapon_supershotgun", "weapon_zapper",
                               "weapon_grapple", "weapon_shotgun", "item_quad", "ammo_slugs"})
        entities.push_back({{"classname", weapon}, {"origin", "0 0 0"}});
    const CardResult result = cardOf(entities);
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.weapons,
              (std::vector<std::string>{"weapon_shotgun", "weapon_supershotgun", "weapon_railgun",
                                        "weapon_bfg", "weapon_grapple", "weapon_Zapper", "weapon_zapper"}));
}

TEST(MapCard, WeaponsHaveTheGamesNames) {
    EXPECT_EQ(weaponName("weapon_supershotgun"), "Super Shotgun");
    EXPECT_EQ(weaponName("weapon_bfg"), "BFG10K");
    EXPECT_EQ(weaponName("weapon_hyperblaster"), "HyperBlaster");
    EXPECT_EQ(weaponName("weapon_zapper"), "weapon_zapper");
}

TEST(MapCard, CommentsBareWordsAndTheClosingNulAreReadAsTheGameReadsThem) {
    const CardResult result = cardOfText("// made by hand\n{\nclassname worldspawn\n\"message\" \"Pits\"\n}\n"
                                         "{ \"classname\" \"info_player_deathmatch\" }\n");
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Pits");
    EXPECT_EQ(result.card.deathmatchSpawns, 1);
    // Whatever follows the NUL that ends the text is not read.
    std::string text = "{\n\"classname\" \"worldspawn\"\n}\n";
    text += '\0';
    text += "{ broken";
    const CardResult cut = cardOfText(text);
    EXPECT_TRUE(cut.ok()) << cut.reason;
}

TEST(MapCard, AnEmptyEntityLumpGivesAnEmptyCard) {
    const CardResult result = cardOfText("");
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "");
    EXPECT_EQ(result.card.deathmatchSpawns, 0);
    EXPECT_TRUE(result.card.weapons.empty());
}

// ---- geometry -----------------------------------------------------------------------------

TEST(MapCard, TheBoundsAreTheWorldModelsAndNotThoseOfOtherModels) {
    BspBuilder builder;
    builder.addRoom(-128, -64, 512, 256, -32, 160);
    builder.startModel(); // a door far away
    builder.addRoom(4000, 4000, 4100, 4100, 0, 64);
    const CardResult result = ReadMapCardFromBytes(buildBsp(builder.build(entityText({}))));
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.mins, (std::array<float, 3>{-128, -64, -32}));
    EXPECT_EQ(result.card.maxs, (std::array<float, 3>{512, 256, 160}));
}

TEST(MapCard, ThePlanHoldsTheEdgesOfTheFloorsOfTheWorldSeenFromAbove) {
    BspBuilder builder;
    builder.addRoom(0, 0, 256, 128, 0, 128);
    // A ramp steep enough to stand on, and a slope too steep for it.
    builder.addFace({{0, 200, 0}, {100, 200, 0}, {100, 300, 50}, {0, 300, 50}});
    builder.addFace({{0, 400, 0}, {100, 400, 0}, {100, 420, 100}, {0, 420, 100}});
    builder.startModel(); // a lift: its floor is not the world's
    builder.addRoom(1000, 1000, 1064, 1064, 0, 8);
    const CardResult result = ReadMapCardFromBytes(buildBsp(builder.build(entityText({}))));
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(planLines(result.card),
              (std::set<std::string>{"(0,0)-(256,0)", "(256,0)-(256,128)", "(0,128)-(256,128)",
                                     "(0,0)-(0,128)", "(0,200)-(100,200)", "(100,200)-(100,300)",
                                     "(0,300)-(100,300)", "(0,200)-(0,300)"}));
    EXPECT_EQ(result.card.plan.lines.size(), 8u);
}

TEST(MapCard, AnEdgeSharedByTwoFloorsIsDrawnOnce) {
    BspBuilder builder;
    builder.addFace({{0, 0, 0}, {100, 0, 0}, {100, 100, 0}, {0, 100, 0}});
    builder.addFace({{100, 0, 0}, {200, 0, 0}, {200, 100, 0}, {100, 100, 0}});
    const BspMap map = builder.build(entityText({}));
    // The shared edge is named once forwards and once backwards.
    ASSERT_EQ(map.edges.size(), 1u + 7u);
    const CardResult result = ReadMapCardFromBytes(buildBsp(map));
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.plan.lines.size(), 7u);
    EXPECT_TRUE(planLines(result.card).contains("(100,0)-(100,100)"));
}

TEST(MapCard, AFaceTurnedAwayFromItsPlaneLooksTheOtherWay) {
    // Two rooms, one above the other: the upper floor and the lower ceiling share a plane.
    BspBuilder builder;
    builder.addRoom(0, 0, 100, 100, 0, 64);
    builder.addRoom(0, 0, 100, 100, 64, 128);
    const BspMap map = builder.build(entityText({}));
    ASSERT_EQ(map.faces[1].plane, map.faces[6].plane);
    ASSERT_NE(map.faces[1].side, map.faces[6].side);
    const CardResult result = ReadMapCardFromBytes(buildBsp(map));
    ASSERT_TRUE(result.ok()) << result.reason;
    // Both floors, no ceiling: the same four lines seen from above, drawn once each.
    EXPECT_EQ(planLines(result.card).size(), 4u);
    EXPECT_EQ(result.card.plan.lines.size(), 8u);
}

TEST(MapCard, ThePlanCanUseEveryVertexAnEdgeCanName) {
    // 16,384 separate floor tiles: 65,536 vertices, the most an edge can name.
    BspBuilder builder;
    for (int i = 0; i < 16384; ++i) {
        const auto x = static_cast<float>((i % 128) * 32);
        const auto y = static_cast<float>((i / 128) * 32);
        builder.addFace({{x, y, 0}, {x + 16, y, 0}, {x + 16, y + 16, 0}, {x, y + 16, 0}});
    }
    const BspMap map = builder.build(entityText({}));
    ASSERT_EQ(map.vertices.size(), 65536u);
    const CardResult result = ReadMapCardFromBytes(buildBsp(map));
    ASSERT_TRUE(result.ok()) << result.reason;
    ASSERT_EQ(result.card.plan.points.size(), 65536u);
    ASSERT_EQ(result.card.plan.lines.size(), 65536u);
    // The last tile's last side joins its fourth corner to its first.
    const auto& last = result.card.plan.lines.back();
    EXPECT_EQ(result.card.plan.points[last[0]], (std::array<float, 2>{127 * 32, 127 * 32 + 16}));
    EXPECT_EQ(result.card.plan.points[last[1]], (std::array<float, 2>{127 * 32, 127 * 32}));
}

TEST(MapCard, AMapWithoutFloorsHasAnEmptyPlan) {
    BspBuilder builder;
    builder.addFace({{0, 0, 0}, {0, 100, 0}, {100, 100, 0}, {100, 0, 0}}); // facing down
    const CardResult result = ReadMapCardFromBytes(buildBsp(builder.build(entityText({}))));
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_TRUE(result.card.plan.lines.empty());
}

// ---- where the map lies -------------------------------------------------------------------

TEST(MapCard, ALooseMapIsReadFromItsFile) {
    TempWorkspace ws;
    ws.write("maps/q2dm1.bsp", buildBsp(oneRoom({{{"classname", "worldspawn"}, {"message", "The Edge"}}})));
    const CardResult result = ReadMapCard(ws.path("maps/q2dm1.bsp"));
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "The Edge");
    EXPECT_EQ(result.card.plan.lines.size(), 4u);
}

TEST(MapCard, AMapInsideAnArchiveIsReadAtItsEntrysPositionAsFarAsItsLength) {
    TempWorkspace ws;
    const std::string first = buildBsp(oneRoom({{{"classname", "worldspawn"}, {"message", "First"}}}));
    const std::string second = buildBsp(oneRoom(
        {{{"classname", "worldspawn"}, {"message", "Second"}}, {{"classname", "info_player_deathmatch"}}}));
    ws.write("pak0.pak", test::buildPak({{"pics/colormap.pcx", std::string(1000, 'p')},
                                         {"maps/first.bsp", first},
                                         {"maps/second.bsp", second}}));
    const auto at = static_cast<std::uint64_t>(12 + 1000 + first.size());
    const CardResult result = ReadMapCard(ws.path("pak0.pak"), at, second.size());
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Second");
    EXPECT_EQ(result.card.deathmatchSpawns, 1);
    const CardResult other = ReadMapCard(ws.path("pak0.pak"), 12 + 1000, first.size());
    ASSERT_TRUE(other.ok()) << other.reason;
    EXPECT_EQ(other.card.title, "First");
}

TEST(MapCard, ALumpBeyondTheEntrysLengthIsDamagedEvenWhenTheArchiveGoesOn) {
    TempWorkspace ws;
    std::string map = buildBsp(oneRoom({{{"classname", "worldspawn"}}}));
    const auto [position, length] = test::bspLump(map, test::kLumpModels);
    // The models now end 8 bytes past the map: inside the archive, in the next entry's data.
    test::setBspLump(map, test::kLumpModels, position + 8, length);
    ws.write("pak0.pak", test::buildPak({{"maps/a.bsp", map}, {"maps/b.bsp", std::string(4096, 'b')}}));
    const CardResult result = ReadMapCard(ws.path("pak0.pak"), 12, map.size());
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(result.reason, damaged("the model lump runs past the end of the map"));
}

TEST(MapCard, AnArchiveEntryPastTheEndOfTheArchiveIsDamaged) {
    TempWorkspace ws;
    const std::string map = buildBsp(oneRoom({}));
    ws.write("pak0.pak", test::buildPak({{"maps/a.bsp", map}}));
    const CardResult result = ReadMapCard(ws.path("pak0.pak"), 12, map.size() + 65);
    EXPECT_EQ(result.reason, damaged("its archive entry runs past the end of the archive"));
    EXPECT_EQ(ReadMapCard(ws.path("pak0.pak"), 1u << 30, 10).reason,
              damaged("its archive entry runs past the end of the archive"));
}

TEST(MapCard, AMissingFileOrAFolderGivesNoCard) {
    TempWorkspace ws;
    ws.folder("maps/folder.bsp");
    EXPECT_EQ(ReadMapCard(ws.path("maps/none.bsp")).reason, "its file is missing");
    EXPECT_EQ(ReadMapCard(ws.path("maps/folder.bsp")).reason, "its file is a folder");
}

TEST(MapCard, ACancelledReadingStopsWithoutACard) {
    TempWorkspace ws;
    ws.write("a.bsp", buildBsp(oneRoom({{{"classname", "worldspawn"}, {"message", "x"}}})));
    std::atomic<bool> cancel{true};
    const CardResult result = ReadMapCard(ws.path("a.bsp"), &cancel);
    EXPECT_EQ(result.reason, kAbandoned);
    EXPECT_EQ(result.card.title, "");
}

// ---- damaged maps -------------------------------------------------------------------------

// A sound map to damage: one room, a world message and a spawn point.
std::string soundMap() {
    return buildBsp(oneRoom(
        {{{"classname", "worldspawn"}, {"message", "Sound"}}, {{"classname", "info_player_deathmatch"}}}));
}

void expectDamaged(const std::string& bytes, const std::string& what) {
    const CardResult result = ReadMapCardFromBytes(bytes);
    EXPECT_FALSE(result.ok());
    EXPECT_EQ(result.reason, damaged(what));
    // No half card is handed out with the reason.
    EXPECT_EQ(result.card.title, "");
    EXPECT_TRUE(result.card.plan.lines.empty());
    EXPECT_TRUE(result.card.plan.points.empty());
}

TEST(DamagedMap, TheSoundMapUsedBelowHasACard) {
    const CardResult result = ReadMapCardFromBytes(soundMap());
    ASSERT_TRUE(result.ok()) << result.reason;
    EXPECT_EQ(result.card.title, "Sound");
}

TEST(DamagedMap, AFileShorterThanTheHeader) {
    expectDamaged("", "it ends inside its header");
    expectDamaged(soundMap().substr(0, 159), "it ends inside its header");
    TempWorkspace ws;
    ws.write("short.bsp", "IBSP\x26");
    EXPECT_EQ(ReadMapCard(ws.path("short.bsp")).reason, damaged("it ends inside its header"));
}

TEST(DamagedMap, AWrongMark) {
    std::string bytes = soundMap();
    bytes[0] = 'P';
    expectDamaged(bytes, "it does not begin with IBSP");
    expectDamaged(test::buildPak({{"maps/a.bsp", std::string(200, 'x')}}), "it does not begin with IBSP");
}

TEST(DamagedMap, AWrongVersion) {
    expectDamaged(buildBsp(oneRoom({}), "IBSP", 29), "it is version 29; Quake 2 maps are version 38");
    expectDamaged(buildBsp(oneRoom({}), "IBSP", -1), "it is version -1; Quake 2 maps are version 38");
}

TEST(DamagedMap, ALumpPastTheEndOfTheFile) {
    std::string bytes = soundMap();
    const std::string cut = bytes.substr(0, bytes.size() - 10); // the models are cut short
    expectDamaged(cut, "the model lump runs past the end of the map");
    for (const auto& [lump, name] :
         std::vector<std::pair<int, std::string>>{{test::kLumpEntities, "entity"},
                                                  {test::kLumpPlanes, "plane"},
                                                  {test::kLumpVertices, "vertex"},
                                                  {test::kLumpFaces, "face"},
                                                  {test::kLumpEdges, "edge"},
                                                  {test::kLumpSurfaceEdges, "surface edge"}}) {
        std::string damagedBytes = bytes;
        test::setBspLump(damagedBytes, lump, static_cast<std::int32_t>(bytes.size()) - 4, 8);
        expectDamaged(damagedBytes, "the " + name + " lump runs past the end of the map");
    }
}

TEST(DamagedMap, AHugeLumpIsRefusedBeforeAnythingIsRead) {
    std::string bytes = soundMap();
    test::setBspLump(bytes, test::kLumpVertices, 160, std::numeric_limits<std::int32_t>::max() - 3);
    expectDamaged(bytes, "the vertex lump runs past the end of the map");
    test::setBspLump(bytes, test::kLumpVertices, std::numeric_limits<std::int32_t>::max(),
                     std::numeric_limits<std::int32_t>::max());
    expectDamaged(bytes, "the vertex lump runs past the end of the map");
}

TEST(DamagedMap, ANegativeLumpPositionOrLength) {
    std::string bytes = soundMap();
    const auto [position, length] = test::bspLump(bytes, test::kLumpFaces);
    test::setBspLump(bytes, test::kLumpFaces, position, -20);
    expectDamaged(bytes, "the face lump has a negative position or length");
    test::setBspLump(bytes, test::kLumpFaces, -1, length);
    expectDamaged(bytes, "the face lump has a negative position or length");
}

TEST(DamagedMap, ALumpThatIsNotAWholeNumberOfRecords) {
    std::string bytes = soundMap();
    const auto [position, length] = test::bspLump(bytes, test::kLumpVertices);
    test::setBspLump(bytes, test::kLumpVertices, position, length - 1);
    expectDamaged(bytes, "the vertex lump does not hold a whole number of vertices");
}

TEST(DamagedMap, AnEntityWithoutItsClosingBrace) {
    const auto withText = [](const std::string& text) {
        BspBuilder builder;
        builder.addRoom(0, 0, 64, 64, 0, 64);
        return buildBsp(builder.build(text));
    };
    expectDamaged(withText(std::string("{\n\"classname\" \"worldspawn\"\n") + '\0'),
                  "an entity has no closing brace");
    expectDamaged(withText("{\n\"classname\" \"worldspawn\"\n}\n{\n\"classname\""),
                  "an entity has no closing brace");
    expectDamaged(withText("{ \"message\" \"The Edge"), "a quoted text in the entities has no closing quote");
    expectDamaged(withText("\"classname\" \"worldspawn\""), "the entities hold text outside braces");
    expectDamaged(withText("{ \"classname\" }"), "an entity key has no value");
}

TEST(DamagedMap, NoWorldModel) {
    BspMap map = oneRoom({});
    map.models.clear();
    expectDamaged(buildBsp(map), "it has no world model");
}

TEST(DamagedMap, TheWorldsFacesOutsideTheFaceTable) {
    for (const auto& [first, count] :
         std::vector<std::pair<int, int>>{{0, 7}, {-1, 2}, {2, -1}, {6, 1}, {0x7fffffff, 0x7fffffff}}) {
        BspMap map = oneRoom({});
        map.models[0].firstFace = first;
        map.models[0].faceCount = count;
        expectDamaged(buildBsp(map), "the world model's faces lie outside the face table");
    }
}

TEST(DamagedMap, AFacePointingPastThePlaneTable) {
    BspMap map = oneRoom({});
    map.faces[3].plane = static_cast<std::uint16_t>(map.planes.size());
    expectDamaged(buildBsp(map), "a face points past the plane table");
}

TEST(DamagedMap, AFacesEdgesOutsideTheSurfaceEdgeTable) {
    for (const auto& [first, count] :
         std::vector<std::pair<int, int>>{{0, -4}, {-4, 4}, {22, 4}, {0, 32767}}) {
        BspMap map = oneRoom({});
        map.faces[0].firstEdge = first;
        map.faces[0].edgeCount = static_cast<std::int16_t>(count);
        expectDamaged(buildBsp(map), "a face's edges lie outside the surface edge table");
    }
}

TEST(DamagedMap, ASurfaceEdgePointingPastTheEdgeTable) {
    for (const std::int32_t bad : {13, -13, std::numeric_limits<std::int32_t>::min(), 1 << 30}) {
        BspMap map = oneRoom({});
        ASSERT_EQ(map.edges.size(), 13u);
        map.surfaceEdges[2] = bad;
        expectDamaged(buildBsp(map), "a surface edge points past the edge table");
    }
}

TEST(DamagedMap, AnEdgePointingPastTheVertexTable) {
    BspMap map = oneRoom({});
    ASSERT_EQ(map.vertices.size(), 8u);
    map.edges[1][1] = 8;
    expectDamaged(buildBsp(map), "an edge points past the vertex table");
    map.edges[1][1] = 65535;
    expectDamaged(buildBsp(map), "an edge points past the vertex table");
}

TEST(DamagedMap, AVertexOrTheBoundsThatAreNotNumbers) {
    BspMap map = oneRoom({});
    map.vertices[2].y = std::numeric_limits<float>::quiet_NaN();
    expectDamaged(buildBsp(map), "a vertex is not a number");
    map = oneRoom({});
    map.models[0].maxs[1] = std::numeric_limits<float>::infinity();
    expectDamaged(buildBsp(map), "the world's bounds are not numbers");
}

} // namespace rd::bsp_test
