#pragma once
// Value lists (*.val: text to display and actual value, two lines per item) and text lists
// (*.lst: one line per item, the value is the text) that list options draw on.

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

struct ListItem {
    std::string text;
    std::string value;
    bool operator==(const ListItem&) const = default;
};

// A file is a value list when its name contains ".val" (without regard to case).
bool isValueListName(std::string_view fileName);

// The folder of a game's lists: Game-Paths\<game>\ (Game-Paths itself for an empty name).
std::filesystem::path listFolder(const std::filesystem::path& root, std::string_view gameName);

// Reads a list file (it must exist). In a value list an odd last line becomes an item whose
// value equals its text; in a text list every value is its text.
std::vector<ListItem> LoadList(const std::filesystem::path& path, bool valueList);

// Rewrites the list file whole. A list with no items writes nothing (the file keeps its old
// content); returns whether the file was written.
bool SaveList(const std::filesystem::path& path, const std::vector<ListItem>& items, bool valueList);

inline constexpr const char* kListExists = "A list already exists with this name";

// The file name a new list gets from the name typed: the extension is appended as typed.
std::string newListFileName(std::string_view typed, bool valueList);

// The outcome of asking for a new list named `typed` in `folder`.
struct NewListOutcome {
    std::optional<std::string> refusal; // message to show; nothing is created
    std::string fileName;               // the new list's file name when not refused and not empty
};
// An empty name does nothing (no refusal, no file name); a name that cannot name a file, or
// whose file already exists, is refused.
NewListOutcome newList(const std::filesystem::path& folder, std::string_view typed, bool valueList);

} // namespace rd
