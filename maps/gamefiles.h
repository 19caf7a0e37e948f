#pragma once
// Helpers shared by the category and arena files: one file per name in a game's folder, with a
// fixed extension.

#include "maps/categories.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rd::detail {

// Names of the files matching `pattern`, less their last four characters, in listing order.
std::vector<std::string> listStems(const std::filesystem::path& folder, std::string_view pattern);
// <name><extension> in `folder`: the existing file whatever its case, else with `extension` as given.
std::filesystem::path filePath(const std::filesystem::path& folder, std::string_view name,
                               std::string_view extension);
NewFileOutcome createFile(const std::filesystem::path& folder, std::string_view name,
                          std::string_view extension, const char* existsMessage);
RenameOutcome renameFile(const std::filesystem::path& folder, std::string_view oldName,
                         std::string_view newName, std::string_view extension, const char* existsMessage);
void deleteFile(const std::filesystem::path& folder, std::string_view name, std::string_view extension);

} // namespace rd::detail
