// The game editor on a launcher installed under Wine: its folder pickers start at the folders the
// C:\ record names and show the prefix's drives, and whatever is chosen on screen (a folder, the
// batch file, the automatic maps and models folders) is written in the form the launcher reads.

#include "dialogs/frmFindFolder.h"
#include "games/screens/frmEditGame.h"
#include "tests/games/screens/games_screens_support.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/wine_data.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>
#include <memory>

namespace wine_editgame_test {

using namespace rd;
namespace fs = std::filesystem;
using rd::test::crlf;
using rd::test::DesktopRecorder;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;

#ifndef _WIN32

const char* const kRecord = "Tarnwick/Game-Paths/Quake2/Quake2.Gme";

const std::vector<std::string> kLines{
    "C:\\quake2\\", "C:\\quake2\\baseq2\\maps\\", "quake2.exe", "",    "C:\\quake2\\baseq2\\players",
    "_i.pcx",       "C:\\quake2\\prematch.bat",   "tris.md2",   " 0 ", " 1 ",
    " 1 ",          "C:\\quake2\\baseq2\\maps\\"};

// Quake 2 in drive_c (in other letter cases than the record) and the game's record.
struct Installation : rd::test::FakeWinePrefix {
    Installation() {
        folder("Quake2/BaseQ2/Maps");
        folder("Quake2/BaseQ2/Players");
        write("Quake2/PreMatch.bat", "@echo off\r\n");
        writeLines(kRecord, kLines);
    }
    std::unique_ptr<frmEditGame> open() const {
        auto form = std::make_unique<frmEditGame>(root(), "Quake2");
        EXPECT_TRUE(rd::test::showActive(form.get()));
        return form;
    }
    QString shown(std::string_view relative) const {
        return QString::fromStdString(fs::canonical(driveC(relative)).string());
    }
};

QStringList driveNames(const QComboBox* drives) {
    QStringList out;
    for (int i = 0; i < drives->count(); ++i)
        out << drives->itemText(i);
    return out;
}

TEST(WineGameEditor, FolderPickerShowsThePrefixsDrivesAndStartsAtTheRecordsFolder) {
    Installation q2;
    q2.folder("cdrom");
    q2.link("d:", "../drive_c/cdrom");
    q2.link("e:", "/no/such/disc"); // leads nowhere: not offered
    auto form = q2.open();
    QStringList drives;
    QString startedAt, drive;
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        drives = driveNames(picker->Drive1);
        drive = picker->Drive1->currentText();
        startedAt = picker->openFolder();
        QTest::mouseClick(picker->cmdCancel, Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdMapLocation, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(drives, (QStringList{"C:", "D:", "Z:"}));
    EXPECT_EQ(drive, QString("C:"));
    EXPECT_EQ(startedAt, q2.shown("Quake2/BaseQ2/Maps"));
    EXPECT_EQ(form->txtMapLocation->text(), QString("C:\\quake2\\baseq2\\maps\\"));
}

TEST(WineGameEditor, APickedFolderIsWrittenBackAsADriveCPathByteForByte) {
    Installation q2;
    auto form = q2.open();
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        // It started at the models folder; the folder above it is chosen in the tree.
        EXPECT_EQ(picker->openFolder(), q2.shown("Quake2/BaseQ2/Players"));
        const QModelIndex players = picker->Dir1->currentIndex();
        ASSERT_TRUE(players.parent().isValid());
        picker->Dir1->setCurrentIndex(players.parent());
        QTest::mouseClick(picker->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdChooseModel, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(form->txtModels->text(), QString("C:\\Quake2\\BaseQ2\\"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    std::vector<std::string> lines = kLines;
    lines[4] = "C:\\Quake2\\BaseQ2\\";
    EXPECT_EQ(q2.read(kRecord), crlf(lines));
}

TEST(WineGameEditor, AFolderPickedOutsideDriveCIsWrittenOnDriveZ) {
    Installation q2;
    q2.temp.folder("Games/Quake2 Demo");
    auto form = q2.open();
    form->txtCDPath->setText(QString::fromStdString(rd::test::zDrivePath(q2.temp.path("games/quake2 demo"))));
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        EXPECT_EQ(picker->Drive1->currentText(), QString("Z:"));
        QTest::mouseClick(picker->cmdOK, Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdCDpath, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    const std::string expected =
        rd::test::zDrivePath(fs::canonical(q2.temp.path("Games/Quake2 Demo"))) + "\\";
    EXPECT_EQ(form->txtCDPath->text().toStdString(), expected);
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    std::vector<std::string> lines = kLines;
    lines[3] = expected;
    EXPECT_EQ(q2.read(kRecord), crlf(lines));
}

TEST(WineGameEditor, TheRootOfDriveCIsWrittenAsCColonBackslash) {
    Installation q2;
    auto form = q2.open();
    form->txtMapReadMe->setText("C:\\");
    ModalDriver driver([&](QDialog* dialog) {
        auto* picker = qobject_cast<frmFindFolder*>(dialog);
        ASSERT_NE(picker, nullptr);
        EXPECT_EQ(picker->openFolder(), q2.shown(""));
        QTest::mouseClick(picker->cmdOK, Qt::LeftButton);
    });
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdChooseMapReadme, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(form->txtMapReadMe->text(), QString("C:\\"));
}

TEST(WineGameEditor, TheBatchChooserStartsAtTheRecordsFileAndItsChoiceIsWrittenOnDriveC) {
    Installation q2;
    DesktopRecorder desktop;
    desktop.answerFile(QString::fromStdString(q2.driveC("Quake2/PreMatch.bat").string()));
    auto form = q2.open();
    form->SSTab1->setCurrentIndex(1);
    QTest::mouseClick(form->cmdChooseBatch, Qt::LeftButton);
    ASSERT_EQ(desktop.choices.size(), 1u);
    EXPECT_EQ(desktop.choices[0].fileName, QString("C:\\quake2\\prematch.bat"));
    EXPECT_EQ(desktop.choices[0].winePrefix, q2.prefix());
    EXPECT_EQ(platformPath(desktop.choices[0].fileName, findWinePrefix(q2.root())),
              q2.shown("Quake2/PreMatch.bat"));
    EXPECT_EQ(form->txtBatchFile->text(), QString("C:\\Quake2\\PreMatch.bat"));
    QTest::mouseClick(form->cmdOK, Qt::LeftButton);
    std::vector<std::string> lines = kLines;
    lines[6] = "C:\\Quake2\\PreMatch.bat";
    EXPECT_EQ(q2.read(kRecord), crlf(lines));
}

TEST(WineGameEditor, AProgramFolderTypedAsALinuxPathFillsTheMapsAndModelsFoldersOnDriveC) {
    Installation q2;
    auto form = q2.open();
    rd::test::clickInto(form->txtLocationOfExe);
    const QString typed = QString::fromStdString(q2.driveC("quake2").string());
    rd::test::typeInto(form->txtLocationOfExe, typed);
    QTest::keyClick(form->txtLocationOfExe, Qt::Key_Tab);
    EXPECT_EQ(form->txtMapLocation->text(), QString("C:\\Quake2\\baseq2\\maps"));
    EXPECT_EQ(form->txtModels->text(), QString("C:\\Quake2\\baseq2\\players"));
    EXPECT_EQ(form->txtLocationOfExe->text(), typed); // the program folder stays as typed
}

TEST(WineGameEditor, AnUnmappedDriveIsShownAsItStandsAndThePickerOpensWithoutError) {
    Installation q2;
    std::vector<std::string> lines = kLines;
    lines[1] = "Q:\\maps\\";
    q2.writeLines(kRecord, lines);
    PromptRecorder prompts;
    auto form = q2.open();
    EXPECT_EQ(form->txtMapLocation->text(), QString("Q:\\maps\\"));
    ModalDriver driver([&](QDialog* dialog) {
        QTest::mouseClick(dialog->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton);
    });
    QTest::mouseClick(form->cmdMapLocation, Qt::LeftButton);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(form->txtMapLocation->text(), QString("Q:\\maps\\"));
    EXPECT_TRUE(prompts.calls().empty());
}

#endif

} // namespace wine_editgame_test
