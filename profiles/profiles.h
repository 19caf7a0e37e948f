#pragma once
// Plug-in bots and profiles: the two lists of the main window.
//
// A plug-in bot is a sub-folder of Plug-Ins. A profile is any other sub-folder of the root
// ("Plug-Ins" and "Game-Paths" never, whatever their case); the first line of its profile.cfg
// names the bot it belongs to.

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace rd {

// The Plug-Ins folder of a workspace (resolved without regard to case).
std::filesystem::path pluginsFolder(const std::filesystem::path& root);

// Names of the plug-in bots, in listing order. A missing Plug-Ins folder gives none.
std::vector<std::string> listPluginBots(const std::filesystem::path& root);

// Names of the profiles, in listing order.
std::vector<std::string> listProfiles(const std::filesystem::path& root);

// The first line of the profile's profile.cfg, or "" when the file does not exist. Raises when
// the file exists but cannot be read.
std::string readProfileOwner(const std::filesystem::path& root, const std::string& profile);

// Reports a failure to read a profile's owner; the owner then counts as "".
using OwnerErrorHandler = std::function<void(const std::string& description)>;

// readProfileOwner that reports a failure to `onError` and gives "" instead of raising.
std::string ReadProfileOwner(const std::filesystem::path& root, const std::string& profile,
                             const OwnerErrorHandler& onError);

// Whether a profile is shown in the profile list: always when `onlyShowSelectedBot` is clear;
// otherwise only when a bot is selected and the owner equals it without regard to case. The
// owner is read only when it is needed.
bool profileShown(bool onlyShowSelectedBot, const std::optional<std::string>& selectedBot,
                  const std::function<std::string()>& owner);

// The profile list as the main window builds it.
std::vector<std::string> GetProfileList(const std::filesystem::path& root, bool onlyShowSelectedBot,
                                        const std::optional<std::string>& selectedBot,
                                        const OwnerErrorHandler& onError);

} // namespace rd
