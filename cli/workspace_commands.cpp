// Workspace commands: bots, profiles, games, and the key lookup rule.

#include "cli/registry.h"
#include "core/keylookup.h"
#include "core/text.h"
#include "games/gamelist.h"
#include "profiles/profiles.h"

namespace rd::cli {
namespace {

const bool botsRegistered =
    addCommand("bots", "Plug-in bot names, in listing order", [](CLI::App&) -> Action {
        return [](Context& ctx) { return strings(listPluginBots(ctx.root)); };
    });

const bool profilesRegistered =
    addCommand("profiles", "Profiles and the bot each belongs to", [](CLI::App& sub) -> Action {
        auto bot = std::make_shared<std::string>();
        auto option =
            sub.add_option("--bot", *bot, "Only profiles of this bot (matched without regard to case)");
        return [bot, option](Context& ctx) {
            Json out = Json::array();
            const auto report = [&ctx](const std::string& description) {
                ctx.message("Oh Lord, we have some problems... " + description);
            };
            const std::string selected = utf8ToCp1252(*bot);
            for (const auto& name : listProfiles(ctx.root)) {
                const std::string owner = ReadProfileOwner(ctx.root, name, report);
                if (option->count() > 0 && !equalsNoCase(owner, selected))
                    continue;
                out.push_back(Json{{"name", str(name)}, {"bot", str(owner)}});
            }
            return out;
        };
    });

const bool gamesRegistered = addCommand("games", "Game names, in listing order", [](CLI::App&) -> Action {
    return [](Context& ctx) { return strings(ListGames(ctx.root)); };
});

const bool keyRegistered = addCommand(
    "key", "The value of KEY in TEXT by the key lookup: key TEXT KEY", [](CLI::App& sub) -> Action {
        // TEXT is free text and may begin with '-' like a command line.
        sub.prefix_command();
        CLI::App* self = &sub;
        return [self](Context&) {
            const auto args = self->remaining();
            if (args.size() != 2)
                throw UsageError("usage: key TEXT KEY");
            return str(lookupKey(utf8ToCp1252(args[0]), utf8ToCp1252(args[1])));
        };
    });

} // namespace
} // namespace rd::cli
