#include "maps/pak.h"

#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>

namespace rd {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kEntrySize = 64;
constexpr std::size_t kNameSize = 56;

std::int32_t readInt32(const unsigned char* bytes) {
    const std::uint32_t v =
        static_cast<std::uint32_t>(bytes[0]) | (static_cast<std::uint32_t>(bytes[1]) << 8) |
        (static_cast<std::uint32_t>(bytes[2]) << 16) | (static_cast<std::uint32_t>(bytes[3]) << 24);
    return static_cast<std::int32_t>(v);
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

// A map name from the lower-cased 56-character entry name.
std::string mapNameOf(const std::string& entryName) {
    std::string name = trim(entryName.substr(5));
    for (std::size_t at = findNoCase(name, ".bsp"); at != std::string::npos && name.size() >= 2;
         at = findNoCase(name, ".bsp"))
        name = trim(name.substr(0, at));
    return name;
}

std::string pathText(const fs::path& path) {
    return utf8ToCp1252(path.string());
}

} // namespace

bool ScanPak(const fs::path& pakPath, std::vector<std::string>& target, bool mapsOnly) {
    if (!fileExists(pakPath))
        return false;
    const fs::path resolved = resolvePath(pakPath.parent_path(), nameOf(pakPath));
    std::unique_ptr<std::FILE, FileCloser> file(std::fopen(resolved.c_str(), "rb"));
    if (!file)
        return false;

    // A header cut short reads as zeros, as a binary read past the end gives.
    std::array<unsigned char, kHeaderSize> header{};
    (void)std::fread(header.data(), 1, header.size(), file.get());
    const std::int32_t directoryOffset = readInt32(header.data() + 4);
    const std::int32_t directoryLength = readInt32(header.data() + 8);
    if (directoryOffset < 0)
        return false; // the position cannot be reached
    if (std::fseek(file.get(), directoryOffset, SEEK_SET) != 0)
        return false;

    // floor(length / 64) entries when the length is 64 or more, none otherwise. Entries are read
    // one at a time, so nothing is allocated beyond what the file really holds.
    const std::int64_t entries = directoryLength < 64 ? 0 : directoryLength / 64;
    std::array<char, kEntrySize> entry{};
    for (std::int64_t i = 0; i < entries; ++i) {
        if (std::fread(entry.data(), 1, entry.size(), file.get()) != entry.size())
            break; // the directory runs past the end of the file: keep what was read
        const std::string name = lowerCase(std::string_view(entry.data(), kNameSize));
        if (!mapsOnly)
            target.push_back(name);
        else if (wildcardMatch("maps*.bsp*", name, true))
            target.push_back(mapNameOf(name));
    }
    return true;
}

void AddPak(std::string_view folder, std::string_view title, std::vector<CatalogueRow>& rows,
            StepRunner& trap) {
    if (folder.empty())
        return;
    const std::string withSeparator = withTrailingSeparator(folder);
    const fs::path directory = pathFromData(withSeparator);
    if (!folderExists(directory))
        return;
    const std::vector<std::string> archives = listFiles(directory, "PAK*.PAK");
    const std::string source = trim(title) + " ";
    for (const auto& archive : archives) {
        if (trap.aborted())
            return;
        trap.step([&] {
            std::vector<std::string> names;
            ScanPak(joinName(directory, archive), names, true);
            for (auto& name : names)
                rows.push_back(CatalogueRow{std::move(name), source + archive});
        });
    }
}

fs::path catalogueRecordPath(const fs::path& root, std::string_view game) {
    const std::string name(game);
    return resolvePath(gamePathsFolder(root), name + "\\" + name + ".Gme");
}

std::string looseMapName(std::string_view fileName) {
    std::string name(fileName);
    for (std::size_t at = findNoCase(name, ".bsp"); at != std::string::npos; at = name.find(".bsp"))
        name.resize(at);
    return name;
}

Catalogue BuildCatalogue(const fs::path& root, std::string_view game, TrapHandler handler) {
    Catalogue catalogue;
    const fs::path record = catalogueRecordPath(root, game);
    if (!fileExists(record)) {
        catalogue.message = "Could not find " + pathText(record);
        return catalogue;
    }
    catalogue.recordFound = true;
    std::string mainFolder, mapFolder;
    {
        LineReader reader(record);
        mainFolder = reader.readLine("");
        mapFolder = reader.readLine("");
    }
    mainFolder = withTrailingSeparator(mainFolder);
    mapFolder = withTrailingSeparator(mapFolder);

    StepRunner trap(std::move(handler));
    auto& rows = catalogue.rows;
    AddPak(mainFolder, "Quake2", rows, trap);
    AddPak(mainFolder, "CTF", rows, trap);
    AddPak(mainFolder + "baseq2", "BaseQ2", rows, trap);
    AddPak(mainFolder + "eraser", "Eraser", rows, trap);
    AddPak(mainFolder + "crbot", "CRbot", rows, trap);
    AddPak(mainFolder + "ace", "ACE", rows, trap);

    for (const auto& file : listFiles(pathFromData(mapFolder), "*.bsp"))
        rows.push_back(CatalogueRow{looseMapName(file), "Custom Maps"});
    return catalogue;
}

} // namespace rd
