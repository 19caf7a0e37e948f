#include "maps/pak.h"

#include "core/nativefile.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

namespace rd {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kPakHeaderSize = 12;
constexpr std::size_t kEntrySize = 64;
constexpr std::size_t kNameSize = 56;
constexpr std::int64_t kChunkEntries = 1024;
static_assert(kNameSize % 8 == 0, "names are lower-cased eight bytes at a time");

std::int32_t readInt32(const unsigned char* bytes) {
    const std::uint32_t v =
        static_cast<std::uint32_t>(bytes[0]) | (static_cast<std::uint32_t>(bytes[1]) << 8) |
        (static_cast<std::uint32_t>(bytes[2]) << 16) | (static_cast<std::uint32_t>(bytes[3]) << 24);
    return static_cast<std::int32_t>(v);
}

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

// Lower-cases `count` bytes (a multiple of eight) of an entry name into `into`: eight at a time
// while they are plain ASCII (most names, and the NULs that pad them), byte by byte through the
// table otherwise, so letters of the code page beyond ASCII are lowered as the table says.
void lowerName(const char* from, char* into, std::size_t count, const std::array<char, 256>& lower) {
    constexpr std::uint64_t kOnes = 0x0101010101010101ull;
    constexpr std::uint64_t kHighs = 0x8080808080808080ull;
    for (std::size_t at = 0; at < count; at += 8) {
        std::uint64_t word;
        std::memcpy(&word, from + at, sizeof word);
        if ((word & kHighs) == 0) {
            // Per byte (each below 0x80, so no carry crosses into the next): the high bit is set
            // in `fromA` when the byte is 'A' or above and in `pastZ` when it is above 'Z'.
            const std::uint64_t fromA = word + kOnes * (0x80 - 'A');
            const std::uint64_t pastZ = word + kOnes * (0x7F - 'Z');
            word |= ((fromA & ~pastZ) & kHighs) >> 2; // 0x80 >> 2 is the case bit, 0x20
            std::memcpy(into + at, &word, sizeof word);
        } else {
            for (std::size_t c = at; c < at + 8; ++c)
                into[c] = lower[static_cast<unsigned char>(from[c])];
        }
    }
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

// Room for `more` rows, growing by at least half again so that appending archive after archive
// does not copy the rows each time.
void makeRoom(std::vector<CatalogueRow>& rows, std::size_t more) {
    if (rows.capacity() < rows.size() + more)
        rows.reserve(std::max(rows.size() + more, rows.capacity() + rows.capacity() / 2));
}

// Reads up to `count` bytes from byte `offset`; fewer at the end of the file or on a read error.
std::size_t readUpTo(native::InputFile& file, std::uint64_t offset, char* into, std::size_t count) {
    std::size_t got = 0;
    while (got < count) {
        const std::ptrdiff_t n = file.readAt(offset + got, into + got, count - got);
        if (n <= 0)
            break;
        got += static_cast<std::size_t>(n);
    }
    return got;
}

} // namespace

namespace {

// Reads an archive's directory entry by entry, each with its 56-character name lower-cased, and
// hands each to `visit` (entry name, the entry's 64 bytes) until it returns false. With
// `mapsOnly`, only entries whose lower-cased names begin with "maps" are handed on (the rest of a
// name is lower-cased only when that holds). False when there is no such plain file or the
// directory cannot be reached; a directory that runs past the end of the file stops there.
template <class Visit> bool walkPakDirectory(const fs::path& pakPath, bool mapsOnly, Visit visit) {
    const fs::path resolved = resolvePath(pakPath.parent_path(), nameOf(pakPath));
    // Only a plain file is read: a pipe or a device named like an archive would keep the open (or
    // the reading) waiting for ever, and is refused on opening.
    native::InputFile file = native::InputFile::open(resolved);
    if (!file.isOpen())
        return false;

    // A header cut short reads as zeros, as a binary read past the end gives.
    std::array<unsigned char, kPakHeaderSize> header{};
    (void)readUpTo(file, 0, reinterpret_cast<char*>(header.data()), header.size());
    const std::int32_t directoryOffset = readInt32(header.data() + 4);
    const std::int32_t directoryLength = readInt32(header.data() + 8);
    if (directoryOffset < 0)
        return false; // the position cannot be reached
    std::uint64_t at = static_cast<std::uint64_t>(directoryOffset);

    // floor(length / 64) entries when the length is 64 or more, none otherwise. The directory is
    // read in chunks of at most kChunkEntries entries, so nothing is allocated beyond a chunk
    // whatever the header claims.
    std::int64_t remaining = directoryLength < 64 ? 0 : directoryLength / 64;
    const auto& lower = lowerTable();
    std::vector<char> chunk;
    char name[kNameSize];
    while (remaining > 0) {
        const auto wanted = static_cast<std::size_t>(std::min<std::int64_t>(remaining, kChunkEntries));
        chunk.resize(wanted * kEntrySize);
        const std::size_t got = readUpTo(file, at, chunk.data(), chunk.size()) / kEntrySize;
        at += got * kEntrySize;
        for (std::size_t i = 0; i < got; ++i) {
            const char* entry = chunk.data() + i * kEntrySize;
            std::size_t lowered = 0;
            if (mapsOnly) {
                lowerName(entry, name, 8, lower);
                if (std::string_view(name, 4) != "maps")
                    continue;
                lowered = 8;
            }
            lowerName(entry + lowered, name + lowered, kNameSize - lowered, lower);
            if (!visit(std::string_view(name, kNameSize), entry))
                return true;
        }
        if (got < wanted)
            break;
        remaining -= static_cast<std::int64_t>(got);
    }
    return true;
}

} // namespace

bool ScanPak(const fs::path& pakPath, std::vector<std::string>& target, bool mapsOnly) {
    return walkPakDirectory(pakPath, mapsOnly, [&](std::string_view lowered, const char*) {
        if (!mapsOnly)
            target.emplace_back(lowered);
        else if (isMapEntry(lowered))
            target.push_back(mapNameOf(lowered));
        return true;
    });
}

namespace {

// The maps of one archive, before they become rows.
struct ArchiveMaps {
    std::string source;
    std::vector<std::string> names;
};

void scanArchives(std::string_view folder, std::string_view title, std::vector<ArchiveMaps>& found,
                  StepRunner& trap, const WinePrefix& wine) {
    if (folder.empty())
        return;
    const std::string withSeparator = withTrailingSeparator(folder);
    const fs::path directory = pathFromData(withSeparator, wine);
    if (!folderExists(directory))
        return;
    const std::vector<std::string> archives = listFiles(directory, "PAK*.PAK");
    const std::string source = trim(title) + " ";
    for (const auto& archive : archives) {
        if (trap.aborted())
            return;
        trap.step([&] {
            ArchiveMaps maps{source + archive, {}};
            ScanPak(joinName(directory, archive), maps.names, true);
            found.push_back(std::move(maps));
        });
    }
}

std::size_t mapCount(const std::vector<ArchiveMaps>& found) {
    std::size_t count = 0;
    for (const auto& maps : found)
        count += maps.names.size();
    return count;
}

void appendRows(std::vector<ArchiveMaps>& found, std::vector<CatalogueRow>& rows) {
    for (auto& maps : found)
        for (auto& name : maps.names)
            rows.push_back(CatalogueRow{std::move(name), maps.source});
}

} // namespace

void AddPak(std::string_view folder, std::string_view title, std::vector<CatalogueRow>& rows,
            StepRunner& trap, const WinePrefix& wine) {
    std::vector<ArchiveMaps> found;
    scanArchives(folder, title, found, trap, wine);
    makeRoom(rows, mapCount(found));
    appendRows(found, rows);
}

std::string looseMapName(std::string_view fileName) {
    std::string name(fileName);
    for (std::size_t at = findNoCase(name, ".bsp"); at != std::string::npos; at = name.find(".bsp"))
        name.resize(at);
    return name;
}

std::vector<CatalogueRow> CatalogueRows(std::string_view mainFolderText, std::string_view mapFolderText,
                                        StepRunner& trap, const WinePrefix& wine) {
    // The same folders are asked about again and again (the main folder is scanned twice, and
    // each archive is looked up after its folder was listed): listed once, they answer from
    // memory.
    const FolderCache cache;
    const std::string mainFolder = withTrailingSeparator(mainFolderText);
    const std::string mapFolder = withTrailingSeparator(mapFolderText);
    // Every archive is scanned first, so the rows are made in one piece of memory of the right
    // size.
    std::vector<ArchiveMaps> found;
    for (const auto& folder : kCatalogueArchiveFolders)
        scanArchives(mainFolder + std::string(folder.subFolder), folder.title, found, trap, wine);
    const std::vector<std::string> looseFiles = listFiles(pathFromData(mapFolder, wine), "*.bsp");

    std::vector<CatalogueRow> rows;
    rows.reserve(mapCount(found) + looseFiles.size());
    appendRows(found, rows);
    for (const auto& file : looseFiles)
        rows.push_back(CatalogueRow{looseMapName(file), std::string(kLooseMapsSource)});
    return rows;
}

Catalogue BuildCatalogue(const fs::path& root, std::string_view game, TrapHandler handler) {
    const FolderCache cache;
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
    catalogue.rows = CatalogueRows(mainFolder, mapFolder, trap, findWinePrefix(root));
    return catalogue;
}

std::optional<PakEntryPlace> FindPakMap(const fs::path& pakPath, std::string_view mapName) {
    std::optional<PakEntryPlace> place;
    walkPakDirectory(pakPath, true, [&](std::string_view lowered, const char* entry) {
        if (!isMapEntry(lowered) || mapNameOf(lowered) != mapName)
            return true;
        const auto* bytes = reinterpret_cast<const unsigned char*>(entry);
        place = PakEntryPlace{readInt32(bytes + kNameSize), readInt32(bytes + kNameSize + 4)};
        return false;
    });
    return place;
}

} // namespace rd
