// The main window opening on a workspace of 10,000 profiles and 500 plug-in bots, then "Show
// profiles for selected bot only" ticked, a bot selected (10,000 profile.cfg reads) and the box
// cleared again; beside a baseline that does the same listing with the data layer and fills two
// bare QListWidgets in one batch each time. Qt runs offscreen.

#include "profiles/profiles.h"
#include "profiles/screens/frmMain.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QListWidget>
#include <QWidget>
#include <benchmark/benchmark.h>
#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace {

constexpr int kProfiles = 10000;
constexpr int kBots = 500;
// The bot selected while the box is ticked (about a fifth of the profiles are its).
const char* const kSelectedBot = "Bot 0007";

std::string botName(int i) {
    char name[16];
    std::snprintf(name, sizeof name, "Bot %04d", i);
    return name;
}

const rd::test::TempWorkspace& workspace() {
    static const auto ws = [] {
        auto w = std::make_unique<rd::test::TempWorkspace>();
        for (int i = 0; i < kBots; ++i)
            w->folder("Plug-Ins/" + botName(i));
        w->folder("Game-Paths/Quake2");
        for (int i = 0; i < kProfiles; ++i) {
            const std::string owner = i % 5 == 0 ? kSelectedBot : botName(i % kBots);
            w->writeLines("Profile " + std::to_string(i) + "/profile.cfg",
                          {owner, "skill=3", "maps=q2dm1,q2dm2"});
        }
        return w;
    }();
    return *ws;
}

QStringList toList(const std::vector<std::string>& names) {
    QStringList out;
    out.reserve(static_cast<qsizetype>(names.size()));
    for (const auto& n : names)
        out.append(QString::fromLatin1(n.data(), static_cast<qsizetype>(n.size())));
    return out;
}

void refill(QListWidget* list, const QStringList& names) {
    list->clear();
    list->setUpdatesEnabled(false);
    list->addItems(names);
    list->setUpdatesEnabled(true);
}

void MainWindowOpenFilterAndClear(benchmark::State& state) {
    const auto& ws = workspace();
    std::size_t shown = 0;
    for (auto _ : state) {
        rd::frmMain form(ws.root());
        form.show();
        form.chkOnlyShow->click();
        const auto bot =
            form.lstRecognisedBots->findItems(QString::fromLatin1(kSelectedBot), Qt::MatchExactly);
        form.lstRecognisedBots->setCurrentItem(bot.first());
        shown = static_cast<std::size_t>(form.lstProfiles->count());
        form.chkOnlyShow->click();
        QApplication::processEvents();
        benchmark::DoNotOptimize(form.lstProfiles->count());
    }
    state.counters["filtered"] = static_cast<double>(shown);
}

void BaselineListAndFillBareLists(benchmark::State& state) {
    const auto& ws = workspace();
    std::size_t shown = 0;
    for (auto _ : state) {
        QWidget window;
        auto* bots = new QListWidget(&window);
        auto* profiles = new QListWidget(&window);
        auto* layout = new QHBoxLayout(&window);
        layout->addWidget(bots);
        layout->addWidget(profiles);
        refill(profiles, toList(rd::GetProfileList(ws.root(), false, std::nullopt, nullptr)));
        refill(bots, toList(rd::listPluginBots(ws.root())));
        window.show();
        refill(profiles, toList(rd::GetProfileList(ws.root(), true, std::nullopt, nullptr)));
        const auto filtered = rd::GetProfileList(ws.root(), true, std::string(kSelectedBot), nullptr);
        shown = filtered.size();
        refill(profiles, toList(filtered));
        refill(profiles, toList(rd::GetProfileList(ws.root(), false, std::nullopt, nullptr)));
        QApplication::processEvents();
        benchmark::DoNotOptimize(profiles->count());
    }
    state.counters["filtered"] = static_cast<double>(shown);
}

} // namespace

BENCHMARK(BaselineListAndFillBareLists)->Unit(benchmark::kMillisecond);
BENCHMARK(MainWindowOpenFilterAndClear)->Unit(benchmark::kMillisecond);

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
