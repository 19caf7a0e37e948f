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

// A folder field of the record: it must name a folder that exists.
bool checkFolder(const fs::path& file, std::size_t line, const std::string& text, const char* what,
                 std::optional<std::size_t>& lineCount, Findings& out) {
    if (!text.empty() && folderExists(pathFromData(text)))
        return true;
    if (!lineCount) {
        const auto lines = linesOf(file, out);
        lineCount = lines ? lines->size() : 0;
    }
    const bool present = line <= *lineCount;
    if (text.empty())
        out.push_back({Severity::Error, file, line, std::string("the record names no ") + what});
    else
        out.push_back(
            {Severity::Error, file, present ? std::optional<std::size_t>(line) : std::nullopt,
             std::string("the ") + what + " " + inQuotes(text) +
                 (present ? "" : " (the default, as the record has no line " + std::to_string(line) + ")") +
                 " does not exist"});
    return false;
}

} // namespace

GameCheck checkGame(const fs::path& folder, const std::string& game, Findings& out) {
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
                                                "game's program folder", lineCount, out);
        check.mapsFolderExists =
            checkFolder(recordFile, 2, check.record->txtMapLocation, "maps folder", lineCount, out);
        check.modelsFolderExists =
            checkFolder(recordFile, 5, check.record->txtModels, "models folder", lineCount, out);
    }
    const fs::path templateFile = resolvePath(folder, "Template.cfg");
    if (fileExists(templateFile))
        loadChecked(templateFile, out,
                    [](const fs::path& file, StepRunner& runner) { return readTemplateFile(file, runner); });
    return check;
}

} // namespace rd
