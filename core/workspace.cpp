#include "core/workspace.h"

#include "core/nativefile.h"
#include "core/nativefolder.h"
#include "core/nativeprocess.h"
#include "core/text.h"
#include "core/winepaths.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <system_error>
#include <unordered_map>

namespace rd {

fs::path workspaceRoot(const fs::path& programFolder) {
    const char* env = std::getenv("ROSTERDESK_ROOT");
    if (env && *env)
        return fs::path(env);
    return programFolder;
}

fs::path programFolder(const char* argv0) {
    return native::runningProgram(argv0).parent_path();
}

fs::path pathFromUtf8(std::string_view utf8) {
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::string utf8Of(const fs::path& path) {
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

fs::path joinName(const fs::path& base, std::string_view name) {
#ifdef _WIN32
    return base / pathFromUtf8(cp1252ToUtf8(name));
#else
    // The system's names are UTF-8 bytes: the converted name is appended as it stands, without
    // making a path of it first.
    fs::path joined = base;
    joined /= std::string_view(cp1252ToUtf8(name));
    return joined;
#endif
}

std::string nameOf(const fs::path& path) {
    return utf8ToCp1252(utf8Of(path.filename()));
}

std::string pathText(const fs::path& path) {
    return utf8ToCp1252(utf8Of(path));
}

namespace {

std::vector<std::string> splitComponents(std::string_view text) {
    std::vector<std::string> parts;
    std::string current;
    for (char c : text) {
        if (c == '\\' || c == '/') {
            if (!current.empty())
                parts.push_back(current);
            current.clear();
        } else {
            current += c;
        }
    }
    if (!current.empty())
        parts.push_back(current);
    return parts;
}

// Compares two names as upper-case bytes: below 0, 0 or above 0.
int compareNoCase(std::string_view a, std::string_view b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i) {
        const auto x = static_cast<unsigned char>(upperByte(a[i]));
        const auto y = static_cast<unsigned char>(upperByte(b[i]));
        if (x != y)
            return x < y ? -1 : 1;
    }
    return a.size() < b.size() ? -1 : (a.size() > b.size() ? 1 : 0);
}

// A listing in listing order: by name without regard to case, ties by the names' bytes. The
// upper-case keys are made once per entry, in one buffer, and the entries and their kinds are
// moved once.
void sortListing(native::FolderListing& listing) {
    auto& entries = listing.entries;
    std::string keys;
    std::size_t total = 0;
    for (const auto& entry : entries)
        total += entry.name.size();
    keys.reserve(total);
    // `head` holds a key's first eight bytes, the first in the highest place and zeros after a
    // shorter key: where two heads differ they order as the keys do (a zero after the end of a
    // key sorts it first, as a key that is a prefix of the other sorts first), so most comparisons
    // need no look at the keys themselves.
    struct Key {
        std::uint64_t head;
        std::uint32_t at;
        std::uint32_t size;
        std::uint32_t index;
    };
    std::vector<Key> order;
    order.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const auto at = static_cast<std::uint32_t>(keys.size());
        std::uint64_t head = 0;
        std::size_t n = 0;
        for (const char c : entries[i].name) {
            const char upper = upperByte(c);
            keys += upper;
            if (n++ < 8)
                head |= std::uint64_t{static_cast<unsigned char>(upper)} << (8 * (8 - n));
        }
        order.push_back(
            {head, at, static_cast<std::uint32_t>(entries[i].name.size()), static_cast<std::uint32_t>(i)});
    }
    const std::string_view all(keys);
    std::sort(order.begin(), order.end(), [&](const Key& a, const Key& b) {
        if (a.head != b.head)
            return a.head < b.head;
        const int c = all.substr(a.at, a.size).compare(all.substr(b.at, b.size));
        if (c != 0)
            return c < 0;
        return entries[a.index].name < entries[b.index].name;
    });
    std::vector<DirEntry> sorted;
    sorted.reserve(entries.size());
    std::vector<native::EntryKind> kinds;
    kinds.reserve(entries.size());
    for (const auto& key : order) {
        sorted.push_back(std::move(entries[key.index]));
        kinds.push_back(listing.kinds[key.index]);
    }
    entries = std::move(sorted);
    listing.kinds = std::move(kinds);
}

native::EntryKind kindOf(const fs::path& path) {
    std::error_code ec;
    const auto status = fs::status(path, ec);
    if (ec || !fs::exists(status))
        return native::EntryKind::Nothing;
    if (fs::is_directory(status))
        return native::EntryKind::Folder;
    return fs::is_regular_file(status) ? native::EntryKind::Plain : native::EntryKind::Other;
}

} // namespace

// Folder paths' texts, looked up by view without making a string.
struct PathTextHash {
    using is_transparent = void;
    std::size_t operator()(std::basic_string_view<fs::path::value_type> text) const {
        return std::hash<std::basic_string_view<fs::path::value_type>>{}(text);
    }
};

struct FolderCache::State final : native::FolderAnchors {
    // A folder listed while the cache lives.
    struct Folder {
        native::FolderListing listing; // in listing order
        int anchor = -1;               // a descriptor of the folder to open its files relative to
        bool anchorTried = false;

