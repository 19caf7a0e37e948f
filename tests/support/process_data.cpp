#include "tests/support/process_data.h"

#include "tests/support/workspace_data.h"

#include <array>
#include <atomic>
#include <cstdio>
#include <filesystem>
#include <random>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <sys/wait.h>
#endif

namespace rd::test {

namespace {

// A file of its own for each run's standard error.
std::filesystem::path errorFile() {
    static std::atomic<int> counter{0};
    static const unsigned long long process = std::random_device{}();
    return testTempFolder() /
           ("rosterdesk-stderr-" + std::to_string(process % 1000000) + "-" + std::to_string(counter++));
}

void collectErrors(ProgramRun& run, const std::filesystem::path& errFile) {
    std::error_code ec;
    if (std::filesystem::exists(errFile, ec)) {
        run.err = readBytes(errFile);
        std::filesystem::remove(errFile, ec);
    }
}

} // namespace

std::string shellQuote(const std::string& text) {
    std::string quoted = "'";
    for (char c : text)
        quoted += (c == '\'') ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

#ifdef _WIN32

namespace {

std::wstring wide(const std::string& utf8) {
    return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

// One argument as the C runtime's command-line parser reads it back.
std::wstring quoteArgument(const std::wstring& arg) {
    if (!arg.empty() && arg.find_first_of(L" \t\"") == std::wstring::npos)
        return arg;
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (wchar_t c : arg) {
        if (c == L'\\') {
            ++backslashes;
            continue;
        }
        quoted.append(c == L'"' ? backslashes * 2 + 1 : backslashes, L'\\');
        backslashes = 0;
        quoted += c;
    }
    quoted.append(backslashes * 2, L'\\');
    return quoted + L"\"";
}

// The current environment with `env` set on top of it, as CreateProcessW takes it.
std::wstring environmentBlock(const std::vector<std::pair<std::string, std::string>>& env) {
    std::vector<std::wstring> entries;
    if (LPWCH current = ::GetEnvironmentStringsW()) {
        for (const wchar_t* p = current; *p; p += std::wcslen(p) + 1)
            entries.emplace_back(p);
        ::FreeEnvironmentStringsW(current);
    }
    for (const auto& [name, value] : env) {
        const std::wstring prefix = wide(name) + L"=";
        std::erase_if(entries, [&](const std::wstring& e) {
            return _wcsnicmp(e.c_str(), prefix.c_str(), prefix.size()) == 0;
        });
        entries.push_back(prefix + wide(value));
    }
    std::wstring block;
    for (const auto& e : entries)
        block += e + L'\0';
    return block + L'\0';
}

} // namespace

ProgramRun runProgram(const std::string& program, const std::vector<std::string>& args,
                      const std::vector<std::pair<std::string, std::string>>& env) {
    ProgramRun run;
    std::wstring commandLine = quoteArgument(wide(program));
    for (const auto& arg : args)
        commandLine += L" " + quoteArgument(wide(arg));

    SECURITY_ATTRIBUTES inherit{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    HANDLE outRead = nullptr, outWrite = nullptr;
    if (!::CreatePipe(&outRead, &outWrite, &inherit, 0))
        return run;
    ::SetHandleInformation(outRead, HANDLE_FLAG_INHERIT, 0);
    const std::filesystem::path errFile = errorFile();
    HANDLE errHandle = ::CreateFileW(errFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit, CREATE_ALWAYS,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
    HANDLE nul = ::CreateFileW(L"NUL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherit,
                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);

    STARTUPINFOW startup{};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = nul;
    startup.hStdOutput = outWrite;
    startup.hStdError = errHandle;
    PROCESS_INFORMATION process{};
    std::wstring environment = environmentBlock(env);
    const BOOL started = ::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE,
                                          CREATE_UNICODE_ENVIRONMENT | CREATE_NO_WINDOW, environment.data(),
                                          nullptr, &startup, &process);
    ::CloseHandle(outWrite);
    if (errHandle != INVALID_HANDLE_VALUE)
        ::CloseHandle(errHandle);
    if (nul != INVALID_HANDLE_VALUE)
        ::CloseHandle(nul);
    if (started) {
        std::array<char, 4096> buffer{};
        DWORD got = 0;
        while (::ReadFile(outRead, buffer.data(), static_cast<DWORD>(buffer.size()), &got, nullptr) &&
               got > 0)
            run.out.append(buffer.data(), got);
        ::WaitForSingleObject(process.hProcess, INFINITE);
        DWORD code = 0;
        if (::GetExitCodeProcess(process.hProcess, &code))
            run.status = static_cast<int>(code);
        ::CloseHandle(process.hProcess);
        ::CloseHandle(process.hThread);
    }
    ::CloseHandle(outRead);
    collectErrors(run, errFile);
    return run;
}

#else

ProgramRun runProgram(const std::string& program, const std::vector<std::string>& args,
                      const std::vector<std::pair<std::string, std::string>>& env) {
    const std::filesystem::path errFile = errorFile();
    std::string command;
    for (const auto& [name, value] : env)
        command += name + "=" + shellQuote(value) + " ";
    command += shellQuote(program);
    for (const auto& arg : args)
        command += " " + shellQuote(arg);
    command += " 2>" + shellQuote(errFile.string()) + " </dev/null";

    ProgramRun run;
    FILE* pipe = ::popen(command.c_str(), "r");
    if (!pipe)
        return run;
    std::array<char, 4096> buffer{};
    std::size_t got = 0;
    while ((got = std::fread(buffer.data(), 1, buffer.size(), pipe)) > 0)
        run.out.append(buffer.data(), got);
    const int raw = ::pclose(pipe);
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    collectErrors(run, errFile);
    return run;
}

#endif

} // namespace rd::test
