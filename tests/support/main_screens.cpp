// main() of every screen test program: Qt runs offscreen, one QApplication for all tests, with
// the help key installed as the program installs it.
#include "core/screens/help.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#ifdef ROSTERDESK_TEST_PLATFORM_PLUGINS
    // The Windows build's tests load the platform plugin from where the zip puts it.
    qputenv("QT_QPA_PLATFORM_PLUGIN_PATH", ROSTERDESK_TEST_PLATFORM_PLUGINS);
#endif
    QApplication app(argc, argv);
    rd::installHelpKey(&app);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
