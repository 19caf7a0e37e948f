// Model genders: the models command over a game, show/resave of a female list.

#include "cli/registry.h"
#include "core/text.h"
#include "core/workspace.h"
#include "games/gamelist.h"
#include "models/genders.h"

namespace rd::cli {
namespace {

const std::string kTrapLead = "Sod it!  Something has gone wrong!";

TrapHandler gendersTrap(Context& ctx) {
    return [&ctx](const std::string& description) {
        ctx.message(kTrapLead + "\r\n" + description);
        return TrapChoice::Ignore;
    };
}

const bool modelsRegistered =
    addCommand("models", "Male and female models of a game: models GAME", [](CLI::App& sub) -> Action {
        auto game = std::make_shared<std::string>();
        sub.add_option("GAME", *game, "Game name")->required();
        return [game](Context& ctx) {
            const std::string name = utf8ToCp1252(*game);
            if (!folderExists(resolvePath(gamePathsFolder(ctx.root), name)))
                throw UsageError("Could not find " + name);
            ModelGenders genders;
            StepRunner runner(gendersTrap(ctx));
            runner.step([&] { genders = LoadModelGenders(ctx.root, name); });
            if (genders.noModelsFolder)
                ctx.message(std::string(kNoModelsFolder));
            return Json{{"male", strings(genders.male)}, {"female", strings(genders.female)}};
        };
    });

const bool femalesRegistered = addFileKind(
    "females", loadSaveKind<std::vector<std::string>>(readFemaleList, SaveFemaleList, strings, gendersTrap));

} // namespace
} // namespace rd::cli
