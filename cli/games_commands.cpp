// Game path records and paths templates: show/resave game and template.

#include "cli/registry.h"
#include "core/text.h"
#include "games/gamerecord.h"

namespace rd::cli {
namespace {

// The game and template editors' loader trap: its own lead, then the error's description.
TrapHandler loaderTrap(Context& ctx) {
    return [&ctx](const std::string& description) {
        ctx.message(std::string(kGameLoadTrapLead) + "\r\n" + description);
        return TrapChoice::Ignore;
    };
}

Json recordJson(const GamePathRecord& record) {
    return Json{{"txtLocationOfExe", str(record.txtLocationOfExe)},
                {"txtMapLocation", str(record.txtMapLocation)},
                {"txtEXEName", str(record.txtEXEName)},
                {"txtCDPath", str(record.txtCDPath)},
                {"txtModels", str(record.txtModels)},
                {"txtSkinFilter", str(record.txtSkinFilter)},
                {"txtBatchFile", str(record.txtBatchFile)},
                {"txtModelName", str(record.txtModelName)},
                {"cboStartType", record.cboStartType},
                {"chkLaunchBatchDirect", record.chkLaunchBatchDirect},
                {"chkFinishSample", record.chkFinishSample},
                {"txtMapReadMe", str(record.txtMapReadMe)}};
}

GamePathRecord loadRecord(Context& ctx, const std::filesystem::path& path) {
    StepRunner runner(loaderTrap(ctx));
    auto record = readGameRecordFile(path, runner);
    if (!record)
        throw UsageError(gameNotFoundMessage(path));
    return *record;
}

// Saving reports the error's own description (title "Saving Game Path IInfo").
void saveRecord(Context& ctx, const std::filesystem::path& path, const GamePathRecord& record) {
    StepRunner runner(ctx.trap());
    runner.step([&] { writeGamePathFile(path, record); });
}

const bool gameRegistered = addFileKind(
    "game", FileKind{[](Context& ctx, const std::filesystem::path& path, const std::vector<std::string>&) {
                         return recordJson(loadRecord(ctx, path));
                     },
                     [](Context& ctx, const std::filesystem::path& path) {
                         saveRecord(ctx, path, loadRecord(ctx, path));
                     }});

const bool templateRegistered = addFileKind(
    "template",
    FileKind{[](Context& ctx, const std::filesystem::path& path, const std::vector<std::string>&) {
                 StepRunner runner(loaderTrap(ctx));
                 return recordJson(readTemplateFile(path, runner));
             },
             [](Context& ctx, const std::filesystem::path& path) {
                 StepRunner runner(loaderTrap(ctx));
                 const GamePathRecord record = readTemplateFile(path, runner);
                 saveRecord(ctx, path, record);
             }});

} // namespace
} // namespace rd::cli
