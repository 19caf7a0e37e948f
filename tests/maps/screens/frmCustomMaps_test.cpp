#include "core/screens/errortrap.h"
#include "maps/categories.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmCustomMaps.h"
#include "maps/screens/frmEditCustomMap.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace frmCustomMaps_test {

using namespace rd;
using rd::test::clickEntry;
using rd::test::clickRow;
using rd::test::crlf;
using rd::test::doubleClickRow;
using rd::test::entryNames;
using rd::test::ModalDriver;
using rd::test::PopupDriver;
using rd::test::PromptRecorder;
using rd::test::rows;
using rd::test::selectedRow;
using rd::test::TempWorkspace;

const char* const kFile = "Game-Paths/Quake2/Deathmatch.map";

struct Editor {
    TempWorkspace& ws;
    frmCustomMaps form;
    explicit Editor(TempWorkspace& w, const char* name = "Deathmatch")
        : ws(w), form(w.root(), "Quake2", name, categoryPath(w.root(), "Quake2", name)) {
        form.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&form));
    }
};

void writeFive(const TempWorkspace& ws) {
    ws.writeLines(kFile, {"[V2]", "m1", "One", "m2", "Two", "m3", "Three", "m4", "Four", "m5", "Five"});
}

// Opens the popup with a right click on `row` (or below the rows when -1) and clicks `entry`.
void popupEntry(QTreeWidget* view, int row, const char* entry) {
    PopupDriver driver([entry](QMenu* menu) { clickEntry(menu, entry); });
    QPoint at(20, view->viewport()->height() - 4);
    if (row >= 0)
        at = view->visualItemRect(view->topLevelItem(row)).center();
    QTest::mousePress(view->viewport(), Qt::RightButton, {}, at);
    QTest::mouseRelease(view->viewport(), Qt::RightButton, {}, at);
    EXPECT_TRUE(driver.acted());
}

// Fills the map entry dialog when it opens and presses OK.
struct EntryTyping {
    QString caption;
    QString nameShown;
    QString titleShown;
};
std::unique_ptr<ModalDriver> typeEntry(EntryTyping& seen, const QString& name, const QString& title) {
    return std::make_unique<ModalDriver>([&seen, name, title](QDialog* dialog) {
        auto* entry = qobject_cast<frmEditCustomMap*>(dialog);
        ASSERT_NE(entry, nullptr);
        seen.caption = entry->windowTitle();
        seen.nameShown = entry->txtMapName->text();
        seen.titleShown = entry->txtMapTitle->text();
        entry->txtMapName->selectAll();
        QTest::keyClicks(entry->txtMapName, name);
        entry->txtMapTitle->selectAll();
        QTest::keyClicks(entry->txtMapTitle, title);
        QTest::mouseClick(entry->cmdOK, Qt::LeftButton);
    });
}

void clickHeader(QTreeWidget* view, int column) {
    QHeaderView* header = view->header();
    const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
}

// Loading and saving ---------------------------------------------------------------------------

TEST(CategoryEditor, AnArenaCategoryLoadsOneRowWithTheBoxCheckedAndSavesBackByteForByte) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[ARENA]", "q2dm1", "The Edge"});
    const std::string before = ws.read(kFile);
    Editor e(ws);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"q2dm1|The Edge"}));
    EXPECT_TRUE(e.form.chkArena->isChecked());
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read(kFile), before);
}

TEST(CategoryEditor, AnOldLayoutFileLoadsTitlesEqualToNamesAndSavesAsV2WithFourLines) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"q2dm1", "q2dm2"});
    Editor e(ws);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"q2dm1|q2dm1", "q2dm2|q2dm2"}));
    EXPECT_FALSE(e.form.chkArena->isChecked());
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "q2dm1", "q2dm1", "q2dm2", "q2dm2"}));
}

TEST(CategoryEditor, AnOldLayoutFileSavedWithTheBoxCheckedGetsTheArenaHeader) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"q2dm1", "q2dm2"});
    Editor e(ws);
    QTest::keyClick(e.form.chkArena, Qt::Key_Space);
    ASSERT_TRUE(e.form.chkArena->isChecked());
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[ARENA]", "q2dm1", "q2dm1", "q2dm2", "q2dm2"}));
}

TEST(CategoryEditor, AnOddNumberOfLinesAfterTheHeaderGivesTheLastNameAnEmptyTitle) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "q2dm1", "The Edge", "q2dm2"});
    Editor e(ws);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"q2dm1|The Edge", "q2dm2|"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "q2dm1", "The Edge", "q2dm2", ""}));
}

