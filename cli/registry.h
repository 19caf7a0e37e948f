#pragma once
// The command registry of rosterdesk-cli. Each cli/*.cpp registers its commands with a static
// registrar; main.cpp builds the command line parser from the registry.

#include "core/steprunner.h"

#include <CLI/CLI.hpp>
#include <filesystem>
#include <functional>
#include <map>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

namespace rd::cli {

using Json = nlohmann::ordered_json;

// Exit status 2: a usage error, or a named game / plug-in / file that does not exist. The
// message goes to standard error and nothing to standard output.
class UsageError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct Context {
    std::filesystem::path root;
    bool failed = false; // a step failed or a message was raised: exit status 1

    // A message the program would show in a box: printed on standard error (one line) and
    // remembered as a failure. `bytes` is in the code page.
    void message(const std::string& bytes);
    // The error trap of the command-line tool: report each error and go on (Ignore).
    TrapHandler trap();
};

// A JSON string from code-page bytes.
Json str(const std::string& bytes);
Json strings(const std::vector<std::string>& list);

// A command: `configure` adds its arguments to the sub-command and returns the action run
// after parsing. The action returns the JSON document to print.
using Action = std::function<Json(Context&)>;
using Configure = std::function<Action(CLI::App& sub)>;
bool addCommand(const std::string& name, const std::string& description, Configure configure);

// A file kind of `show KIND PATH` / `resave KIND PATH`. `extra` holds the arguments after PATH.
struct FileKind {
    std::function<Json(Context&, const std::filesystem::path&, const std::vector<std::string>& extra)> show;
    std::function<void(Context&, const std::filesystem::path&)> resave; // empty: no resave
};
bool addFileKind(const std::string& kind, FileKind fileKind);

// A file named on the command line must exist: otherwise "File not found: " + path, status 2.
void requireFile(const std::filesystem::path& path);

// A file kind read whole by one loader and written back by one writer: `show` prints what
// `load` gives through `toJson`; `resave` loads the file and saves it again. Each is a step of
// the error trap (`trap`, or the context's own when none is given). The file must exist.
template <typename T>
FileKind loadSaveKind(std::function<T(const std::filesystem::path&)> load,
                      std::function<void(const std::filesystem::path&, const T&)> save,
                      std::function<Json(const T&)> toJson, std::function<TrapHandler(Context&)> trap = {}) {
    auto handler = [trap](Context& ctx) { return trap ? trap(ctx) : ctx.trap(); };
    return FileKind{[=](Context& ctx, const std::filesystem::path& path, const std::vector<std::string>&) {
                        requireFile(path);
                        T value{};
                        StepRunner(handler(ctx)).step([&] { value = load(path); });
                        return toJson(value);
                    },
                    [=](Context& ctx, const std::filesystem::path& path) {
                        requireFile(path);
                        T value{};
                        StepRunner runner(handler(ctx));
                        if (runner.step([&] { value = load(path); }))
                            runner.step([&] { save(path, value); });
                    }};
}

struct CommandEntry {
    std::string description;
    Configure configure;
};
std::map<std::string, CommandEntry>& commands();
std::map<std::string, FileKind>& fileKinds();

} // namespace rd::cli
