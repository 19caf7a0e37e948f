#pragma once
// Wine prefixes for tests, laid out as Wine lays one out, inside a fresh temporary folder:
//
//   <temp>/wine/dosdevices/c: -> ../drive_c
//   <temp>/wine/dosdevices/z: -> /
//   <temp>/wine/drive_c/Tarnwick      the launcher's folder (the workspace)
//
// and environment variables set for the length of a test and restored afterwards, so no test
// depends on the machine's own ~/.wine. (Links need a POSIX system: the tests that use them do
// not run on Windows, where drive paths are the system's own.)

#include "tests/support/workspace_data.h"

#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace rd::test {

class FakeWinePrefix {
public:
    // With the drives c: and z: (and drive_c/Tarnwick/Plug-Ins and Game-Paths).
    FakeWinePrefix();

    TempWorkspace temp; // holds the prefix; everything is removed with it

    std::filesystem::path prefix() const { return temp.path("wine"); }
    // A path below drive_c ('/' separates; "" is drive_c itself).
    std::filesystem::path driveC(std::string_view relative = "") const;
    // The launcher's folder, drive_c/Tarnwick.
    std::filesystem::path root() const { return driveC("Tarnwick"); }

    // Below drive_c: a folder (with its parents), a file's bytes, a file's lines (CR LF after
    // each), a file's bytes read back.
    void folder(std::string_view relative) const;
    void write(std::string_view relative, std::string_view bytes) const;
    void writeLines(std::string_view relative, const std::vector<std::string>& lines) const;
    std::string read(std::string_view relative) const;

    // dosdevices/<name> as a link to `target` (relative targets are taken from dosdevices), or
    // removed.
    void link(std::string_view name, const std::filesystem::path& target) const;
    void unlink(std::string_view name) const;
};

// The path of this system's folder as Wine's Z: drive names it: "Z:\tmp\x" for /tmp/x.
std::string zDrivePath(const std::filesystem::path& path);

// Sets (a value) or removes (nothing) environment variables; the destructor puts back what was
// there before.
class ScopedEnvironment {
public:
    explicit ScopedEnvironment(
        std::initializer_list<std::pair<std::string, std::optional<std::string>>> values);
    ~ScopedEnvironment();
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

private:
    std::vector<std::pair<std::string, std::optional<std::string>>> saved_;
};

} // namespace rd::test
