#include "models/genders.h"

#include "core/text.h"
#include "core/textfile.h"
#include "core/winepaths.h"
#include "core/workspace.h"
#include "games/gamelist.h"

#include <algorithm>

namespace rd {

namespace fs = std::filesystem;

fs::path genderRecordPath(const fs::path& root, std::string_view game) {
    return resolvePath(resolvePath(gamePathsFolder(root), game), std::string(game) + ".gme");
}

ModelGenders LoadModelGenders(const fs::path& root, std::string_view game) {
    ModelGenders genders;
    LoadModelGenders(root, game, genders);
    return genders;
}

void LoadModelGenders(const fs::path& root, std::string_view game, ModelGenders& genders) {
    genders = ModelGenders{};
    const fs::path folder = resolvePath(gamePathsFolder(root), game);
    genders.saveTarget = genderRecordPath(root, game);

    std::string models;
    {
        LineReader reader(genders.saveTarget);
        for (int line = 1; line <= 5; ++line)
            models = reader.readLine("");
    }
    if (models.empty()) {
        genders.noModelsFolder = true;
        return;
    }
    genders.male = listModels(models, findWinePrefix(root));

    // From here on OK writes the female list, also when reading it fails below.
    genders.saveTarget = resolvePath(folder, "Female.cfg");
    if (!fileExists(genders.saveTarget))
        return;
    LineReader reader(genders.saveTarget);
    while (!reader.atEnd()) {
        std::string name = reader.readLine("");
        const auto match =
            std::find_if(genders.male.begin(), genders.male.end(),
                         [&name](const std::string& male) { return equalsNoCase(male, name); });
        if (match != genders.male.end())
            genders.male.erase(match);
        genders.female.push_back(std::move(name));
    }
}

std::vector<std::string> listModels(std::string_view modelsFolder, const WinePrefix& wine) {
    return listFolders(pathFromData(withTrailingSeparator(modelsFolder), wine));
}

void SaveFemaleList(const fs::path& path, const std::vector<std::string>& female) {
    writeAllLines(path, female);
}

std::vector<std::string> readFemaleList(const fs::path& path) {
    return readAllLines(path);
}

} // namespace rd
