// Map cards: what a map of the installed-maps catalogue is (title, spawn points, CTF flags,
// weapons, bounds, floor plan), read from the map itself.

#include "cli/registry.h"
#include "core/text.h"
#include "maps/mapcard.h"

#include <charconv>
#include <memory>
#include <string>

namespace rd::cli {
namespace {

// A float as JSON with the fewest digits that give it back (0.1, not 0.10000000149011612).
Json shortestNumber(float value) {
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value);
    return Json(std::stod(std::string(text, written.ptr)));
}

Json triple(const std::array<float, 3>& values) {
    return Json::array({shortestNumber(values[0]), shortestNumber(values[1]), shortestNumber(values[2])});
}

Json cardJson(const CatalogueRow& row, const CardResult& result) {
    if (!result.ok())
        return Json{{"name", str(row.name)}, {"source", str(row.source)}, {"error", str(result.reason)}};
    const MapCard& card = result.card;
    return Json{{"name", str(row.name)},
                {"source", str(row.source)},
                {"title", str(card.title)},
                {"deathmatchSpawns", card.deathmatchSpawns},
                {"singleStarts", card.singleStarts},
                {"teamSpawns", Json::array({card.teamSpawns[0], card.teamSpawns[1]})},
                {"ctf", card.ctf},
                {"weapons", strings(card.weapons)},
                {"bounds", Json{{"min", triple(card.mins)}, {"max", triple(card.maxs)}}},
                {"planEdges", card.plan.lines.size()}};
}

const bool mapinfoRegistered = addCommand(
    "mapinfo", "The card of the map named MAP in GAME's catalogue: title, spawn points, CTF, weapons, bounds",
    [](CLI::App& sub) -> Action {
        auto game = std::make_shared<std::string>();
        auto map = std::make_shared<std::string>();
        sub.add_option("GAME", *game, "Game name")->required();
        sub.add_option("MAP", *map, "Map name (without regard to case)")->required();
        return [game, map](Context& ctx) {
            const std::string gameName = utf8ToCp1252(*game);
            const std::string mapName = utf8ToCp1252(*map);
            const Catalogue catalogue = BuildCatalogue(ctx.root, gameName, ctx.trap());
            if (!catalogue.recordFound)
                throw UsageError(catalogue.message);
            const CatalogueRow* row = FindCatalogueRow(catalogue.rows, mapName);
            if (!row)
                throw UsageError("Map not found: " + mapName);
            const CardResult result = CatalogueCard(ctx.root, gameName, *row);
            if (!result.ok())
                ctx.message(row->name + ": " + result.reason);
            return cardJson(*row, result);
        };
    });

} // namespace
} // namespace rd::cli
