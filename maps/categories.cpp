#include "maps/categories.h"

#include "core/errors.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"
#include "maps/gamefiles.h"

namespace rd {

namespace fs = std::filesystem;

std::vector<std::string> ListCategories(const fs::path& root, std::string_view game) {
    return detail::listStems(gameFolder(root, game), "*.Map");
}

fs::path categoryPath(const fs::path& root, std::string_view game, std::string_view name) {
    return detail::filePath(gameFolder(root, game), name, ".map");
}

NewFileOutcome CreateCategory(const fs::path& root, std::string_view game, std::string_view name) {
    return detail::createFile(gameFolder(root, game), name, ".map", kCategoryExists);
}

RenameOutcome RenameCategory(const fs::path& root, std::string_view game, std::string_view oldName,
                             std::string_view newName) {
    return detail::renameFile(gameFolder(root, game), oldName, newName, ".map", kCategoryExists);
}

void DeleteCategory(const fs::path& root, std::string_view game, std::string_view name) {
    detail::deleteFile(gameFolder(root, game), name, ".map");
}

MapCategory LoadCategory(const fs::path& path) {
    return readCategoryFile(path, nullptr);
}

MapCategory readCategoryFile(const fs::path& path, std::vector<std::size_t>* lines) {
    MapCategory category;
    if (lines)
        lines->clear();
    if (!fileExists(path))
        return category;
    LineReader reader(resolvePath(path.parent_path(), nameOf(path)));
    std::size_t lineNumber = 0;
    const auto next = [&] {
        if (!reader.atEnd())
            ++lineNumber;
        return reader.readLine("");
    };
    bool current = false;
    while (!reader.atEnd()) {
        std::string name = next();
        if (name == "[ARENA]")
            category.arena = true;
        if (name == "[V2]" || name == "[ARENA]") {
            current = true;
            name = next();
        }
        const std::size_t nameLine = lineNumber;
        std::string title = current ? next() : name;
        if (!name.empty()) {
            category.maps.push_back(MapRow{std::move(name), std::move(title)});
            if (lines)
                lines->push_back(nameLine);
        }
    }
    return category;
}

void SaveCategory(const fs::path& path, const MapCategory& category) {
    if (path.empty())
        return;
    LineWriter writer(resolvePath(path.parent_path(), nameOf(path)));
    writer.writeLine(category.arena ? "[ARENA]" : "[V2]");
    for (const auto& row : category.maps) {
        writer.writeLine(row.name);
        writer.writeLine(row.title);
    }
    writer.close();
}

} // namespace rd
