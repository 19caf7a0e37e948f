#pragma once
// What the program does when it starts: the command line decides the user font and the one
// first screen. The launcher passes free text; four things are looked for in it.

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace rd {

enum class FirstScreen { MainWindow, GameEditor, PluginEditor, CustomMaps };

struct StartupDecision {
    std::int16_t fontSize = 0; // FONTSIZE=, when numeric and within 16 bits (halves to even)
    std::string fontName;      // FONTNAME=, as it is
    FirstScreen screen = FirstScreen::MainWindow;
    std::string argument; // the game (GameEditor) or plug-in (PluginEditor) name
};

// GAME= wins over BOT=, which wins over the word CustomMaps; otherwise the main window.
StartupDecision decideStartup(std::string_view commandLine);

// The command line as the launcher writes it: the program's arguments joined by one blank.
std::string joinCommandLine(int argc, const char* const* argv);

// The help file the program points at: root + "RosterDesk.hlp".
std::filesystem::path helpFilePath(const std::filesystem::path& root);

const char* firstScreenName(FirstScreen screen);

} // namespace rd
