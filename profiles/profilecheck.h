#pragma once
// The doctor's check of a profile: its profile.cfg must name a recognised plug-in bot.

#include "core/findings.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rd {

// Checks the profile `profile` of the workspace at `root` against the plug-in bots `bots` (names
// compared without regard to case).
void checkProfile(const std::filesystem::path& root, const std::string& profile,
                  const std::vector<std::string>& bots, Findings& out);

} // namespace rd
