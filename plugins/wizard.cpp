#include "plugins/wizard.h"

#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"
#include "plugins/setupfiles.h"

namespace rd {

namespace fs = std::filesystem;

fs::path wizardFile(const fs::path& root, std::string_view bot) {
    return resolvePath(pluginFolder(root, bot), "ExecCommands.cfg");
}

std::vector<WizardCommand> readWizardFile(const fs::path& path) {
    LineReader reader(path);
    std::vector<WizardCommand> commands;
    while (!reader.atEnd()) {
        WizardCommand command;
        command.command = reader.readLine("");
        command.description = reader.readLine("");
        commands.push_back(std::move(command));
    }
    return commands;
}

void writeWizardFile(const fs::path& path, const std::vector<WizardCommand>& commands) {
    LineWriter writer(path);
    for (const auto& command : commands) {
        writer.writeLine(command.command);
        writer.writeLine(command.description);
    }
    writer.close();
}

WizardLoad LoadWizardCommands(const fs::path& root, std::string_view bot,
                              const UseDefaultQuestion& useDefault) {
    WizardLoad load;
    const fs::path own = wizardFile(root, bot);
    if (fileExists(own)) {
        load.source = WizardSource::Own;
        load.commands = readWizardFile(own);
        return load;
    }
    if (!useDefault || !useDefault()) {
        load.source = WizardSource::Declined;
        return load;
    }
    std::string game;
    const fs::path setup = resolvePath(pluginFolder(root, bot), "Setup.cfg");
    if (fileExists(setup)) {
        LineReader reader(setup);
        game = reader.readLine("");
    }
    if (!game.empty()) {
        const fs::path defaults = resolvePath(resolvePath(gamePathsFolder(root), game), "ExecCommands.cfg");
        if (fileExists(defaults)) {
            load.source = WizardSource::GameDefault;
            load.commands = readWizardFile(defaults);
            return load;
        }
    }
    load.source = WizardSource::NoneAvailable;
    return load;
}

bool SaveWizardCommands(const fs::path& root, std::string_view bot,
                        const std::vector<WizardCommand>& commands) {
    if (commands.empty())
        return false;
    writeWizardFile(wizardFile(root, bot), commands);
    return true;
}

} // namespace rd
