#pragma once
// The workspace doctor: reads the whole workspace with the program's own loaders and reports
// what the launcher would misread or what is plainly broken. It changes nothing on disk.

#include "core/findings.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rd {

// A finding as the doctor reports it: the file relative to the workspace root (code-page names
// joined by the system's separator).
struct DoctorFinding {
    Severity severity = Severity::Error;
    std::string file;
    std::optional<std::size_t> line;
    std::string message;
    bool operator==(const DoctorFinding&) const = default;
};

// Every finding on the workspace at `root`, ordered by file (in listing order: folder by folder,
// names without regard to case) and then by line (a finding on the whole file first).
std::vector<DoctorFinding> Diagnose(const std::filesystem::path& root);

// `file` relative to `root` as the doctor names it.
std::string relativeFileName(const std::filesystem::path& root, const std::filesystem::path& file);

const char* severityName(Severity severity);

} // namespace rd
