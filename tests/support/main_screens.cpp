// main() of every screen test program: Qt runs offscreen, one QApplication for all tests, with
// the help key installed as the program installs it.
#include "core/screens/help.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    rd::installHelpKey(&app);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
