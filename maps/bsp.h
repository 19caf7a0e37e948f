#pragma once
// Quake 2 maps (BSP files, "IBSP" version 38), read for their card: the title, the spawn points,
// CTF flags and weapons from the entity lump, the world's bounds from its first model, and a floor
// plan from the faces a player can stand on, seen from above. Only the header, the entity lump and
// the lumps the plan needs are read, and never a byte past the map's own length: a map inside a PAK
// archive is read at its entry's position, as far as its entry's length.

#include <array>
#include <atomic>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// The floor plan: the edges of the world's faces that face upwards (steeply enough to stand on),
// projected from above, each drawn once. `points` holds (x, y) of the vertices those edges join
// (at most 65,536: edges cannot name more); each line joins two of them.
struct MapPlan {
    std::vector<std::array<float, 2>> points;
    std::vector<std::array<std::uint16_t, 2>> lines;
};

struct MapCard {
    std::string name;  // the map's name as the catalogue lists it (set by whoever found the map)
    std::string title; // the world's "message" in the code page, line breaks made blanks; "" without one
    int deathmatchSpawns = 0;        // info_player_deathmatch
    int singleStarts = 0;            // info_player_start
    std::array<int, 2> teamSpawns{}; // info_player_team1, info_player_team2
    bool ctf = false;                // an item_flag_team1 or item_flag_team2 is placed
    // The weapon_* classnames placed, each once: the game's own weapons in the order of its
    // inventory, then any others in byte order.
    std::vector<std::string> weapons;
    std::array<float, 3> mins{}; // the world's bounds (model 0)
    std::array<float, 3> maxs{};
    MapPlan plan;
};

// A card, or why there is none.
struct CardResult {
    MapCard card;
    std::string reason; // empty when `card` holds the map's card
    bool ok() const { return reason.empty(); }
};

// The readable name of a weapon's classname ("weapon_railgun" -> "Railgun"); an unknown classname
// is its own name.
std::string weaponName(std::string_view classname);

// The card of the map that lies in `file` from byte `offset` for `length` bytes. A map that cannot
// be read as one gives no card: the reason says "damaged map: " and what is wrong (a short file, a
// wrong mark or version, lumps past the end, counts or indexes outside their tables, an entity
// without its closing brace...), or why the file could not be read. Tables are checked as far as
// the card follows them: the faces of the world, and the edges and vertices of its floors. When
// `cancel` becomes true the reading stops early (reason "abandoned").
CardResult ReadMapCard(const std::filesystem::path& file, std::uint64_t offset, std::uint64_t length,
                       const std::atomic<bool>* cancel = nullptr);
// A loose map: the whole file.
CardResult ReadMapCard(const std::filesystem::path& file, const std::atomic<bool>* cancel = nullptr);
// A map held in memory.
CardResult ReadMapCardFromBytes(std::string_view bytes);

// Reasons given without a card.
inline constexpr const char* kDamagedMap = "damaged map: ";
inline constexpr const char* kNotFoundInAnyArchive = "not found in any archive";
inline constexpr const char* kAbandoned = "abandoned";

} // namespace rd
