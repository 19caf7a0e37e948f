// The card of one large map inside a large archive: a 20 MB map (5,041 rooms: 40,328 vertices,
// 30,246 faces, 60,493 edges, 120,984 surface edges, 3,001 entities; light maps and
// visibility make up the rest) lying in the middle of a 300 MB PAK archive among fourteen other
// 20 MB entries. Timed beside a baseline that only reads the same bytes the card reads (the map's
// header and its entity, plane, vertex, face, edge, surface edge and model lumps) into memory with
// the same system calls, without looking at them: once with the archive in the system's file cache
// (a map looked at again) and once read from the disk (the archive's pages are dropped from the
// cache before each reading, untimed). Beside them, the least any card can cost (the same reads,
// then every byte read looked at once; and the lumps mapped instead of read). Two more figures show the card
// as the screens get it: by its catalogue row (the add-map screen) and by its name (the category editor).

#include "core/nativefile.h"
#include "maps/bsp.h"
#include "maps/mapcard.h"
#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMapSize = 20u << 20;
constexpr int kFillerEntries = 14;
constexpr std::size_t kFillerSize = 20u << 20;

std::string bigMap() {
    rd::test::BspBuilder builder;
    for (int i = 0; i < 71 * 71; ++i) {
        const auto x = static_cast<float>((i % 71) * 384);
        const auto y = static_cast<float>((i / 71) * 320);
        const auto floor = static_cast<float>(16 * (i % 5));
        builder.addRoom(x, y, x + 256 + static_cast<float>(8 * (i % 7)), y + 192, floor, floor + 160);
    }
    std::vector<rd::test::BspEntity> entities{
        {{"classname", "worldspawn"}, {"message", "The Big One\\nby the benchmark"}, {"sky", "unit1_"}}};
    const char* kinds[] = {
        "info_player_deathmatch", "weapon_railgun",  "item_health",    "light", "ammo_slugs",
        "weapon_shotgun",         "item_armor_body", "misc_teleporter"};
    for (int i = 0; i < 3000; ++i)
        entities.push_back(
            {{"classname", kinds[i % 8]},
             {"origin", std::to_string(i * 7 % 27000) + " " + std::to_string(i * 13 % 22000) + " 24"},
             {"angle", std::to_string(i % 360)},
             {"spawnflags", "0"}});
    rd::test::BspMap map = builder.build(rd::test::entityText(entities));
    std::string bytes = rd::test::buildBsp(map);
    // Light maps and visibility: about two thirds and one third of what is left.
    const std::size_t rest = kMapSize > bytes.size() ? kMapSize - bytes.size() : 0;
    map.otherLumps[rd::test::kLumpLighting] = std::string(rest * 2 / 3 & ~std::size_t{3}, 'L');
    map.otherLumps[rd::test::kLumpVisibility] = std::string(rest / 3 & ~std::size_t{3}, 'V');
    return rd::test::buildBsp(map);
}

void putInt32(std::string& out, std::int32_t value) {
    const auto v = static_cast<std::uint32_t>(value);
    for (int i = 0; i < 4; ++i)
        out += static_cast<char>((v >> (8 * i)) & 0xFF);
}

struct Installation {
    rd::test::TempWorkspace ws;
    fs::path pak;
    std::int32_t mapPosition = 0;
    std::int32_t mapLength = 0;

    // The archive is written in pieces: header, seven fillers, the map, seven fillers, directory.
    Installation() {
        ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                      {ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string() + "/"});
        ws.folder("q2/baseq2/maps");
        pak = ws.path("q2/baseq2/pak0.pak");
        const std::string map = bigMap();
        const std::string filler(kFillerSize, 'F');
        std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::fopen(pak.c_str(), "wb"), &std::fclose);
        std::string directory;
        std::int64_t at = 12;
        std::string header = "PACK";
        putInt32(header, 0);
        putInt32(header, 0);
        std::fwrite(header.data(), 1, header.size(), out.get());
        const auto add = [&](const std::string& name, const std::string& data) {
            directory += rd::test::pakDirectoryEntry(name, static_cast<std::int32_t>(at),
                                                     static_cast<std::int32_t>(data.size()));
            std::fwrite(data.data(), 1, data.size(), out.get());
            at += static_cast<std::int64_t>(data.size());
        };
        for (int i = 0; i < kFillerEntries / 2; ++i)
            add("textures/big/t" + std::to_string(i) + ".wal", filler);
        mapPosition = static_cast<std::int32_t>(at);
        mapLength = static_cast<std::int32_t>(map.size());
        add("maps/big.bsp", map);
        for (int i = kFillerEntries / 2; i < kFillerEntries; ++i)
            add("sound/big/s" + std::to_string(i) + ".wav", filler);
        std::fwrite(directory.data(), 1, directory.size(), out.get());
        std::string realHeader = "PACK";
        putInt32(realHeader, static_cast<std::int32_t>(at));
        putInt32(realHeader, static_cast<std::int32_t>(directory.size()));
        std::fseek(out.get(), 0, SEEK_SET);
        std::fwrite(realHeader.data(), 1, realHeader.size(), out.get());
    }
};

