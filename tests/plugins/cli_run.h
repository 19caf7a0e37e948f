#pragma once
// Runs the built rosterdesk-cli on a workspace (the test target defines ROSTERDESK_CLI).

#include "tests/support/process_data.h"

#include <filesystem>
#include <string>
#include <vector>

namespace rd::test {

using CliRun = ProgramRun;

inline CliRun runCli(const std::filesystem::path& root, const std::vector<std::string>& args) {
    std::vector<std::string> all = {"--root", root.string()};
    all.insert(all.end(), args.begin(), args.end());
    return runProgram(ROSTERDESK_CLI, all);
}

} // namespace rd::test
