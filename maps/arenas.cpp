#include "maps/arenas.h"

#include "core/textfile.h"
#include "core/workspace.h"
#include "maps/gamefiles.h"

namespace rd {

namespace fs = std::filesystem;

std::vector<std::string> ListArenaMaps(const fs::path& root, std::string_view game) {
    return detail::listStems(gameFolder(root, game), "*.Ra2");
}

fs::path arenaPath(const fs::path& root, std::string_view game, std::string_view map) {
    return detail::filePath(gameFolder(root, game), map, ".ra2");
}

NewFileOutcome CreateArenaMap(const fs::path& root, std::string_view game, std::string_view map) {
    return detail::createFile(gameFolder(root, game), map, ".ra2", kArenaFileExists);
}

RenameOutcome RenameArenaMap(const fs::path& root, std::string_view game, std::string_view oldName,
                             std::string_view newName) {
    return detail::renameFile(gameFolder(root, game), oldName, newName, ".ra2", kArenaFileExists);
}

void DeleteArenaMap(const fs::path& root, std::string_view game, std::string_view map) {
    detail::deleteFile(gameFolder(root, game), map, ".ra2");
}

std::optional<std::size_t> AddArena(std::vector<std::string>& arenas, std::optional<std::size_t> selected,
                                    std::string_view name) {
    if (name.empty())
        return std::nullopt;
    const std::size_t at = selected && *selected < arenas.size() ? *selected + 1 : arenas.size();
    arenas.insert(arenas.begin() + static_cast<std::ptrdiff_t>(at), std::string(name));
    return at;
}

std::vector<std::string> LoadArenas(const fs::path& path) {
    if (!fileExists(path))
        return {};
    return readAllLines(resolvePath(path.parent_path(), nameOf(path)));
}

void SaveArenas(const fs::path& path, const std::vector<std::string>& arenas) {
    writeAllLines(resolvePath(path.parent_path(), nameOf(path)), arenas);
}

} // namespace rd
