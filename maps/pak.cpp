#include "maps/pak.h"

#include "core/nativefile.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kHeaderSize = 12;
constexpr std::size_t kEntrySize = 64;
constexpr std::size_t kNameSize = 56;
constexpr std::int64_t kChunkEntries = 1024;

std::int32_t readInt32(const unsigned char* bytes) {
    const std::uint32_t v =
        static_cast<std::uint32_t>(bytes[0]) | (static_cast<std::uint32_t>(bytes[1]) << 8) |
        (static_cast<std::uint32_t>(bytes[2]) << 16) | (static_cast<std::uint32_t>(bytes[3]) << 24);
    return static_cast<std::int32_t>(v);
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

// Lower case of every byte in the launcher's code page, as a table built once.
const std::array<char, 256>& lowerTable() {
    static const std::array<char, 256> table = [] {
        std::array<char, 256> t{};
        for (int b = 0; b < 256; ++b)
            t[static_cast<std::size_t>(b)] = lowerCase(std::string(1, static_cast<char>(b)))[0];
        return t;
    }();
    return table;
}

// "maps*.bsp*" matched with regard to case ('*' matching any run, NULs included): the name
// begins with "maps" and holds ".bsp" somewhere after those four characters.
bool isMapEntry(std::string_view lowered) {
    return lowered.substr(0, 4) == "maps" && lowered.find(".bsp", 4) != std::string_view::npos;
}

std::string_view trimBlanks(std::string_view s) {
    while (!s.empty() && s.front() == ' ')
        s.remove_prefix(1);
    while (!s.empty() && s.back() == ' ')
        s.remove_suffix(1);
    return s;
}

// A map name from the lower-cased 56-character entry name: the first five characters dropped,
// blanks trimmed, then cut before ".bsp" (and trimmed) as long as the name holds one and is at
// least two characters long. The name is already lower case, so ".bsp" is found as it stands.
std::string mapNameOf(std::string_view lowered) {
    std::string_view name = trimBlanks(lowered.substr(5));
    for (std::size_t at = name.find(".bsp"); at != std::string_view::npos && name.size() >= 2;
         at = name.find(".bsp"))
        name = trimBlanks(name.substr(0, at));
    return std::string(name);
}

} // namespace

bool ScanPak(const fs::path& pakPath, std::vector<std::string>& target, bool mapsOnly) {
    if (!fileExists(pakPath))
        return false;
    const fs::path resolved = resolvePath(pakPath.parent_path(), nameOf(pakPath));
    // Only a plain file is read: a pipe or a device named like an archive would keep the open (or
    // the reading) waiting for ever.
    std::error_code ec;
    if (!fs::is_regular_file(resolved, ec))
        return false;
    std::unique_ptr<std::FILE, FileCloser> file(native::openStdio(resolved, "rb"));
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

    // floor(length / 64) entries when the length is 64 or more, none otherwise. The directory is
    // read in chunks of at most kChunkEntries entries, so nothing is allocated beyond a chunk
    // whatever the header claims; a directory that runs past the end of the file stops there.
    std::int64_t remaining = directoryLength < 64 ? 0 : directoryLength / 64;
    const auto& lower = lowerTable();
    std::vector<char> chunk;
    char name[kNameSize];
    while (remaining > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<std::int64_t>(remaining, kChunkEntries));
        chunk.resize(wanted * kEntrySize);
        const std::size_t got = std::fread(chunk.data(), 1, chunk.size(), file.get()) / kEntrySize;
        for (std::size_t i = 0; i < got; ++i) {
            const char* entry = chunk.data() + i * kEntrySize;
            for (std::size_t c = 0; c < kNameSize; ++c)
                name[c] = lower[static_cast<unsigned char>(entry[c])];
            const std::string_view lowered(name, kNameSize);
            if (!mapsOnly)
                target.emplace_back(lowered);
            else if (isMapEntry(lowered))
                target.push_back(mapNameOf(lowered));
        }
        if (got < wanted)
            break;
        remaining -= static_cast<std::int64_t>(got);
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
            rows.reserve(rows.size() + names.size());
            for (auto& name : names)
                rows.push_back(CatalogueRow{std::move(name), source + archive});
        });
    }
}

