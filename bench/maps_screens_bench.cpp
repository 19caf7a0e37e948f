// The add-map screen on a large installation: three archives of 16,384 entries each (half of them
// maps; one in the main folder, which the catalogue reads twice, and two in baseq2) and 5,000
// loose maps, 37,768 rows in all. Each figure of the screen stands beside a baseline measured in
// the same run on a bare QTreeWidget:
//   - opening the screen until its list holds every row, beside the same rows from BuildCatalogue
//     put into a bare QTreeWidget in one batch;
//   - filtering the list to a one-letter text, and back to everything (each on its own);
//   - a click on the "Map Name" header, beside sortItems on the bare view holding the same rows;
//   - the Down key on the list, with the selected row's card read beside it, beside the same key
//     on the bare view.
// Qt runs offscreen; the screen and the bare view are shown so layout and drawing count.

#include "core/screens/qtext.h"
#include "maps/pak.h"
#include "maps/screens/frmAddMaps.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kRows = 4 * 8192 + 5000;

struct Installation {
    rd::test::TempWorkspace ws;

    Installation() {
        const auto archive = [](int which) {
            std::vector<rd::test::PakEntry> entries;
            for (int i = 0; i < 16384; ++i) {
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
        for (int i = 0; i < 5000; ++i)
            ws.write("q2/baseq2/maps/custom" + std::to_string(i) + ".bsp", "");
        ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                      {ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string() + "/"});
    }
};

Installation& installation() {
    static Installation built;
    return built;
}

std::unique_ptr<rd::frmAddMaps> openScreen() {
    auto screen = std::make_unique<rd::frmAddMaps>(installation().ws.root(), "Quake2", false, nullptr,
                                                   nullptr, nullptr);
    screen->show();
    QApplication::processEvents();
    return screen;
}

// The baseline's rows: the catalogue, converted as the screen converts it, in one batch.
std::unique_ptr<QTreeWidget> openBareView() {
    std::vector<std::string> errors;
    const rd::Catalogue catalogue =
        rd::BuildCatalogue(installation().ws.root(), "Quake2", rd::collectAndIgnore(errors));
    auto view = std::make_unique<QTreeWidget>();
    view->setColumnCount(2);
    QList<QTreeWidgetItem*> items;
    items.reserve(static_cast<qsizetype>(catalogue.rows.size()));
    for (const rd::CatalogueRow& row : catalogue.rows)
        items.append(new QTreeWidgetItem(QStringList{rd::fromBytes(row.name), rd::fromBytes(row.source)}));
    view->addTopLevelItems(items);
    view->show();
    QApplication::processEvents();
    return view;
}

void checkRows(benchmark::State& state, const QTreeWidget* view) {
    state.counters["rows"] = static_cast<double>(view->topLevelItemCount());
    if (static_cast<std::size_t>(view->topLevelItemCount()) != kRows)
        state.SkipWithError("unexpected number of rows");
}

void BM_OpenAddMapScreen(benchmark::State& state) {
    installation();
    int rows = 0;
    for (auto _ : state) {
        auto screen = openScreen();
        rows = screen->lvMaps->topLevelItemCount();
        state.PauseTiming();
        screen.reset();
        state.ResumeTiming();
    }
    state.counters["rows"] = rows;
    if (static_cast<std::size_t>(rows) != kRows)
        state.SkipWithError("unexpected number of rows");
}

void BM_BaselineCatalogueIntoBareTreeWidget(benchmark::State& state) {
    installation();
    int rows = 0;
    for (auto _ : state) {
        auto view = openBareView();
        rows = view->topLevelItemCount();
        state.PauseTiming();
        view.reset();
        state.ResumeTiming();
    }
    state.counters["rows"] = rows;
    if (static_cast<std::size_t>(rows) != kRows)
        state.SkipWithError("unexpected number of rows");
}

// Typing one letter into the filter box: only the 5,000 loose maps ("custom...") hold a "c".
void BM_FilterToOneLetter(benchmark::State& state) {
    auto screen = openScreen();
    checkRows(state, screen->lvMaps);
    for (auto _ : state) {
        screen->txtFilter->setText(QStringLiteral("c"));
        QApplication::processEvents();
        state.PauseTiming();
        screen->txtFilter->clear();
        QApplication::processEvents();
        state.ResumeTiming();
    }
}

// Emptying the filter box again: every row shown.
void BM_FilterBackToEverything(benchmark::State& state) {
    auto screen = openScreen();
    checkRows(state, screen->lvMaps);
    for (auto _ : state) {
        state.PauseTiming();
        screen->txtFilter->setText(QStringLiteral("c"));
        QApplication::processEvents();
        state.ResumeTiming();
        screen->txtFilter->clear();
        QApplication::processEvents();
    }
}

// Puts the rows back in catalogue order (not timed).
void restoreOrder(QTreeWidget* view, const QList<QTreeWidgetItem*>& order) {
    view->invisibleRootItem()->takeChildren();
    view->addTopLevelItems(order);
    view->header()->setSortIndicatorShown(false);
    QApplication::processEvents();
}

QList<QTreeWidgetItem*> currentOrder(const QTreeWidget* view) {
    QList<QTreeWidgetItem*> order;
    for (int i = 0; i < view->topLevelItemCount(); ++i)
        order.append(view->topLevelItem(i));
    return order;
}

void BM_SortByHeaderClick(benchmark::State& state) {
    auto screen = openScreen();
    checkRows(state, screen->lvMaps);
    const QList<QTreeWidgetItem*> order = currentOrder(screen->lvMaps);
    QHeaderView* header = screen->lvMaps->header();
    const QPoint nameHeader(header->sectionViewportPosition(0) + header->sectionSize(0) / 2,
                            header->height() / 2);
    for (auto _ : state) {
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, nameHeader);
        QApplication::processEvents();
        state.PauseTiming();
        restoreOrder(screen->lvMaps, order);
        state.ResumeTiming();
    }
}