Installation& installation() {
    static Installation built;
    return built;
}

void checkCard(benchmark::State& state, const rd::CardResult& result) {
    if (!result.ok()) {
        state.SkipWithError(result.reason.c_str());
        return;
    }
    state.counters["planEdges"] = static_cast<double>(result.card.plan.lines.size());
    state.counters["spawns"] = result.card.deathmatchSpawns;
}

// Drops the archive's pages from the system's file cache, so the next read comes from the disk as
// the first look at a map does (not timed).
void forgetArchive(benchmark::State& state, const fs::path& path) {
    state.PauseTiming();
    const int fd = ::open(path.c_str(), O_RDONLY);
    if (fd >= 0) {
        ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
        ::close(fd);
    }
    state.ResumeTiming();
}

void mapCardInsideArchive(benchmark::State& state, bool cold) {
    Installation& inst = installation();
    rd::CardResult result;
    for (auto _ : state) {
        if (cold)
            forgetArchive(state, inst.pak);
        result = rd::ReadMapCard(inst.pak, static_cast<std::uint64_t>(inst.mapPosition),
                                 static_cast<std::uint64_t>(inst.mapLength));
        benchmark::DoNotOptimize(result.card.plan.lines.data());
    }
    state.counters["archiveMB"] = static_cast<double>(fs::file_size(inst.pak)) / (1 << 20);
    state.counters["mapMB"] = static_cast<double>(inst.mapLength) / (1 << 20);
    checkCard(state, result);
}

// The bytes the card reads, read and nothing more.
void readTheSameLumps(benchmark::State& state, bool cold) {
    Installation& inst = installation();
    const auto base = static_cast<std::uint64_t>(inst.mapPosition);
    std::size_t bytes = 0;
    for (auto _ : state) {
        if (cold)
            forgetArchive(state, inst.pak);
        rd::native::InputFile file = rd::native::InputFile::open(inst.pak);
        char header[160];
        file.readAt(base, header, sizeof header);
        bytes = sizeof header;
        for (const int lump : {0, 13, 6, 1, 2, 11, 12}) {
            std::int32_t position = 0;
            std::int32_t length = 0;
            std::memcpy(&position, header + 8 + 8 * lump, 4);
            std::memcpy(&length, header + 12 + 8 * lump, 4);
            auto buffer = std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(length));
            for (std::size_t done = 0; done < static_cast<std::size_t>(length);) {
                const std::ptrdiff_t got =
                    file.readAt(base + static_cast<std::uint64_t>(position) + done, buffer.get() + done,
                                static_cast<std::size_t>(length) - done);
                if (got <= 0)
                    break;
                done += static_cast<std::size_t>(got);
            }
            benchmark::DoNotOptimize(buffer.get());
            bytes += static_cast<std::size_t>(length);
        }
    }
    state.counters["bytesRead"] = static_cast<double>(bytes);
}

// With the archive in the file cache (a map looked at again) ...
void BM_MapCardInsideArchive(benchmark::State& state) {
    mapCardInsideArchive(state, false);
}
void BM_BaselineReadTheSameLumps(benchmark::State& state) {
    readTheSameLumps(state, false);
}
// ... and read from the disk (a map looked at for the first time).
void BM_MapCardInsideArchiveFromDisk(benchmark::State& state) {
    mapCardInsideArchive(state, true);
}
void BM_BaselineReadTheSameLumpsFromDisk(benchmark::State& state) {
    readTheSameLumps(state, true);
}

// The least any card can cost, warm: the same reads as the baseline, then every byte read looked
// at once (summed eight at a time), which the card must at least do to see the entity text, the
// faces and what the floors lead to; and the same with the lumps mapped into memory instead of
// read (pages come in as they are first touched, and go when unmapped), to show what mapping saves.
std::uint64_t sumWords(const char* bytes, std::size_t count) {
    std::uint64_t sum = 0;
    for (std::size_t i = 0; i + 8 <= count; i += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes + i, sizeof word);
        sum += word;
    }
    return sum;
}

struct LumpPlace {
    std::uint64_t at;
    std::size_t length;
};

