#include "core/nativeprocess.h"

#include <cstdlib>
#include <system_error>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// windows.h first: shellapi.h needs its types.
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#include <stdio.h>
#endif

namespace rd::native {

namespace fs = std::filesystem;

#ifdef _WIN32

fs::path runningProgram(const char* argv0) {
    std::wstring buffer(MAX_PATH, L'\0');
    for (;;) {
        const DWORD got = ::GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (got == 0)
            break;
        if (got < buffer.size()) {
            buffer.resize(got);
            return fs::path(buffer);
        }
        buffer.resize(buffer.size() * 2);
    }
    std::error_code ec;
    return fs::absolute(fs::path(argv0 ? argv0 : "."), ec);
}

std::vector<std::string> utf8Arguments(int argc, const char* const* argv) {
    std::vector<std::string> args;
    int count = 0;
    LPWSTR* wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
    if (wide) {
        for (int i = 1; i < count; ++i) {
            const std::u8string utf8 = fs::path(wide[i]).u8string();
            args.emplace_back(utf8.begin(), utf8.end());
        }
        ::LocalFree(wide);
        return args;
    }
    for (int i = 1; i < argc; ++i)
        args.emplace_back(argv[i]);
    return args;
}

void useBinaryStandardStreams() {
    ::_setmode(::_fileno(stdout), _O_BINARY);
    ::_setmode(::_fileno(stderr), _O_BINARY);
}

#else

fs::path runningProgram(const char* argv0) {
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec || exe.empty())
        exe = fs::absolute(fs::path(argv0 ? argv0 : "."), ec);
    return exe;
}

std::vector<std::string> utf8Arguments(int argc, const char* const* argv) {
    std::vector<std::string> args;
    for (int i = 1; i < argc; ++i)
        args.emplace_back(argv[i]);
    return args;
}

void useBinaryStandardStreams() {}

#endif

std::optional<std::string> environmentValue(const char* name) {
    const char* value = std::getenv(name);
    if (!value || !*value)
        return std::nullopt;
    return std::string(value);
}

} // namespace rd::native
