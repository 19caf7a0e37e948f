#include "plugins/setupfiles.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"

#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

// The option button of a choice group that the number names; raises when there is none.
int choiceFromNumber(long long value, int count) {
    if (value < 0 || value >= count)
        throw RosterError("Control array element '" + std::to_string(value) + "' doesn't exist");
    return static_cast<int>(value);
}

} // namespace

int setupChoiceFromLine(std::string_view line, int count) {
    return choiceFromNumber(toByte(trim(line)), count);
}

int copiedFileFolderFromLine(std::string_view line) {
    const double value = roundHalfEven(leadingValue(line));
    if (!(value >= -1 && value <= 2))
        throw RosterError("Invalid property value");
    return static_cast<int>(value);
}

int botConfigFromLine(std::string_view line) {
    return choiceFromNumber(toInt16(line), 2);
}

fs::path pluginFolder(const fs::path& root, std::string_view bot) {
    return resolvePath(resolvePath(root, "Plug-Ins"), bot);
}

std::optional<PluginSetup> LoadPluginSetup(const fs::path& folder, StepRunner& runner) {
    if (!entryExists(folder))
        return std::nullopt;
    PluginSetup setup;

    runner.step([&] {
        const fs::path chatFiles = resolvePath(folder, "ChatFiles.Cfg");
        if (fileExists(chatFiles))
            setup.chatFiles = readAllLines(resolvePath(folder, "ChatFiles.cfg"));
    });

    runner.step([&] {
        const fs::path skills = resolvePath(folder, "Skills.cfg");
        if (fileExists(skills) && fs::file_size(skills) > 0) {
            LineReader reader(skills);
            setup.startSkill = reader.readLine("");
            while (!reader.atEnd())
                setup.skills.push_back(reader.readLine(""));
        }
    });
    setup.skillHandling = setup.skills.empty() ? 0 : 1;

    if (!fileExists(resolvePath(folder, "Setup.Cfg")))
        return setup;
    LineReader reader;
    if (!runner.step([&] { reader = LineReader(resolvePath(folder, "Setup.cfg")); }))
        return setup;
    runner.step([&] { setup.game = reader.readLine("Quake2"); });
    runner.step([&] { setup.botFolder = reader.readLine("Eraser"); });
    const PluginSetup defaults;
    for (int i = 0; i < kCopiedFileCount; ++i) {
        runner.step([&] { setup.files[i].folder = copiedFileFolderFromLine(reader.readLine("0")); });
        runner.step([&] { setup.files[i].name = reader.readLine(defaults.files[i].name); });
    }
    runner.step([&] { setup.autoExec = setupChoiceFromLine(reader.readLine("0"), 3); });
    runner.step([&] { setup.chat = setupChoiceFromLine(reader.readLine("0"), 3); });
    runner.step([&] { setup.routeFolder = reader.readLine(""); });
    runner.step([&] { setup.routeFilter = reader.readLine("*.zipped"); });
    runner.step([&] { setup.skinsFolder = reader.readLine(""); });
    runner.step([&] { setup.readme = reader.readLine(""); });
    runner.step([&] { setup.defaultSkin = reader.readLine(""); });
    // Line 22 has no usable default: a missing line is an empty text, which does not convert.
    runner.step([&] { setup.botConfig = botConfigFromLine(reader.readLine("")); });
    runner.step([&] {
        const std::string line = reader.readLine("");
        setup.usesArenas = isNumeric(line);
        setup.startArena = setup.usesArenas ? line : std::string();
    });
    reader.close();
    return setup;
}

std::vector<std::string> setupLines(const PluginSetup& setup) {
    std::vector<std::string> lines;
    lines.push_back(setup.game);
    lines.push_back(setup.botFolder);
    for (const auto& file : setup.files) {
        lines.push_back(numericPrintForm(file.folder));
        lines.push_back(file.name);
    }
    // "Add to TW.CFG" is stored as 1 like "Add to LAUNCHER.CFG", as the launcher expects.
    lines.push_back(numericPrintForm(setup.autoExec == 0 ? 0 : 1));
    if (setup.chat >= 0 && setup.chat <= 2)
        lines.push_back(numericPrintForm(setup.chat));
    lines.push_back(setup.routeFolder);
    lines.push_back(setup.routeFilter);
    lines.push_back(setup.skinsFolder);
    lines.push_back(setup.readme);
    lines.push_back(setup.defaultSkin);
    lines.push_back(numericPrintForm(setup.botConfig == 1 ? 1 : 0));
    lines.push_back(setup.usesArenas ? setup.startArena : std::string());
    return lines;
}

void SavePluginSetup(const fs::path& folder, const PluginSetup& setup, StepRunner& runner) {
    runner.step([&] { writeAllLines(resolvePath(folder, "Setup.Cfg"), setupLines(setup)); });
    runner.step([&] { writeAllLines(resolvePath(folder, "Chatfiles.cfg"), setup.chatFiles); });
    runner.step([&] {
        const fs::path skills = resolvePath(folder, "Skills.cfg");
        if (setup.skillHandling == 0 || setup.skills.empty()) {
            if (fileExists(skills)) {
                std::error_code ec;
                if (!fs::remove(skills, ec) || ec)
                    throw FileError("Path/File access error: cannot delete " + pathText(skills));
            }
            return;
        }
        std::vector<std::string> lines;
        lines.push_back(setup.startSkill);
        lines.insert(lines.end(), setup.skills.begin(), setup.skills.end());
        writeAllLines(skills, lines);
    });
}

} // namespace rd
