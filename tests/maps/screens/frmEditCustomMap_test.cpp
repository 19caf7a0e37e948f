#include "core/screens/frmZoom.h"
#include "maps/categories.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmCustomMaps.h"
#include "maps/screens/frmEditCustomMap.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace frmEditCustomMap_test {

using namespace rd;
using rd::test::clickRow;
using rd::test::crlf;
using rd::test::ModalDriver;
using rd::test::rows;
using rd::test::TempWorkspace;

const char* const kFile = "Game-Paths/Quake2/Deathmatch.map";

// A category editor with three rows, and the entry dialog opened over it as the editor opens it.
struct EntrySetup {
    TempWorkspace ws;
    std::unique_ptr<frmCustomMaps> editor;

    EntrySetup() {
        ws.writeLines("Game-Paths/Quake2/Quake2.Gme",
                      {ws.path("q2").string() + "/", ws.path("q2/baseq2/maps").string() + "/"});
        ws.write("q2/baseq2/pak0.pak",
                 rd::test::buildPak({{"maps/q2dm1.bsp", "B"}, {"maps/q2dm7.bsp", "B"}}));
        ws.writeLines(kFile, {"[V2]", "a", "A", "b", "B", "c", "C"});
        editor = std::make_unique<frmCustomMaps>(ws.root(), "Quake2", "Deathmatch",
                                                 categoryPath(ws.root(), "Quake2", "Deathmatch"));
        editor->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(editor.get()));
    }

    std::unique_ptr<frmEditCustomMap> open(bool newEntry) {
        auto dialog = std::make_unique<frmEditCustomMap>(editor->lvMaps, QString("Deathmatch"), newEntry,
                                                         ws.root(), "Quake2", editor.get());
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog.get()));
        return dialog;
    }
};

TEST(MapEntryDialog, AddingShowsTheAddCaptionAndEmptyBoxes) {
    EntrySetup s;
    clickRow(s.editor->lvMaps, 0);
    auto dialog = s.open(true);
    EXPECT_EQ(dialog->objectName(), QString("frmEditCustomMap"));
    EXPECT_EQ(dialog->windowTitle(), QString("Add Map to Deathmatch"));
    EXPECT_TRUE(dialog->adding());
    EXPECT_EQ(dialog->txtMapName->text(), QString(""));
    EXPECT_EQ(dialog->txtMapTitle->text(), QString(""));
    QTest::keyClicks(dialog->txtMapName, "q2dm5");
    QTest::keyClicks(dialog->txtMapTitle, "The Jail Cell");
    QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(rows(s.editor->lvMaps), (QStringList{"a|A", "q2dm5|The Jail Cell", "b|B", "c|C"}));
}

TEST(MapEntryDialog, EditingShowsTheEditCaptionAndTheSelectedRowsTexts) {
    EntrySetup s;
    clickRow(s.editor->lvMaps, 2);
    auto dialog = s.open(false);
    EXPECT_EQ(dialog->windowTitle(), QString("Edit Map from Deathmatch"));
    EXPECT_FALSE(dialog->adding());
    EXPECT_EQ(dialog->txtMapName->text(), QString("c"));
    EXPECT_EQ(dialog->txtMapTitle->text(), QString("C"));
    dialog->txtMapTitle->selectAll();
    QTest::keyClicks(dialog->txtMapTitle, "Sea");
    QTest::keyClick(dialog->txtMapTitle, Qt::Key_Return); // Enter presses OK
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(rows(s.editor->lvMaps), (QStringList{"a|A", "b|B", "c|Sea"}));
}

TEST(MapEntryDialog, WithNoRowSelectedItAddsWhateverTheFlagSays) {
    EntrySetup s;
    ASSERT_EQ(rd::test::selectedRow(s.editor->lvMaps), -1);
    auto dialog = s.open(false);
    EXPECT_EQ(dialog->windowTitle(), QString("Add Map to Deathmatch"));
    EXPECT_EQ(dialog->txtMapName->text(), QString(""));
    QTest::keyClicks(dialog->txtMapName, "q2dm6");
    QTest::mouseClick(dialog->cmdOK, Qt::LeftButton);
    EXPECT_EQ(rows(s.editor->lvMaps), (QStringList{"a|A", "b|B", "c|C", "q2dm6|"}));
}

TEST(MapEntryDialog, CancelChangesNothing) {
    EntrySetup s;
    clickRow(s.editor->lvMaps, 1);
    auto dialog = s.open(false);
    QTest::keyClicks(dialog->txtMapName, "zz");
    QTest::mouseClick(dialog->cmdCancel, Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(rows(s.editor->lvMaps), (QStringList{"a|A", "b|B", "c|C"}));
    QTest::mouseClick(s.editor->cmdCancel, Qt::LeftButton);
    EXPECT_EQ(s.ws.read(kFile), crlf({"[V2]", "a", "A", "b", "B", "c", "C"}));
}

TEST(MapEntryDialog, F2InEitherBoxOpensTheZoomEditor) {
    EntrySetup s;
    auto dialog = s.open(true);
    for (QLineEdit* box : {dialog->txtMapName, dialog->txtMapTitle}) {
        box->setText("one");
        QString caption;
        ModalDriver driver([&](QDialog* zoom) {
            caption = zoom->windowTitle();
            auto* editor = qobject_cast<frmZoom*>(zoom);
            ASSERT_NE(editor, nullptr);
            editor->txtText->selectAll();
            QTest::keyClicks(editor->txtText, "two words");
            QTest::mouseClick(editor->cmdOK, Qt::LeftButton);
        });
        QTest::keyClick(box, Qt::Key_F2);
        ASSERT_TRUE(driver.acted()) << box->objectName().toStdString();
        EXPECT_EQ(caption, QString("Zoom"));
        EXPECT_EQ(box->text(), QString("two words"));
    }
}

TEST(MapEntryDialog, GetMapNameOpensTheAddMapScreenToPickOneNameForTheBox) {
    EntrySetup s;
    auto dialog = s.open(true);
    QString caption;
    bool closedAfterSelect = false;
    ModalDriver driver([&](QDialog* opened) {
        auto* screen = qobject_cast<frmAddMaps*>(opened);
        ASSERT_NE(screen, nullptr);
        caption = screen->cmdAdd->text();
        clickRow(screen->lvMaps, 1);
        QTest::mouseClick(screen->cmdAdd, Qt::LeftButton);
        closedAfterSelect = !screen->isVisible();
    });
    QTest::mouseClick(dialog->cmdGetMapName, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, QString("&Select This Map"));
    EXPECT_TRUE(closedAfterSelect);
    EXPECT_EQ(dialog->txtMapName->text(), QString("q2dm7"));
    EXPECT_EQ(dialog->txtMapTitle->text(), QString(""));
    // Picking a name adds no row by itself.
    EXPECT_EQ(rows(s.editor->lvMaps), (QStringList{"a|A", "b|B", "c|C"}));
}

TEST(MapEntryDialog, LabelsNameTheBoxes) {
    EntrySetup s;
    auto dialog = s.open(true);
    EXPECT_EQ(dialog->lblMapName->buddy(), dialog->txtMapName);
    EXPECT_EQ(dialog->lblMapTitle->buddy(), dialog->txtMapTitle);
    EXPECT_EQ(dialog->cmdOK->text(), QString("&OK"));
    EXPECT_EQ(dialog->cmdCancel->text(), QString("&Cancel"));
}

} // namespace frmEditCustomMap_test
