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
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace rd::native {

namespace fs = std::filesystem;

#ifdef _WIN32

FolderListing listFolder(const fs::path& folder) {
    FolderListing listing;
    WIN32_FIND_DATAW found{};
    HANDLE search = ::FindFirstFileExW((folder / L"*").c_str(), FindExInfoBasic, &found,
                                       FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (search == INVALID_HANDLE_VALUE)
        return listing;
    listing.read = true;
    do {
        const std::wstring_view raw(found.cFileName);
        if (raw == L"." || raw == L"..")
            continue;
        DirEntry entry;
        entry.name = nameOf(fs::path(raw));
        entry.isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        EntryKind kind = entry.isFolder ? EntryKind::Folder : EntryKind::Plain;
        if (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) {
            // A link: what it leads to decides.
            std::error_code ec;
            const auto status = fs::status(folder / fs::path(raw), ec);
            kind = ec || !fs::exists(status)     ? EntryKind::Nothing
                   : fs::is_directory(status)    ? EntryKind::Folder
                   : fs::is_regular_file(status) ? EntryKind::Plain
                                                 : EntryKind::Other;
        }
        listing.entries.push_back(std::move(entry));
        listing.kinds.push_back(kind);
    } while (::FindNextFileW(search, &found));
    ::FindClose(search);
    return listing;
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

int openFolderDescriptor(const std::string&) {
    return -1;
}

void closeFolderDescriptor(int) {}

#else

FolderListing listFolder(const fs::path& folder) {
    FolderListing listing;
    // readdir gives names and (on most file systems) their kind without building a path per
    // entry; links and entries of unknown kind are looked up once, relative to the open folder.
    DIR* dir = ::opendir(folder.c_str());
    if (!dir)
        return listing;
    listing.read = true;
    while (const dirent* d = ::readdir(dir)) {
        const std::string_view raw(d->d_name);
        if (raw == "." || raw == "..")
            continue;
        EntryKind kind = EntryKind::Other;
        switch (d->d_type) {
        case DT_DIR:
            kind = EntryKind::Folder;
            break;
        case DT_REG:
            kind = EntryKind::Plain;
            break;
        case DT_UNKNOWN:
        case DT_LNK: {
            struct stat st {};
            if (::fstatat(::dirfd(dir), d->d_name, &st, 0) != 0)
                kind = EntryKind::Nothing;
            else if (S_ISDIR(st.st_mode))
                kind = EntryKind::Folder;
            else if (S_ISREG(st.st_mode))
                kind = EntryKind::Plain;
            break;
        }
        default:
            break;
        }
        DirEntry entry;
        entry.name = utf8ToCp1252(raw);
        entry.isFolder = kind == EntryKind::Folder;
        listing.entries.push_back(std::move(entry));
        listing.kinds.push_back(kind);
    }
    ::closedir(dir);
    return listing;
}

int openFolderDescriptor(const std::string& folder) {
    return ::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC);
}

void closeFolderDescriptor(int descriptor) {
    if (descriptor >= 0)
        ::close(descriptor);
}

std::optional<std::string> directSpelling(const fs::path& folder, std::string_view name) {
    std::error_code ec;
    if (fs::exists(fs::symlink_status(joinName(folder, name), ec)))
        return std::string(name);
    return std::nullopt;
}

#endif

std::vector<DirEntry> readFolder(const fs::path& folder) {
    return listFolder(folder).entries;
}

} // namespace rd::native
