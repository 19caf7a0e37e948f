#include "tests/support/savefaults_data.h"

#include "core/filesave.h"
#include "core/workspace.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>

namespace rd::test {

namespace fs = std::filesystem;

InjectedSaveFault::InjectedSaveFault(native::SaveFault fault) {
    native::setSaveFault(fault);
}

InjectedSaveFault::~InjectedSaveFault() {
    lift();
}

void InjectedSaveFault::lift() {
    native::setSaveFault(std::nullopt);
}

std::vector<SaveFaultPoint> saveFaultPoints(std::string_view bytes) {
    using Step = native::SaveFault::Step;
    // The last line starts after the CR LF before the final one.
    std::uint64_t lastLine = 0;
    if (bytes.size() >= 2) {
        const std::size_t before = bytes.rfind('\n', bytes.size() - 2);
        lastLine = before == std::string_view::npos ? 0 : before + 1;
    }
    return {
        {"the disk full at the first byte", {Step::Write, 0}},
        {"the disk full in the middle", {Step::Write, bytes.size() / 2}},
        {"the disk full inside the last line", {Step::Write, lastLine + 1}},
        {"the flush to the disk failing", {Step::Flush, 0}},
        {"the rename refused (the file in use)", {Step::Replace, 0, native::SaveFailure::Denied}},
    };
}

std::vector<std::string> saveLeftoversIn(const fs::path& folder) {
    std::vector<std::string> found;
    for (const auto& entry : listDirectory(folder))
        if (saveLeftoverOf(entry.name))
            found.push_back(entry.name);
    return found;
}

std::vector<std::string> expectSavesSurviveFaults(const fs::path& file,
                                                  const std::function<void(StepRunner&)>& save,
                                                  std::string_view newBytes, int afterSaves) {
    std::error_code ec;
    const bool existed = fs::exists(file, ec);
    const std::string oldBytes = existed ? readBytes(file) : std::string();
    std::vector<std::string> descriptions;
    for (auto point : saveFaultPoints(newBytes)) {
        SCOPED_TRACE(point.name);
        point.fault.afterSaves = afterSaves;
        InjectedSaveFault fault(point.fault);
        int failures = 0;
        StepRunner runner([&](const std::string& description) {
            ++failures;
            descriptions.push_back(description);
            if (existed)
                EXPECT_EQ(readBytes(file), oldBytes);
            else
                EXPECT_FALSE(fs::exists(file));
            EXPECT_EQ(saveLeftoversIn(file.parent_path()), std::vector<std::string>{});
            fault.lift();
            return failures == 1 ? TrapChoice::Retry : TrapChoice::Abort;
        });
        save(runner);
        EXPECT_EQ(failures, 1);
        EXPECT_FALSE(runner.aborted());
        EXPECT_EQ(readBytes(file), newBytes);
        EXPECT_EQ(saveLeftoversIn(file.parent_path()), std::vector<std::string>{});
        if (existed)
            writeBytes(file, oldBytes);
        else
            fs::remove(file);
    }
    return descriptions;
}

} // namespace rd::test
