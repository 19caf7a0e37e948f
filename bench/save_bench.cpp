// Saving an option list of 5,000 rows: SaveDefinitions (a temporary file beside the old one,
// flushed to the disk and renamed over it) beside the way files were written before, opened for
// output (truncated) and written line by line through stdio, and beside that same old way with
// an fsync before closing, which shows what the flush to the disk costs on this machine. The
// three write the same bytes (checked before timing).

#include "definitions/options.h"
#include "tests/support/workspace_data.h"

#include <benchmark/benchmark.h>
#include <cstdio>
#include <string>
#include <vector>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

constexpr int kRows = 5000;

std::vector<rd::OptionRow> optionRows() {
    std::vector<rd::OptionRow> rows;
    rows.reserve(kRows);
    const char* parameters[rd::kOptionTypeCount] = {"",         "",          "", "1:100", "", "weapons.val",
                                                    "maps.lst", "skill.val", "", "",      "", "1"};
    for (int i = 0; i < kRows; ++i) {
        if (i % 25 == 0) {
            rows.push_back(rd::OptionRow::category("Category " + std::to_string(i / 25)));
            continue;
        }
        rd::OptionRow row;
        const int type = i % static_cast<int>(rd::kOptionTypeCount);
        row.name = "Option number " + std::to_string(i);
        row.type = std::to_string(type);
        row.key = "Opt" + std::to_string(i);
        row.parameter = parameters[type];
        row.checked = "+set option_" + std::to_string(i) + " %s";
        row.unchecked = type % 2 ? "+set option_" + std::to_string(i) + " 0" : "";
        row.where = std::to_string(i % 3);
        row.helpText = "What option " + std::to_string(i) + " does to the game, in a sentence or two.";
        rows.push_back(std::move(row));
    }
    return rows;
}

// The writer as it was: the file opened for output (created or truncated) and written line by
// line, CR LF after each, through stdio; `flush` adds an fsync before it is closed.
bool truncateAndWrite(const std::filesystem::path& path, const std::vector<rd::OptionRow>& rows, bool flush) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    if (!file)
        return false;
    bool ok = true;
    const auto line = [&](const std::string& text) {
        ok = ok && std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
             std::fwrite("\r\n", 1, 2, file) == 2;
    };
    for (const auto& row : rows) {
        if (row.isCategory) {
            line("[" + row.name + "]");
            continue;
        }
        line(row.name);
        line(row.type);
        line(row.key + '\t' + row.parameter + '\t' + row.checked + '\t' + row.unchecked + '\t' + row.where +
             '\t' + row.helpText);
    }
    if (flush) {
        ok = ok && std::fflush(file) == 0;
#ifndef _WIN32
        ok = ok && ::fsync(fileno(file)) == 0;
#endif
    }
    return std::fclose(file) == 0 && ok;
}

struct Files {
    rd::test::TempWorkspace ws;
    std::vector<rd::OptionRow> rows = optionRows();
    std::filesystem::path safe = ws.path("safe/Options.cfg");
    std::filesystem::path old = ws.path("old/Options.cfg");
    std::filesystem::path flushed = ws.path("flushed/Options.cfg");
    bool same = false;
    Files() {
        for (const char* folder : {"safe", "old", "flushed"})
            ws.folder(folder);
        rd::SaveDefinitions(safe, rows);
        truncateAndWrite(old, rows, false);
        truncateAndWrite(flushed, rows, true);
        const std::string bytes = rd::test::readBytes(safe);
        same = bytes == rd::test::readBytes(old) && bytes == rd::test::readBytes(flushed);
    }
};

Files& files() {
    static Files f;
    return f;
}

void OldTruncateAndWrite(benchmark::State& state) {
    auto& f = files();
    if (!f.same)
        state.SkipWithError("the writers do not write the same bytes");
    for (auto _ : state)
        if (!truncateAndWrite(f.old, f.rows, false))
            state.SkipWithError("the file could not be written");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(std::filesystem::file_size(f.old)));
}

void OldTruncateAndWriteWithFsync(benchmark::State& state) {
    auto& f = files();
    for (auto _ : state)
        if (!truncateAndWrite(f.flushed, f.rows, true))
            state.SkipWithError("the file could not be written");
}

void SaveDefinitionsThroughATemporaryFile(benchmark::State& state) {
    auto& f = files();
    for (auto _ : state)
        rd::SaveDefinitions(f.safe, f.rows);
}

} // namespace

BENCHMARK(OldTruncateAndWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(OldTruncateAndWriteWithFsync)->Unit(benchmark::kMillisecond);
BENCHMARK(SaveDefinitionsThroughATemporaryFile)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
