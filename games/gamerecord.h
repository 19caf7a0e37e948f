#pragma once
// A game's path record (Game-Paths\<game>\<game>.Gme) and its paths template
// (Game-Paths\<game>\Template.cfg): twelve lines each, a field's meaning is its line number.

#include "core/steprunner.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rd {

// One game's folders and launch settings, named after the game editor's controls.
struct GamePathRecord {
    std::string txtLocationOfExe;
    std::string txtMapLocation;
    std::string txtEXEName;
    std::string txtCDPath;
    std::string txtModels;
    std::string txtSkinFilter;
    std::string txtBatchFile;
    std::string txtModelName;
    int cboStartType = -1; // index into the start types; -1 = no entry chosen
    bool chkLaunchBatchDirect = false;
    bool chkFinishSample = false;
    std::string txtMapReadMe;

    bool operator==(const GamePathRecord&) const = default;
};

// The start types of line 9, index 0 first.
inline constexpr const char* kStartTypes[] = {"Hidden",
                                              "Normal with Focus",
                                              "Minimized with Focus",
                                              "Maximized with Focus",
                                              "Normal with no Focus",
                                              "Minimized with no Focus"};
inline constexpr int kStartTypeCount = 6;
// The editor's hint for the start types.
inline constexpr std::string_view kStartTypeHint =
    "Keep this set to \"hidden\" unless you have good reason to change it";

// The template editor's words on the <PATH> placeholder, which the launcher expands (this
// program only stores it).
inline constexpr std::string_view kTemplatePathPlaceholder = "<PATH>";
inline constexpr std::string_view kTemplatePathRule = "Use <PATH> where you want the main path to go";
inline constexpr std::string_view kTemplateBackslashNote =
    "Note that when this is replaced, the trailing backslash is automatically added";

// Messages and titles of the game operations.
inline constexpr std::string_view kGameNotFoundTail = " - not found";
inline constexpr std::string_view kGameLoadTrapLead = "Oh no!  Something's up here...";
inline constexpr std::string_view kGameAlreadyExists = "Game already exists..!";
inline constexpr std::string_view kCreateGameTitle = "Creating a New Game";
inline constexpr std::string_view kDeleteGameTitle = "Deleting a Game";
inline constexpr std::string_view kSaveGameTitle = "Saving Game Path IInfo";

// The folder of a game (resolved without regard to case where present).
std::filesystem::path gameFolder(const std::filesystem::path& root, std::string_view game);
// The record file of a game: <game>.Gme in its folder, found whatever its case.
std::filesystem::path gameRecordPath(const std::filesystem::path& root, std::string_view game);
// The template file of a game: Template.cfg in its folder, found whatever its case.
std::filesystem::path gameTemplatePath(const std::filesystem::path& root, std::string_view game);
// The message shown when a game's record is missing: the full path, then " - not found".
std::string gameNotFoundMessage(const std::filesystem::path& recordPath);

// The values the template editor starts from when a game has no Template.cfg.
GamePathRecord templateBuiltInValues();

// Reads a record file field by field, each line a step of `runner` (so Ignore goes on with the
// next field). Missing lines take the record's read defaults. Nothing when the file does not
// exist.
std::optional<GamePathRecord> readGameRecordFile(const std::filesystem::path& path, StepRunner& runner);
// Reads a template file the same way with the template's defaults; a missing file gives the
// built-in values.
GamePathRecord readTemplateFile(const std::filesystem::path& path, StepRunner& runner);
// Rewrites a record or template file whole with all twelve lines; raises on failure.
void writeGamePathFile(const std::filesystem::path& path, const GamePathRecord& record);

// The game's record, or nothing when its file does not exist ("not found").
std::optional<GamePathRecord> LoadGameRecord(const std::filesystem::path& root, std::string_view game,
                                             StepRunner& runner);
void SaveGameRecord(const std::filesystem::path& root, std::string_view game, const GamePathRecord& record);
GamePathRecord LoadTemplate(const std::filesystem::path& root, std::string_view game, StepRunner& runner);
void SaveTemplate(const std::filesystem::path& root, std::string_view game, const GamePathRecord& record);

enum class CreateGameResult {
    Created,
    NoName,        // empty answer or cancelled prompt: nothing happens
    RefusedName,   // a separator, "." or "..": see refuseNewName
    AlreadyExists, // a folder or a file of that name is in Game-Paths
    Failed         // a step failed (reported through the trap)
};

// Creates Game-Paths\<name>\ and its seven-line record. Each file operation is a step of
// `runner` (title kCreateGameTitle). The caller adds the name to its list on Created.
CreateGameResult CreateGame(const std::filesystem::path& root, std::string_view name, StepRunner& runner);

// Deletes every file directly in the game's folder, then the folder. Each is a step of `runner`
// (title kDeleteGameTitle). True when the folder was removed (the caller then drops the name).
bool DeleteGame(const std::filesystem::path& root, std::string_view name, StepRunner& runner);

} // namespace rd
