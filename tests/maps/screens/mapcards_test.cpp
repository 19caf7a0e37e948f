// The map card beside the add-map screen's list and the category editor's list: the selected
// map's title, spawn points, CTF flags, weapons and floor plan, read when a row is selected, or the
// reason a row has no card.

#include "core/screens/userfont.h"
#include "maps/categories.h"
#include "maps/screens/cardloader.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmCustomMaps.h"
#include "maps/screens/mapcardpane.h"
#include "maps/screens/maplist.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/bsp_writer_data.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace mapcards_test {

using namespace rd;
using rd::test::BspBuilder;
using rd::test::BspEntity;
using rd::test::clickRow;
using rd::test::PromptRecorder;
using rd::test::rows;
using rd::test::TempWorkspace;

// A map of `rooms` rooms in a row, each 256 x 128 units, with these entities after the world.
std::string mapBytes(const std::string& title, int rooms, const std::vector<BspEntity>& entities) {
    BspBuilder builder;
    for (int i = 0; i < rooms; ++i)
        builder.addRoom(static_cast<float>(i * 320), 0, static_cast<float>(i * 320 + 256), 128, 0, 128);
    std::vector<BspEntity> all{{{"classname", "worldspawn"}, {"message", title}}};
    all.insert(all.end(), entities.begin(), entities.end());
    return test::buildBsp(builder.build(test::entityText(all)));
}

std::vector<BspEntity> spawns(int count) {
    std::vector<BspEntity> out;
    for (int i = 0; i < count; ++i)
        out.push_back({{"classname", "info_player_deathmatch"}});
    return out;
}

// baseq2/pak0.pak: q2dm1 "The Edge" (8 spawns, shotgun and railgun, one room), q2dm2 "Tokay's
// Towers" (1 spawn, two rooms), q2ctf1 (flags, no title); loose: broken.bsp, whose entity text has
// no closing brace.
void fillInstallation(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {ws.path("q2").string(), ws.path("q2/baseq2/maps").string(), "quake2.exe"});
    std::vector<BspEntity> edge = spawns(8);
    edge.push_back({{"classname", "weapon_railgun"}});
    edge.push_back({{"classname", "weapon_shotgun"}});
    edge.push_back({{"classname", "weapon_railgun"}});
    ws.write("q2/baseq2/pak0.pak",
             test::buildPak({{"pics/colormap.pcx", std::string(300, 'c')},
                             {"maps/q2dm1.bsp", mapBytes("The Edge", 1, edge)},
                             {"maps/q2dm2.bsp", mapBytes("Tokay's Towers", 2, spawns(1))},
                             {"maps/q2ctf1.bsp", mapBytes("", 3,
                                                          {{{"classname", "item_flag_team1"}},
                                                           {{"classname", "item_flag_team2"}},
                                                           {{"classname", "info_player_team1"}}})}}));
    BspBuilder builder;
    builder.addRoom(0, 0, 64, 64, 0, 64);
    ws.write("q2/baseq2/maps/broken.bsp",
             test::buildBsp(builder.build(std::string("{\n\"classname\" \"worldspawn\"\n") + '\0')));
}

// Waits until the card pane shows a card or a reason other than "Reading the map...".
bool waitForCard(const MapCardPane* pane) {
    return QTest::qWaitFor(
        [&] {
            return pane->lblCardTitle->isVisibleTo(pane) ||
                   (pane->lblCardReason->isVisibleTo(pane) &&
                    pane->lblCardReason->text() != QStringLiteral("Reading the map..."));
        },
        10000);
}

QString shownTitle(const MapCardPane* pane) {
    return pane->lblCardTitle->isVisibleTo(pane) ? pane->lblCardTitle->text() : QString();
}

struct AddMaps {
    QTreeWidget category;
    QLineEdit nameBox;
    std::unique_ptr<frmAddMaps> form;

