#include "games/recordcheck.h"

#include "core/conversions.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"

#include <exception>
#include <vector>

namespace rd {

namespace fs = std::filesystem;

namespace {

// The lines of a file, or nothing when it cannot be read (reported).
std::optional<std::vector<std::string>> linesOf(const fs::path& file, Findings& out) {
    try {
        return readAllLines(file);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, file, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return std::nullopt;
    }
}

// Explains a failed load of a record or template from its own lines: the start type (line 9) is
// the only field whose conversion can fail.
void explainStartType(const fs::path& file, Findings& out) {
    const auto lines = linesOf(file, out);
    if (!lines || lines->size() < 9)
        return;
    const std::string& text = (*lines)[8];
    if (!isNumeric(text)) {
        out.push_back({Severity::Error, file, 9, "the start type " + inQuotes(text) + " is not a number"});
        return;
    }
    out.push_back(
        {Severity::Error, file, 9,
         "the start type " + inQuotes(text) + " is not one of the start types 0 to 5 (or -1 for none)"});
}

// Loads a record or template with a trap that collects; explains what failed.
template <typename Load> auto loadChecked(const fs::path& file, Findings& out, Load load) {
    std::vector<std::string> failures;
    StepRunner runner(collectAndIgnore(failures));
    auto loaded = load(file, runner);
    if (!failures.empty()) {
        const std::size_t before = out.size();
        explainStartType(file, out);
        if (out.size() == before)
            for (const auto& failure : failures)
                out.push_back({Severity::Error, file, std::nullopt, "the file cannot be read: " + failure});
    }
    return loaded;
}

// A drive path whose drive no Wine prefix of the workspace maps: the drive's letter. Nothing for
// any other text, and always nothing on Windows, where drive paths are the system's own.
std::optional<char> unmappedDrive(const std::string& text, const WinePrefix& wine) {
#ifdef _WIN32
    (void)text;
    (void)wine;
    return std::nullopt;
#else
    const auto letter = driveLetterOf(text);
    if (!letter || wine.drive(*letter))
        return std::nullopt;
    return letter;
#endif
}

// A folder field of the record: it must name a folder that exists.
bool checkFolder(const fs::path& file, std::size_t line, const std::string& text, const char* what,
                 std::optional<std::size_t>& lineCount, Findings& out, const WinePrefix& wine) {
    if (!text.empty() && folderExists(pathFromData(text, wine)))
        return true;
    if (!lineCount) {
        const auto lines = linesOf(file, out);
        lineCount = lines ? lines->size() : 0;
    }
    const bool present = line <= *lineCount;
    const std::optional<std::size_t> at = present ? std::optional<std::size_t>(line) : std::nullopt;
    const std::string named =
        std::string("the ") + what + " " + inQuotes(text) +
        (present ? "" : " (the default, as the record has no line " + std::to_string(line) + ")");
    if (text.empty())
        out.push_back({Severity::Error, file, line, std::string("the record names no ") + what});
    else if (const auto drive = unmappedDrive(text, wine))
        // Not known to be wrong: the launcher under Wine may well find it.
        out.push_back({Severity::Warning, file, at,
                       named + " is a Windows path, and no Wine prefix maps drive " + *drive + ":"});
    else
        out.push_back({Severity::Error, file, at, named + " does not exist"});
    return false;
}

} // namespace

GameCheck checkGame(const fs::path& folder, const std::string& game, Findings& out, const WinePrefix& wine) {
    GameCheck check;
    const fs::path recordFile = resolvePath(folder, game + ".Gme");
    if (!fileExists(recordFile)) {
        out.push_back({Severity::Error, recordFile, std::nullopt,
                       "the game " + inQuotes(game) + " has no record (" + game +
                           ".Gme), so the launcher knows none of its folders"});
    } else {
        check.record = loadChecked(recordFile, out, [](const fs::path& file, StepRunner& runner) {
            return readGameRecordFile(file, runner);
        });
    }
    if (check.record) {
        std::optional<std::size_t> lineCount;
        check.programFolderExists = checkFolder(recordFile, 1, check.record->txtLocationOfExe,
                                                "game's program folder", lineCount, out, wine);
        check.mapsFolderExists =
            checkFolder(recordFile, 2, check.record->txtMapLocation, "maps folder", lineCount, out, wine);
        check.modelsFolderExists =
            checkFolder(recordFile, 5, check.record->txtModels, "models folder", lineCount, out, wine);
    }
    const fs::path templateFile = resolvePath(folder, "Template.cfg");
    if (fileExists(templateFile))
        loadChecked(templateFile, out,
                    [](const fs::path& file, StepRunner& runner) { return readTemplateFile(file, runner); });
    return check;
}

} // namespace rd
