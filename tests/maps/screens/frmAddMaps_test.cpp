#include "core/screens/errortrap.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/maplist.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace frmAddMaps_test {

using namespace rd;
using rd::test::clickRow;
using rd::test::doubleClickRow;
using rd::test::PromptRecorder;
using rd::test::rows;
using rd::test::selectedRow;
using rd::test::shownRows;
using rd::test::TempWorkspace;

// A game whose main folder, baseq2, eraser, crbot and ace folders all hold archives, and whose
// map folder holds loose maps.
void fillInstallation(const TempWorkspace& ws) {
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {ws.path("q2").string(), ws.path("q2/baseq2/maps").string(), "quake2.exe"});
    ws.write("q2/pak0.pak", rd::test::buildPak({{"maps/q2ctf1.bsp", "B"}, {"pics/x.pcx", "P"}}));
    ws.write("q2/baseq2/pak0.pak",
             rd::test::buildPak({{"MAPS/Q2DM1.BSP", "B"}, {"sound/a.wav", "S"}, {"maps/dm/lava.bsp", "B"}}));
    ws.write("q2/baseq2/PAK1.PAK", rd::test::buildPak({{"maps/q2dm1.bsp", "B"}}));
    ws.write("q2/eraser/pak0.pak", rd::test::buildPak({{"maps/eraser1.bsp", "B"}}));
    ws.write("q2/crbot/pak0.pak", rd::test::buildPak({{"maps/crbot1.bsp", "B"}}));
    ws.write("q2/ace/pak0.pak", rd::test::buildPak({{"maps/ace1.bsp", "B"}}));
    ws.write("q2/baseq2/maps/E1M1.BSP", "");
    ws.write("q2/baseq2/maps/a.bsp.BSP", "");
    ws.write("q2/baseq2/maps/readme.txt", "");
}

const QStringList kCatalogue{"q2ctf1|Quake2 pak0.pak",  "q2ctf1|CTF pak0.pak",   "q2dm1|BaseQ2 pak0.pak",
                             "dm/lava|BaseQ2 pak0.pak", "q2dm1|BaseQ2 PAK1.PAK", "eraser1|Eraser pak0.pak",
                             "crbot1|CRbot pak0.pak",   "ace1|ACE pak0.pak",     "a|Custom Maps",
                             "E1M1|Custom Maps"};

struct Screen {
    QTreeWidget category; // the category editor's list
    std::unique_ptr<frmAddMaps> form;
    QLineEdit nameBox;

    Screen(const TempWorkspace& ws, bool pickOne) {
        setUpMapList(&category, "Map Name", "Title");
        for (const char* name : {"m1", "m2", "m3"})
            category.addTopLevelItem(newMapRow(name, QString(name).toUpper()));
        form = std::make_unique<frmAddMaps>(ws.root(), "Quake2", pickOne, &nameBox, &category);
        form->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(form.get()));
    }
};

void clickHeader(QTreeWidget* view, int column) {
    QHeaderView* header = view->header();
    const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
}

TEST(AddMapScreen, ListsTheArchivesInTheirFixedOrderThenTheLooseMapsWithDuplicatesKept) {
    TempWorkspace ws;
    fillInstallation(ws);
    PromptRecorder prompts;
    Screen s(ws, false);
    EXPECT_EQ(s.form->objectName(), QString("frmAddMaps"));
    EXPECT_EQ(rows(s.form->lvMaps), kCatalogue);
    EXPECT_TRUE(prompts.calls().empty());
    EXPECT_EQ(s.form->lvMaps->headerItem()->text(0), QString("Map Name"));
}

TEST(AddMapScreen, AGameWithoutARecordSaysCouldNotFindAndListsNothing) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    PromptRecorder prompts;
    Screen s(ws, true);
    ASSERT_EQ(prompts.calls().size(), 1u);
    const std::string expected = "Could not find " + ws.path("Game-Paths/Quake2/Quake2.Gme").string();
    EXPECT_EQ(prompts.last().text.toStdString(), expected);
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::Ok);
    EXPECT_EQ(s.form->lvMaps->topLevelItemCount(), 0);
    // Select on an empty list does nothing.
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_TRUE(s.form->isVisible());
    EXPECT_EQ(s.nameBox.text(), QString(""));
}

