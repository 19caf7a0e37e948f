#pragma once
// Runs the built rosterdesk-cli on a workspace and hands back its exit status, its standard
// output parsed as JSON and its standard error.

#include <nlohmann/json.hpp>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <vector>

namespace rd::test {

struct CliRun {
    int status = -1;
    std::string out;
    std::string err;
    nlohmann::json json() const { return nlohmann::json::parse(out); }
};

inline std::string shellQuote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text) {
        if (c == '\'')
            quoted += "'\\''";
        else
            quoted += c;
    }
    return quoted + "'";
}

inline CliRun runCli(const std::filesystem::path& root, const std::vector<std::string>& args) {
    const std::filesystem::path errFile = root.parent_path() / (root.filename().string() + ".stderr");
    std::string command = shellQuote(ROSTERDESK_CLI) + " --root " + shellQuote(root.string());
    for (const auto& arg : args)
        command += " " + shellQuote(arg);
    command += " 2>" + shellQuote(errFile.string());
    CliRun run;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe)
        return run;
    std::array<char, 4096> buffer;
    std::size_t got;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        run.out.append(buffer.data(), got);
    const int raw = pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    std::ifstream err(errFile, std::ios::binary);
    std::ostringstream text;
    text << err.rdbuf();
    run.err = text.str();
    std::filesystem::remove(errFile);
    return run;
}

} // namespace rd::test
