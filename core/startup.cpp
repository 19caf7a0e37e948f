#include "core/startup.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/keylookup.h"
#include "core/text.h"
#include "core/workspace.h"

namespace rd {

StartupDecision decideStartup(std::string_view commandLine) {
    StartupDecision decision;
    const std::string trimmed = trim(commandLine);

    if (containsNoCase(commandLine, "FONTSIZE=")) {
        const std::string value = lookupKey(commandLine, "FONTSIZE");
        if (isNumeric(value)) {
            try {
                decision.fontSize = toInt16(value);
            } catch (const ConversionError&) {
                // A size outside the 16-bit range is ignored; the designed sizes stay.
            }
        }
    }
    if (containsNoCase(commandLine, "FONTNAME="))
        decision.fontName = lookupKey(commandLine, "FONTNAME");

    if (std::string game = lookupKey(trimmed, "GAME"); !game.empty()) {
        decision.screen = FirstScreen::GameEditor;
        decision.argument = std::move(game);
    } else if (std::string bot = lookupKey(trimmed, "BOT"); !bot.empty()) {
        decision.screen = FirstScreen::PluginEditor;
        decision.argument = std::move(bot);
    } else if (upperCase(trimmed) == "CUSTOMMAPS" || containsNoCase(trimmed, "CustomMaps")) {
        decision.screen = FirstScreen::CustomMaps;
    }
    return decision;
}

std::string joinCommandLine(int argc, const char* const* argv) {
    std::string line;
    for (int i = 1; i < argc; ++i) {
        if (i > 1)
            line += ' ';
        line += argv[i];
    }
    return line;
}

std::filesystem::path helpFilePath(const std::filesystem::path& root) {
    return resolvePath(root, "RosterDesk.hlp");
}

const char* firstScreenName(FirstScreen screen) {
    switch (screen) {
    case FirstScreen::GameEditor:
        return "GameEditor";
    case FirstScreen::PluginEditor:
        return "PluginEditor";
    case FirstScreen::CustomMaps:
        return "CustomMaps";
    case FirstScreen::MainWindow:
        break;
    }
    return "MainWindow";
}

} // namespace rd
