#include "tests/support/process_data.h"

#include "tests/support/workspace_data.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace rd::test {

std::string shellQuote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += (c == '\'') ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

ProgramRun runProgram(const std::string& program, const std::vector<std::string>& args,
                      const std::vector<std::pair<std::string, std::string>>& env) {
    static std::atomic<int> counter{0};
    const auto errFile =
        std::filesystem::temp_directory_path() /
        ("rosterdesk-stderr-" + std::to_string(::getpid()) + "-" + std::to_string(counter++));
    std::string command;
    for (const auto& [name, value] : env)
        command += name + "=" + shellQuote(value) + " ";
    command += shellQuote(program);
    for (const auto& arg : args)
        command += " " + shellQuote(arg);
    command += " 2>" + shellQuote(errFile.string()) + " </dev/null";

    ProgramRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    std::array<char, 4096> buffer{};
    std::size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        run.out.append(buffer.data(), got);
    const int raw = ::pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    std::error_code ec;
    if (std::filesystem::exists(errFile, ec)) {
        run.err = readBytes(errFile);
        std::filesystem::remove(errFile, ec);
    }
    return run;
}

} // namespace rd::test
