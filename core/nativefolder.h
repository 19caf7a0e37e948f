#pragma once
// Folder listings and name look-ups through the operating system: the one place where reading a
// folder meets POSIX calls or the Windows API. Names are code-page bytes.

#include "core/workspace.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd::native {

// What an entry of a folder leads to, following links.
enum class EntryKind : unsigned char {
    Plain,  // a plain file
    Folder, // a folder
    Other,  // a pipe, a device, a socket
    Nothing // a link that points nowhere (or an entry gone since it was listed)
};

// A folder's entries as the system gives them (except "." and ".."), each with its kind.
struct FolderListing {
    bool read = false; // the folder could be opened; a missing or unreadable folder lists as empty
    std::vector<DirEntry> entries;
    std::vector<EntryKind> kinds; // one for each entry
};
FolderListing listFolder(const std::filesystem::path& folder);

// Every entry of `folder` except "." and "..", in the order the system gives them. A folder that
// is missing or cannot be read lists as empty.
std::vector<DirEntry> readFolder(const std::filesystem::path& folder);

// The spelling on disk of the entry `name` in `folder`, when the system finds it by that name:
// on POSIX only the exact spelling; on Windows, whose file systems ignore case, any spelling.
// Nothing when no entry is found this way (the caller may then search the listing).
std::optional<std::string> directSpelling(const std::filesystem::path& folder, std::string_view name);

// A descriptor of the folder `folder` names, to open the files in it relative to (POSIX: opened
// only for that, O_PATH), or -1 when it cannot be had (and always on Windows). The caller closes it
// with closeFolderDescriptor.
int openFolderDescriptor(const std::string& folder);
void closeFolderDescriptor(int descriptor);

} // namespace rd::native
