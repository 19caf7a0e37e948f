#pragma once
// Model genders: Game-Paths\<game>\Female.cfg names the female player models of a game, one a
// line; every model of the game (a sub-folder of its models folder) not named there is male.

#include "core/winepaths.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// Shown (exclamation icon, the game's name as title) when the record names no models folder.
inline constexpr std::string_view kNoModelsFolder = "No models folder specified";
// Titles of the error messages of the model gender editor.
inline constexpr std::string_view kGendersLoadTitle = "Sex Editor - Initialisation";
inline constexpr std::string_view kGendersSaveTitle = "Saving Female Configuration File";

struct ModelGenders {
    std::vector<std::string> male;
    std::vector<std::string> female;
    // Where OK writes the female list: Female.cfg once the models folder is known; the game's
    // record file when the record names no models folder (OK then overwrites the record).
    std::filesystem::path saveTarget;
    bool noModelsFolder = false; // the caller shows kNoModelsFolder
};

// The game's record as the model gender editor names it: <game>.gme (found whatever its case).
// It is the save target until the models folder is known.
std::filesystem::path genderRecordPath(const std::filesystem::path& root, std::string_view game);

// Loads the male and female lists of a game. Raises when the record or Female.cfg cannot be
// read (the caller's error trap reports it); `saveTarget` is set before anything is read.
ModelGenders LoadModelGenders(const std::filesystem::path& root, std::string_view game);
// The same, filling `genders` as it goes: when it raises, `genders` holds what was read until
// then, with the save target of that point (Female.cfg as soon as the models are listed, before
// Female.cfg itself is read).
void LoadModelGenders(const std::filesystem::path& root, std::string_view game, ModelGenders& genders);

// The models of a models folder as a record holds it (line 5; a drive path resolves through the
// workspace's Wine prefix `wine`): its sub-folders, in listing order.
std::vector<std::string> listModels(std::string_view modelsFolder, const WinePrefix& wine);

// Writes the names one a line (an empty list gives an empty file).
void SaveFemaleList(const std::filesystem::path& path, const std::vector<std::string>& female);

// Reads a female list file: every line, blank ones included, is one name.
std::vector<std::string> readFemaleList(const std::filesystem::path& path);

} // namespace rd