TEST(CategoryEditor, AnEmptyLineWhereANameIsExpectedSkipsTheNameAndItsTitle) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "", "Lost Title", "q2dm2", "Tokay's Towers"});
    Editor e(ws);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"q2dm2|Tokay's Towers"}));
}

TEST(CategoryEditor, CancelAfterEveryKindOfEditLeavesTheFileByteForByte) {
    TempWorkspace ws;
    writeFive(ws);
    const std::string before = ws.read(kFile);
    PromptRecorder prompts;
    Editor e(ws);
    QTreeWidget* view = e.form.lvMaps;
    clickRow(view, 1);
    EntryTyping seen;
    {
        auto driver = typeEntry(seen, "q2dm9", "Added");
        QTest::keyClick(view, Qt::Key_Insert);
    }
    clickRow(view, 0);
    QTest::keyClick(view, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_Delete);
    clickHeader(view, 1);
    QTest::keyClick(e.form.chkArena, Qt::Key_Space);
    ASSERT_NE(rows(view), (QStringList{"m1|One", "m2|Two", "m3|Three", "m4|Four", "m5|Five"}));
    QTest::mouseClick(e.form.cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(e.form.isVisible());
    EXPECT_EQ(ws.read(kFile), before);
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(CategoryEditor, ANewCategoryIsWrittenOnlyOnOk) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    Editor e(ws, "Fresh");
    EXPECT_EQ(e.form.lvMaps->topLevelItemCount(), 0);
    EXPECT_FALSE(ws.exists("Game-Paths/Quake2/Fresh.map"));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read("Game-Paths/Quake2/Fresh.map"), crlf({"[V2]"}));
}

// Adding, getting, deleting, moving and sorting rows ------------------------------------------

TEST(CategoryEditor, AddingWithNoRowSelectedAppendsAtTheEnd) {
    TempWorkspace ws;
    writeFive(ws);
    Editor e(ws);
    ASSERT_EQ(selectedRow(e.form.lvMaps), -1);
    EntryTyping seen;
    {
        auto driver = typeEntry(seen, "q2dm6", "The Sixth");
        e.form.lvMaps->setFocus();
        QTest::keyClick(e.form.lvMaps, Qt::Key_Insert);
        ASSERT_TRUE(driver->acted());
    }
    EXPECT_EQ(seen.caption, QString("Add Map to Deathmatch"));
    EXPECT_EQ(seen.nameShown, QString(""));
    EXPECT_EQ(seen.titleShown, QString(""));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "m1", "One", "m2", "Two", "m3", "Three", "m4", "Four", "m5",
                                    "Five", "q2dm6", "The Sixth"}));
}

TEST(CategoryEditor, AddingWithRowTwoOfFiveSelectedInsertsTheNewRowAsRowThree) {
    TempWorkspace ws;
    writeFive(ws);
    Editor e(ws);
    clickRow(e.form.lvMaps, 1);
    EntryTyping seen;
    auto driver = typeEntry(seen, "q2dm6", "Inserted");
    popupEntry(e.form.lvMaps, 1, "mnuPopupAdd");
    ASSERT_TRUE(driver->acted());
    EXPECT_EQ(seen.caption, QString("Add Map to Deathmatch"));
    EXPECT_EQ(rows(e.form.lvMaps),
              (QStringList{"m1|One", "m2|Two", "q2dm6|Inserted", "m3|Three", "m4|Four", "m5|Five"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "m1", "One", "m2", "Two", "q2dm6", "Inserted", "m3", "Three",
                                    "m4", "Four", "m5", "Five"}));
}

TEST(CategoryEditor, GetWithThePickOneFlagClearAddsTheSameMapThreeTimesTitledWithItsName) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                  {ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string()});
    ws.write("q2/baseq2/pak0.pak", rd::test::buildPak({{"maps/q2dm1.bsp", "B"}, {"maps/q2dm2.bsp", "B"}}));
    ws.writeLines(kFile, {"[V2]", "base1", "Outer Base"});
    Editor e(ws);
    QString caption;
    ModalDriver driver([&](QDialog* dialog) {
        auto* screen = qobject_cast<frmAddMaps*>(dialog);
        ASSERT_NE(screen, nullptr);
        caption = screen->cmdAdd->text();
        clickRow(screen->lvMaps, 1);
        for (int i = 0; i < 3; ++i)
            QTest::mouseClick(screen->cmdAdd, Qt::LeftButton);
        EXPECT_TRUE(screen->isVisible()); // stays open so that several maps can be added
        QTest::mouseClick(screen->cmdClose, Qt::LeftButton);
    });
    popupEntry(e.form.lvMaps, -1, "mnuPopupGet");
    ASSERT_TRUE(driver.acted());
    EXPECT_NE(caption, QString("&Select This Map"));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile),
              crlf({"[V2]", "base1", "Outer Base", "q2dm2", "q2dm2", "q2dm2", "q2dm2", "q2dm2", "q2dm2"}));
}

