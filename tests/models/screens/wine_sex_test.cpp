// The model gender editor on a launcher installed under Wine: the game's C:\ models folder lists
// its models, and OK writes the female list.
#include "models/screens/frmSex.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/wine_data.h"

#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

namespace wine_sex_test {

using namespace rd;

QStringList entries(const QListWidget* list) {
    QStringList out;
    for (int i = 0; i < list->count(); ++i)
        out << list->item(i)->text();
    return out;
}

#ifndef _WIN32

TEST(WineSexEditor, ACDriveModelsFolderShowsItsModelsAndOkSavesTheFemaleList) {
    rd::test::FakeWinePrefix wine;
    for (const char* model : {"male", "Lisa", "cyborg"})
        wine.folder(std::string("Quake2/baseq2/players/") + model);
    wine.writeLines(
        "Tarnwick/Game-Paths/Quake2/Quake2.Gme",
        {"C:\\Quake2\\", "C:\\Quake2\\baseq2\\maps\\", "quake2.exe", "", "c:\\QUAKE2\\BaseQ2\\Players"});
    rd::test::PromptRecorder prompts;
    frmSex form(wine.root());
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_EQ(entries(form.lstBlokes), (QStringList{"cyborg", "Lisa", "male"}));
    EXPECT_TRUE(entries(form.lstLadies).isEmpty());
    const QPoint lisa = form.lstBlokes->visualItemRect(form.lstBlokes->item(1)).center();
    QTest::mouseClick(form.lstBlokes->viewport(), Qt::LeftButton, {}, lisa);
    QTest::mouseDClick(form.lstBlokes->viewport(), Qt::LeftButton, {}, lisa);
    EXPECT_EQ(entries(form.lstLadies), QStringList{"Lisa"});
    QTest::mouseClick(form.cmdOK, Qt::LeftButton);
    EXPECT_EQ(wine.read("Tarnwick/Game-Paths/Quake2/Female.cfg"), "Lisa\r\n");
    EXPECT_TRUE(prompts.calls().empty());
}

#endif

} // namespace wine_sex_test
