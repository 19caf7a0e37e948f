// rosterdesk-cli resave under a file size limit (as a quota or a full disk imposes one): the
// failure is reported and the option list stays exactly as it was, with no temporary file
// beside it; without the limit the same command saves it.

#include "core/filesave.h"
#include "core/workspace.h"
#include "tests/support/process_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace resave_limit_test {

using namespace rd;
using rd::test::TempWorkspace;

#ifndef _WIN32

TEST(CliResave, AnOptionListResavedUnderAFileSizeLimitStaysWholeAndTheFailureIsReported) {
    TempWorkspace ws;
    std::vector<std::string> lines;
    for (int i = 0; i < 3000; ++i) {
        lines.push_back("Option " + std::to_string(i));
        lines.push_back("3");
        lines.push_back("Opt" + std::to_string(i) + "\t1:10"); // resave fills in the missing TABs
    }
    ws.writeLines("Game-Paths/Quake2/Options.cfg", lines);
    const std::string path = ws.path("Game-Paths/Quake2/Options.cfg").string();
    const std::string old = ws.read("Game-Paths/Quake2/Options.cfg");
    for (const char* blocks : {"0", "8", "100"}) { // of 512 bytes
        SCOPED_TRACE(std::string("ulimit -f ") + blocks);
        // The limit's signal ignored, as a shell with trap '' XFSZ leaves it: the write fails.
        // Only the program runs under the limit; its messages and exit status reach the test
        // through a pipe (the file that collects them would be held to the limit too).
        const std::string script =
            std::string("trap '' XFSZ; ( ulimit -f ") + blocks +
            "; \"$0\" \"$@\"; echo \"exit status $?\" >&2 ) 2>&1 1>/dev/null | cat >&2";
        const auto run = rd::test::runProgram("/bin/sh", {"-c", script, ROSTERDESK_CLI, "--root",
                                                          ws.root().string(), "resave", "options", path});
        EXPECT_NE(run.err.find("exit status 1"), std::string::npos) << run.err;
        EXPECT_NE(run.err.find("Device I/O error while writing " + path), std::string::npos) << run.err;
        EXPECT_EQ(ws.read("Game-Paths/Quake2/Options.cfg"), old);
        std::vector<std::string> left;
        for (const auto& entry : listDirectory(ws.path("Game-Paths/Quake2")))
            if (saveLeftoverOf(entry.name))
                left.push_back(entry.name);
        EXPECT_TRUE(left.empty());
    }
    const auto run =
        rd::test::runProgram(ROSTERDESK_CLI, {"--root", ws.root().string(), "resave", "options", path});
    EXPECT_EQ(run.status, 0) << run.err;
    const std::string saved = ws.read("Game-Paths/Quake2/Options.cfg");
    EXPECT_NE(saved, old);
    EXPECT_NE(saved.find("Opt2999\t1:10\t\t\t\t\r\n"), std::string::npos);
}

#endif

} // namespace resave_limit_test
