// Every map and arena screen has its own page in the user guide, which F1 opens.
#include "core/screens/help.h"
#include "maps/categories.h"
#include "maps/screens/frmAddMaps.h"
#include "maps/screens/frmArenas.h"
#include "maps/screens/frmCustomMapEditor.h"
#include "maps/screens/frmCustomMaps.h"
#include "maps/screens/frmEditArena.h"
#include "maps/screens/frmEditCustomMap.h"
#include "tests/support/prompts_screens.h"
#include "tests/support/workspace_data.h"

#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>
#include <gtest/gtest.h>
#include <memory>

namespace guide_test {

using namespace rd;
using rd::test::PromptRecorder;
using rd::test::TempWorkspace;

TEST(MapsGuide, EveryScreenHasItsOwnPageInTheGuideAndTheIndexLinksIt) {
    TempWorkspace ws;
    ws.writeLines("Game-Paths/Quake2/Quake2.Gme", {ws.path("q2").string()});
    PromptRecorder prompts;
    frmCustomMapEditor chooser(ws.root());
    frmArenas arenas(ws.root());
    frmCustomMaps editor(ws.root(), "Quake2", "DM", categoryPath(ws.root(), "Quake2", "DM"));
    frmEditCustomMap entry(editor.lvMaps, "DM", true, ws.root(), "Quake2");
    frmAddMaps add(ws.root(), "Quake2", true, nullptr, nullptr);
    frmEditArena arena(ws.path("Game-Paths/Quake2/q2dm1.ra2"), "q2dm1");
    QTextBrowser index;
    index.setSource(QUrl(helpPageUrl(kHelpIndexPage)));
    const QString indexText = index.toHtml();
    for (const QWidget* screen :
         std::initializer_list<const QWidget*>{&chooser, &arenas, &editor, &entry, &add, &arena}) {
        const QString page = screen->objectName() + ".html";
        EXPECT_TRUE(helpPageExists(page)) << page.toStdString();
        EXPECT_EQ(helpPageFor(screen), page);
        EXPECT_TRUE(indexText.contains(page)) << page.toStdString();
    }
}

TEST(MapsGuide, F1OnTheArenaListOpensItsPage) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    frmEditArena arena(ws.path("Game-Paths/Quake2/q2dm1.ra2"), "q2dm1");
    arena.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&arena));
    arena.lstArenas->setFocus();
    QTest::keyClick(arena.lstArenas, Qt::Key_F1);
    auto* help = arena.findChild<frmHelp*>("frmHelp");
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmEditArena.html"));
    help->close();
}

} // namespace guide_test
