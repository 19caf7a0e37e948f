// The installed-maps catalogue of a launcher installed under Wine (its records hold C:\ paths,
// resolved through the prefix's dosdevices links) beside the same installation with plain Linux
// paths and no prefix. Both are the large installation of maps_catalogue_bench: three archives of
// 4,096 entries (half of them maps) in the main and baseq2 folders and 2,000 loose .bsp files,
// laid out alike: <temp>/<name>/drive_c/Tarnwick beside <temp>/<name>/drive_c/Quake2, where only
// the Wine one has dosdevices/c: and z:.

#include "core/winepaths.h"
#include "maps/pak.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/wine_data.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

void writeInstallation(const fs::path& quake2) {
    const auto archive = [](int which) {
        std::vector<rd::test::PakEntry> entries;
        for (int i = 0; i < 4096; ++i) {
            if (i % 2 == 0)
                entries.push_back({"maps/a" + std::to_string(which) + "m" + std::to_string(i) + ".bsp", "B"});
            else
                entries.push_back({"textures/e1u1/t" + std::to_string(i) + ".wal", "W"});
        }
        return rd::test::buildPak(entries);
    };
    fs::create_directories(quake2 / "baseq2" / "maps");
    rd::test::writeBytes(quake2 / "pak0.pak", archive(0));
    rd::test::writeBytes(quake2 / "baseq2" / "pak0.pak", archive(1));
    rd::test::writeBytes(quake2 / "baseq2" / "pak1.pak", archive(2));
    for (int i = 0; i < 2000; ++i)
        rd::test::writeBytes(quake2 / "baseq2" / "maps" / ("custom" + std::to_string(i) + ".bsp"), "");
}

void writeRecord(const fs::path& root, const std::string& main, const std::string& maps) {
    fs::create_directories(root / "Game-Paths" / "Quake2");
    rd::test::writeBytes(root / "Game-Paths" / "Quake2" / "Quake2.Gme",
                         rd::test::crlf({main, maps, "quake2.exe"}));
}

struct Installations {
    // No test of the machine's own Wine prefix: the plain workspace belongs to none.
    rd::test::ScopedEnvironment env{{"WINEPREFIX", "/nonexistent/rosterdesk-bench-no-prefix"}};
    rd::test::FakeWinePrefix wine; // <temp>/wine with c: and z:
    rd::test::TempWorkspace plain;
    fs::path plainRoot = plain.path("linux/drive_c/Tarnwick");

    Installations() {
        writeInstallation(wine.driveC("Quake2"));
        writeRecord(wine.root(), "C:\\Quake2\\", "C:\\Quake2\\baseq2\\maps\\");
        const fs::path quake2 = plain.path("linux/drive_c/Quake2");
        writeInstallation(quake2);
        writeRecord(plainRoot, quake2.string() + "/", (quake2 / "baseq2" / "maps").string() + "/");
    }
};

Installations& installations() {
    static Installations built;
    return built;
}

void catalogue(benchmark::State& state, const fs::path& root) {
    std::size_t rows = 0;
    for (auto _ : state) {
        std::vector<std::string> errors;
        rows = rd::BuildCatalogue(root, "Quake2", rd::collectAndIgnore(errors)).rows.size();
        benchmark::DoNotOptimize(rows);
    }
    state.counters["rows"] = static_cast<double>(rows);
    if (rows != 4 * 2048 + 2000)
        state.SkipWithError("unexpected catalogue size");
}

void BM_CatalogueUnderWine(benchmark::State& state) {
    catalogue(state, installations().wine.root());
}

void BM_CatalogueWithLinuxPaths(benchmark::State& state) {
    catalogue(state, installations().plainRoot);
}

// Finding the prefix on its own (once per catalogue), to see what it adds.
void BM_FindWinePrefix(benchmark::State& state) {
    const fs::path root = installations().wine.root();
    for (auto _ : state) {
        rd::WinePrefix prefix = rd::findWinePrefix(root);
        benchmark::DoNotOptimize(prefix.drives.data());
    }
}

BENCHMARK(BM_CatalogueUnderWine)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CatalogueWithLinuxPaths)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindWinePrefix)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
