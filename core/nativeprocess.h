#pragma once
// The running program as the operating system sees it: where it lies, its arguments and its
// standard streams. The one place where these meet POSIX calls or the Windows API.

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace rd::native {

// The full path of the running program: the module path on Windows, /proc/self/exe elsewhere,
// and `argv0` made absolute when neither is available.
std::filesystem::path runningProgram(const char* argv0);

// The program's arguments (without the program's own name) as UTF-8. On Windows they come from
// the wide-character command line, so every name survives whatever the system's code page.
std::vector<std::string> utf8Arguments(int argc, const char* const* argv);

// Standard output and standard error write bytes as they are (no LF to CR LF on Windows), so a
// program prints the same bytes on every system.
void useBinaryStandardStreams();

// The value of an environment variable as the C library gives it, or nothing when it is unset or
// empty.
std::optional<std::string> environmentValue(const char* name);

} // namespace rd::native
