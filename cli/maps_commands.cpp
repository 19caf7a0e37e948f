// Maps and arenas: PAK archive directories, the installed-maps catalogue, map categories and
// arena files.

#include "cli/registry.h"
#include "core/steprunner.h"
#include "core/text.h"
#include "core/workspace.h"
#include "maps/arenas.h"
#include "maps/categories.h"
#include "maps/pak.h"

#include <memory>

namespace rd::cli {
namespace {

namespace fs = std::filesystem;

void requireGame(const fs::path& root, const std::string& game) {
    const fs::path folder = gameFolder(root, game);
    if (game.empty() || !folderExists(folder))
        throw UsageError("Could not find " + pathText(folder));
}

const bool categoryRegistered = addFileKind(
    "category", loadSaveKind<MapCategory>(LoadCategory, SaveCategory, [](const MapCategory& category) {
        Json maps = Json::array();
        for (const auto& row : category.maps)
            maps.push_back(Json{{"name", str(row.name)}, {"title", str(row.title)}});
        return Json{{"arena", category.arena}, {"maps", maps}};
    }));

const bool arenasRegistered =
    addFileKind("arenas", loadSaveKind<std::vector<std::string>>(LoadArenas, SaveArenas, strings));

const bool pakRegistered = addFileKind(
    "pak", FileKind{[](Context&, const fs::path& path, const std::vector<std::string>& extra) {
                        bool all = false;
                        for (const auto& option : extra) {
                            if (option != "--all")
                                throw UsageError("Unknown option for pak: " + option + " (only --all)");
                            all = true;
                        }
                        requireFile(path);
                        std::vector<std::string> names;
                        const bool complete = ScanPak(path, names, !all);
                        return Json{{"complete", complete}, {"names", strings(names)}};
                    },
                    {}});

Configure gameCommand(std::function<Json(Context&, const std::string&)> run) {
    return [run = std::move(run)](CLI::App& sub) -> Action {
        auto game = std::make_shared<std::string>();
        sub.add_option("GAME", *game, "Game name")->required();
        return [game, run](Context& ctx) { return run(ctx, utf8ToCp1252(*game)); };
    };
}

const bool catalogueRegistered =
    addCommand("catalogue", "The installed-maps catalogue of GAME, in the add-map screen's order",
               gameCommand([](Context& ctx, const std::string& game) {
                   const Catalogue catalogue = BuildCatalogue(ctx.root, game, ctx.trap());
                   if (!catalogue.recordFound)
                       throw UsageError(catalogue.message);
                   Json out = Json::array();
                   for (const auto& row : catalogue.rows)
                       out.push_back(Json{{"name", str(row.name)}, {"source", str(row.source)}});
                   return out;
               }));

const bool categoriesRegistered = addCommand("categories", "The map category names of GAME",
                                             gameCommand([](Context& ctx, const std::string& game) {
                                                 requireGame(ctx.root, game);
                                                 return strings(ListCategories(ctx.root, game));
                                             }));

const bool arenaMapsRegistered = addCommand("arena-maps", "The names of GAME's maps that have arena files",
                                            gameCommand([](Context& ctx, const std::string& game) {
                                                requireGame(ctx.root, game);
                                                return strings(ListArenaMaps(ctx.root, game));
                                            }));

} // namespace
} // namespace rd::cli
