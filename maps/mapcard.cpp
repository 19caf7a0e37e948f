#include "maps/mapcard.h"

#include "core/text.h"
#include "core/textfile.h"
#include "core/winepaths.h"
#include "core/workspace.h"
#include "games/gamerecord.h"

#include <exception>
#include <utility>

namespace rd {

namespace fs = std::filesystem;

namespace {

CardResult noCard(std::string reason) {
    CardResult result;
    result.reason = std::move(reason);
    return result;
}

// Lines 1 and 2 of the game's record (main folder, map folder), or the catalogue's message.
struct GameFolders {
    bool found = false;
    std::string message;
    std::string mainFolder;
    std::string mapFolder;
};

GameFolders readGameFolders(const fs::path& root, std::string_view game) {
    GameFolders folders;
    const fs::path record = gameRecordPath(root, game);
    if (!fileExists(record)) {
        folders.message = "Could not find " + pathText(record);
        return folders;
    }
    LineReader reader(record);
    folders.mainFolder = reader.readLine("");
    folders.mapFolder = reader.readLine("");
    folders.found = true;
    return folders;
}

} // namespace

std::optional<MapLocation> LocateCatalogueMap(std::string_view mainFolderText, std::string_view mapFolderText,
                                              const CatalogueRow& row, const WinePrefix& wine) {
    if (row.source == kLooseMapsSource) {
        const fs::path folder = pathFromData(withTrailingSeparator(mapFolderText), wine);
        for (const auto& file : listFiles(folder, "*.bsp"))
            if (looseMapName(file) == row.name)
                return MapLocation{joinName(folder, file), false, 0, 0};
        return std::nullopt;
    }
    if (mainFolderText.empty())
        return std::nullopt;
    const std::string mainFolder = withTrailingSeparator(mainFolderText);
    for (const auto& source : kCatalogueArchiveFolders) {
        const std::string_view text = row.source;
        if (text.size() <= source.title.size() || !text.starts_with(source.title) ||
            text[source.title.size()] != ' ')
            continue;
        const std::string_view archive = text.substr(source.title.size() + 1);
        const fs::path folder =
            pathFromData(withTrailingSeparator(mainFolder + std::string(source.subFolder)), wine);
        const fs::path path = joinName(folder, archive);
        if (const auto place = FindPakMap(path, row.name))
            return MapLocation{path, true, place->position, place->length};
        return std::nullopt;
    }
    return std::nullopt;
}

CardResult ReadMapCard(const MapLocation& location, const std::atomic<bool>* cancel) {
    if (!location.inArchive)
        return ReadMapCard(location.file, cancel);
    if (location.position < 0 || location.length < 0)
        return noCard(std::string(kDamagedMap) + "its archive entry has a negative position or length");
    return ReadMapCard(location.file, static_cast<std::uint64_t>(location.position),
                       static_cast<std::uint64_t>(location.length), cancel);
}

CardResult CatalogueCard(const fs::path& root, std::string_view game, const CatalogueRow& row,
                         const std::atomic<bool>* cancel) {
    CardResult result;
    try {
        const GameFolders folders = readGameFolders(root, game);
        if (!folders.found)
            return noCard(folders.message);
        const auto location =
            LocateCatalogueMap(folders.mainFolder, folders.mapFolder, row, findWinePrefix(root));
        if (!location)
            return noCard(kNotFoundInAnyArchive);
        result = ReadMapCard(*location, cancel);
    } catch (const std::exception& error) {
        return noCard(std::string("its file cannot be read: ") + error.what());
    }
    if (result.ok())
        result.card.name = row.name;
    return result;
}

const CatalogueRow* FindCatalogueRow(const std::vector<CatalogueRow>& rows, std::string_view name) {
    for (const CatalogueRow& row : rows)
        if (equalsNoCase(row.name, name))
            return &row;
    return nullptr;
}

CardResult FindMapCard(const fs::path& root, std::string_view game, std::string_view name,
                       const std::atomic<bool>* cancel) {
    Catalogue catalogue;
    try {
        std::vector<std::string> passedOver;
        catalogue = BuildCatalogue(root, game, collectAndIgnore(passedOver));
    } catch (const std::exception& error) {
        return noCard(std::string("the game's record cannot be read: ") + error.what());
    }
    if (!catalogue.recordFound)
        return noCard(catalogue.message);
    if (cancel && cancel->load(std::memory_order_relaxed))
        return noCard(kAbandoned);
    const CatalogueRow* row = FindCatalogueRow(catalogue.rows, name);
    if (!row)
        return noCard(kNotFoundInAnyArchive);
    return CatalogueCard(root, game, *row, cancel);
}

} // namespace rd
