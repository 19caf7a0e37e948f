// A program killed while it saves a large option list leaves the old file or the new one, never
// a mix: a child process saves 5,000 rows and is killed (SIGKILL) at a random moment of the save,
// a hundred times. What a killed save leaves beside the file is removed by the next save.

#include "core/filesave.h"
#include "definitions/options.h"
#include "tests/support/savefaults_data.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <algorithm>
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#endif

namespace killed_save_test {

using namespace rd;
using rd::test::saveLeftoversIn;
using rd::test::TempWorkspace;

#ifndef _WIN32

std::vector<OptionRow> optionRows(int count, const std::string& tag) {
    std::vector<OptionRow> rows;
    rows.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        if (i % 25 == 0) {
            rows.push_back(OptionRow::category("Category " + std::to_string(i / 25) + tag));
            continue;
        }
        OptionRow row;
        row.name = "Option number " + std::to_string(i) + tag;
        row.type = std::to_string(i % 12);
        row.key = "Opt" + std::to_string(i);
        row.checked = "+set option_" + std::to_string(i) + " %s";
        row.where = std::to_string(i % 3);
        row.helpText =
            "What option " + std::to_string(i) + " does to the game," + tag + " in a sentence or two.";
        rows.push_back(std::move(row));
    }
    return rows;
}

TEST(KilledSave, AnOptionListSavedByAProgramKilledAtARandomMomentIsOldOrNewNeverAMix) {
    TempWorkspace ws;
    ws.folder("Game-Paths/Quake2");
    const auto path = ws.path("Game-Paths/Quake2/Options.cfg");
    const auto folder = path.parent_path();
    const auto oldRows = optionRows(5000, " (old)");
    const auto newRows = optionRows(5000, " (new, edited)");
    SaveDefinitions(path, newRows);
    const std::string newBytes = rd::test::readBytes(path);
    SaveDefinitions(path, oldRows);
    const std::string oldBytes = rd::test::readBytes(path);
    ASSERT_NE(oldBytes.size(), newBytes.size());

    // How long one save takes here: the kills are spread over the save and a little beyond it.
    std::vector<double> times;
    for (int i = 0; i < 5; ++i) {
        const auto start = std::chrono::steady_clock::now();
        SaveDefinitions(ws.path("Game-Paths/Quake2/timing.cfg"), newRows);
        times.push_back(
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(times.begin(), times.end());
    const double saveMicros = times[times.size() / 2];

    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("random seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> moment(0.0, 2.0 * saveMicros);

    int keptOld = 0, gotNew = 0, cutInTheMiddle = 0;
    for (int run = 0; run < 100; ++run) {
        int ready[2];
        ASSERT_EQ(::pipe(ready), 0);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            ::close(ready[0]);
            [[maybe_unused]] const ssize_t told = ::write(ready[1], "s", 1);
            try {
                SaveDefinitions(path, newRows);
            } catch (...) {
                ::_exit(1);
            }
            ::_exit(0);
        }
        ::close(ready[1]);
        char started = 0;
        [[maybe_unused]] const ssize_t heard = ::read(ready[0], &started, 1);
        ::close(ready[0]);
        std::this_thread::sleep_for(std::chrono::duration<double, std::micro>(moment(random)));
        ::kill(child, SIGKILL);
        int status = 0;
        ::waitpid(child, &status, 0);

        const std::string bytes = rd::test::readBytes(path);
        ASSERT_TRUE(bytes == oldBytes || bytes == newBytes)
            << "run " << run << ": the file holds " << bytes.size() << " bytes, neither the old "
            << oldBytes.size() << " nor the new " << newBytes.size();
        if (bytes == newBytes) {
            ++gotNew;
            rd::test::writeBytes(path, oldBytes);
        } else {
            ++keptOld;
        }
        // The child's own temporary file is there when the kill struck while it wrote.
        const auto left = saveLeftoversIn(folder);
        if (std::find(left.begin(), left.end(),
                      saveTemporaryName("Options.cfg", static_cast<unsigned long>(child))) != left.end())
            ++cutInTheMiddle;
    }
    std::cout << "killed saves: " << keptOld << " left the old file, " << gotNew << " the new one; "
              << cutInTheMiddle << " were cut in the middle of writing (one save takes about "
              << static_cast<int>(saveMicros) << " microseconds here)\n";
    // The kills did strike saves under way, not only before or after them.
    EXPECT_GT(cutInTheMiddle, 0);

    // The next save removes what the killed ones left.
    SaveDefinitions(path, newRows);
    EXPECT_EQ(rd::test::readBytes(path), newBytes);
    EXPECT_TRUE(saveLeftoversIn(folder).empty());
}

#endif

} // namespace killed_save_test