    explicit AddMaps(const TempWorkspace& ws) {
        setUpMapList(&category, "Map Name", "Title");
        form = std::make_unique<frmAddMaps>(ws.root(), "Quake2", false, &nameBox, &category);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    MapCardPane* pane() const { return form->fraMapCard; }
};

TEST(MapCardOnTheAddMapScreen, NoRowSelectedShowsNoCard) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("Select a map to see its card."));
    EXPECT_FALSE(s.pane()->lblCardTitle->isVisibleTo(s.pane()));
    EXPECT_EQ(s.pane()->picCardPlan->lineCount(), 0);
}

TEST(MapCardOnTheAddMapScreen, SelectingARowShowsItsCard) {
    TempWorkspace ws;
    fillInstallation(ws);
    PromptRecorder prompts;
    AddMaps s(ws);
    ASSERT_EQ(rows(s.form->lvMaps), (QStringList{"q2dm1|BaseQ2 pak0.pak", "q2dm2|BaseQ2 pak0.pak",
                                                 "q2ctf1|BaseQ2 pak0.pak", "broken|Custom Maps"}));
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardTitle->text(), QString("The Edge"));
    EXPECT_EQ(s.pane()->lblCardSpawns->text(), QString("8 deathmatch spawn points"));
    EXPECT_EQ(s.pane()->lblCardCtf->text(), QString("CTF: no"));
    EXPECT_EQ(s.pane()->lblCardWeapons->text(), QString("Weapons: Shotgun, Railgun"));
    EXPECT_FALSE(s.pane()->lblCardReason->isVisibleTo(s.pane()));
    EXPECT_EQ(s.pane()->picCardPlan->lineCount(), 4);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(MapCardOnTheAddMapScreen, ArrowKeysMoveTheCardAlong) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    ASSERT_EQ(shownTitle(s.pane()), QString("The Edge"));
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(shownTitle(s.pane()), QString("Tokay's Towers"));
    EXPECT_EQ(s.pane()->lblCardSpawns->text(), QString("1 deathmatch spawn point"));
    EXPECT_EQ(s.pane()->lblCardWeapons->text(), QString("Weapons: none"));
    EXPECT_EQ(s.pane()->picCardPlan->lineCount(), 8);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(shownTitle(s.pane()), QString("(no title)"));
    EXPECT_EQ(s.pane()->lblCardCtf->text(), QString("CTF: yes"));
    EXPECT_EQ(s.pane()->lblCardSpawns->text(), QString("0 deathmatch spawn points"));
    QTest::keyClick(s.form->lvMaps, Qt::Key_Up);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(shownTitle(s.pane()), QString("Tokay's Towers"));
}

TEST(MapCardOnTheAddMapScreen, RunningThroughTheListShowsTheCardOfTheRowItStopsOn) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    // Keys faster than the cards: only the last row's card is shown.
    for (int i = 0; i < 6; ++i)
        QTest::keyClick(s.form->lvMaps, i < 3 ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(s.form->lvMaps, Qt::Key_End);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Home);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(shownTitle(s.pane()), QString("Tokay's Towers"));
    // Nothing else arrives later and replaces it.
    QTest::qWait(200);
    EXPECT_EQ(shownTitle(s.pane()), QString("Tokay's Towers"));
    EXPECT_FALSE(s.form->cardLoader->busy());
}

TEST(MapCardOnTheAddMapScreen, ADamagedMapShowsItsReason) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 3);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("damaged map: an entity has no closing brace"));
    EXPECT_FALSE(s.pane()->lblCardTitle->isVisibleTo(s.pane()));
    EXPECT_FALSE(s.pane()->lblCardSpawns->isVisibleTo(s.pane()));
    EXPECT_EQ(s.pane()->picCardPlan->lineCount(), 0);
}

TEST(MapCardOnTheAddMapScreen, AMapThatIsGoneSaysItIsNotFound) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    std::filesystem::remove(ws.path("q2/baseq2/pak0.pak"));
    clickRow(s.form->lvMaps, 1);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("not found in any archive"));
}

TEST(MapCardOnTheAddMapScreen, ARowTheFilterHidesTakesItsCardAway) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    QTest::keyClicks(s.form->txtFilter, "ctf");
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("Select a map to see its card."));
    EXPECT_FALSE(s.pane()->lblCardTitle->isVisibleTo(s.pane()));
}