TEST(CategoryEditor, DeletingTheLastRowLeavesNoSelection) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
    Editor e(ws);
    popupEntry(e.form.lvMaps, 2, "mnuPopupDelete");
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A", "b|B"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), -1);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "a", "A", "b", "B"}));
}

TEST(CategoryEditor, DeletingRowOneOfThreeSelectsTheFormerRowTwoWithoutAsking) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
    PromptRecorder prompts;
    Editor e(ws);
    clickRow(e.form.lvMaps, 0);
    QTest::keyClick(e.form.lvMaps, Qt::Key_Delete);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"b|B", "c|C"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), 0);
    EXPECT_TRUE(prompts.calls().empty());
    QTest::keyClick(e.form.lvMaps, Qt::Key_Delete);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"c|C"}));
}

TEST(CategoryEditor, MoveUpOnRowOneAndMoveDownOnTheLastRowDoNothing) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
    Editor e(ws);
    clickRow(e.form.lvMaps, 0);
    popupEntry(e.form.lvMaps, 0, "mnuPopupMoveUp");
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A", "b|B", "c|C"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), 0);
    popupEntry(e.form.lvMaps, 2, "mnuPopupMoveDown");
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A", "b|B", "c|C"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), 2);
    popupEntry(e.form.lvMaps, 2, "mnuPopupMoveUp");
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A", "c|C", "b|B"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), 1);
    popupEntry(e.form.lvMaps, 0, "mnuPopupMoveDown");
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"c|C", "a|A", "b|B"}));
    EXPECT_EQ(selectedRow(e.form.lvMaps), 1);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "c", "C", "a", "A", "b", "B"}));
}

TEST(CategoryEditor, CtrlUAndCtrlDMoveTheSelectedRowAndDoNothingAtEitherEnd) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
    Editor e(ws);
    QTreeWidget* view = e.form.lvMaps;
    clickRow(view, 0);
    QTest::keyClick(view, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(rows(view), (QStringList{"a|A", "b|B", "c|C"}));
    EXPECT_EQ(selectedRow(view), 0);
    QTest::keyClick(view, Qt::Key_D, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(rows(view), (QStringList{"b|B", "c|C", "a|A"}));
    EXPECT_EQ(selectedRow(view), 2);
    QTest::keyClick(view, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(rows(view), (QStringList{"b|B", "c|C", "a|A"}));
    EXPECT_EQ(selectedRow(view), 2);
    QTest::keyClick(view, Qt::Key_U, Qt::ControlModifier);
    EXPECT_EQ(rows(view), (QStringList{"b|B", "a|A", "c|C"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "b", "B", "a", "A", "c", "C"}));
}

TEST(CategoryEditor, ClickingTheTitleHeaderSortsByTitleAndOkWritesThatOrder) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "q2dm1", "The Edge", "q2dm2", "tokay's Towers", "q2dm3", "The Frag Pipe",
                          "q2dm4", "Lost Hallways"});
    Editor e(ws);
    clickHeader(e.form.lvMaps, 1);
    const QStringList byTitle{"q2dm4|Lost Hallways", "q2dm1|The Edge", "q2dm3|The Frag Pipe",
                              "q2dm2|tokay's Towers"};
    EXPECT_EQ(rows(e.form.lvMaps), byTitle);
    // A second click sorts the same way again; there is no toggling.
    clickHeader(e.form.lvMaps, 1);
    EXPECT_EQ(rows(e.form.lvMaps), byTitle);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "q2dm4", "Lost Hallways", "q2dm1", "The Edge", "q2dm3",
                                    "The Frag Pipe", "q2dm2", "tokay's Towers"}));
}

TEST(CategoryEditor, ClickingTheMapNameHeaderSortsByNameAscendingEveryTime) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "c", "1", "A", "2", "b", "3"});
    Editor e(ws);
    clickHeader(e.form.lvMaps, 0);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"A|2", "b|3", "c|1"}));
    clickHeader(e.form.lvMaps, 0);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"A|2", "b|3", "c|1"}));
    // Moving after sorting keeps the new order.
    clickRow(e.form.lvMaps, 0);
    QTest::keyClick(e.form.lvMaps, Qt::Key_D, Qt::ControlModifier);
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"b|3", "A|2", "c|1"}));
}

