#include "plugins/setupcheck.h"

#include "core/conversions.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"

#include <algorithm>
#include <exception>
#include <functional>

namespace rd {

namespace fs = std::filesystem;

namespace {

// A copied file's role without the label's colon ("Bots File").
std::string roleOf(int index) {
    std::string role = kCopiedFileRoles[index];
    if (!role.empty() && role.back() == ':')
        role.pop_back();
    return role;
}

struct NumberLine {
    std::size_t line;
    std::string what;    // what the line holds
    std::string choices; // the choices, for the message
    std::function<void(std::string_view)> convert;
};

// The number lines of Setup.cfg with the conversion loading makes of each.
std::vector<NumberLine> numberLines() {
    std::vector<NumberLine> lines;
    for (int i = 0; i < kCopiedFileCount; ++i)
        lines.push_back({static_cast<std::size_t>(3 + 2 * i), "the target folder of the " + roleOf(i),
                         "0 (Bot Path), 1 (Game Path), 2 (Maps Path) or -1 (none)",
                         [](std::string_view text) { copiedFileFolderFromLine(text); }});
    lines.push_back({15, "the AutoExec handling", "0, 1 or 2",
                     [](std::string_view text) { setupChoiceFromLine(text, 3); }});
    lines.push_back(
        {16, "the chat handling", "0, 1 or 2", [](std::string_view text) { setupChoiceFromLine(text, 3); }});
    lines.push_back({22, "the bot config file handling", "0 or 1",
                     [](std::string_view text) { botConfigFromLine(text); }});
    return lines;
}

// Finds the lines of Setup.cfg that loading could not convert, from the file's own lines.
void explainFailures(const fs::path& file, Findings& out) {
    std::vector<std::string> lines;
    try {
        lines = readAllLines(file);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, file, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return;
    }
    if (lines.size() < 22)
        out.push_back({Severity::Error, file, std::nullopt,
                       "the file ends after line " + std::to_string(lines.size()) +
                           ", before line 22 (the bot config file handling), which has no default"});
    for (const auto& number : numberLines()) {
        if (number.line > lines.size())
            continue;
        const std::string& text = lines[number.line - 1];
        try {
            number.convert(text);
        } catch (const std::exception&) {
            out.push_back(
                {Severity::Error, file, number.line,
                 number.what + " is " + inQuotes(text) + ", not one of the choices " + number.choices});
        }
    }
}

} // namespace

std::optional<PluginSetup> checkPluginSetup(const fs::path& folder, const std::vector<std::string>& games,
                                            Findings& out) {
    std::vector<std::string> failures;
    StepRunner runner(collectAndIgnore(failures));
    std::optional<PluginSetup> setup = LoadPluginSetup(folder, runner);
    if (!setup)
        return std::nullopt;
    const fs::path file = resolvePath(folder, "Setup.cfg");
    if (!fileExists(file)) {
        out.push_back({Severity::Error, file, std::nullopt,
                       "the bot has no Setup.cfg, so the launcher knows neither its game nor its files"});
        for (const auto& failure : failures)
            out.push_back({Severity::Error, folder, std::nullopt, "a setup file cannot be read: " + failure});
        return std::nullopt;
    }
    if (!failures.empty()) {
        const std::size_t before = out.size();
        explainFailures(file, out);
        // A failure that is not in Setup.cfg's lines (ChatFiles.cfg or Skills.cfg unreadable).
        if (out.size() == before)
            for (const auto& failure : failures)
                out.push_back(
                    {Severity::Error, folder, std::nullopt, "a setup file cannot be read: " + failure});
    }
    if (setup->game.empty())
        out.push_back({Severity::Error, file, 1, "the first line names no game"});
    else if (std::none_of(games.begin(), games.end(),
                          [&setup](const std::string& game) { return equalsNoCase(game, setup->game); }))
        out.push_back(
            {Severity::Error, file, 1,
             "the bot plays the game " + inQuotes(setup->game) + ", which has no folder in Game-Paths"});
    return setup;
}

} // namespace rd
