#include "maps/gamefiles.h"

#include "core/errors.h"
#include "core/text.h"
#include "core/workspace.h"

#include <system_error>

namespace rd::detail {

namespace fs = std::filesystem;

std::vector<std::string> listStems(const fs::path& folder, std::string_view pattern) {
    std::vector<std::string> names = listFiles(folder, pattern);
    for (auto& name : names)
        name.resize(name.size() >= 4 ? name.size() - 4 : 0);
    return names;
}

fs::path filePath(const fs::path& folder, std::string_view name, std::string_view extension) {
    return resolvePath(folder, std::string(name) + std::string(extension));
}

NewFileOutcome createFile(const fs::path& folder, std::string_view name, std::string_view extension,
                          const char* existsMessage) {
    NewFileOutcome outcome;
    if (auto refusal = refuseNewName(name)) {
        outcome.refusal = *refusal;
        return outcome;
    }
    const fs::path path = filePath(folder, name, extension);
    if (entryExists(path)) {
        outcome.refusal = existsMessage;
        return outcome;
    }
    outcome.path = path;
    return outcome;
}

RenameOutcome renameFile(const fs::path& folder, std::string_view oldName, std::string_view newName,
                         std::string_view extension, const char* existsMessage) {
    RenameOutcome outcome;
    if (newName.empty() || equalsNoCase(newName, oldName))
        return outcome;
    if (auto refusal = refuseNewName(newName)) {
        outcome.result = RenameResult::Refused;
        outcome.refusal = *refusal;
        return outcome;
    }
    const fs::path target = filePath(folder, newName, extension);
    if (entryExists(target)) {
        outcome.result = RenameResult::Refused;
        outcome.refusal = existsMessage;
        return outcome;
    }
    std::error_code ec;
    fs::rename(filePath(folder, oldName, extension),
               joinName(folder, std::string(newName) + std::string(extension)), ec);
    if (ec)
        throw FileError("File not found: " + pathText(filePath(folder, oldName, extension)));
    outcome.result = RenameResult::Renamed;
    return outcome;
}

void deleteFile(const fs::path& folder, std::string_view name, std::string_view extension) {
    const fs::path path = filePath(folder, name, extension);
    std::error_code ec;
    if (!fileExists(path))
        throw FileError("File not found: " + pathText(path));
    if (!fs::remove(path, ec) || ec)
        throw FileError("Permission denied: " + pathText(path));
}

} // namespace rd::detail