// Editing a row ----------------------------------------------------------------------------------

TEST(CategoryEditor, EnterEditsTheSelectedRowInPlace) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
    Editor e(ws);
    clickRow(e.form.lvMaps, 1);
    EntryTyping seen;
    {
        auto driver = typeEntry(seen, "q2dm2", "Tokay's Towers");
        QTest::keyClick(e.form.lvMaps, Qt::Key_Return);
        ASSERT_TRUE(driver->acted());
    }
    EXPECT_EQ(seen.caption, QString("Edit Map from Deathmatch"));
    EXPECT_EQ(seen.nameShown, QString("b"));
    EXPECT_EQ(seen.titleShown, QString("B"));
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A", "q2dm2|Tokay's Towers", "c|C"}));
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", "a", "A", "q2dm2", "Tokay's Towers", "c", "C"}));
}

TEST(CategoryEditor, DoubleClickAndThePopupsEditEditTheRow) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B"});
    Editor e(ws);
    EntryTyping seen;
    {
        auto driver = typeEntry(seen, "x", "X");
        doubleClickRow(e.form.lvMaps, 0);
        ASSERT_TRUE(driver->acted());
    }
    EXPECT_EQ(seen.caption, QString("Edit Map from Deathmatch"));
    {
        auto driver = typeEntry(seen, "y", "Y");
        popupEntry(e.form.lvMaps, 1, "mnuPopupEdit");
        ASSERT_TRUE(driver->acted());
    }
    EXPECT_EQ(seen.nameShown, QString("b"));
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"x|X", "y|Y"}));
}

TEST(CategoryEditor, EditWithNoRowSelectedOpensNothing) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A"});
    Editor e(ws);
    e.form.lvMaps->setFocus();
    ASSERT_EQ(selectedRow(e.form.lvMaps), -1);
    ModalDriver driver([](QDialog* dialog) { dialog->reject(); }, 300);
    QTest::keyClick(e.form.lvMaps, Qt::Key_Return);
    EXPECT_FALSE(driver.acted());
    EXPECT_TRUE(e.form.isVisible());
}

TEST(CategoryEditor, TheEntryDialogsCancelChangesNoRow) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A"});
    Editor e(ws);
    clickRow(e.form.lvMaps, 0);
    ModalDriver driver([](QDialog* dialog) {
        auto* entry = qobject_cast<frmEditCustomMap*>(dialog);
        QTest::keyClicks(entry->txtMapName, "zzz");
        QTest::mouseClick(entry->cmdCancel, Qt::LeftButton);
    });
    QTest::keyClick(e.form.lvMaps, Qt::Key_Return);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(rows(e.form.lvMaps), (QStringList{"a|A"}));
}

// Popup menu and keys ----------------------------------------------------------------------------

TEST(CategoryEditor, TheContextMenuKeyOpensThePopupWithEditAsItsDefaultEntry) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A"});
    Editor e(ws);
    clickRow(e.form.lvMaps, 0);
    QStringList names;
    QString defaultEntry;
    PopupDriver driver([&](QMenu* menu) {
        names = entryNames(menu);
        defaultEntry = menu->defaultAction() ? menu->defaultAction()->objectName() : QString();
        menu->close();
    });
    QTest::keyClick(e.form.lvMaps, Qt::Key_Menu);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(names, (QStringList{"mnuPopupEdit", "mnuPopupAdd", "mnuPopupGet", "-", "mnuPopupMoveUp",
                                  "mnuPopupMoveDown", "-", "mnuPopupDelete"}));
    EXPECT_EQ(defaultEntry, QString("mnuPopupEdit"));
}

TEST(CategoryEditor, TheRightButtonOpensThePopupOnRelease) {
    TempWorkspace ws;
    ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B"});
    Editor e(ws);
    PopupDriver driver([](QMenu* menu) { menu->close(); });
    const QPoint at = e.form.lvMaps->visualItemRect(e.form.lvMaps->topLevelItem(1)).center();
    QTest::mousePress(e.form.lvMaps->viewport(), Qt::RightButton, {}, at);
    QTest::qWait(50);
    EXPECT_FALSE(driver.acted()); // nothing on the press
    QTest::mouseRelease(e.form.lvMaps->viewport(), Qt::RightButton, {}, at);
    EXPECT_TRUE(driver.acted());
}

