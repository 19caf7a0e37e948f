#include "models/gendercheck.h"

#include "core/text.h"
#include "models/genders.h"

#include <algorithm>
#include <exception>

namespace rd {

void checkFemaleList(const std::filesystem::path& path, const std::vector<std::string>& models,
                     const std::string& modelsFolder, Findings& out) {
    std::vector<std::string> names;
    try {
        names = readFemaleList(path);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, path, std::nullopt, std::string("the file cannot be read: ") + e.what()});
        return;
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        if (std::any_of(models.begin(), models.end(),
                        [&name](const std::string& model) { return equalsNoCase(model, name); }))
            continue;
        out.push_back({Severity::Warning, path, i + 1,
                       name.empty() ? "the line is empty, so it names no model"
                                    : "the model " + inQuotes(name) + " has no folder in the models folder " +
                                          inQuotes(modelsFolder)});
    }
}

} // namespace rd
