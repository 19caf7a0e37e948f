#pragma once
// The doctor's check of a plug-in bot's setup: Setup.cfg must exist, name a game that has a
// folder in Game-Paths, reach line 22, and hold only choices the setup editor offers.

#include "core/findings.h"
#include "plugins/setupfiles.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rd {

// Checks the plug-in bot in `folder` against the games `games` (names compared without regard
// to case) and returns its setup as loaded (nothing when the folder or Setup.cfg is missing).
std::optional<PluginSetup> checkPluginSetup(const std::filesystem::path& folder,
                                            const std::vector<std::string>& games, Findings& out);

} // namespace rd