TEST(MapCardOnTheAddMapScreen, TheCardChangesNothingSelectDoes) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 1);
    ASSERT_TRUE(waitForCard(s.pane()));
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    // The map's name is its title in the category, not the title on its card.
    EXPECT_EQ(rows(&s.category), (QStringList{"q2dm2|q2dm2"}));
}

TEST(MapCardOnTheAddMapScreen, ThePlanKeepsItsProportionsAndGrowsWithTheScreen) {
    TempWorkspace ws;
    fillInstallation(ws);
    AddMaps s(ws);
    clickRow(s.form->lvMaps, 2); // three rooms in a row: 896 x 128 units
    ASSERT_TRUE(waitForCard(s.pane()));
    MapPlanView* plan = s.pane()->picCardPlan;
    EXPECT_EQ(plan->planExtent(), QRectF(0, 0, 896, 128));
    const QRectF before = plan->drawnRect();
    ASSERT_FALSE(before.isEmpty());
    EXPECT_NEAR(before.width() / before.height(), 896.0 / 128.0, 0.01);
    EXPECT_TRUE(plan->rect().contains(before.toAlignedRect().adjusted(1, 1, -1, -1)));
    s.form->resize(s.form->width() * 2, s.form->height() * 2);
    QApplication::processEvents();
    const QRectF after = plan->drawnRect();
    EXPECT_GT(after.width(), before.width() * 1.5);
    EXPECT_NEAR(after.width() / after.height(), 896.0 / 128.0, 0.01);
}

TEST(MapCardOnTheAddMapScreen, TheCardShowsWholeAtEveryFontSize) {
    struct Reset {
        ~Reset() { setUserFont({}); }
    } reset;
    TempWorkspace ws;
    fillInstallation(ws);
    for (const std::int16_t size : {std::int16_t{8}, std::int16_t{0}, std::int16_t{14}}) {
        setUserFont({size, ""});
        AddMaps s(ws);
        clickRow(s.form->lvMaps, 0);
        ASSERT_TRUE(waitForCard(s.pane()));
        QApplication::processEvents();
        for (QLabel* label : {s.pane()->lblCardTitle, s.pane()->lblCardSpawns, s.pane()->lblCardCtf,
                              s.pane()->lblCardWeapons}) {
            if (size > 0) {
                EXPECT_EQ(label->font().pointSize(), size);
            }
            // Each line of the card has the room its text needs at the width it was given.
            EXPECT_GE(label->height(), label->heightForWidth(label->width()))
                << label->objectName().toStdString() << " at " << size;
            EXPECT_GE(label->width(), label->fontMetrics().averageCharWidth() * 8);
        }
        const MapPlanView* plan = s.pane()->picCardPlan;
        EXPECT_GE(plan->width(), plan->minimumSizeHint().width()) << size;
        EXPECT_GE(plan->height(), plan->minimumSizeHint().height()) << size;
    }
}

// ---- the category editor --------------------------------------------------------------------

struct CustomMaps {
    std::unique_ptr<frmCustomMaps> form;
    explicit CustomMaps(const TempWorkspace& ws) {
        form = std::make_unique<frmCustomMaps>(ws.root(), "Quake2", "DM",
                                               categoryPath(ws.root(), "Quake2", "DM"));
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
    MapCardPane* pane() const { return form->fraMapCard; }
};

TEST(MapCardOnTheCategoryEditor, ARowFoundInTheCatalogueShowsItsCard) {
    TempWorkspace ws;
    fillInstallation(ws);
    ws.writeLines("Game-Paths/Quake2/DM.map",
                  {"[V2]", "Q2DM2", "My own title", "q2dm9", "Missing", "broken", ""});
    PromptRecorder prompts;
    CustomMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    // Found without regard to case; the card's title is the map's own.
    EXPECT_EQ(shownTitle(s.pane()), QString("Tokay's Towers"));
    EXPECT_EQ(s.pane()->lblCardSpawns->text(), QString("1 deathmatch spawn point"));
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("not found in any archive"));
    EXPECT_FALSE(s.pane()->lblCardTitle->isVisibleTo(s.pane()));
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("damaged map: an entity has no closing brace"));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(MapCardOnTheCategoryEditor, RenamingTheSelectedRowReadsTheCardOfTheNewName) {
    TempWorkspace ws;
    fillInstallation(ws);
    ws.writeLines("Game-Paths/Quake2/DM.map", {"[V2]", "q2dm1", "The Edge"});
    CustomMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    ASSERT_EQ(shownTitle(s.pane()), QString("The Edge"));
    s.form->lvMaps->topLevelItem(0)->setText(0, "q2ctf1");
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardCtf->text(), QString("CTF: yes"));
}

