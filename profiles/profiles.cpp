#include "profiles/profiles.h"

#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"

#include <exception>

namespace rd {

std::filesystem::path pluginsFolder(const std::filesystem::path& root) {
    return resolvePath(root, "Plug-Ins");
}

std::vector<std::string> listPluginBots(const std::filesystem::path& root) {
    return listFolders(pluginsFolder(root));
}

std::vector<std::string> listProfiles(const std::filesystem::path& root) {
    std::vector<std::string> profiles;
    for (auto& entry : listDirectory(root)) {
        if (!entry.isFolder)
            continue;
        const std::string upper = upperCase(entry.name);
        if (upper == "PLUG-INS" || upper == "GAME-PATHS")
            continue;
        profiles.push_back(std::move(entry.name));
    }
    return profiles;
}

std::string readProfileOwner(const std::filesystem::path& root, const std::string& profile) {
    const auto folder = joinName(root, profile);
    // The exact name first (one open); only when it is missing, look for it in another case.
    auto reader = LineReader::openExisting(folder / "profile.cfg");
    if (!reader) {
        const auto resolved = resolvePath(folder, "profile.cfg");
        if (resolved.filename() != "profile.cfg")
            reader = LineReader::openExisting(resolved);
    }
    if (!reader)
        return {};
    return reader->readLine("");
}

std::string ReadProfileOwner(const std::filesystem::path& root, const std::string& profile,
                             const OwnerErrorHandler& onError) {
    try {
        return readProfileOwner(root, profile);
    } catch (const std::exception& e) {
        if (onError)
            onError(e.what());
        return {};
    }
}

bool profileShown(bool onlyShowSelectedBot, const std::optional<std::string>& selectedBot,
                  const std::function<std::string()>& owner) {
    if (!onlyShowSelectedBot)
        return true;
    if (!selectedBot)
        return false;
    return equalsNoCase(owner(), *selectedBot);
}

std::vector<std::string> GetProfileList(const std::filesystem::path& root, bool onlyShowSelectedBot,
                                        const std::optional<std::string>& selectedBot,
                                        const OwnerErrorHandler& onError) {
    std::vector<std::string> shown;
    for (auto& name : listProfiles(root)) {
        if (profileShown(onlyShowSelectedBot, selectedBot,
                         [&] { return ReadProfileOwner(root, name, onError); }))
            shown.push_back(std::move(name));
    }
    return shown;
}

} // namespace rd
