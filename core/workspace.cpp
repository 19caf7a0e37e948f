#include "core/workspace.h"

#include "core/nativefolder.h"
#include "core/nativeprocess.h"
#include "core/text.h"
#include "core/winepaths.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

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
    return base / pathFromUtf8(cp1252ToUtf8(name));
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

fs::path resolveComponent(const fs::path& base, const std::string& component) {
    if (component == "." || component == "..")
        return joinName(base, component);
    if (auto spelling = native::directSpelling(base, component))
        return joinName(base, *spelling);
    for (const auto& entry : listDirectory(base))
        if (equalsNoCase(entry.name, component))
            return joinName(base, entry.name);
    return joinName(base, component);
}

} // namespace

fs::path resolvePath(const fs::path& base, std::string_view relative) {
    fs::path result = base;
    for (const auto& component : splitComponents(relative))
        result = resolveComponent(result, component);
    return result;
}

std::vector<DirEntry> listDirectory(const fs::path& folder) {
    std::vector<DirEntry> entries = native::readFolder(folder);
    // Sorted on upper-case keys made once per entry; ties by the names' bytes.
    std::vector<std::pair<std::string, std::size_t>> keys;
    keys.reserve(entries.size());
    for (std::size_t i = 0; i < entries.size(); ++i)
        keys.emplace_back(upperCase(entries[i].name), i);
    std::sort(keys.begin(), keys.end(), [&entries](const auto& a, const auto& b) {
        const int c = std::string_view(a.first).compare(b.first);
        if (c != 0)
            return c < 0;
        return entries[a.second].name < entries[b.second].name;
    });
    std::vector<DirEntry> sorted;
    sorted.reserve(entries.size());
    for (const auto& key : keys)
        sorted.push_back(std::move(entries[key.second]));
    return sorted;
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
    std::error_code ec;
    const fs::path resolved = resolvePath(path.parent_path(), nameOf(path));
    const auto status = fs::status(resolved, ec);
    return !ec && fs::exists(status) && !fs::is_directory(status);
}

bool folderExists(const fs::path& path) {
    std::error_code ec;
    const fs::path resolved = resolvePath(path.parent_path(), nameOf(path));
    return fs::is_directory(resolved, ec);
}

bool entryExists(const fs::path& path) {
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
