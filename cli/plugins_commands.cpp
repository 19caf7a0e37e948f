// Plug-in setup files and AutoExec wizard commands: show/resave setup and wizard, and the
// wizard command over a bot.

#include "cli/registry.h"
#include "core/text.h"
#include "core/workspace.h"
#include "plugins/setupfiles.h"
#include "plugins/wizard.h"

namespace rd::cli {
namespace {

const std::string kSetupTrapLead = "Sod it!  Something has gone wrong!";

// The setup editor's error trap: the lead line, then the error's description; goes on.
TrapHandler setupTrap(Context& ctx) {
    return [&ctx](const std::string& description) {
        ctx.message(kSetupTrapLead + "\r\n" + description);
        return TrapChoice::Ignore;
    };
}

PluginSetup loadSetup(const std::filesystem::path& folder, StepRunner& runner) {
    auto setup = LoadPluginSetup(folder, runner);
    if (!setup)
        throw UsageError(std::string(kCouldNotFind) + nameOf(folder));
    return *setup;
}

Json setupJson(const PluginSetup& setup) {
    Json files = Json::array();
    for (const auto& file : setup.files)
        files.push_back(Json{{"folder", file.folder}, {"name", str(file.name)}});
    return Json{{"game", str(setup.game)},
                {"botFolder", str(setup.botFolder)},
                {"files", files},
                {"autoExec", setup.autoExec},
                {"chat", setup.chat},
                {"routeFolder", str(setup.routeFolder)},
                {"routeFilter", str(setup.routeFilter)},
                {"skinsFolder", str(setup.skinsFolder)},
                {"readme", str(setup.readme)},
                {"defaultSkin", str(setup.defaultSkin)},
                {"botConfig", setup.botConfig ? Json(*setup.botConfig) : Json(nullptr)},
                {"usesArenas", setup.usesArenas},
                {"startArena", str(setup.startArena)},
                {"chatFiles", strings(setup.chatFiles)},
                {"startSkill", str(setup.startSkill)},
                {"skills", strings(setup.skills)},
                {"skillHandling", setup.skillHandling}};
}

Json wizardJson(const std::vector<WizardCommand>& commands) {
    Json out = Json::array();
    for (const auto& command : commands)
        out.push_back(Json{{"command", str(command.command)}, {"description", str(command.description)}});
    return out;
}

const bool setupRegistered = addFileKind(
    "setup", FileKind{[](Context& ctx, const std::filesystem::path& folder, const std::vector<std::string>&) {
                          StepRunner runner(setupTrap(ctx));
                          return setupJson(loadSetup(folder, runner));
                      },
                      [](Context& ctx, const std::filesystem::path& folder) {
                          StepRunner runner(setupTrap(ctx));
                          const PluginSetup setup = loadSetup(folder, runner);
                          StepRunner saving(setupTrap(ctx));
                          SavePluginSetup(folder, setup, saving);
                      }});

const bool wizardFileRegistered = addFileKind(
    "wizard", FileKind{[](Context& ctx, const std::filesystem::path& path, const std::vector<std::string>&) {
                           requireFile(path);
                           std::vector<WizardCommand> commands;
                           StepRunner runner(setupTrap(ctx));
                           runner.step([&] { commands = readWizardFile(path); });
                           return wizardJson(commands);
                       },
                       [](Context& ctx, const std::filesystem::path& path) {
                           requireFile(path);
                           std::vector<WizardCommand> commands;
                           StepRunner runner(setupTrap(ctx));
                           if (!runner.step([&] { commands = readWizardFile(path); }))
                               return;
                           // The editor's OK writes only a list with at least one command.
                           if (!commands.empty())
                               runner.step([&] { writeWizardFile(path, commands); });
                       }});

const bool wizardRegistered = addCommand(
    "wizard", "The bot's AutoExec wizard commands: wizard BOT [--default]", [](CLI::App& sub) -> Action {
        auto bot = std::make_shared<std::string>();
        auto useDefault = std::make_shared<bool>(false);
        sub.add_option("BOT", *bot, "Plug-in bot name")->required();
        sub.add_flag("--default", *useDefault, "Use the game's default list when the bot has none");
        return [bot, useDefault](Context& ctx) {
            const std::string name = utf8ToCp1252(*bot);
            if (!folderExists(pluginFolder(ctx.root, name)))
                throw UsageError(std::string(kCouldNotFind) + name);
            WizardLoad load;
            StepRunner runner(setupTrap(ctx));
            runner.step(
                [&] { load = LoadWizardCommands(ctx.root, name, [useDefault] { return *useDefault; }); });
            if (load.source == WizardSource::NoneAvailable)
                ctx.message(std::string(kWizardStartFromScratch));
            return wizardJson(load.commands);
        };
    });

} // namespace
} // namespace rd::cli
