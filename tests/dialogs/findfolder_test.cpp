#include "dialogs/frmFindFolder.h"
#include "tests/support/modal_driver_screens.h"
#include "tests/support/prompts_screens.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace findfolder_test {

using namespace rd;
using rd::test::ModalDriver;
using rd::test::PromptRecorder;

QString native(const QString& path) {
    return QDir::toNativeSeparators(QDir::cleanPath(path));
}

// A folder tree to pick from: <temp>/Games/Quake2/baseq2 and <temp>/Other.
struct Folders {
    QTemporaryDir temp;
    QString games, quake2, baseq2, other;
    Folders() {
        const QString root = QDir(temp.path()).canonicalPath();
        games = root + "/Games";
        quake2 = games + "/Quake2";
        baseq2 = quake2 + "/baseq2";
        other = root + "/Other";
        QDir().mkpath(baseq2);
        QDir().mkpath(other);
    }
};

// The way the game editor's "..." buttons use the picker.
void browse(QWidget* owner, QLineEdit* box) {
    const QString chosen = FindFolder(owner, box->text());
    if (!chosen.isEmpty())
        box->setText(chosen);
}

// The names of the folders the tree lists inside its current folder, once they are read.
QStringList listedInCurrentFolder(frmFindFolder& picker, int atLeast) {
    const QModelIndex current = picker.Dir1->currentIndex();
    QAbstractItemModel* model = picker.Dir1->model();
    EXPECT_TRUE(QTest::qWaitFor([&] { return model->rowCount(current) >= atLeast; }, 5000));
    QTest::qWait(50); // anything that would follow
    QStringList names;
    for (int row = 0; row < model->rowCount(current); ++row)
        names << model->index(row, 0, current).data(Qt::DisplayRole).toString();
    names.sort();
    return names;
}

#ifndef Q_OS_WIN
TEST(FolderPicker, FoldersWhoseNamesBeginWithADotAreNotListed) {
    Folders folders;
    QDir().mkpath(folders.games + "/.config");
    QDir().mkpath(folders.games + "/.cache/more");
    frmFindFolder picker(folders.games);
    picker.show();
    EXPECT_EQ(listedInCurrentFolder(picker, 1), QStringList{"Quake2"});
    picker.hide();
}
#endif

TEST(FolderPicker, AStartFolderInsideAHiddenFolderStillOpens) {
    Folders folders;
    const QString inside = QDir(folders.temp.path()).canonicalPath() + "/.wine/drive_c/Quake2";
    QDir().mkpath(inside + "/baseq2");
    frmFindFolder picker(inside);
    picker.show();
    EXPECT_EQ(picker.openFolder(), inside);
    EXPECT_EQ(picker.Dir1->currentIndex().data(Qt::DisplayRole).toString(), "Quake2");
    EXPECT_EQ(listedInCurrentFolder(picker, 1), QStringList{"baseq2"});
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.chosenFolder(), native(inside));
}

TEST(FolderPicker, HasItsCaptionAndControls) {
    frmFindFolder picker("");
    EXPECT_EQ(picker.windowTitle(), "Choose Path");
    EXPECT_NE(picker.findChild<QComboBox*>("Drive1"), nullptr);
    EXPECT_NE(picker.findChild<QTreeView*>("Dir1"), nullptr);
    EXPECT_EQ(picker.findChild<QPushButton*>("cmdOK")->text(), "&OK");
    EXPECT_EQ(picker.findChild<QPushButton*>("cmdCancel")->text(), "&Cancel");
    EXPECT_GT(picker.Drive1->count(), 0);
}

TEST(FolderPicker, OpenedWithAnEmptySlotStartsAtTheDefaultDriveAndFolder) {
    PromptRecorder prompts;
    frmFindFolder picker("");
    const QString current = QDir::cleanPath(QDir::currentPath());
    EXPECT_EQ(picker.openFolder(), current);
    const QString drive = QDir::cleanPath(picker.selectedDrive());
    EXPECT_TRUE(current.startsWith(drive)) << drive.toStdString();
    EXPECT_EQ(picker.Dir1->currentIndex().data(Qt::DisplayRole).toString(), QDir(current).dirName());
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(FolderPicker, OpensAtTheStartFolderAndOkReturnsIt) {
    Folders folders;
    frmFindFolder picker(folders.quake2);
    EXPECT_EQ(picker.openFolder(), folders.quake2);
    EXPECT_EQ(picker.Dir1->currentIndex().data(Qt::DisplayRole).toString(), "Quake2");
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.result(), QDialog::Accepted);
    EXPECT_EQ(picker.chosenFolder(), native(folders.quake2));
}

