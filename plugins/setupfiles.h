#pragma once
// A plug-in bot's setup files in Plug-Ins\<bot>\: Setup.cfg (23 lines), ChatFiles.cfg (one chat
// file name a line) and Skills.cfg (start skill, then one skill level a line).

#include "core/steprunner.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// One of the six files the launcher copies before a match.
struct CopiedFile {
    int folder = 0; // 0 "Bot Path", 1 "Game Path", 2 "Maps Path"; -1 none chosen
    std::string name;
    bool operator==(const CopiedFile&) const = default;
};

inline constexpr int kCopiedFileCount = 6;

struct PluginSetup {
    std::string game = "Quake2";
    std::string botFolder = "Eraser";
    std::array<CopiedFile, kCopiedFileCount> files{{{0, "bots.cfg"},
                                                    {0, "chat.txt"},
                                                    {0, "maps.txt"},
                                                    {0, "autoexec.cfg"},
                                                    {0, "launcher.cfg"},
                                                    {0, "tw.cfg"}}};
    int autoExec = 0; // 0 "Copy File (as above)", 1 "Add to LAUNCHER.CFG", 2 "Add to TW.CFG"
    int chat = 0;     // 0 "None", 1 "Eraser-style Bot File", 2 "Individual Text Files ..."; -1 none chosen
    std::string routeFolder;
    std::string routeFilter = "*.zipped";
    std::string skinsFolder;
    std::string readme;
    std::string defaultSkin;
    std::optional<int> botConfig; // 0 "Save in Eraser Format", 1 "Use Bot Template"; none chosen
    bool usesArenas = false;
    std::string startArena; // the arena number's text as stored, blanks kept
    std::vector<std::string> chatFiles;
    std::string startSkill;
    std::vector<std::string> skills;
    int skillHandling = 0; // 0 "Use Built-in Eraser Skills", 1 "Use Skills List (Left)"

    bool operator==(const PluginSetup&) const = default;
};

// Screen labels of the copied files, by index.
inline constexpr const char* kCopiedFileRoles[kCopiedFileCount] = {
    "Bots File:", "Chat File:", "Map List:", "AutoExec:", "Launcher:", "TW.Cfg"};

// Shown (followed by the plug-in's name) when its folder does not exist.
inline constexpr std::string_view kCouldNotFind = "Could not find ";

// The folder of a plug-in bot: Plug-Ins\<bot>, resolved without regard to case where present.
std::filesystem::path pluginFolder(const std::filesystem::path& root, std::string_view bot);

// Loads the setup files of the plug-in in `folder`. Nothing when the folder does not exist (the
// caller shows kCouldNotFind + name). Every file and every field of Setup.cfg is a step of
// `runner`: a failed step leaves its field at the value it had (the table's default), and
// Ignore goes on with the next field. A Setup.cfg that ends before line 22 fails that step
// with a conversion error, leaving botConfig empty.
std::optional<PluginSetup> LoadPluginSetup(const std::filesystem::path& folder, StepRunner& runner);

// The conversions of Setup.cfg's number lines, as loading makes them; each raises when the line
// holds no choice the editor offers.
// Lines 15 and 16 (AutoExec and chat handling): blanks removed, a byte, one of 0 to count - 1.
int setupChoiceFromLine(std::string_view line, int count);
// Lines 3, 5, ... 13 (a copied file's target folder): the leading number, -1 to 2.
int copiedFileFolderFromLine(std::string_view line);
// Line 22 (bot config file handling): a 16-bit integer, 0 or 1.
int botConfigFromLine(std::string_view line);

// Writes Setup.Cfg, then Chatfiles.cfg, then writes or deletes Skills.cfg, each a step of
// `runner`; a failure part-way leaves the files saved so far, and the failing file exactly as
// it was (Retry saves it again from its start). Existing files are rewritten under the
// spelling they have.
void SavePluginSetup(const std::filesystem::path& folder, const PluginSetup& setup, StepRunner& runner);

// The 23 lines (22 when no chat choice is selected) that SavePluginSetup writes to Setup.Cfg.
std::vector<std::string> setupLines(const PluginSetup& setup);

} // namespace rd