void BM_BaselineSortBareTreeWidget(benchmark::State& state) {
    auto view = openBareView();
    checkRows(state, view.get());
    const QList<QTreeWidgetItem*> order = currentOrder(view.get());
    for (auto _ : state) {
        view->sortItems(0, Qt::AscendingOrder);
        QApplication::processEvents();
        state.PauseTiming();
        restoreOrder(view.get(), order);
        state.ResumeTiming();
    }
}

// The Down key on the list, with the card of each row it reaches read beside it (on a thread of its
// own; what the screen does with the key and with the cards that arrive is timed), beside the same
// key on the bare view holding the same rows. Every 1,000 rows the selection goes back to the top,
// untimed.
template <typename View> void arrowKeyDown(benchmark::State& state, View* view) {
    view->setFocus();
    view->setCurrentItem(view->topLevelItem(0));
    QApplication::processEvents();
    int row = 0;
    for (auto _ : state) {
        QTest::keyClick(view, Qt::Key_Down);
        QApplication::processEvents();
        if (++row == 1000) {
            state.PauseTiming();
            view->setCurrentItem(view->topLevelItem(0));
            QApplication::processEvents();
            row = 0;
            state.ResumeTiming();
        }
    }
}

void BM_ArrowKeyDownWithCard(benchmark::State& state) {
    auto screen = openScreen();
    checkRows(state, screen->lvMaps);
    arrowKeyDown(state, screen->lvMaps);
}

void BM_BaselineArrowKeyDownBareTreeWidget(benchmark::State& state) {
    auto view = openBareView();
    checkRows(state, view.get());
    arrowKeyDown(state, view.get());
}

BENCHMARK(BM_OpenAddMapScreen)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselineCatalogueIntoBareTreeWidget)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterToOneLetter)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilterBackToEverything)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortByHeaderClick)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BaselineSortBareTreeWidget)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ArrowKeyDownWithCard)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BaselineArrowKeyDownBareTreeWidget)->Unit(benchmark::kMicrosecond);

} // namespace

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