TEST(MapCardOnTheCategoryEditor, AGameWithoutARecordSaysSo) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/DM.map", {"[V2]", "q2dm1", "The Edge"});
    CustomMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    EXPECT_EQ(s.pane()->lblCardReason->text().toStdString(),
              "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").make_preferred().string());
}

TEST(MapCardOnTheCategoryEditor, DeletingTheLastRowLeavesNoCard) {
    TempWorkspace ws;
    fillInstallation(ws);
    ws.writeLines("Game-Paths/Quake2/DM.map", {"[V2]", "q2dm1", "The Edge"});
    CustomMaps s(ws);
    clickRow(s.form->lvMaps, 0);
    ASSERT_TRUE(waitForCard(s.pane()));
    QTest::keyClick(s.form->lvMaps, Qt::Key_Delete);
    EXPECT_EQ(s.pane()->lblCardReason->text(), QString("Select a map to see its card."));
}

// ---- reading away from the screen -------------------------------------------------------------

TEST(CardLoader, ASlowReadingIsAbandonedWhenAnotherIsAskedForAndTheScreenNeverWaits) {
    CardLoader loader;
    std::vector<std::string> arrived;
    QObject::connect(&loader, &CardLoader::cardRead,
                     [&](const CardResult& result) { arrived.push_back(result.card.title + result.reason); });
    std::atomic<bool> slowStarted{false};
    std::atomic<bool> slowSawCancel{false};
    loader.request([&](const std::atomic<bool>& cancel) {
        slowStarted = true;
        // A map that would take a minute, unless it is told to stop.
        for (int i = 0; i < 6000 && !cancel; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        slowSawCancel = cancel.load();
        CardResult result;
        result.card.title = "slow";
        return result;
    });
    ASSERT_TRUE(QTest::qWaitFor([&] { return slowStarted.load(); }, 5000));
    const auto before = std::chrono::steady_clock::now();
    loader.request([](const std::atomic<bool>&) {
        CardResult result;
        result.card.title = "quick";
        return result;
    });
    // Asking does not wait for the slow reading.
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::milliseconds(500));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !arrived.empty(); }, 10000));
    QTest::qWait(100);
    EXPECT_TRUE(slowSawCancel.load());
    EXPECT_EQ(arrived, (std::vector<std::string>{"quick"}));
    EXPECT_FALSE(loader.busy());
}

TEST(CardLoader, CancelledReadingsHandNothingBack) {
    CardLoader loader;
    int arrived = 0;
    QObject::connect(&loader, &CardLoader::cardRead, [&](const CardResult&) { ++arrived; });
    loader.request([](const std::atomic<bool>&) { return CardResult{}; });
    loader.cancel();
    EXPECT_FALSE(loader.busy());
    QTest::qWait(200);
    EXPECT_EQ(arrived, 0);
}

TEST(CardLoader, AScreenClosedWhileAReadingRunsStopsIt) {
    std::atomic<bool> sawCancel{false};
    std::atomic<bool> started{false};
    {
        CardLoader loader;
        loader.request([&](const std::atomic<bool>& cancel) {
            started = true;
            while (!cancel)
                std::this_thread::sleep_for(std::chrono::milliseconds(5));
            sawCancel = true;
            return CardResult{};
        });
        ASSERT_TRUE(QTest::qWaitFor([&] { return started.load(); }, 5000));
    }
    EXPECT_TRUE(sawCancel.load());
}

} // namespace mapcards_test