TEST(FolderPicker, StartFolderMayUseBackslashesAndATrailingSeparator) {
    Folders folders;
#ifdef Q_OS_WIN
    const QString start = QDir::toNativeSeparators(folders.baseq2) + "\\";
#else
    QString start = folders.baseq2 + "\\";
    start.replace('/', '\\');
    start.replace(0, 1, "/"); // a POSIX root with backslashes after it
#endif
    frmFindFolder picker(start);
    EXPECT_EQ(picker.openFolder(), folders.baseq2);
}

TEST(FolderPicker, ChoosingAnotherFolderInTheTreeReturnsThatFolder) {
    Folders folders;
    frmFindFolder picker(folders.quake2);
    const QModelIndex quake2 = picker.Dir1->currentIndex();
    QModelIndex baseq2;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] {
            baseq2 = picker.Dir1->model()->index(0, 0, quake2);
            return baseq2.isValid();
        },
        5000));
    picker.Dir1->setCurrentIndex(baseq2);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.chosenFolder(), native(folders.baseq2));
}

TEST(FolderPicker, AMissingFolderLeavesTheTreeWhereItWasWithoutError) {
#ifdef _WIN32
    GTEST_SKIP() << "under Wine the test folders lie on drive Z: (the build machine's root), which reports "
                    "no volume, so the picker starts on C:";
#endif
    PromptRecorder prompts;
    Folders folders;
    frmFindFolder picker(folders.games + "/NotThere");
    EXPECT_EQ(picker.openFolder(), QDir::cleanPath(QDir::currentPath()));
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(FolderPicker, APathOnAMissingDriveShowsNoErrorAndCancelReturnsNothing) {
    PromptRecorder prompts;
    frmFindFolder picker("Q:\\Games\\Quake2");
    EXPECT_EQ(picker.openFolder(), QDir::cleanPath(QDir::currentPath()));
    QTest::mouseClick(picker.cmdCancel, Qt::LeftButton);
    EXPECT_EQ(picker.result(), QDialog::Rejected);
    EXPECT_TRUE(picker.chosenFolder().isEmpty());
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(FolderPicker, CancelledPickerLeavesTheCallersTextBoxAlone) {
    PromptRecorder prompts;
    QWidget screen;
    auto* txtCDPath = new QLineEdit("Q:\\Games\\Quake2", &screen);
    ModalDriver driver(
        [](QDialog* d) { QTest::mouseClick(d->findChild<QPushButton*>("cmdCancel"), Qt::LeftButton); });
    browse(&screen, txtCDPath);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(txtCDPath->text(), "Q:\\Games\\Quake2");
    EXPECT_TRUE(prompts.calls().empty());
}

TEST(FolderPicker, OkInTheModalPickerPutsTheFolderIntoTheCallersTextBox) {
    Folders folders;
    QWidget screen;
    auto* txtMapLocation = new QLineEdit(folders.games, &screen);
    QString caption;
    ModalDriver driver([&](QDialog* d) {
        caption = d->windowTitle();
        QTest::mouseClick(d->findChild<QPushButton*>("cmdOK"), Qt::LeftButton);
    });
    browse(&screen, txtMapLocation);
    ASSERT_TRUE(driver.acted());
    EXPECT_EQ(caption, "Choose Path");
    EXPECT_EQ(txtMapLocation->text(), native(folders.games));
}

TEST(FolderPicker, ChangingTheDriveOpensTheTreeAtThatDrivesCurrentFolder) {
    Folders folders;
    const QString saved = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(folders.other));
    frmFindFolder picker(folders.baseq2);
    EXPECT_EQ(picker.openFolder(), folders.baseq2);
    picker.Drive1_Change();
    EXPECT_EQ(picker.openFolder(), QDir::cleanPath(QDir::currentPath()));
    QDir::setCurrent(saved);
}

} // namespace findfolder_test