        // The entry of that name: the one spelled so, else the first that is the same without
        // regard to case. Entries the same without regard to case stand together in listing
        // order, so they are found by halving.
        std::optional<std::size_t> find(std::string_view name) const {
            const auto& entries = listing.entries;
            const auto first =
                std::partition_point(entries.begin(), entries.end(), [name](const DirEntry& entry) {
                    return compareNoCase(entry.name, name) < 0;
                });
            std::optional<std::size_t> found;
            for (auto it = first; it != entries.end() && compareNoCase(it->name, name) == 0; ++it) {
                if (it->name == name)
                    return static_cast<std::size_t>(it - entries.begin());
                if (!found)
                    found = static_cast<std::size_t>(it - entries.begin());
            }
            return found;
        }
    };

    std::unordered_map<fs::path::string_type, Folder, PathTextHash, std::equal_to<>> folders;
    // Descriptors are kept for the folders whose files are opened, up to this many.
    static constexpr int kMostAnchors = 256;
    int anchors = 0;
    native::FolderAnchors* anchorsBefore = nullptr;

    State() : anchorsBefore(native::FolderAnchors::install(this)) {}
    ~State() override {
        native::FolderAnchors::install(anchorsBefore);
        for (auto& [path, folder] : folders)
            native::closeFolderDescriptor(folder.anchor);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;

    // A file in a folder listed while the cache lives is opened relative to the folder.
    int anchor(std::string_view folder) override {
#ifdef _WIN32
        (void)folder;
        return -1;
#else
        const auto it = folders.find(folder);
        if (it == folders.end() || !it->second.listing.read)
            return -1;
        Folder& known = it->second;
        if (!known.anchorTried && anchors < kMostAnchors) {
            known.anchorTried = true;
            known.anchor = native::openFolderDescriptor(it->first);
            if (known.anchor >= 0)
                ++anchors;
        }
        return known.anchor;
#endif
    }

    // Components resolved in folders that were not listed: folder, then component.
    std::unordered_map<fs::path::string_type, std::unordered_map<std::string, fs::path>> resolved;
    // What resolved paths lead to.
    std::unordered_map<fs::path::string_type, native::EntryKind> kinds;

    Folder& list(const fs::path& folder) {
        auto it = folders.find(folder.native());
        if (it == folders.end()) {
            Folder listed;
            listed.listing = native::listFolder(folder);
            sortListing(listed.listing);
            it = folders.emplace(folder.native(), std::move(listed)).first;
        }
        return it->second;
    }

    // The folder when it was listed and could be read.
    Folder* listed(const fs::path& folder) {
        const auto it = folders.find(folder.native());
        return it != folders.end() && it->second.listing.read ? &it->second : nullptr;
    }

    native::EntryKind kind(const fs::path& path) {
        auto it = kinds.find(path.native());
        if (it == kinds.end())
            it = kinds.emplace(path.native(), kindOf(path)).first;
        return it->second;
    }
};

namespace {

thread_local FolderCache::State* currentCache = nullptr;

fs::path resolveUncached(const fs::path& base, const std::string& component) {
    if (auto spelling = native::directSpelling(base, component))
        return joinName(base, *spelling);
    for (const auto& entry : listDirectory(base))
        if (equalsNoCase(entry.name, component))
            return joinName(base, entry.name);
    return joinName(base, component);
}

fs::path resolveComponent(const fs::path& base, const std::string& component) {
    if (component == "." || component == "..")
        return joinName(base, component);
    FolderCache::State* cache = currentCache;
    if (!cache)
        return resolveUncached(base, component);
    if (auto* folder = cache->listed(base)) {
        const auto at = folder->find(component);
        return joinName(base, at ? folder->listing.entries[*at].name : component);
    }
    auto& names = cache->resolved[base.native()];
    if (const auto it = names.find(component); it != names.end())
        return it->second;
    fs::path result = resolveUncached(base, component);
    names.emplace(component, result);
    return result;
}

// What the entry `path` leads to, from the cache: from its folder's listing when that was listed,
// else from one look-up remembered. Nothing without a cache or for a name that is not an entry's.
std::optional<native::EntryKind> cachedKind(const fs::path& path) {
    FolderCache::State* cache = currentCache;
    if (!cache)
        return std::nullopt;
    const std::string name = nameOf(path);
    if (name.empty() || name == "." || name == "..")
        return std::nullopt;
    const fs::path parent = path.parent_path();
    if (auto* folder = cache->listed(parent)) {
        const auto at = folder->find(name);
        return at ? folder->listing.kinds[*at] : native::EntryKind::Nothing;
    }
    return cache->kind(resolvePath(parent, name));
}

} // namespace

FolderCache::FolderCache() {
    if (!currentCache) {
        state_ = std::make_unique<State>();
        currentCache = state_.get();
    }
}

FolderCache::~FolderCache() {
    if (state_)
        currentCache = nullptr;
}

fs::path resolvePath(const fs::path& base, std::string_view relative) {
    fs::path result = base;
    for (const auto& component : splitComponents(relative))
        result = resolveComponent(result, component);
    return result;
}

std::vector<DirEntry> listDirectory(const fs::path& folder) {
    if (FolderCache::State* cache = currentCache)
        return cache->list(folder).listing.entries;
    native::FolderListing listing = native::listFolder(folder);
    sortListing(listing);
    return std::move(listing.entries);
}

std::vector<std::string> listFolders(const fs::path& folder) {
    std::vector<std::string> names;
    for (auto& entry : listDirectory(folder))
        if (entry.isFolder)
            names.push_back(std::move(entry.name));
    return names;
}

std::vector<std::string> listFiles(const fs::path& folder, std::string_view pattern) {
    std::vector<std::string> names;
    for (auto& entry : listDirectory(folder))
        if (!entry.isFolder && wildcardMatch(pattern, entry.name))
            names.push_back(std::move(entry.name));
    return names;
}

bool wildcardMatch(std::string_view pattern, std::string_view name, bool caseSensitive) {
    if (pattern == "*.*")
        return true;
    auto same = [caseSensitive](char a, char b) {
        return caseSensitive ? a == b : upperByte(a) == upperByte(b);
    };
    // "*" and then plain characters ("*.bsp", the commonest pattern): the name ends with them.
    if (pattern.size() > 1 && pattern.front() == '*' &&
        pattern.find_first_of("*?", 1) == std::string_view::npos) {
        const std::string_view tail = pattern.substr(1);
        if (name.size() < tail.size())
            return false;
        const std::string_view end = name.substr(name.size() - tail.size());
        for (std::size_t i = 0; i < tail.size(); ++i)
            if (!same(tail[i], end[i]))
                return false;
        return true;
    }
    // Iterative match with back-tracking to the last '*'.
    std::size_t p = 0, n = 0, starP = std::string::npos, starN = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            starP = p++;
            starN = n;
        } else if (p < pattern.size() && (pattern[p] == '?' || same(pattern[p], name[n]))) {
            ++p;
            ++n;
        } else if (starP != std::string::npos) {
            p = starP + 1;
            n = ++starN;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

bool fileExists(const fs::path& path) {
    if (const auto kind = cachedKind(path))
        return *kind == native::EntryKind::Plain || *kind == native::EntryKind::Other;
    std::error_code ec;
    const fs::path resolved = resolvePath(path.parent_path(), nameOf(path));
    const auto status = fs::status(resolved, ec);
    return !ec && fs::exists(status) && !fs::is_directory(status);
}

bool folderExists(const fs::path& path) {
    if (const auto kind = cachedKind(path))
        return *kind == native::EntryKind::Folder;
    std::error_code ec;
    const fs::path resolved = resolvePath(path.parent_path(), nameOf(path));
    return fs::is_directory(resolved, ec);
}

bool entryExists(const fs::path& path) {
    if (const auto kind = cachedKind(path))
        return *kind != native::EntryKind::Nothing;
    std::error_code ec;
    const fs::path resolved = resolvePath(path.parent_path(), nameOf(path));
    return fs::exists(resolved, ec);
}

void renameEntry(const fs::path& from, const fs::path& to, std::error_code& ec) {
    ec.clear();
    std::error_code same;
    const bool caseOnly = from.parent_path() == to.parent_path() && from.filename() != to.filename() &&
                          equalsNoCase(nameOf(from), nameOf(to)) && fs::equivalent(from, to, same);
    if (!caseOnly) {
        fs::rename(from, to, ec);
        return;
    }
    fs::path temporary;
    for (int attempt = 0;; ++attempt) {
        temporary = from;
        temporary += ".renaming" + std::to_string(attempt);
        std::error_code taken;
        if (!fs::exists(fs::symlink_status(temporary, taken)))
            break;
    }
    fs::rename(from, temporary, ec);
    if (ec)
        return;
    fs::rename(temporary, to, ec);
    if (ec) {
        std::error_code back;
        fs::rename(temporary, from, back);
    }
}

std::optional<std::string> refuseNewName(std::string_view name) {
    if (name == "." || name == "..")
        return "\"" + std::string(name) + "\" cannot be used as a name.";
    if (name.find('/') != std::string_view::npos || name.find('\\') != std::string_view::npos)
        return "A name cannot contain \\ or /.";
    return std::nullopt;
}

namespace {

bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

} // namespace

fs::path pathFromData(std::string_view text) {
    if (text.empty())
        return {};
    fs::path base;
    std::string_view rest = text;
#ifdef _WIN32
    // Windows path syntax: a drive ("c:\quake2" from the drive's root, "c:quake2" from the
    // drive's current folder) or a network share ("\\server\share\quake2").
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    if (rest.size() >= 2 && isLetter(rest[0]) && rest[1] == ':') {
        const bool rooted = rest.size() >= 3 && isSeparator(rest[2]);
        base = fs::path(std::string(rest.substr(0, 2)) + (rooted ? "\\" : ""));
        rest.remove_prefix(rooted ? 3 : 2);
        return resolvePath(base, rest);
    }
    if (rest.size() >= 2 && isSeparator(rest[0]) && isSeparator(rest[1])) {
        std::string share = "\\\\";
        rest.remove_prefix(2);
        for (int part = 0; part < 2 && !rest.empty(); ++part) {
            std::size_t end = 0;
            while (end < rest.size() && !isSeparator(rest[end]))
                ++end;
            share += std::string(rest.substr(0, end)) + "\\";
            rest.remove_prefix(end < rest.size() ? end + 1 : end);
        }
        return resolvePath(pathFromUtf8(cp1252ToUtf8(share)), rest);
    }
#else
    // A drive path names no folder of this system without a Wine prefix (core/winepaths.h).
    if (driveLetterOf(rest))
        return {};
#endif
    if (isSeparator(rest.front())) {
        base = fs::path("/");
        rest.remove_prefix(1);
    } else {
        base = fs::path(".");
    }
    fs::path resolved = resolvePath(base, rest);
    if (base == fs::path("."))
        resolved = resolved.lexically_relative(".");
    return resolved;
}

std::string withTrailingSeparator(std::string_view text) {
    std::string out(text);
    if (!out.empty() && (out.back() == '\\' || out.back() == '/'))
        return out;
    const bool hasBackslash = out.find('\\') != std::string::npos;
    const bool hasSlash = out.find('/') != std::string::npos;
    out += (hasSlash && !hasBackslash) ? '/' : '\\';
    return out;
}

} // namespace rd
