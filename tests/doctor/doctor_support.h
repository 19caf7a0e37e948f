#pragma once
// A workspace the doctor finds nothing wrong with, to which each test adds one fault: one bot
// (Eraser) and one profile of it, one game (Quake2) whose record points at a small installation
// beside the workspace, and every kind of file the launcher reads.

#include "doctor/doctor.h"
#include "tests/support/workspace_data.h"

#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace rd::test {

class DoctorWorkspace {
public:
    DoctorWorkspace();

    TempWorkspace ws;
    TempWorkspace installation; // the game's installation, outside the workspace

    // A path inside the installation as a record holds it (the system's own form).
    std::string at(const std::string& relative, bool trailingSeparator = false) const;

    // Rewrites a file of the workspace whole with CR LF lines.
    void lines(const std::string& relative, const std::vector<std::string>& lines) const;
    // Setup.cfg of Eraser with one line changed (1-based).
    void setupLine(std::size_t line, const std::string& text) const;
    // Quake2.Gme with one line changed (1-based).
    void recordLine(std::size_t line, const std::string& text) const;

    std::vector<std::string> setupLines() const;
    std::vector<std::string> recordLines() const;

    std::vector<DoctorFinding> diagnose() const { return Diagnose(ws.root()); }
};

// An option definition's three lines.
std::vector<std::string> option(const std::string& name, const std::string& type, const std::string& key,
                                const std::string& parameter, const std::string& checked,
                                const std::string& unchecked, const std::string& where,
                                const std::string& help);
// A flag definition's three lines.
std::vector<std::string> flag(const std::string& name, const std::string& checked,
                              const std::string& unchecked);

std::vector<std::string> concat(std::initializer_list<std::vector<std::string>> parts);

// A workspace-relative name written with '/' as the doctor names it on this system.
std::string fileName(const std::string& slashed);

// Exactly one finding, with this severity, file and line, whose message holds every fragment.
testing::AssertionResult onlyFinding(const std::vector<DoctorFinding>& found, Severity severity,
                                     const std::string& slashedFile, std::optional<std::size_t> line,
                                     const std::vector<std::string>& fragments);

std::string describe(const std::vector<DoctorFinding>& found);

} // namespace rd::test
