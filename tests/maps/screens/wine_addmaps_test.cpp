// The add-map screen on a launcher installed under Wine: the game's C:\ record finds the maps in
// drive_c.
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/maplist.h"
#include "tests/maps/screens/maps_screen_helpers.h"
#include "tests/support/pak_writer_data.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/wine_data.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>
#include <gtest/gtest.h>

namespace wine_addmaps_test {

using namespace rd;

#ifndef _WIN32

TEST(WineAddMapScreen, ACDriveRecordListsTheInstalledMaps) {
    rd::test::FakeWinePrefix wine;
    wine.write("Quake2/pak0.pak", rd::test::buildPak({{"maps/q2ctf1.bsp", "B"}}));
    wine.write("Quake2/baseq2/pak0.pak", rd::test::buildPak({{"MAPS/Q2DM1.BSP", "B"}, {"pics/x.pcx", "P"}}));
    wine.write("Quake2/baseq2/maps/DM_Aftershock.BSP", "");
    wine.writeLines("Tarnwick/Game-Paths/Quake2/Quake2.Gme",
                    {"C:\\QUAKE2\\", "C:\\quake2\\BASEQ2\\maps\\", "quake2.exe"});
    rd::test::PromptRecorder prompts;
    QTreeWidget category;
    setUpMapList(&category, "Map Name", "Title");
    QLineEdit nameBox;
    frmAddMaps form(wine.root(), "Quake2", false, &nameBox, &category);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&form));
    EXPECT_EQ(rd::test::rows(form.lvMaps),
              (QStringList{"q2ctf1|Quake2 pak0.pak", "q2ctf1|CTF pak0.pak", "q2dm1|BaseQ2 pak0.pak",
                           "DM_Aftershock|Custom Maps"}));
    EXPECT_TRUE(prompts.calls().empty());
}

#endif

} // namespace wine_addmaps_test
