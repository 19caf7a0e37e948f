#pragma once
// The doctor's check of a profile: its profile.cfg must name a recognised plug-in bot.

#include "core/findings.h"
#include "core/text.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rd {

// Checks the profile `profile` of the workspace at `root` against the plug-in bots `bots`.
void checkProfile(const std::filesystem::path& root, const std::string& profile, const NoCaseNames& bots,
                  Findings& out);

} // namespace rd
