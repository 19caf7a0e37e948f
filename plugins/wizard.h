#pragma once
// The AutoExec wizard's command list: Plug-Ins\<bot>\ExecCommands.cfg (the bot's own list) and
// Game-Paths\<game>\ExecCommands.cfg (a game's default list). The file is a sequence of pairs of
// lines: the command, then its description.

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

struct WizardCommand {
    std::string command;
    std::string description;
    bool operator==(const WizardCommand&) const = default;
};

// Asked when the bot has no list of its own (information icon, the bot's name as title).
inline constexpr std::string_view kWizardUseDefaultQuestion =
    "There is no AutoExec Wizard commands list for this specific bot "
    "Would you like to use the one from the default folder?";
// Shown (exclamation icon) when neither the bot nor its game has a list.
inline constexpr std::string_view kWizardStartFromScratch =
    "Oh.  You don't seem to have one of those either.  Sorry, you'll have to start from scratch";
// Title of the error message while the list editor opens.
inline constexpr std::string_view kWizardLoadTitle = "Adding a Bot - clicking OK";

// Which list LoadWizardCommands found.
enum class WizardSource {
    Own,          // the bot's own ExecCommands.cfg
    GameDefault,  // the game's default list (the user agreed to use it)
    Declined,     // no own list and the user did not want the default: empty list
    NoneAvailable // no own list, no game named or no default list: empty list, kWizardStartFromScratch
};

struct WizardLoad {
    WizardSource source = WizardSource::Declined;
    std::vector<WizardCommand> commands;
};

// Asked only when the bot has no list of its own: true to use the game's default list.
using UseDefaultQuestion = std::function<bool()>;

// The bot's own list; when it has none and `useDefault` answers yes, the default list of the
// game named by the first line of the bot's Setup.cfg. Raises when a file cannot be read.
WizardLoad LoadWizardCommands(const std::filesystem::path& root, std::string_view bot,
                              const UseDefaultQuestion& useDefault);

// Writes Plug-Ins\<bot>\ExecCommands.cfg when the list holds at least one command; an empty
// list writes nothing and leaves an existing file as it is. True when the file was written.
bool SaveWizardCommands(const std::filesystem::path& root, std::string_view bot,
                        const std::vector<WizardCommand>& commands);

// The file of a bot's own list (resolved without regard to case where present).
std::filesystem::path wizardFile(const std::filesystem::path& root, std::string_view bot);

// Reads a command list file: pairs of lines, a missing last description is empty.
std::vector<WizardCommand> readWizardFile(const std::filesystem::path& path);
// Writes a command list file whole (command line, then description line, per command).
void writeWizardFile(const std::filesystem::path& path, const std::vector<WizardCommand>& commands);

} // namespace rd
