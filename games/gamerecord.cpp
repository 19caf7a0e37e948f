#include "games/gamerecord.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <array>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

// Read defaults of lines 1 to 11 (line 12 defaults to line 2 as read).
struct Defaults {
    std::array<const char*, 8> texts;
    const char* startType;
    const char* launchBatchDirect;
    const char* finishSample;
};

constexpr Defaults kRecordDefaults{{"c:\\quake2", "c:\\quake2\\baseq2\\maps", "quake2.exe", "",
                                    "c:\\quake2\\baseq2\\players", "_i.pcx", "", "tris.md2"},
                                   "0",
                                   "1",
                                   "1"};

constexpr Defaults kTemplateDefaults{
    {"<PATH>", "<PATH>baseq2\\maps", "quake2.exe", "", "<PATH>baseq2\\players", "_i.pcx", "", "tris.md2"},
    "0",
    "1",
    "1"};

int startTypeFromText(std::string_view text) {
    const int value = toInt16(text);
    if (value < -1 || value >= kStartTypeCount)
        throw RosterError("Invalid property value");
    return value;
}

void readFields(const fs::path& path, const Defaults& defaults, GamePathRecord& record, StepRunner& runner) {
    LineReader reader;
    if (!runner.step([&] { reader = LineReader(path); }))
        return;
    std::array<std::string*, 8> texts{&record.txtLocationOfExe, &record.txtMapLocation, &record.txtEXEName,
                                      &record.txtCDPath,        &record.txtModels,      &record.txtSkinFilter,
                                      &record.txtBatchFile,     &record.txtModelName};
    for (std::size_t i = 0; i < texts.size(); ++i)
        runner.step([&] { *texts[i] = reader.readLine(defaults.texts[i]); });
    runner.step([&] { record.cboStartType = startTypeFromText(reader.readLine(defaults.startType)); });
    runner.step(
        [&] { record.chkLaunchBatchDirect = flagFromText(reader.readLine(defaults.launchBatchDirect)); });
    runner.step([&] { record.chkFinishSample = flagFromText(reader.readLine(defaults.finishSample)); });
    runner.step([&] { record.txtMapReadMe = reader.readLine(record.txtMapLocation); });
    reader.close();
}

} // namespace

fs::path gameFolder(const fs::path& root, std::string_view game) {
    return resolvePath(gamePathsFolder(root), game);
}

fs::path gameRecordPath(const fs::path& root, std::string_view game) {
    return resolvePath(gameFolder(root, game), std::string(game) + ".Gme");
}

fs::path gameTemplatePath(const fs::path& root, std::string_view game) {
    return resolvePath(gameFolder(root, game), "Template.cfg");
}

std::string gameNotFoundMessage(const fs::path& recordPath) {
    return pathText(recordPath) + std::string(kGameNotFoundTail);
}

GamePathRecord templateBuiltInValues() {
    GamePathRecord record;
    record.txtLocationOfExe = "<PATH>";
    record.txtMapLocation = "<PATH>baseq2\\maps";
    record.txtModels = "<PATH>baseq2\\players";
    record.txtSkinFilter = "_i.pcx";
    record.txtModelName = "tris.md2";
    record.txtMapReadMe = "<PATH>baseq2\\maps";
    return record;
}

std::optional<GamePathRecord> readGameRecordFile(const fs::path& path, StepRunner& runner) {
    if (!fileExists(path))
        return std::nullopt;
    GamePathRecord record;
    readFields(path, kRecordDefaults, record, runner);
    return record;
}

GamePathRecord readTemplateFile(const fs::path& path, StepRunner& runner) {
    GamePathRecord record = templateBuiltInValues();
    if (fileExists(path)) {
        record = GamePathRecord{};
        readFields(path, kTemplateDefaults, record, runner);
    }
    return record;
}

void writeGamePathFile(const fs::path& path, const GamePathRecord& record) {
    LineWriter writer(path);
    writer.writeLine(record.txtLocationOfExe);
    writer.writeLine(record.txtMapLocation);
    writer.writeLine(record.txtEXEName);
    writer.writeLine(record.txtCDPath);
    writer.writeLine(record.txtModels);
    writer.writeLine(record.txtSkinFilter);
    writer.writeLine(record.txtBatchFile);
    writer.writeLine(record.txtModelName);
    writer.writeLine(numericPrintForm(record.cboStartType));
    writer.writeLine(numericPrintForm(record.chkLaunchBatchDirect ? 1 : 0));
    writer.writeLine(numericPrintForm(record.chkFinishSample ? 1 : 0));
    writer.writeLine(record.txtMapReadMe);
    writer.close();
}

std::optional<GamePathRecord> LoadGameRecord(const fs::path& root, std::string_view game,
                                             StepRunner& runner) {
    return readGameRecordFile(gameRecordPath(root, game), runner);
}

void SaveGameRecord(const fs::path& root, std::string_view game, const GamePathRecord& record) {
    writeGamePathFile(gameRecordPath(root, game), record);
}

GamePathRecord LoadTemplate(const fs::path& root, std::string_view game, StepRunner& runner) {
    return readTemplateFile(gameTemplatePath(root, game), runner);
}

void SaveTemplate(const fs::path& root, std::string_view game, const GamePathRecord& record) {
    writeGamePathFile(gameTemplatePath(root, game), record);
}

CreateGameResult CreateGame(const fs::path& root, std::string_view name, StepRunner& runner) {
    if (name.empty())
        return CreateGameResult::NoName;
    if (refuseNewName(name))
        return CreateGameResult::RefusedName;
    const fs::path paths = gamePathsFolder(root);
    if (entryExists(joinName(paths, name)))
        return CreateGameResult::AlreadyExists;
    const fs::path folder = joinName(paths, name);
    bool ok = runner.step([&] {
        std::error_code ec;
        if (!fs::create_directory(folder, ec) || ec)
            throw FileError("Path/File access error: cannot create " + pathText(folder) +
                            (ec ? " (" + ec.message() + ")" : std::string()));
    });
    ok = runner.step([&] {
        writeAllLines(joinName(folder, std::string(name) + ".Gme"),
                      {"c:\\quake2\\", "c:\\quake2\\baseq2\\maps\\", "quake2.exe", "",
                       "c:\\quake2\\baseq2\\players", "_i.pcx", ""});
    }) && ok;
    // Every file this program opens is closed by its reader or writer as soon as the operation
    // that opened it ends, so no file is left open here.
    return ok ? CreateGameResult::Created : CreateGameResult::Failed;
}

bool DeleteGame(const fs::path& root, std::string_view name, StepRunner& runner) {
    const fs::path folder = gameFolder(root, name);
    runner.step([&] {
        const auto files = listFiles(folder, "*.*");
        if (files.empty())
            throw FileError("File not found: " + (pathText(folder / "*.*")));
        for (const auto& file : files) {
            std::error_code ec;
            if (!fs::remove(joinName(folder, file), ec) || ec)
                throw FileError("Path/File access error: cannot delete " + pathText(joinName(folder, file)) +
                                (ec ? " (" + ec.message() + ")" : std::string()));
        }
    });
    return runner.step([&] {
        std::error_code ec;
        if (!fs::is_directory(folder, ec))
            throw FileError("Path not found: " + pathText(folder));
        if (!fs::is_empty(folder, ec))
            throw FileError("Path/File access error: " + pathText(folder) + " still holds a folder");
        if (!fs::remove(folder, ec) || ec)
            throw FileError("Path/File access error: cannot remove " + pathText(folder) +
                            (ec ? " (" + ec.message() + ")" : std::string()));
    });
}

} // namespace rd
