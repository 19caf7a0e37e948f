#include "core/nativefolder.h"

#include "core/text.h"

#include <system_error>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <dirent.h>
#endif

namespace rd::native {

namespace fs = std::filesystem;

#ifdef _WIN32

std::vector<DirEntry> readFolder(const fs::path& folder) {
    std::vector<DirEntry> entries;
    WIN32_FIND_DATAW found{};
    HANDLE search = ::FindFirstFileExW((folder / L"*").c_str(), FindExInfoBasic, &found,
                                       FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return entries;
    do {
        const std::wstring_view raw(found.cFileName);
        if (raw == L"." || raw == L"..")
            continue;
        DirEntry entry;
        entry.name = nameOf(fs::path(raw));
        entry.isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        entries.push_back(std::move(entry));
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
    return entries;
}

std::optional<std::string> directSpelling(const fs::path& folder, std::string_view name) {
    // Wildcard characters cannot be part of a Windows name; the search would treat them as
    // wildcards, so such a name is never found directly.
    if (name.find_first_of("*?") != std::string_view::npos)
        return std::nullopt;
    WIN32_FIND_DATAW found{};
    HANDLE search = ::FindFirstFileExW(joinName(folder, name).c_str(), FindExInfoBasic, &found,
                                       FindExSearchNameMatch, nullptr, 0);
    if (search == INVALID_HANDLE_VALUE)
        return std::nullopt;
    ::FindClose(search);
    return nameOf(fs::path(std::wstring_view(found.cFileName)));
}

#else

std::vector<DirEntry> readFolder(const fs::path& folder) {
    std::vector<DirEntry> entries;
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
    return entries;
}

std::optional<std::string> directSpelling(const fs::path& folder, std::string_view name) {
    std::error_code ec;
    if (fs::exists(fs::symlink_status(joinName(folder, name), ec)))
        return std::string(name);
    return std::nullopt;
}

#endif

} // namespace rd::native
