#pragma once
// The doctor's check of a game's female model list: every name in Female.cfg should be a model
// of the game (a sub-folder of its models folder).

#include "core/findings.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rd {

// Reads the female model list `path` and checks each name against `models` (compared without
// regard to case); `modelsFolder` is the folder as the game's record names it.
void checkFemaleList(const std::filesystem::path& path, const std::vector<std::string>& models,
                     const std::string& modelsFolder, Findings& out);

} // namespace rd
