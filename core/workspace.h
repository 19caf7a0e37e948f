#pragma once
// The workspace: the folder below which every file the launcher shares with us lies, and the
// helpers every subsystem uses to find, list and name what is in it.
//
// Names are byte strings in the launcher's code page (Windows-1252); the helpers convert them
// to and from the file system's spelling. Fixed names are resolved without regard to case, so a
// workspace copied from a Windows machine works on a case-sensitive file system.

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

namespace fs = std::filesystem;

// The workspace root: the folder named by ROSTERDESK_ROOT when that is set and not empty,
// otherwise `programFolder` (the folder that holds the program).
fs::path workspaceRoot(const fs::path& programFolder);

// (The desktop program, which may be installed far from any workspace, finds its workspace as
// core/launcherfolder.h says.)

// The folder that holds the running program (from the system's record of the program's path,
// else from argv[0]).
fs::path programFolder(const char* argv0);

// A path from UTF-8 text, and a path's UTF-8 text: the same on every system, whatever the
// system's own code page.
fs::path pathFromUtf8(std::string_view utf8);
std::string utf8Of(const fs::path& path);

// base joined with a code-page name (no separators are interpreted).
fs::path joinName(const fs::path& base, std::string_view name);
// The last component of a path as a code-page name.
std::string nameOf(const fs::path& path);
// A whole path as code-page text, as messages show it.
std::string pathText(const fs::path& path);

// Joins `relative` (components separated by '\' or '/') to `base`, resolving each component
// to the entry that is present whatever its case (the first in listing order when several
// differ only in case). Components that are not present keep the given spelling, so the result
// also names a file to be created.
fs::path resolvePath(const fs::path& base, std::string_view relative);

struct DirEntry {
    std::string name; // code-page name as listed
    bool isFolder = false;
};

// Every entry of `folder` except "." and "..", ordered by name without regard to case (ties by
// byte order). A folder that is missing or cannot be read lists as empty.
std::vector<DirEntry> listDirectory(const fs::path& folder);
// Names of the sub-folders of `folder`, in listing order.
std::vector<std::string> listFolders(const fs::path& folder);
// Names of the files (not folders) of `folder` that match `pattern` without regard to case.
std::vector<std::string> listFiles(const fs::path& folder, std::string_view pattern = "*.*");

// Wildcard match: '*' matches any run of characters (NUL bytes included), '?' one character.
// "*.*" matches every name. Without regard to case unless `caseSensitive`.
bool wildcardMatch(std::string_view pattern, std::string_view name, bool caseSensitive = false);

// While a FolderCache is alive on a thread, the path helpers of that thread remember what they
// learn: a folder listed once (listDirectory, listFolders, listFiles) answers every later question
// about its entries (is it there, how is it spelled, is it a file or a folder) without asking the
// system again, and a name resolved or looked up once is not resolved again. Open one around an
// operation that only reads (the doctor, the installed-maps catalogue): what changes on disk while
// it lives is not seen. Scopes nest; an inner one shares what the outer one knows.
class FolderCache {
public:
    FolderCache();
    ~FolderCache();
    FolderCache(const FolderCache&) = delete;
    FolderCache& operator=(const FolderCache&) = delete;

    struct State;

private:
    std::unique_ptr<State> state_; // empty in an inner scope
};

// "A file exists": a directory search for the path with normal attributes finds a file.
bool fileExists(const fs::path& path);
// "A folder exists": the path names a folder.
bool folderExists(const fs::path& path);
// A directory search with folder entries included finds something (a file or a folder).
bool entryExists(const fs::path& path);

// Renames a file or folder. A change of letter case alone goes through a temporary name: file
// systems that ignore case may otherwise keep the old spelling.
void renameEntry(const fs::path& from, const fs::path& to, std::error_code& ec);

// A name the user typed for a new folder or file is refused when it holds a path separator or
// is "." or "..": the message to show, or nothing when the name may be used.
std::optional<std::string> refuseNewName(std::string_view name);

// A path read from a data file (a game's folder): '\' and '/' both separate components, and
// each component is resolved without regard to case where present. Outside Windows a drive path
// (C:\Quake2) resolves only through a Wine prefix: here it gives an empty path; the overload with
// the workspace's prefix is in core/winepaths.h.
fs::path pathFromData(std::string_view text);
// Appends a separator to a path text from a data file: '\' when the text already holds a '\'
// or no separator at all, '/' when it holds only '/'. Does nothing when it already ends in one.
std::string withTrailingSeparator(std::string_view text);

} // namespace rd