TEST(AddMapScreen, ARecordThatIsAFolderCountsAsMissing) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2/Quake2.Gme");
    PromptRecorder prompts;
    Screen s(ws, true);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_TRUE(prompts.last().text.startsWith("Could not find "));
}

TEST(AddMapScreen, PickOneSelectPutsTheNameIntoTheEntryDialogAndCloses) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, true);
    EXPECT_EQ(s.form->cmdAdd->text(), QString("&Select This Map"));
    clickRow(s.form->lvMaps, 3);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_FALSE(s.form->isVisible());
    EXPECT_EQ(s.nameBox.text(), QString("dm/lava"));
    EXPECT_EQ(rows(&s.category), (QStringList{"m1|M1", "m2|M2", "m3|M3"}));
}

TEST(AddMapScreen, SelectWithTheFlagClearAddsBelowTheEditorsSelectionTitledWithTheNameAndStaysOpen) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    s.category.setCurrentItem(s.category.topLevelItem(0));
    clickRow(s.form->lvMaps, 5);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    clickRow(s.form->lvMaps, 9);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_TRUE(s.form->isVisible());
    // Each goes directly below the editor's selected row, which stays where it was.
    EXPECT_EQ(rows(&s.category), (QStringList{"m1|M1", "E1M1|E1M1", "eraser1|eraser1", "m2|M2", "m3|M3"}));
    EXPECT_EQ(s.nameBox.text(), QString(""));
    QTest::mouseClick(s.form->cmdClose, Qt::LeftButton);
    EXPECT_FALSE(s.form->isVisible());
}

TEST(AddMapScreen, WithNoRowSelectedInTheEditorTheMapGoesToTheEnd) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    doubleClickRow(s.form->lvMaps, 7);
    EXPECT_EQ(rows(&s.category), (QStringList{"m1|M1", "m2|M2", "m3|M3", "ace1|ace1"}));
    EXPECT_TRUE(s.form->isVisible());
}

TEST(AddMapScreen, EnterOnTheListDoesWhatSelectDoes) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, true);
    clickRow(s.form->lvMaps, 0);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Down);
    QTest::keyClick(s.form->lvMaps, Qt::Key_Return);
    EXPECT_FALSE(s.form->isVisible());
    EXPECT_EQ(s.nameBox.text(), QString("q2dm1"));
}

TEST(AddMapScreen, SelectWithNoCatalogueRowSelectedDoesNothing) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    ASSERT_EQ(selectedRow(s.form->lvMaps), -1);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_EQ(s.category.topLevelItemCount(), 3);
    EXPECT_TRUE(s.form->isVisible());
}

TEST(AddMapScreen, TheFilterHidesRowsThatDoNotContainItWithoutRegardToCase) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    QTest::keyClicks(s.form->txtFilter, "DM");
    EXPECT_EQ(shownRows(s.form->lvMaps),
              (QStringList{"q2dm1|BaseQ2 pak0.pak", "dm/lava|BaseQ2 pak0.pak", "q2dm1|BaseQ2 PAK1.PAK"}));
    QTest::keyClicks(s.form->txtFilter, "1");
    EXPECT_EQ(shownRows(s.form->lvMaps), (QStringList{"q2dm1|BaseQ2 pak0.pak", "q2dm1|BaseQ2 PAK1.PAK"}));
    // Only the map name counts, not where it was found.
    s.form->txtFilter->clear();
    QTest::keyClicks(s.form->txtFilter, "custom");
    EXPECT_TRUE(shownRows(s.form->lvMaps).isEmpty());
    // Empty shows every row again, in the same order.
    s.form->txtFilter->clear();
    EXPECT_EQ(shownRows(s.form->lvMaps), kCatalogue);
    EXPECT_EQ(rows(s.form->lvMaps), kCatalogue);
}

