#include "demo/demo_maps.h"

#include "tests/support/bsp_writer_data.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <vector>

namespace rd::demo {

namespace {

using rd::test::BspBuilder;
using rd::test::BspEntity;

struct DemoMap {
    const char* name;
    const char* title; // nullptr: the map has no message
    int rooms;
    int deathmatchSpawns;
    int singleStarts;
    bool ctf;
    std::vector<const char*> weapons;
};

// Every title here is this demo's own.
const std::vector<DemoMap>& demoMaps() {
    static const std::vector<DemoMap> maps{
        {"q2dm1",
         "The Edge",
         5,
         8,
         0,
         false,
         {"weapon_shotgun", "weapon_supershotgun", "weapon_grenadelauncher", "weapon_rocketlauncher",
          "weapon_railgun"}},
        {"q2dm2",
         "Tokay's Towers",
         6,
         10,
         0,
         false,
         {"weapon_machinegun", "weapon_chaingun", "weapon_hyperblaster", "weapon_railgun"}},
        {"q2dm3", "The Frag Pipe", 4, 6, 0, false, {"weapon_supershotgun", "weapon_rocketlauncher"}},
        {"q2dm4",
         "Lost Hallways",
         7,
         12,
         0,
         false,
         {"weapon_shotgun", "weapon_chaingun", "weapon_grenadelauncher", "weapon_bfg"}},
        {"q2dm5", "Pit Stop", 3, 4, 0, false, {"weapon_supershotgun", "weapon_railgun"}},
        {"q2dm6", "Ember Hall", 5, 8, 0, false, {"weapon_hyperblaster", "weapon_rocketlauncher"}},
        {"q2dm7", "Slime Works", 4, 6, 0, false, {"weapon_machinegun", "weapon_grenadelauncher"}},
        {"q2dm8",
         "Warehouse",
         6,
         8,
         0,
         false,
         {"weapon_shotgun", "weapon_supershotgun", "weapon_chaingun", "weapon_railgun"}},
        {"q2ctf1",
         "McKinley Revival",
         6,
         4,
         0,
         true,
         {"weapon_grapple", "weapon_supershotgun", "weapon_rocketlauncher", "weapon_railgun"}},
        {"q2ctf2", "Stronghold", 5, 4, 0, true, {"weapon_grapple", "weapon_chaingun", "weapon_hyperblaster"}},
        {"q2ctf3", "The Smelter", 6, 4, 0, true, {"weapon_grapple", "weapon_grenadelauncher", "weapon_bfg"}},
        {"q2ctf4", "Dry Gulch", 4, 2, 0, true, {"weapon_grapple", "weapon_railgun"}},
        {"q2ctf5", "Red Rock", 7, 4, 0, true, {"weapon_grapple", "weapon_shotgun", "weapon_rocketlauncher"}},
        {"base1", "Landing Zone", 5, 2, 2, false, {"weapon_shotgun"}},
        {"base2", "Pump Station", 6, 2, 1, false, {"weapon_shotgun", "weapon_machinegun"}},
        {"base3", "Relay Tower", 4, 0, 1, false, {"weapon_supershotgun"}},
        {"fact1", "Receiving Dock", 6, 0, 2, false, {"weapon_chaingun"}},
        {"fact2", "Processing Line", 5, 0, 1, false, {"weapon_grenadelauncher"}},
        {"city1", "Outer Courts", 7, 4, 1, false, {"weapon_hyperblaster"}},
        {"city2", nullptr, 5, 2, 1, false, {"weapon_rocketlauncher"}},
        {"boss1", "Inner Vault", 3, 0, 1, false, {"weapon_railgun", "weapon_bfg"}},
        {"lava", "Lava Pit", 4, 6, 0, false, {"weapon_rocketlauncher", "weapon_railgun"}},
        {"ztn2dm1", "Frozen Yard", 5, 8, 0, false, {"weapon_supershotgun", "weapon_railgun"}},
        {"DM_Aftershock",
         "Aftershock",
         6,
         10,
         0,
         false,
         {"weapon_chaingun", "weapon_rocketlauncher", "weapon_hyperblaster", "weapon_railgun"}},
    };
    return maps;
}

// The map the demo keeps damaged: its entity text has no closing brace.
constexpr const char* kDamagedMapName = "q2duel";

// A small deterministic stream of numbers for each map, from its name.
class Dice {
public:
    explicit Dice(const std::string& seed) {
        for (unsigned char c : seed)
            state_ = (state_ ^ c) * 1099511628211ull;
    }
    int roll(int sides) {
        state_ = state_ * 6364136223846793005ull + 1442695040888963407ull;
        return static_cast<int>((state_ >> 33) % static_cast<std::uint64_t>(sides));
    }

private:
    std::uint64_t state_ = 14695981039346656037ull;
};

struct Room {
    float x0, y0, x1, y1, floor;
    float centerX() const { return (x0 + x1) / 2; }
    float centerY() const { return (y0 + y1) / 2; }
};

std::string origin(float x, float y, float z) {
    return std::to_string(static_cast<int>(x)) + " " + std::to_string(static_cast<int>(y)) + " " +
           std::to_string(static_cast<int>(z));
}

// Rooms on a grid of 640-unit cells, three to a row, each joined to its neighbours east and north
// by a straight corridor.
std::string buildDemoMap(const DemoMap& map) {
    Dice dice(map.name);
    BspBuilder builder;
    std::vector<Room> rooms;
    for (int i = 0; i < map.rooms; ++i) {
        const float cellX = static_cast<float>((i % 3) * 640);
        const float cellY = static_cast<float>((i / 3) * 640);
        const float width = static_cast<float>(256 + 64 * dice.roll(4));
        const float depth = static_cast<float>(192 + 64 * dice.roll(4));
        const float x0 = cellX + static_cast<float>(32 * dice.roll(3));
        const float y0 = cellY + static_cast<float>(32 * dice.roll(3));
        const float floor = static_cast<float>(32 * dice.roll(3));
        rooms.push_back({x0, y0, x0 + width, y0 + depth, floor});
        builder.addRoom(x0, y0, x0 + width, y0 + depth, floor, floor + 192);
    }
    // Rooms of one row overlap across it (and of one column along it) by at least 128 units, so a
    // corridor 80 units wide fits in the middle of the overlap.
    constexpr float kHalfCorridor = 40;
    for (std::size_t i = 0; i < rooms.size(); ++i) {
        const Room& from = rooms[i];
        const float floor = from.floor;
        if (i % 3 != 2 && i + 1 < rooms.size()) {
            const Room& east = rooms[i + 1];
            const float y = (std::max(from.y0, east.y0) + std::min(from.y1, east.y1)) / 2;
            builder.addRoom(from.x1, y - kHalfCorridor, east.x0, y + kHalfCorridor,
                            std::min(floor, east.floor), std::min(floor, east.floor) + 128);
        }
        if (i + 3 < rooms.size()) {
            const Room& north = rooms[i + 3];
            const float x = (std::max(from.x0, north.x0) + std::min(from.x1, north.x1)) / 2;
            builder.addRoom(x - kHalfCorridor, from.y1, x + kHalfCorridor, north.y0,
                            std::min(floor, north.floor), std::min(floor, north.floor) + 128);
        }
    }

    std::vector<BspEntity> entities;
    BspEntity world{{"classname", "worldspawn"}, {"sky", "unit1_"}};
    if (map.title)
        world.push_back({"message", map.title});
    entities.push_back(world);
    // Each spawn point, weapon and flag stands in a room of its own turn.
    int placed = 0;
    const auto where = [&] {
        const Room& room = rooms[static_cast<std::size_t>(placed % static_cast<int>(rooms.size()))];
        const float dx = static_cast<float>(24 * (placed / static_cast<int>(rooms.size()) % 3 - 1));
        ++placed;
        return origin(room.centerX() + dx, room.centerY() + dx, room.floor + 24);
    };
    for (int i = 0; i < map.deathmatchSpawns; ++i)
        entities.push_back({{"classname", "info_player_deathmatch"}, {"origin", where()}, {"angle", "90"}});
    for (int i = 0; i < map.singleStarts; ++i)
        entities.push_back({{"classname", "info_player_start"}, {"origin", where()}});
    if (map.ctf) {
        entities.push_back(
            {{"classname", "item_flag_team1"},
             {"origin", origin(rooms.front().centerX(), rooms.front().centerY(), rooms.front().floor + 24)}});
        entities.push_back(
            {{"classname", "item_flag_team2"},
             {"origin", origin(rooms.back().centerX(), rooms.back().centerY(), rooms.back().floor + 24)}});
        for (int i = 0; i < 4; ++i) {
            entities.push_back({{"classname", "info_player_team1"}, {"origin", where()}});
            entities.push_back({{"classname", "info_player_team2"}, {"origin", where()}});
        }
    }
    for (const char* weapon : map.weapons)
        entities.push_back({{"classname", weapon}, {"origin", where()}});
    entities.push_back({{"classname", "light"}, {"origin", where()}, {"light", "300"}});
    return rd::test::buildBsp(builder.build(rd::test::entityText(entities)));
}

std::string mapNameOf(const std::string& name) {
    std::string lowered = name;
    std::transform(lowered.begin(), lowered.end(), lowered.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    const std::size_t at = lowered.find(".bsp");
    return at == std::string::npos ? name : name.substr(0, at);
}

} // namespace

std::string demoMapBytes(const std::string& fileOrMapName) {
    const std::string name = mapNameOf(fileOrMapName);
    if (name == kDamagedMapName) {
        BspBuilder builder;
        builder.addRoom(0, 0, 512, 384, 0, 192);
        return rd::test::buildBsp(
            builder.build(std::string("{\n\"classname\" \"worldspawn\"\n\"message\" \"Duel\"\n") + '\0'));
    }
    for (const DemoMap& map : demoMaps())
        if (name == map.name)
            return buildDemoMap(map);
    return buildDemoMap(DemoMap{name.c_str(), nullptr, 3, 4, 0, false, {"weapon_shotgun"}});
}

} // namespace rd::demo
