#include "profiles/botcommands.h"

#include "core/errors.h"
#include "core/filesave.h"
#include "core/text.h"
#include "core/workspace.h"
#include "profiles/profiles.h"

#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

std::string shown(const fs::path& path) {
    return pathText(path);
}

FileError accessError(const std::string& what, const fs::path& path, const std::error_code& ec) {
    return FileError("Path/File access error: " + what + " " + shown(path) +
                     (ec ? " (" + ec.message() + ")" : ""));
}

void deleteFile(const fs::path& path) {
    std::error_code ec;
    if (!fs::remove(path, ec) || ec)
        throw accessError("cannot delete", path, ec);
}

// Removes an empty folder; a folder that still holds anything is an error.
void removeFolder(const fs::path& folder) {
    std::error_code ec;
    if (!fs::is_directory(folder, ec))
        throw FileError("Path not found: " + shown(folder));
    if (!fs::is_empty(folder, ec))
        throw FileError("Path/File access error: " + shown(folder) + " is not empty");
    if (!fs::remove(folder, ec) || ec)
        throw accessError("cannot remove", folder, ec);
}

} // namespace

std::string baseBotNotFoundMessage(std::string_view base) {
    return "Plugin bot " + std::string(base) + " not found - new bot will be empty";
}

void DeleteBot(const fs::path& root, std::string_view bot) {
    const fs::path folder = resolvePath(pluginsFolder(root), bot);
    for (const auto& file : listFiles(folder, "*.*"))
        deleteFile(joinName(folder, file));
    removeFolder(folder);
}

void DeleteProfile(const fs::path& root, std::string_view profile) {
    const fs::path folder = resolvePath(root, profile);
    const auto files = listFiles(folder, "*.*");
    if (files.empty())
        throw FileError("File not found: " + shown(folder / "*.*"));
    for (const auto& file : files)
        deleteFile(joinName(folder, file));
    removeFolder(folder);
}

ProfileRenameResult RenameProfile(const fs::path& root, std::string_view profile, std::string_view newName) {
    if (newName.empty())
        return ProfileRenameResult::NoName;
    if (refuseNewName(newName))
        return ProfileRenameResult::RefusedName;
    const fs::path from = resolvePath(root, profile);
    std::error_code ec;
    if (!fs::is_directory(from, ec))
        throw FileError("Path not found: " + shown(from));
    // A name taken by another entry (whatever its case) is refused by the file system.
    const fs::path taken = resolvePath(root, newName);
    if (fs::exists(fs::symlink_status(taken, ec)) && !fs::equivalent(taken, from, ec))
        throw FileError("Path/File access error: " + shown(taken) + " already exists");
    const fs::path to = joinName(root, newName);
    renameEntry(from, to, ec);
    if (ec)
        throw accessError("cannot rename", from, ec);
    return ProfileRenameResult::Renamed;
}

AddBotOutcome CreateBotFolder(const fs::path& root, std::string_view name, StepRunner& runner) {
    AddBotOutcome outcome;
    if (name.empty()) {
        outcome.result = AddBotResult::NoName;
        return outcome;
    }
    if (refuseNewName(name)) {
        outcome.result = AddBotResult::RefusedName;
        return outcome;
    }
    const fs::path plugins = pluginsFolder(root);
    if (folderExists(joinName(plugins, name))) {
        outcome.result = AddBotResult::AlreadyExists;
        return outcome;
    }
    const fs::path folder = joinName(plugins, name);
    if (!runner.step([&] {
            std::error_code ec;
            if (!fs::create_directory(folder, ec) || ec)
                throw accessError("cannot create", folder, ec);
        })) {
        outcome.result = AddBotResult::Failed;
        return outcome;
    }
    outcome.result = AddBotResult::Created;
    return outcome;
}

bool CopyBaseBotFiles(const fs::path& root, std::string_view name, std::string_view base,
                      StepRunner& runner) {
    if (base.empty())
        return true;
    const fs::path plugins = pluginsFolder(root);
    const fs::path folder = resolvePath(plugins, name);
    const fs::path baseFolder = resolvePath(plugins, base);
    if (!folderExists(baseFolder))
        return false;
    for (const auto& file : listFiles(baseFolder, "*.*")) {
        // What an interrupted save left in the base bot's folder is not one of its files.
        if (saveLeftoverOf(file))
            continue;
        runner.step([&] {
            if (fileExists(joinName(folder, file)))
                return;
            // A copy cut short by a full disk leaves no half file behind: Retry copies it again
            // from the start, Ignore goes on without it.
            copyFileWhole(joinName(baseFolder, file), joinName(folder, file));
        });
    }
    return true;
}

AddBotOutcome AddBot(const fs::path& root, std::string_view name, std::string_view base, StepRunner& runner) {
    AddBotOutcome outcome = CreateBotFolder(root, name, runner);
    if (outcome.result != AddBotResult::Created)
        return outcome;
    outcome.baseMissing = !CopyBaseBotFiles(root, name, base, runner);
    return outcome;
}

} // namespace rd