std::vector<LumpPlace> lumpPlaces(const char* header, std::uint64_t base) {
    std::vector<LumpPlace> places;
    for (const int lump : {0, 13, 6, 1, 2, 11, 12}) {
        std::int32_t position = 0;
        std::int32_t length = 0;
        std::memcpy(&position, header + 8 + 8 * lump, 4);
        std::memcpy(&length, header + 12 + 8 * lump, 4);
        places.push_back({base + static_cast<std::uint64_t>(position), static_cast<std::size_t>(length)});
    }
    return places;
}

void BM_FloorReadAndLookAtEveryByte(benchmark::State& state) {
    Installation& inst = installation();
    const auto base = static_cast<std::uint64_t>(inst.mapPosition);
    for (auto _ : state) {
        rd::native::InputFile file = rd::native::InputFile::open(inst.pak);
        char header[160];
        file.readAt(base, header, sizeof header);
        std::uint64_t sum = 0;
        for (const LumpPlace& lump : lumpPlaces(header, base)) {
            auto buffer = std::make_unique_for_overwrite<char[]>(lump.length);
            for (std::size_t done = 0; done < lump.length;) {
                const std::ptrdiff_t got =
                    file.readAt(lump.at + done, buffer.get() + done, lump.length - done);
                if (got <= 0)
                    break;
                done += static_cast<std::size_t>(got);
            }
            sum += sumWords(buffer.get(), lump.length);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void BM_FloorMapAndLookAtEveryByte(benchmark::State& state) {
    Installation& inst = installation();
    const auto base = static_cast<std::uint64_t>(inst.mapPosition);
    const long pageSize = ::sysconf(_SC_PAGESIZE);
    for (auto _ : state) {
        const int fd = ::open(inst.pak.c_str(), O_RDONLY | O_CLOEXEC);
        char header[160];
        if (fd < 0 || ::pread(fd, header, sizeof header, static_cast<off_t>(base)) != sizeof header) {
            state.SkipWithError("the archive cannot be read");
            break;
        }
        std::uint64_t sum = 0;
        for (const LumpPlace& lump : lumpPlaces(header, base)) {
            const std::uint64_t page =
                lump.at / static_cast<std::uint64_t>(pageSize) * static_cast<std::uint64_t>(pageSize);
            const std::size_t span = static_cast<std::size_t>(lump.at - page) + lump.length;
            void* mapped = ::mmap(nullptr, span, PROT_READ, MAP_PRIVATE, fd, static_cast<off_t>(page));
            if (mapped == MAP_FAILED) {
                state.SkipWithError("the archive cannot be mapped");
                break;
            }
            sum += sumWords(static_cast<const char*>(mapped) + (lump.at - page), lump.length);
            ::munmap(mapped, span);
        }
        ::close(fd);
        benchmark::DoNotOptimize(sum);
    }
}

// The card of the same map held in memory (its lumps still copied out of it, as from a file): what
// the card costs beside the reading.
void BM_MapCardOfTheMapInMemory(benchmark::State& state) {
    static const std::string map = bigMap();
    rd::CardResult result;
    for (auto _ : state) {
        result = rd::ReadMapCardFromBytes(map);
        benchmark::DoNotOptimize(result.card.plan.lines.data());
    }
    checkCard(state, result);
}

// What the add-map screen does when the row is selected: the game's record read for its folders,
// the archive's directory searched for the entry, the map read.
void BM_MapCardOfCatalogueRow(benchmark::State& state) {
    Installation& inst = installation();
    const rd::CatalogueRow row{"big", "BaseQ2 pak0.pak"};
    rd::CardResult result;
    for (auto _ : state) {
        result = rd::CatalogueCard(inst.ws.root(), "Quake2", row);
        benchmark::DoNotOptimize(result.card.plan.lines.data());
    }
    checkCard(state, result);
}

// What the category editor does: the whole catalogue built to find the name, then the same.
void BM_MapCardByName(benchmark::State& state) {
    Installation& inst = installation();
    rd::CardResult result;
    for (auto _ : state) {
        result = rd::FindMapCard(inst.ws.root(), "Quake2", "BIG");
        benchmark::DoNotOptimize(result.card.plan.lines.data());
    }
    checkCard(state, result);
}

BENCHMARK(BM_MapCardInsideArchive)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselineReadTheSameLumps)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapCardInsideArchiveFromDisk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselineReadTheSameLumpsFromDisk)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorReadAndLookAtEveryByte)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FloorMapAndLookAtEveryByte)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapCardOfTheMapInMemory)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapCardOfCatalogueRow)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MapCardByName)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
