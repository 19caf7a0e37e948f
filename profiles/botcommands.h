#pragma once
// The main window's commands that change workspace folders: delete a bot, delete or rename a
// profile, add a bot (optionally seeded from another bot's files).
//
// Delete bot, delete profile and rename profile have no error trap: a failing delete, removal
// or rename raises FileError, which ends the program with a fatal report.

#include "core/steprunner.h"

#include <filesystem>
#include <string>
#include <string_view>

namespace rd {

// Questions and messages of the commands.
inline constexpr std::string_view kDeleteBotQuestion =
    "Delete this recognised bot, are you sure?  If you do this, you won't be able to add any more "
    "profiles for this bot!";
inline constexpr std::string_view kDeleteProfileQuestion = "Delete this profile completely, are you sure?";
inline constexpr std::string_view kRenameProfilePrompt = "Type in a new name for the profile below";
inline constexpr std::string_view kRenameProfileTitle = "Roster Desk";
inline constexpr std::string_view kAddBotTitle = "Create New Plug-In Bot";
inline constexpr std::string_view kNoBotName = "No bot name given!";
inline constexpr std::string_view kBotAlreadyExists = "Bot plug-in already exists with this name";
inline constexpr std::string_view kAddBotErrorTitle = "Adding a Bot - clicking OK";
// "Plugin bot " + base + " not found - new bot will be empty"
std::string baseBotNotFoundMessage(std::string_view base);

// Deletes the files directly in Plug-Ins\<bot> (when there are any), then the folder. Raises.
void DeleteBot(const std::filesystem::path& root, std::string_view bot);

// Deletes the files directly in the profile's folder, then the folder. A folder without files
// fails ("File not found"), as does one that holds a sub-folder. Raises.
void DeleteProfile(const std::filesystem::path& root, std::string_view profile);

enum class ProfileRenameResult {
    Renamed,
    NoName,     // empty answer or cancelled input box: nothing happens
    RefusedName // a separator, "." or "..": refuseNewName's message is shown, nothing touched
};

// Renames the profile's folder. A name taken by another entry raises FileError; a change of
// letter case only succeeds. profile.cfg is not touched.
ProfileRenameResult RenameProfile(const std::filesystem::path& root, std::string_view profile,
                                  std::string_view newName);

enum class AddBotResult {
    Created,       // the folder exists now; the caller adds the name and opens the setup editor
    NoName,        // kNoBotName; the dialog stays open
    RefusedName,   // refuseNewName's message; the dialog stays open
    AlreadyExists, // kBotAlreadyExists; the dialog stays open
    Failed         // creating the folder failed (reported through the trap)
};

struct AddBotOutcome {
    AddBotResult result = AddBotResult::Failed;
    bool baseMissing = false; // the caller shows baseBotNotFoundMessage(base) and goes on
};

// Creates Plug-Ins\<name>; when `base` is not empty, copies each file directly in the base
// bot's folder whose name is not yet in the new folder (sub-folders are not copied). Each file
// operation is a step of `runner` (title kAddBotErrorTitle). The add-bot dialog runs the two
// halves itself (CreateBotFolder, then CopyBaseBotFiles) so it can list the new bot in between.
AddBotOutcome AddBot(const std::filesystem::path& root, std::string_view name, std::string_view base,
                     StepRunner& runner);

// The first half of AddBot: the refusals, then the new folder (a step of `runner`). baseMissing
// is always false.
AddBotOutcome CreateBotFolder(const std::filesystem::path& root, std::string_view name, StepRunner& runner);

// The second half of AddBot: copies the base bot's files into the bot `name`. Returns false when
// the base bot's folder does not exist (nothing is copied; the caller shows
// baseBotNotFoundMessage). Nothing happens when `base` is empty.
bool CopyBaseBotFiles(const std::filesystem::path& root, std::string_view name, std::string_view base,
                      StepRunner& runner);

} // namespace rd
