#pragma once
// Writes Quake 2 PAK archives for tests, benchmarks and the demo: a 12-byte header
// (identifier, directory offset, directory length) and 64-byte directory entries (56-byte
// NUL-padded name, data position, data length). Any identifier, offset or length can be given,
// so damaged and lying archives can be built as well as sound ones.

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace rd::test {

struct PakEntry {
    std::string name; // up to 56 bytes; longer names are cut
    std::string data;
};

// A sound archive: header, the entries' data, then the directory.
std::string buildPak(const std::vector<PakEntry>& entries, const std::string& identifier = "PACK");

// An archive with a header as given and `directory` bytes placed at `directoryAt` (the file is
// padded with zeros up to there); nothing checks that the header tells the truth.
std::string buildRawPak(const std::string& identifier, std::int32_t directoryOffset,
                        std::int32_t directoryLength, const std::string& directory, std::size_t directoryAt);

// One 64-byte directory entry.
std::string pakDirectoryEntry(const std::string& name, std::int32_t position = 0, std::int32_t length = 0);

void writePak(const std::filesystem::path& path, const std::vector<PakEntry>& entries,
              const std::string& identifier = "PACK");

} // namespace rd::test