TEST(AddMapScreen, TheFilterChangesNothingElse) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    s.form->txtFilter->setFocus();
    QTest::keyClicks(s.form->txtFilter, "lava");
    // The rows and their order stay; only what is shown changes.
    EXPECT_EQ(rows(s.form->lvMaps), kCatalogue);
    ASSERT_EQ(shownRows(s.form->lvMaps), (QStringList{"dm/lava|BaseQ2 pak0.pak"}));
    clickRow(s.form->lvMaps, 3);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_EQ(rows(&s.category), (QStringList{"m1|M1", "m2|M2", "m3|M3", "dm/lava|dm/lava"}));
}

TEST(AddMapScreen, ARowTheFilterHidesIsNoLongerSelected) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    clickRow(s.form->lvMaps, 0);
    QTest::keyClicks(s.form->txtFilter, "ace");
    EXPECT_EQ(selectedRow(s.form->lvMaps), -1);
    QTest::mouseClick(s.form->cmdAdd, Qt::LeftButton);
    EXPECT_EQ(s.category.topLevelItemCount(), 3);
}

TEST(AddMapScreen, HeaderClicksSortTheCatalogueAscendingThenDescending) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    clickHeader(s.form->lvMaps, 0);
    EXPECT_EQ(
        rows(s.form->lvMaps),
        (QStringList{"a|Custom Maps", "ace1|ACE pak0.pak", "crbot1|CRbot pak0.pak", "dm/lava|BaseQ2 pak0.pak",
                     "E1M1|Custom Maps", "eraser1|Eraser pak0.pak", "q2ctf1|Quake2 pak0.pak",
                     "q2ctf1|CTF pak0.pak", "q2dm1|BaseQ2 pak0.pak", "q2dm1|BaseQ2 PAK1.PAK"}));
    clickHeader(s.form->lvMaps, 0);
    EXPECT_EQ(rows(s.form->lvMaps).first(), QString("q2dm1|BaseQ2 pak0.pak"));
    EXPECT_EQ(rows(s.form->lvMaps).last(), QString("a|Custom Maps"));
    clickHeader(s.form->lvMaps, 1);
    EXPECT_EQ(rows(s.form->lvMaps).first(), QString("ace1|ACE pak0.pak"));
}

TEST(AddMapScreen, DamagedArchivesAddNothingAndTheRestIsStillListed) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {ws.path("q2").string(), ws.path("q2/maps").string()});
    // A negative directory offset, a directory that claims far more than the file holds, garbage,
    // an empty file, a folder and a pipe named like archives.
    ws.write("q2/baseq2/pak0.pak", rd::test::buildRawPak("PACK", -5, 640, "", 0));
    ws.write("q2/baseq2/pak1.pak",
             rd::test::buildRawPak("PACK", 12, 0x7fffffff, rd::test::pakDirectoryEntry("maps/kept.bsp"), 12));
    std::string garbage;
    for (int i = 0; i < 5000; ++i)
        garbage.push_back(static_cast<char>((i * 37 + 11) % 256));
    ws.write("q2/baseq2/pak2.pak", garbage);
    ws.write("q2/baseq2/pak3.pak", "");
    ws.folder("q2/baseq2/pak4.pak");
#ifndef _WIN32 // a named pipe in a file's place is POSIX only
    ASSERT_EQ(::mkfifo(ws.path("q2/baseq2/pak6.pak").c_str(), 0600), 0); // would wait for a writer
#endif
    ws.write("q2/baseq2/pak5.pak", rd::test::buildPak({{"maps/q2dm2.bsp", "B"}}));
    PromptRecorder prompts;
    Screen s(ws, false);
    const QStringList shown = rows(s.form->lvMaps);
    EXPECT_TRUE(shown.contains("kept|BaseQ2 pak1.pak"));
    EXPECT_EQ(shown.last(), QString("q2dm2|BaseQ2 pak5.pak"));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(AddMapScreen, TheFilterAndTheListAreNamedByTheirLabels) {
    TempWorkspace ws;
    fillInstallation(ws);
    Screen s(ws, false);
    EXPECT_EQ(s.form->lblFilter->buddy(), s.form->txtFilter);
    EXPECT_EQ(s.form->lblMaps->buddy(), s.form->lvMaps);
    EXPECT_FALSE(s.form->lvMaps->accessibleName().isEmpty());
    EXPECT_EQ(s.form->cmdClose->text(), QString("&Close"));
}

} // namespace frmAddMaps_test
