#include "games/gamelist.h"

#include "core/workspace.h"

namespace rd {

std::filesystem::path gamePathsFolder(const std::filesystem::path& root) {
    return resolvePath(root, "Game-Paths");
}

std::vector<std::string> ListGames(const std::filesystem::path& root) {
    return listFolders(gamePathsFolder(root));
}

} // namespace rd
