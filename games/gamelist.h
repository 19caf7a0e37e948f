#pragma once
// The installed games: one sub-folder of Game-Paths per game, named as the game.

#include <filesystem>
#include <string>
#include <vector>

namespace rd {

// The Game-Paths folder of a workspace (resolved without regard to case).
std::filesystem::path gamePathsFolder(const std::filesystem::path& root);

// Names of all games (sub-folders of Game-Paths), in listing order.
std::vector<std::string> ListGames(const std::filesystem::path& root);

} // namespace rd