std::string looseMapName(std::string_view fileName) {
    std::string name(fileName);
    for (std::size_t at = findNoCase(name, ".bsp"); at != std::string::npos; at = name.find(".bsp"))
        name.resize(at);
    return name;
}

std::vector<CatalogueRow> CatalogueRows(std::string_view mainFolderText, std::string_view mapFolderText,
                                        StepRunner& trap) {
    const std::string mainFolder = withTrailingSeparator(mainFolderText);
    const std::string mapFolder = withTrailingSeparator(mapFolderText);
    std::vector<CatalogueRow> rows;
    AddPak(mainFolder, "Quake2", rows, trap);
    AddPak(mainFolder, "CTF", rows, trap);
    AddPak(mainFolder + "baseq2", "BaseQ2", rows, trap);
    AddPak(mainFolder + "eraser", "Eraser", rows, trap);
    AddPak(mainFolder + "crbot", "CRbot", rows, trap);
    AddPak(mainFolder + "ace", "ACE", rows, trap);

    const std::vector<std::string> looseFiles = listFiles(pathFromData(mapFolder), "*.bsp");
    rows.reserve(rows.size() + looseFiles.size());
    for (const auto& file : looseFiles)
        rows.push_back(CatalogueRow{looseMapName(file), "Custom Maps"});
    return rows;
}

Catalogue BuildCatalogue(const fs::path& root, std::string_view game, TrapHandler handler) {
    Catalogue catalogue;
    const fs::path record = gameRecordPath(root, game);
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
    StepRunner trap(std::move(handler));
    catalogue.rows = CatalogueRows(mainFolder, mapFolder, trap);
    return catalogue;
}

std::optional<PakEntryPlace> FindPakMap(const fs::path& pakPath, std::string_view mapName) {
    if (!fileExists(pakPath))
        return std::nullopt;
    const fs::path resolved = resolvePath(pakPath.parent_path(), nameOf(pakPath));
    std::error_code ec;
    if (!fs::is_regular_file(resolved, ec))
        return std::nullopt;
    std::unique_ptr<std::FILE, FileCloser> file(native::openStdio(resolved, "rb"));
    if (!file)
        return std::nullopt;
    std::array<unsigned char, kHeaderSize> header{};
    (void)std::fread(header.data(), 1, header.size(), file.get());
    const std::int32_t directoryOffset = readInt32(header.data() + 4);
    const std::int32_t directoryLength = readInt32(header.data() + 8);
    if (directoryOffset < 0 || std::fseek(file.get(), directoryOffset, SEEK_SET) != 0)
        return std::nullopt;
    // The directory is read as ScanPak reads it, in chunks, up to the end of the file.
    std::int64_t remaining = directoryLength < 64 ? 0 : directoryLength / 64;
    const auto& lower = lowerTable();
    std::vector<char> chunk;
    char name[kNameSize];
    while (remaining > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<std::int64_t>(remaining, kChunkEntries));
        chunk.resize(wanted * kEntrySize);
        const std::size_t got = std::fread(chunk.data(), 1, chunk.size(), file.get()) / kEntrySize;
        for (std::size_t i = 0; i < got; ++i) {
            const char* entry = chunk.data() + i * kEntrySize;
            for (std::size_t c = 0; c < kNameSize; ++c)
                name[c] = lower[static_cast<unsigned char>(entry[c])];
            const std::string_view lowered(name, kNameSize);
            if (isMapEntry(lowered) && mapNameOf(lowered) == mapName) {
                const auto* bytes = reinterpret_cast<const unsigned char*>(entry);
                return PakEntryPlace{readInt32(bytes + kNameSize), readInt32(bytes + kNameSize + 4)};
            }
        }
        if (got < wanted)
            break;
        remaining -= static_cast<std::int64_t>(got);
    }
    return std::nullopt;
}

} // namespace rd
