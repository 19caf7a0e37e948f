#include "core/workspace.h"

#include "core/text.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

#ifndef _WIN32
#include <dirent.h>
#endif

namespace rd {

fs::path workspaceRoot(const fs::path& programFolder) {
    const char* env = std::getenv("ROSTERDESK_ROOT");
    if (env && *env)
        return fs::path(env);
    return programFolder;
}

fs::path programFolder(const char* argv0) {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec || exe.empty())
        exe = fs::absolute(fs::path(argv0 ? argv0 : "."), ec);
    return exe.parent_path();
}

fs::path joinName(const fs::path& base, std::string_view name) {
    return base / fs::path(cp1252ToUtf8(name));
}

std::string nameOf(const fs::path& path) {
    return utf8ToCp1252(path.filename().string());
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
    fs::path exact = joinName(base, component);
    std::error_code ec;
    if (component == "." || component == ".." || fs::exists(fs::symlink_status(exact, ec)))
        return exact;
    for (const auto& entry : listDirectory(base))
        if (equalsNoCase(entry.name, component))
            return joinName(base, entry.name);
    return exact;
}

} // namespace

fs::path resolvePath(const fs::path& base, std::string_view relative) {
    fs::path result = base;
    for (const auto& component : splitComponents(relative))
        result = resolveComponent(result, component);
    return result;
}

std::vector<DirEntry> listDirectory(const fs::path& folder) {
    std::vector<DirEntry> entries;
#ifndef _WIN32
    // readdir gives names and (on most file systems) their kind without building a path per
    // entry; entries of unknown kind are looked up once.
    DIR* dir = ::opendir(folder.c_str());
    if (!dir)
        return entries;
    while (const dirent* d = ::readdir(dir)) {
        const std::string_view raw(d->d_name);
        if (raw == "." || raw == "..")
            continue;
        DirEntry entry;
        entry.name = utf8ToCp1252(raw);
        if (d->d_type == DT_DIR) {
            entry.isFolder = true;
        } else if (d->d_type == DT_UNKNOWN || d->d_type == DT_LNK) {
            std::error_code typeEc;
            entry.isFolder = fs::is_directory(folder / fs::path(std::string(raw)), typeEc);
        }
        entries.push_back(std::move(entry));
    }
    ::closedir(dir);
#else
    std::error_code ec;
    fs::directory_iterator it(folder, ec);
    if (ec)
        return entries;
    for (const fs::directory_iterator end; it != end; it.increment(ec)) {
        if (ec)
            break;
        DirEntry entry;
        entry.name = nameOf(it->path());
        std::error_code typeEc;
        entry.isFolder = it->is_directory(typeEc);
        entries.push_back(std::move(entry));
    }
#endif
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

std::optional<std::string> refuseNewName(std::string_view name) {
    if (name == "." || name == "..")
        return "\"" + std::string(name) + "\" cannot be used as a name.";
    if (name.find('/') != std::string_view::npos || name.find('\\') != std::string_view::npos)
        return "A name cannot contain \\ or /.";
    return std::nullopt;
}

fs::path pathFromData(std::string_view text) {
    if (text.empty())
        return {};
    fs::path base;
    std::string_view rest = text;
    if (rest.front() == '/' || rest.front() == '\\') {
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
