#include "profiles/profilecheck.h"

#include "core/text.h"
#include "core/workspace.h"
#include "profiles/profiles.h"

#include <algorithm>
#include <exception>

namespace rd {

namespace fs = std::filesystem;

void checkProfile(const fs::path& root, const std::string& profile, const NoCaseNames& bots, Findings& out) {
    std::string owner;
    try {
        owner = readProfileOwner(root, profile);
    } catch (const std::exception& e) {
        out.push_back({Severity::Error, resolvePath(joinName(root, profile), "profile.cfg"), std::nullopt,
                       std::string("the file cannot be read: ") + e.what()});
        return;
    }
    if (owner.empty()) {
        const fs::path file = resolvePath(joinName(root, profile), "profile.cfg");
        if (!fileExists(file))
            out.push_back(
                {Severity::Warning, file, std::nullopt,
                 "the profile " + inQuotes(profile) + " has no profile.cfg, so it belongs to no bot"});
        else
            out.push_back(
                {Severity::Error, file, 1, "the first line names no bot, so the profile belongs to no bot"});
        return;
    }
    if (!bots.contains(owner))
        out.push_back({Severity::Error, resolvePath(joinName(root, profile), "profile.cfg"), 1,
                       "the profile belongs to the bot " + inQuotes(owner) +
                           ", which is not a recognised plug-in bot (no such folder in Plug-Ins)"});
}

} // namespace rd
