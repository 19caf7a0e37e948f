// The profile list with "Show profiles for selected bot only" set, on a workspace of 10,000
// profiles (10,000 profile.cfg reads), beside a baseline that only opens and reads the first
// line of the same 10,000 files with the standard library.

#include "profiles/profiles.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace {

constexpr int kProfiles = 10000;

const rd::test::TempWorkspace& workspace() {
    static const auto ws = [] {
        auto w = std::make_unique<rd::test::TempWorkspace>();
        w->folder("Plug-Ins/Eraser");
        w->folder("Plug-Ins/ACE");
        w->folder("Game-Paths/Quake2");
        for (int i = 0; i < kProfiles; ++i)
            w->writeLines(
                "Profile " + std::to_string(i) + "/profile.cfg",
                {i % 3 == 0 ? "ACE" : "Eraser", "skill=" + std::to_string(i % 5), "maps=q2dm1,q2dm2"});
        return w;
    }();
    return *ws;
}

void GetProfileListFiltered(benchmark::State& state) {
    const auto& ws = workspace();
    std::size_t shown = 0;
    for (auto _ : state) {
        const auto list = rd::GetProfileList(ws.root(), true, std::string("eraser"), nullptr);
        shown = list.size();
        benchmark::DoNotOptimize(list.data());
    }
    state.counters["shown"] = static_cast<double>(shown);
}

void BaselineReadFirstLines(benchmark::State& state) {
    const auto& ws = workspace();
    std::vector<std::filesystem::path> files;
    for (int i = 0; i < kProfiles; ++i)
        files.push_back(ws.path("Profile " + std::to_string(i) + "/profile.cfg"));
    std::size_t bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        for (const auto& file : files) {
            std::ifstream in(file, std::ios::binary);
            std::string line;
            std::getline(in, line);
            bytes += line.size();
        }
        benchmark::DoNotOptimize(bytes);
    }
    state.counters["bytes"] = static_cast<double>(bytes);
}

} // namespace

BENCHMARK(BaselineReadFirstLines)->Unit(benchmark::kMillisecond);
BENCHMARK(GetProfileListFiltered)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
namespace {
void ListProfilesOnly(benchmark::State& state) {
    const auto& ws = workspace();
    for (auto _ : state)
        benchmark::DoNotOptimize(rd::listProfiles(ws.root()).size());
}
BENCHMARK(ListProfilesOnly)->Unit(benchmark::kMillisecond);
} // namespace
