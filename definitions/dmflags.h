#pragma once
// Deathmatch flag definition files ("DMflags.cfg", "DMcustom.cfg"): the rules the launcher
// offers by name, each adding one number to the dmflags value when ticked and another when not.

#include "definitions/options.h"

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

struct FlagRow {
    bool isCategory = false;
    std::string name;
    std::string checked;
    std::string unchecked;
    std::string bitmap;
    std::string help;

    static FlagRow category(std::string name) {
        FlagRow row;
        row.isCategory = true;
        row.name = std::move(name);
        return row;
    }
    bool operator==(const FlagRow&) const = default;
};

inline constexpr const char* kFlagsFile = "DMflags.cfg";
inline constexpr const char* kUserFlagsFile = "DMcustom.cfg";
inline constexpr const char* kDefaultBitmap = "<DMFlags>";

// The rows of a flag definition file; a missing file is an empty set.
std::vector<FlagRow> LoadDMflags(const std::filesystem::path& path);
// LoadDMflags that also tells where each row lies (`places` gets one entry per row).
std::vector<FlagRow> readFlagFile(const std::filesystem::path& path, std::vector<RowPlace>* places);
// Rewrites the file whole: "[name]" per category; per flag its name, an empty line, and
// Bitmap, Checked, Unchecked, Help joined by TABs.
void SaveDMflags(const std::filesystem::path& path, const std::vector<FlagRow>& rows);

// The values both number drop-downs offer: "0", "1", then 2, 4, ... 33554432 (27 entries).
std::array<std::string, 27> dmflagValues();

inline constexpr const char* kFlagsBothZero = "The checked value or the unchecked value can't both be zero";
inline constexpr const char* kFlagsBothSet = "Either the checked value or the unchecked value must be zero.";
inline constexpr const char* kFlagsOutOfRange =
    "The checked and unchecked values must each lie between -2147483648 and 2147483647.";

// The flag editor's OK rules. A text that is not numeric becomes "0"; then exactly one of the
// two values must be zero. `refusal` holds the warning when the editor must stay open.
struct FlagValuesCheck {
    std::optional<std::string> refusal;
    std::string checked;   // as stored when accepted
    std::string unchecked; // as stored when accepted
};
FlagValuesCheck checkFlagValues(std::string_view checked, std::string_view unchecked);

} // namespace rd
