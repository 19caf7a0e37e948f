// Every definition screen has its page in the user guide, listed on the contents page, and F1
// on the screen opens it.

#include "core/screens/help.h"
#include "definitions/screens/frmDMflags.h"
#include "definitions/screens/frmEditOption.h"
#include "definitions/screens/frmOptions.h"
#include "tests/definitions/screens/screen_steps.h"
#include "tests/support/workspace_data.h"

#include <QFile>
#include <QTextBrowser>
#include <gtest/gtest.h>

namespace guide_test {

using namespace rd;
using namespace rd::test;

const char* const kScreens[] = {"frmEditing",     "frmOptions",    "frmEditOption",
                                "frmNumberRange", "frmChooseList", "frmEditList",
                                "frmEditItem",    "frmDMflags",    "frmEditDMflag"};

QString guidePage(const QString& page) {
    QFile file(":/guide/" + page);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromUtf8(file.readAll());
}

// The help window F1 opened over `owner`, or null.
frmHelp* helpOver(QWidget* owner) {
    for (frmHelp* help : owner->findChildren<frmHelp*>())
        if (help->isVisible())
            return help;
    return nullptr;
}

TEST(DefinitionsGuide, EveryScreenHasAPageLinkedFromTheContents) {
    const QString contents = guidePage("index.html");
    ASSERT_FALSE(contents.isEmpty());
    for (const char* screen : kScreens) {
        const QString page = QString::fromLatin1(screen) + ".html";
        EXPECT_TRUE(helpPageExists(page)) << screen;
        EXPECT_TRUE(contents.contains("href=\"" + page + "\"")) << screen;
        const QString text = guidePage(page);
        EXPECT_TRUE(text.contains("href=\"index.html\"")) << screen;
        EXPECT_TRUE(text.contains("<title>")) << screen;
    }
}

TEST(DefinitionsGuide, F1InTheOptionEditorOpensItsPage) {
    TempWorkspace ws;
    frmOptions list(ws.path("Options.cfg"), "", ws.root());
    frmEditOption editor(list.lvOptions, true, 0, "", ws.root(), &list);
    ASSERT_TRUE(showActive(&editor));
    QTest::keyClick(editor.txtName, Qt::Key_F1);
    frmHelp* help = helpOver(&editor);
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmEditOption.html"));
    help->close();
}

TEST(DefinitionsGuide, F1InTheFlagListOpensItsPage) {
    TempWorkspace ws;
    frmDMflags flags(ws.path("DMflags.cfg"));
    ASSERT_TRUE(showActive(&flags));
    QTest::keyClick(flags.lvFlags, Qt::Key_F1);
    frmHelp* help = helpOver(&flags);
    ASSERT_NE(help, nullptr);
    EXPECT_EQ(help->currentPage(), QString("frmDMflags.html"));
    help->close();
}

} // namespace guide_test
