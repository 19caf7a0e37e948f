#pragma once
// Runs a built program of the project (rosterdesk, rosterdesk-cli) from a test and hands back
// its exit status, standard output and standard error.

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

namespace rd::test {

struct ProgramRun {
    int status = -1; // exit status; -1 when the program could not be run or was killed
    std::string out;
    std::string err;
    // Standard output parsed as JSON (throws when it is not JSON).
    nlohmann::json json() const { return nlohmann::json::parse(out); }
};

// One argument quoted for the shell.
std::string shellQuote(const std::string& text);

// Runs `program` with `args` (each passed as one argument) and the extra environment `env`.
ProgramRun runProgram(const std::string& program, const std::vector<std::string>& args,
                      const std::vector<std::pair<std::string, std::string>>& env = {});

} // namespace rd::test
