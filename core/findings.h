#pragma once
// What the workspace doctor reports: a finding about one file (or folder) of the workspace that
// the launcher would misread, or that is plainly broken. Each subsystem checks its own files and
// adds its findings; the doctor (doctor/) walks the workspace and orders them.

#include "core/textfile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rd {

enum class Severity { Error, Warning };

struct Finding {
    Severity severity = Severity::Error;
    std::filesystem::path file;      // the file (or folder) the finding is about; it may be missing
    std::optional<std::size_t> line; // 1-based; nothing when it is about the whole file
    std::string message;             // code-page text
    bool operator==(const Finding&) const = default;
};

using Findings = std::vector<Finding>;

// A name quoted for a message: "name".
std::string inQuotes(std::string_view name);

// Findings on how a file's lines end: lines ended by LF alone (the launcher reads on past them),
// a CR without LF inside a line (the launcher ends the line there), a last line without CR LF.
void lineEndingFindings(const std::filesystem::path& file, const LineEndings& endings, Findings& out);

} // namespace rd
