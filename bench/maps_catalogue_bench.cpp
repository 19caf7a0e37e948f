// The installed-maps catalogue of a large installation: three archives of 4,096 entries (half of
// them maps) in the main and baseq2 folders and 2,000 loose .bsp files. Timed beside a baseline
// that only reads the same archive headers and directories into memory (the main folder's
// archive twice, as the catalogue does) and lists the same loose files.

#include "core/workspace.h"
#include "maps/pak.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

struct Installation {
    rd::test::TempWorkspace ws;
    std::vector<fs::path> archiveReads; // in the catalogue's order, the main archive twice
    fs::path mapFolder;

    Installation() {
        const auto archive = [](int which) {
            std::vector<rd::test::PakEntry> entries;
            for (int i = 0; i < 4096; ++i) {
                if (i % 2 == 0)
                    entries.push_back(
                        {"maps/a" + std::to_string(which) + "m" + std::to_string(i) + ".bsp", "B"});
                else
                    entries.push_back({"textures/e1u1/t" + std::to_string(i) + ".wal", "W"});
            }
            return rd::test::buildPak(entries);
        };
        ws.write("q2/pak0.pak", archive(0));
        ws.write("q2/baseq2/pak0.pak", archive(1));
        ws.write("q2/baseq2/pak1.pak", archive(2));
        for (int i = 0; i < 2000; ++i)
            ws.write("q2/baseq2/maps/custom" + std::to_string(i) + ".bsp", "");
        ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                      {ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string() + "/"});
        archiveReads = {ws.path("q2/pak0.pak"), ws.path("q2/pak0.pak"), ws.path("q2/baseq2/pak0.pak"),
                        ws.path("q2/baseq2/pak1.pak")};
        mapFolder = ws.path("q2/baseq2/maps");
    }
};

Installation& installation() {
    static Installation built;
    return built;
}

void BM_FullCatalogue(benchmark::State& state) {
    Installation& inst = installation();
    std::size_t rows = 0;
    for (auto _ : state) {
        std::vector<std::string> errors;
        const rd::Catalogue catalogue =
            rd::BuildCatalogue(inst.ws.root(), "Quake2", rd::collectAndIgnore(errors));
        rows = catalogue.rows.size();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
    if (rows != 4 * 2048 + 2000)
        state.SkipWithError("unexpected catalogue size");
}

struct FileCloser {
    void operator()(std::FILE* f) const { std::fclose(f); }
};

void BM_BaselineReadDirectoriesAndList(benchmark::State& state) {
    Installation& inst = installation();
    std::size_t bytes = 0;
    std::size_t files = 0;
    for (auto _ : state) {
        bytes = 0;
        for (const auto& path : inst.archiveReads) {
            std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
            unsigned char header[12];
            if (!file || std::fread(header, 1, 12, file.get()) != 12)
                continue;
            const auto int32 = [&](int at) {
                return static_cast<std::int32_t>(header[at] | (header[at + 1] << 8) | (header[at + 2] << 16) |
                                                 (static_cast<std::uint32_t>(header[at + 3]) << 24));
            };
            std::vector<char> directory(static_cast<std::size_t>(int32(8)));
            std::fseek(file.get(), int32(4), SEEK_SET);
            bytes += std::fread(directory.data(), 1, directory.size(), file.get());
            benchmark::DoNotOptimize(directory.data());
        }
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(inst.mapFolder))
            names.push_back(entry.path().filename().string());
        files = names.size();
        benchmark::DoNotOptimize(names.data());
    }
    state.counters["directoryBytes"] = static_cast<double>(bytes);
    state.counters["looseFiles"] = static_cast<double>(files);
}

// The two halves of the catalogue on their own, to see where its time goes.
void BM_OnlyScanArchives(benchmark::State& state) {
    Installation& inst = installation();
    for (auto _ : state) {
        std::vector<std::string> names;
        for (const auto& path : inst.archiveReads)
            rd::ScanPak(path, names, true);
        benchmark::DoNotOptimize(names.data());
    }
}

void BM_OnlyListLooseMaps(benchmark::State& state) {
    Installation& inst = installation();
    for (auto _ : state) {
        auto names = rd::listFiles(inst.mapFolder, "*.bsp");
        benchmark::DoNotOptimize(names.data());
    }
}

BENCHMARK(BM_FullCatalogue)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselineReadDirectoriesAndList)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OnlyScanArchives)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_OnlyListLooseMaps)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