TEST(CategoryEditor, LabelsNameTheListAndTheBoxCarriesItsCaption) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    Editor e(ws);
    EXPECT_EQ(e.form.objectName(), QString("frmCustomMaps"));
    EXPECT_EQ(e.form.lblMaps->buddy(), e.form.lvMaps);
    EXPECT_FALSE(e.form.lvMaps->accessibleName().isEmpty());
    EXPECT_EQ(e.form.chkArena->text(), QString("This Map Category Contains Arenas"));
    EXPECT_EQ(e.form.lvMaps->columnCount(), 2);
    EXPECT_EQ(e.form.cmdOK->text(), QString("&OK"));
    EXPECT_EQ(e.form.cmdCancel->text(), QString("&Cancel"));
}

// Damaged files ----------------------------------------------------------------------------------

TEST(CategoryEditor, BinaryGarbageOpensWithWhatCanBeReadAndCancelLeavesIt) {
    TempWorkspace ws;
    std::string garbage;
    for (int i = 0; i < 4096; ++i)
        garbage.push_back(static_cast<char>((i * 131 + 7) % 256));
    ws.write(kFile, garbage);
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_GT(e.form.lvMaps->topLevelItemCount(), 0);
    EXPECT_TRUE(prompts.calls().empty());
    QTest::mouseClick(e.form.cmdCancel, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), garbage);
}

TEST(CategoryEditor, BinaryGarbageSavesBackEveryByteOfItsRows) {
    TempWorkspace ws;
    std::string name;
    for (int b = 1; b < 256; ++b)
        if (b != '\r' && b != '\n')
            name.push_back(static_cast<char>(b));
    ws.write(kFile, crlf({"[V2]", name, name}));
    Editor e(ws);
    ASSERT_EQ(e.form.lvMaps->topLevelItemCount(), 1);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), crlf({"[V2]", name, name}));
}

TEST(CategoryEditor, ATenMegabyteLineOpensAsOneRow) {
    TempWorkspace ws;
    const std::string line(10 * 1024 * 1024, 'q');
    ws.write(kFile, crlf({"[V2]", line, "Long"}));
    const std::string before = ws.read(kFile);
    QElapsedTimer clock;
    clock.start();
    Editor e(ws);
    ASSERT_EQ(e.form.lvMaps->topLevelItemCount(), 1);
    EXPECT_EQ(e.form.lvMaps->topLevelItem(0)->text(0).size(), 10 * 1024 * 1024);
    e.form.repaint();
#ifdef _WIN32
    const qint64 limit = 20000; // under Wine, where the Windows build's tests run, about twice as slow
#else
    const qint64 limit = 8000;
#endif
    EXPECT_LT(clock.elapsed(), limit); // drawn whole, such a line took half a minute
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(ws.read(kFile), before);
}

TEST(CategoryEditor, AFolderWhereTheFileShouldBeOpensEmptyAndOkReportsTheSavingError) {
    TempWorkspace ws;
    ws.folder(kFile);
    PromptRecorder prompts;
    Editor e(ws);
    EXPECT_EQ(e.form.lvMaps->topLevelItemCount(), 0);
    EXPECT_TRUE(prompts.calls().empty());
    prompts.answer(PromptAnswer::Abort);
    QTest::mouseClick(e.form.cmdOK, Qt::LeftButton);
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Custom Map Editor - saving"));
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_EQ(prompts.last().icon, PromptIcon::Exclamation);
    EXPECT_EQ(prompts.last().buttons, PromptButtons::AbortRetryIgnore);
    EXPECT_TRUE(e.form.isVisible()); // Abort keeps the rows on screen
    EXPECT_TRUE(std::filesystem::is_directory(ws.path(kFile)));
}

TEST(CategoryEditor, AFileThatCannotBeReadIsReportedUnderTheLoadingTitle) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
#ifdef _WIN32
    GTEST_SKIP() << "a named pipe in a file's place is POSIX only";
#else
    ASSERT_EQ(::mkfifo(ws.path(kFile).c_str(), 0600), 0);
#endif
    PromptRecorder prompts;
    frmCustomMaps form(ws.root(), "Quake2", "Deathmatch", categoryPath(ws.root(), "Quake2", "Deathmatch"));
    ASSERT_EQ(prompts.calls().size(), 1u);
    EXPECT_EQ(prompts.last().title, QString("Custom Map Editor - loading"));
    EXPECT_TRUE(prompts.last().text.startsWith(kTrapLead));
    EXPECT_EQ(form.lvMaps->topLevelItemCount(), 0);
}

} // namespace frmCustomMaps_test
