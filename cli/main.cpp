// rosterdesk-cli: reads the workspace's data files as JSON, normalises them through the
// program's own loaders and writers, and offers the program's small rules from a shell.

#include "cli/registry.h"
#include "core/nativeprocess.h"
#include "core/text.h"
#include "core/workspace.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace rd::cli {

void Context::message(const std::string& bytes) {
    std::string line = cp1252ToUtf8(bytes);
    for (auto& c : line)
        if (c == '\r' || c == '\n')
            c = ' ';
    std::cerr << line << std::endl;
    failed = true;
}

TrapHandler Context::trap() {
    return [this](const std::string& description) {
        message(description);
        return TrapChoice::Ignore;
    };
}

Json str(const std::string& bytes) {
    return Json(cp1252ToUtf8(bytes));
}

Json strings(const std::vector<std::string>& list) {
    Json out = Json::array();
    for (const auto& s : list)
        out.push_back(str(s));
    return out;
}

std::map<std::string, CommandEntry>& commands() {
    static std::map<std::string, CommandEntry> registry;
    return registry;
}

std::map<std::string, FileKind>& fileKinds() {
    static std::map<std::string, FileKind> registry;
    return registry;
}

void requireFile(const std::filesystem::path& path) {
    if (!fileExists(path))
        throw UsageError("File not found: " + pathText(path));
}

bool addCommand(const std::string& name, const std::string& description, Configure configure) {
    commands()[name] = CommandEntry{description, std::move(configure)};
    return true;
}

bool addFileKind(const std::string& kind, FileKind fileKind) {
    fileKinds()[kind] = std::move(fileKind);
    return true;
}

namespace {

std::string kindList(bool resave) {
    std::string list;
    for (const auto& [name, kind] : fileKinds()) {
        if (resave && !kind.resave)
            continue;
        list += (list.empty() ? "" : ", ") + name;
    }
    return list;
}

} // namespace

} // namespace rd::cli

int main(int argc, char** argv) {
    using namespace rd::cli;
    // The name is given: the arguments are parsed from a list that does not hold it.
    CLI::App app{"rosterdesk-cli: the scripting tool over RosterDesk's data files", "rosterdesk-cli"};
    app.require_subcommand(1);
    std::string rootOption;
    app.add_option("--root", rootOption,
                   "Workspace root (default: $ROSTERDESK_ROOT, else the program's folder)");

    Action action;
    for (auto& [name, entry] : commands()) {
        CLI::App* sub = app.add_subcommand(name, entry.description);
        auto configured = entry.configure(*sub);
        sub->callback([&action, configured]() { action = configured; });
    }

    // show KIND PATH [ARGS...] and resave KIND PATH
    std::string showKind, resaveKind, showPath, resavePath;
    std::vector<std::string> showExtra;
    CLI::App* show =
        app.add_subcommand("show", "Print a file as the program loads it. Kinds: " + kindList(false));
    show->add_option("KIND", showKind, "File kind")->required();
    show->add_option("PATH", showPath, "File (the plug-in's folder for setup)")->required();
    show->add_option("ARGS", showExtra, "Options of the kind (pak: --all)");
    show->allow_extras();
    show->prefix_command(false);
    CLI::App* resave =
        app.add_subcommand("resave", "Load a file and save it again. Kinds: " + kindList(true));
    resave->add_option("KIND", resaveKind, "File kind")->required();
    resave->add_option("PATH", resavePath, "File (the plug-in's folder for setup)")->required();

    rd::native::useBinaryStandardStreams();
    try {
        // CLI11 takes the arguments last first.
        std::vector<std::string> args = rd::native::utf8Arguments(argc, argv);
        std::reverse(args.begin(), args.end());
        app.parse(args);
    } catch (const CLI::CallForHelp& e) {
        return app.exit(e);
    } catch (const CLI::ParseError& e) {
        std::cerr << e.what() << std::endl;
        return 2;
    }

    Context ctx;
    if (!rootOption.empty())
        ctx.root = rd::pathFromUtf8(rootOption);
    else
        ctx.root = rd::workspaceRoot(rd::programFolder(argv[0]));

    try {
        Json out;
        if (show->parsed()) {
            auto it = fileKinds().find(showKind);
            if (it == fileKinds().end() || !it->second.show)
                throw UsageError("Unknown kind: " + showKind + " (kinds: " + kindList(false) + ")");
            for (const auto& extra : show->remaining())
                showExtra.push_back(extra);
            out = it->second.show(ctx, rd::pathFromUtf8(showPath), showExtra);
        } else if (resave->parsed()) {
            auto it = fileKinds().find(resaveKind);
            if (it == fileKinds().end() || !it->second.resave)
                throw UsageError("Unknown kind: " + resaveKind + " (kinds: " + kindList(true) + ")");
            it->second.resave(ctx, rd::pathFromUtf8(resavePath));
            out = nullptr;
        } else if (action) {
            out = action(ctx);
        }
        std::cout << out.dump(2, ' ', false, Json::error_handler_t::replace) << std::endl;
        return ctx.failed ? 1 : 0;
    } catch (const UsageError& e) {
        std::cerr << rd::cp1252ToUtf8(e.what()) << std::endl;
        return 2;
    } catch (const std::exception& e) {
        // An error outside any step (a command without a trap): reported, status 1.
        std::cerr << rd::cp1252ToUtf8(e.what()) << std::endl;
        return 1;
    }
}
