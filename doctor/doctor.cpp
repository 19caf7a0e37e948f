#include "doctor/doctor.h"

#include "core/filesave.h"
#include "core/text.h"
#include "core/textfile.h"
#include "core/winepaths.h"
#include "core/workspace.h"
#include "definitions/definitioncheck.h"
#include "definitions/lists.h"
#include "games/gamelist.h"
#include "games/recordcheck.h"
#include "maps/arenas.h"
#include "maps/categories.h"
#include "maps/mapcheck.h"
#include "models/gendercheck.h"
#include "models/genders.h"
#include "plugins/setupcheck.h"
#include "plugins/wizard.h"
#include "profiles/profilecheck.h"
#include "profiles/profiles.h"

#include <algorithm>
#include <exception>
#include <map>
#include <utility>

namespace rd {

namespace fs = std::filesystem;

const char* severityName(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

namespace {

std::vector<std::string> componentsOf(const fs::path& root, const fs::path& file) {
    std::vector<std::string> parts;
    const fs::path relative = file.lexically_relative(root);
    if (relative.empty() || *relative.begin() == "..") {
        parts.push_back(pathText(file));
        return parts;
    }
    for (const auto& part : relative)
        if (!part.empty() && part != ".")
            parts.push_back(nameOf(part));
    return parts;
}

std::string joinComponents(const std::vector<std::string>& parts) {
    std::string name;
    for (const auto& part : parts) {
        if (!name.empty())
            name += static_cast<char>(fs::path::preferred_separator);
        name += part;
    }
    return name;
}

// A bot's or a game's folder, listed once: the files the launcher reads are found in the listing
// (whatever their case, as resolvePath finds them) instead of one look-up on disk each.
class FolderIndex {
public:
    explicit FolderIndex(fs::path folder) : folder_(std::move(folder)), entries_(listDirectory(folder_)) {}

    // The file of that name: the entry spelled so, else the first whose name is the same without
    // regard to case; nothing when there is none or it is a folder.
    std::optional<fs::path> file(std::string_view name) const {
        const DirEntry* found = nullptr;
        for (const auto& entry : entries_) {
            if (entry.name == name) {
                found = &entry;
                break;
            }
            if (!found && equalsNoCase(entry.name, name))
                found = &entry;
        }
        if (!found || found->isFolder)
            return std::nullopt;
        return joinName(folder_, found->name);
    }

    // The temporary files of saves that never finished, in listing order.
    std::vector<std::pair<fs::path, SaveLeftover>> saveLeftovers() const {
        std::vector<std::pair<fs::path, SaveLeftover>> found;
        for (const auto& entry : entries_)
            if (!entry.isFolder)
                if (auto leftover = saveLeftoverOf(entry.name))
                    found.emplace_back(joinName(folder_, entry.name), std::move(*leftover));
        return found;
    }

    // The files matching a pattern, in listing order.
    std::vector<fs::path> files(std::string_view pattern) const {
        std::vector<fs::path> paths;
        for (const auto& entry : entries_)
            if (!entry.isFolder && wildcardMatch(pattern, entry.name))
                paths.push_back(joinName(folder_, entry.name));
        return paths;
    }

private:
    fs::path folder_;
    std::vector<DirEntry> entries_;
};

// The option definition files of a game's or a bot's folder and what their options refer to.
struct DefinitionFolder {
    std::string name;     // the game's or the bot's name
    std::string gameName; // the game whose lists (and whose definition files) the options share
    std::vector<OptionFile> options;
};

void readDefinitionFolder(const FolderIndex& folder, DefinitionFolder& definitions, Findings& out) {
    for (const char* name : {kOptionsFile, kUserOptionsFile})
        if (const auto file = folder.file(name))
            if (auto loaded = loadOptionFile(*file, out))
                definitions.options.push_back(std::move(*loaded));
    for (const char* name : {kFlagsFile, kUserFlagsFile})
        if (const auto file = folder.file(name))
            checkFlagFile(*file, out);
}

void readWizardList(const FolderIndex& folder, Findings& out) {
    const auto file = folder.file("ExecCommands.cfg");
    if (!file)
        return;
    try {
        readWizardFile(*file);
    } catch (const std::exception& e) {
        out.push_back(
            {Severity::Error, *file, std::nullopt, std::string("the file cannot be read: ") + e.what()});
    }
}

// What a save that was interrupted (the program killed or the machine stopped while it wrote)
// left beside the file it was saving. The file itself was kept as it was; the leftover is clutter
// the next save of that file removes.
void reportSaveLeftovers(const FolderIndex& folder, Findings& out) {
    for (const auto& [path, leftover] : folder.saveLeftovers())
        out.push_back({Severity::Warning, path, std::nullopt,
                       "a temporary file left by an interrupted save of " + inQuotes(leftover.file) +
                           " (the file was kept as it was before that save); it can be deleted"});
}

void appendNames(std::vector<std::string>& to, const std::vector<std::string>& from) {
    to.insert(to.end(), from.begin(), from.end());
}

// A game's maps, categories, arenas and female models.
void checkGameFiles(const FolderIndex& folder, const GameCheck& game,
                    std::map<std::pair<std::string, std::string>, InstalledMaps>& catalogues,
                    const WinePrefix& wine, Findings& out) {
    // The maps a game has installed are known when both its folders are (the record check
    // reports a missing one).
    const InstalledMaps* installed = nullptr;
    if (game.record && game.programFolderExists && game.mapsFolderExists) {
        const auto key = std::make_pair(game.record->txtLocationOfExe, game.record->txtMapLocation);
        auto it = catalogues.find(key);
        if (it == catalogues.end()) {
            std::vector<std::string> failures;
            StepRunner trap(collectAndIgnore(failures));
            it = catalogues.emplace(key, installedMaps(CatalogueRows(key.first, key.second, trap, wine)))
                     .first;
        }
        installed = &it->second;
    }
    for (const auto& path : folder.files("*.Map")) {
        if (installed) {
            checkCategoryFile(path, *installed, out);
        } else {
            try {
                LoadCategory(path);
            } catch (const std::exception& e) {
                out.push_back({Severity::Error, path, std::nullopt,
                               std::string("the file cannot be read: ") + e.what()});
            }
        }
    }
    for (const auto& path : folder.files("*.Ra2")) {
        if (installed) {
            checkArenaFile(path, *installed, out);
        } else {
            try {
                LoadArenas(path);
            } catch (const std::exception& e) {
                out.push_back({Severity::Error, path, std::nullopt,
                               std::string("the file cannot be read: ") + e.what()});
            }
        }
    }
    if (const auto female = folder.file("Female.cfg")) {
        if (game.modelsFolderExists) {
            checkFemaleList(*female, listModels(game.record->txtModels, wine), game.record->txtModels, out);
        } else {
            try {
                readFemaleList(*female);
            } catch (const std::exception& e) {
                out.push_back({Severity::Error, *female, std::nullopt,
                               std::string("the file cannot be read: ") + e.what()});
            }
        }
    }
}

} // namespace

std::string relativeFileName(const fs::path& root, const fs::path& file) {
    return joinComponents(componentsOf(root, file));
}

std::vector<DoctorFinding> Diagnose(const fs::path& root) {
    Findings out;
    LineEndingsAudit audit;
    // The doctor only reads: every folder it lists answers the later questions about its entries.
    const FolderCache cache;

    const std::vector<std::string> bots = listPluginBots(root);
    const std::vector<std::string> games = ListGames(root);
    const fs::path plugins = pluginsFolder(root);
    const fs::path gamePaths = gamePathsFolder(root);

    const NoCaseNames botNames(bots);
    for (const auto& profile : listProfiles(root))
        checkProfile(root, profile, botNames, out);

    std::vector<DefinitionFolder> botDefinitions, gameDefinitions;
    for (const auto& bot : bots) {
        const fs::path folder = joinName(plugins, bot);
        const FolderIndex index(folder);
        reportSaveLeftovers(index, out);
        checkPluginSetup(folder, games, out);
        readWizardList(index, out);
        DefinitionFolder definitions{bot, {}, {}};
        try {
            definitions.gameName = botGameName(root, bot);
        } catch (const std::exception&) {
            // Setup.cfg cannot be read: reported by the setup check; the lists are then the
            // ones of Game-Paths itself.
        }
        readDefinitionFolder(index, definitions, out);
        botDefinitions.push_back(std::move(definitions));
    }

    // Lists of a bot without a game are saved in Game-Paths itself.
    reportSaveLeftovers(FolderIndex(gamePaths), out);
    std::map<std::pair<std::string, std::string>, InstalledMaps> catalogues;
    const WinePrefix wine = findWinePrefix(root);
    for (const auto& game : games) {
        const fs::path folder = joinName(gamePaths, game);
        const FolderIndex index(folder);
        reportSaveLeftovers(index, out);
        const GameCheck check = checkGame(folder, game, out, wine);
        readWizardList(index, out);
        DefinitionFolder definitions{game, game, {}};
        readDefinitionFolder(index, definitions, out);
        gameDefinitions.push_back(std::move(definitions));
        std::vector<fs::path> lists = index.files("*.val");
        for (auto& list : index.files("*.lst"))
            lists.push_back(std::move(list));
        for (const auto& list : lists)
            checkListFile(list, out);
        checkGameFiles(index, check, catalogues, wine, out);
    }

    // The lists of a game's folder, listed once for all the option files that use them.
    std::map<std::string, ListFolder> listFolders;
    const auto listsOf = [&](const std::string& game) -> const ListFolder& {
        const std::string key = upperCase(game);
        auto it = listFolders.find(key);
        if (it == listFolders.end())
            it = listFolders.emplace(key, ListFolder(listFolder(root, game))).first;
        return it->second;
    };

    // An ENABLE option may name a category of any definition file the launcher shows with it:
    // a game's files and those of the bots that play it.
    for (const auto& bot : botDefinitions) {
        std::vector<std::string> categories = categoryNames(bot.options);
        for (const auto& game : gameDefinitions)
            if (!bot.gameName.empty() && equalsNoCase(game.name, bot.gameName))
                appendNames(categories, categoryNames(game.options));
        // A bot whose Setup.cfg names no game folder has no lists to check against (its setup
        // check says so).
        const bool gameExists = std::any_of(games.begin(), games.end(), [&bot](const std::string& game) {
            return equalsNoCase(game, bot.gameName);
        });
        const ListFolder* lists = gameExists ? &listsOf(bot.gameName) : nullptr;
        const std::string listsName = lists ? relativeFileName(root, lists->path()) : std::string();
        for (const auto& file : bot.options)
            checkOptionFile(file, lists, listsName, categories, out);
    }
    for (const auto& game : gameDefinitions) {
        std::vector<std::string> categories = categoryNames(game.options);
        for (const auto& bot : botDefinitions)
            if (equalsNoCase(bot.gameName, game.name))
                appendNames(categories, categoryNames(bot.options));
        const ListFolder& lists = listsOf(game.name);
        const std::string listsName = relativeFileName(root, lists.path());
        for (const auto& file : game.options)
            checkOptionFile(file, &lists, listsName, categories, out);
    }

    for (const auto& file : audit.faultyFiles())
        lineEndingFindings(file.path, file.endings, out);

    struct Sorted {
        std::vector<std::string> parts;
        DoctorFinding finding;
    };
    std::vector<Sorted> sorted;
    sorted.reserve(out.size());
    for (auto& finding : out) {
        std::vector<std::string> parts = componentsOf(root, finding.file);
        DoctorFinding reported{finding.severity, joinComponents(parts), finding.line,
                               std::move(finding.message)};
        sorted.push_back({std::move(parts), std::move(reported)});
    }
    std::stable_sort(sorted.begin(), sorted.end(), [](const Sorted& a, const Sorted& b) {
        const auto differ = std::mismatch(a.parts.begin(), a.parts.end(), b.parts.begin(), b.parts.end());
        if (differ.first != a.parts.end() || differ.second != b.parts.end()) {
            if (differ.first == a.parts.end())
                return true; // a folder before what lies in it
            if (differ.second == b.parts.end())
                return false;
            if (*differ.first != *differ.second)
                return lessNoCase(*differ.first, *differ.second);
        }
        // The same file: a finding on the whole file first, then by line.
        return a.finding.line.value_or(0) < b.finding.line.value_or(0);
    });
    std::vector<DoctorFinding> findings;
    findings.reserve(sorted.size());
    for (auto& entry : sorted)
        findings.push_back(std::move(entry.finding));
    return findings;
}

} // namespace rd
