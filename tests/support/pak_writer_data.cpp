#include "tests/support/pak_writer_data.h"

#include "tests/support/workspace_data.h"

namespace rd::test {

namespace {
void putInt32(std::string& out, std::int32_t value) {
    const auto v = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        out += static_cast<char>((v >> (8 * i)) & 0xFF);
}
} // namespace

std::string pakDirectoryEntry(const std::string& name, std::int32_t position, std::int32_t length) {
    std::string entry = name.substr(0, 56);
    entry.resize(56, '\0');
    putInt32(entry, position);
    putInt32(entry, length);
    return entry;
}

std::string buildPak(const std::vector<PakEntry>& entries, const std::string& identifier) {
    std::string data;
    std::string directory;
    for (const auto& e : entries) {
        directory += pakDirectoryEntry(e.name, static_cast<std::int32_t>(12 + data.size()),
                                       static_cast<std::int32_t>(e.data.size()));
        data += e.data;
    }
    std::string out = identifier.substr(0, 4);
    out.resize(4, '\0');
    putInt32(out, static_cast<std::int32_t>(12 + data.size()));
    putInt32(out, static_cast<std::int32_t>(directory.size()));
    return out + data + directory;
}

std::string buildRawPak(const std::string& identifier, std::int32_t directoryOffset,
                        std::int32_t directoryLength, const std::string& directory, std::size_t directoryAt) {
    std::string out = identifier.substr(0, 4);
    out.resize(4, '\0');
    putInt32(out, directoryOffset);
    putInt32(out, directoryLength);
    if (out.size() < directoryAt)
        out.resize(directoryAt, '\0');
    return out + directory;
}

void writePak(const std::filesystem::path& path, const std::vector<PakEntry>& entries,
              const std::string& identifier) {
    writeBytes(path, buildPak(entries, identifier));
}

} // namespace rd::test
