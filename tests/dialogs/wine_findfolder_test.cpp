// The folder picker with a Wine prefix: the drive list shows the prefix's drives as the
// launcher's users know them, the tree works inside the chosen drive, and the folder chosen comes
// back as the launcher names it.
#include "core/winepaths.h"
#include "dialogs/frmFindFolder.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/wine_data.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <gtest/gtest.h>

namespace wine_findfolder_test {

using namespace rd;
namespace fs = std::filesystem;

#ifndef _WIN32

QString text(const fs::path& path) {
    return QString::fromStdString(path.string());
}

struct Prefix : rd::test::FakeWinePrefix {
    WinePrefix drives;
    Prefix() {
        folder("Quake2/baseq2/maps");
        folder("Games");
        link("d:", "../drive_c/Games");
        drives = readWinePrefix(prefix());
    }
    QString real(std::string_view relative) const { return text(fs::canonical(driveC(relative))); }
};

TEST(WineFolderPicker, TheDriveListShowsThePrefixsDrivesWithTheirFoldersAsTips) {
    Prefix p;
    frmFindFolder picker(p.real("Quake2/baseq2"), nullptr, p.drives);
    ASSERT_EQ(picker.Drive1->count(), 3);
    EXPECT_EQ(picker.Drive1->itemText(0), QString("C:"));
    EXPECT_EQ(picker.Drive1->itemText(1), QString("D:"));
    EXPECT_EQ(picker.Drive1->itemText(2), QString("Z:"));
    EXPECT_EQ(picker.Drive1->itemData(0, Qt::ToolTipRole).toString(), p.real(""));
    EXPECT_EQ(picker.Drive1->currentText(), QString("C:"));
    EXPECT_EQ(picker.selectedDrive(), p.real(""));
    EXPECT_EQ(picker.openFolder(), p.real("Quake2/baseq2"));
    auto* model = qobject_cast<QFileSystemModel*>(picker.Dir1->model());
    ASSERT_NE(model, nullptr);
    EXPECT_EQ(model->filePath(picker.Dir1->rootIndex()), p.real(""));
}

TEST(WineFolderPicker, OkGivesTheFolderInDriveFormWithATrailingBackslash) {
    Prefix p;
    frmFindFolder picker(p.real("Quake2/baseq2/maps"), nullptr, p.drives);
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.chosenFolder(), QString("C:\\Quake2\\baseq2\\maps\\"));
}

TEST(WineFolderPicker, TheDriveWithTheLongestMatchHoldsTheStartFolder) {
    Prefix p;
    p.folder("Games/Q2");
    frmFindFolder picker(p.real("Games/Q2"), nullptr, p.drives);
    EXPECT_EQ(picker.Drive1->currentText(), QString("D:"));
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.chosenFolder(), QString("D:\\Q2\\"));
}

TEST(WineFolderPicker, ChangingTheDriveWorksInsideThatDrive) {
    Prefix p;
    frmFindFolder picker(p.real("Quake2"), nullptr, p.drives);
    picker.Drive1->setCurrentIndex(1); // D:, whose folder is drive_c/Games
    EXPECT_EQ(picker.selectedDrive(), p.real("Games"));
    auto* model = qobject_cast<QFileSystemModel*>(picker.Dir1->model());
    EXPECT_EQ(model->filePath(picker.Dir1->rootIndex()), p.real("Games"));
    QTest::mouseClick(picker.cmdOK, Qt::LeftButton);
    EXPECT_EQ(picker.chosenFolder(), QString("D:\\"));
}

TEST(WineFolderPicker, CancelGivesNothingAndAPrefixWithoutDrivesShowsTheVolumes) {
    rd::test::PromptRecorder prompts;
    Prefix p;
    frmFindFolder picker(p.real("Quake2"), nullptr, p.drives);
    QTest::mouseClick(picker.cmdCancel, Qt::LeftButton);
    EXPECT_TRUE(picker.chosenFolder().isEmpty());
    p.unlink("c:");
    p.unlink("d:");
    p.unlink("z:");
    frmFindFolder plain(p.real("Quake2"), nullptr, readWinePrefix(p.prefix()));
    ASSERT_GT(plain.Drive1->count(), 0);
    EXPECT_NE(plain.Drive1->itemText(0), QString("C:"));
    QTest::mouseClick(plain.cmdOK, Qt::LeftButton);
    EXPECT_EQ(plain.chosenFolder(), QDir::toNativeSeparators(p.real("Quake2")));
    EXPECT_TRUE(prompts.calls().empty());
}

#endif

} // namespace wine_findfolder_test
