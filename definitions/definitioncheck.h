#pragma once
// The doctor's checks of the definition files the launcher offers its options and deathmatch
// flags from, and of the value and text lists the options draw on.

#include "core/findings.h"
#include "definitions/dmflags.h"
#include "definitions/options.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace rd {

// An option definition file as the doctor reads it.
struct OptionFile {
    std::filesystem::path path;
    std::vector<OptionRow> rows;
    std::vector<RowPlace> places;
};

// The folder of a game's value and text lists, listed once for every option that names a list.
class ListFolder {
public:
    explicit ListFolder(std::filesystem::path folder);
    const std::filesystem::path& path() const { return folder_; }
    // Whether the list file `name` (an option's parameter) is a file of the folder, found without
    // regard to case; a name with separators is looked up on disk.
    bool holds(std::string_view name) const;

private:
    std::filesystem::path folder_;
    std::unordered_set<std::string> files_; // upper-cased names
};

// Loads an option definition file: nothing when it does not exist, or when it cannot be read
// (reported).
std::optional<OptionFile> loadOptionFile(const std::filesystem::path& path, Findings& out);

// The names of the category rows of option files.
std::vector<std::string> categoryNames(const std::vector<OptionFile>& files);

// Checks every option of `file`: a key that no other option of the file has (compared without
// regard to case), a third line with its five TABs, a type 0 to 11, a range the option editor
// accepts (NUMBER), a list file that exists in `lists` (WEAPON, TEXT LIST, VALUE LIST;
// `listFolderName` names that folder in messages; not checked without a folder), categories that
// exist among `categories` (ENABLE) and a Where of 0, 1 or 2.
void checkOptionFile(const OptionFile& file, const ListFolder* lists, const std::string& listFolderName,
                     const std::vector<std::string>& categories, Findings& out);

// Checks every flag of a flag definition file (when it exists): its checked and unchecked values
// are whole numbers and exactly one of them is zero.
void checkFlagFile(const std::filesystem::path& path, Findings& out);

// Reads a list file (it must exist) and checks that a value list has a value line for every item.
void checkListFile(const std::filesystem::path& path, Findings& out);

} // namespace rd
