// The option list opened on a definition file of 5,000 rows (categories, and options of every
// kind) and closed with OK, beside a baseline in the same run: LoadDefinitions, a bare QTreeWidget
// of eight columns filled in one batch, and SaveDefinitions. Qt runs offscreen. Both save through
// the same writer (a temporary file flushed to the disk and renamed), so the real time of both
// includes the wait for the disk; the CPU time shows the screen's own work.

#include "core/screens/qtext.h"
#include "definitions/options.h"
#include "definitions/screens/frmOptions.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int kRows = 5000;

// A definition file of kRows rows: a category every 25 rows, the options between of every kind
// in turn, with parameters where the kind takes one.
struct DefinitionFile {
    rd::test::TempWorkspace ws;
    std::filesystem::path path;

    DefinitionFile() {
        std::vector<rd::OptionRow> rows;
        rows.reserve(kRows);
        const char* parameters[rd::kOptionTypeCount] = {
            "", "", "", "1:100", "", "weapons.val", "maps.lst", "skill.val", "", "", "", "1"};
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
        path = ws.path("Game-Paths/Quake2/Options.cfg");
        ws.folder("Game-Paths/Quake2");
        rd::SaveDefinitions(path, rows);
    }
};

const DefinitionFile& definitionFile() {
    static const auto file = std::make_unique<DefinitionFile>();
    return *file;
}

void BaselineLoadFillBareTreeSave(benchmark::State& state) {
    const auto& file = definitionFile();
    int shown = 0;
    for (auto _ : state) {
        const auto rows = rd::LoadDefinitions(file.path);
        QTreeWidget tree;
        tree.setColumnCount(8);
        QList<QTreeWidgetItem*> items;
        items.reserve(static_cast<qsizetype>(rows.size()));
        for (const auto& row : rows) {
            auto* item = new QTreeWidgetItem;
            item->setText(0, rd::fromBytes(row.name));
            item->setText(1, rd::fromBytes(row.checked));
            item->setText(2, rd::fromBytes(row.unchecked));
            item->setText(3, rd::fromBytes(row.helpText));
            item->setText(4, rd::fromBytes(row.type));
            item->setText(5, rd::fromBytes(row.parameter));
            item->setText(6, rd::fromBytes(row.where));
            item->setText(7, rd::fromBytes(row.key));
            items.append(item);
        }
        tree.setUpdatesEnabled(false);
        tree.addTopLevelItems(items);
        tree.setUpdatesEnabled(true);
        shown = tree.topLevelItemCount();
        rd::SaveDefinitions(file.path, rows);
    }
    state.counters["rows"] = shown;
}

void OptionListOpenedAndClosedWithOK(benchmark::State& state) {
    const auto& file = definitionFile();
    int shown = 0;
    for (auto _ : state) {
        rd::frmOptions form(file.path, "Quake2", file.ws.root());
        shown = form.lvOptions->topLevelItemCount();
        form.cmdOK_Click();
        if (form.result() != QDialog::Accepted)
            state.SkipWithError("the option list did not close with OK");
    }
    state.counters["rows"] = shown;
}

// The same, also reading every row back from the list view as OK did before it took the rows
// that were not touched as they were read: what that read-back costs.
void OptionListOpenedAndClosedWithOKReadingEveryRowBack(benchmark::State& state) {
    const auto& file = definitionFile();
    int shown = 0;
    for (auto _ : state) {
        rd::frmOptions form(file.path, "Quake2", file.ws.root());
        shown = form.lvOptions->topLevelItemCount();
        const auto rows = rd::optionRowsOf(form.lvOptions);
        benchmark::DoNotOptimize(rows.data());
        form.cmdOK_Click();
        if (form.result() != QDialog::Accepted)
            state.SkipWithError("the option list did not close with OK");
    }
    state.counters["rows"] = shown;
}

} // namespace

BENCHMARK(BaselineLoadFillBareTreeSave)->Unit(benchmark::kMillisecond);
BENCHMARK(OptionListOpenedAndClosedWithOK)->Unit(benchmark::kMillisecond);
BENCHMARK(OptionListOpenedAndClosedWithOKReadingEveryRowBack)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (!std::getenv("QT_QPA_PLATFORM"))
        setenv("QT_QPA_PLATFORM", "offscreen", 1);
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
