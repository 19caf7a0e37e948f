#include "core/nativefile.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <system_error>
#include <utility>

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace rd::native {

namespace fs = std::filesystem;

InputFile::~InputFile() {
    close();
}

InputFile::InputFile(InputFile&& other) noexcept
    : failure_(other.failure_), systemText_(std::move(other.systemText_)), size_(other.size_) {
#ifdef _WIN32
    handle_ = std::exchange(other.handle_, nullptr);
#else
    fd_ = std::exchange(other.fd_, -1);
#endif
}

InputFile& InputFile::operator=(InputFile&& other) noexcept {
    if (this != &other) {
        close();
#ifdef _WIN32
        handle_ = std::exchange(other.handle_, nullptr);
#else
        fd_ = std::exchange(other.fd_, -1);
#endif
        failure_ = other.failure_;
        systemText_ = std::move(other.systemText_);
        size_ = other.size_;
    }
    return *this;
}

#ifdef _WIN32

InputFile InputFile::open(const fs::path& path) {
    InputFile file;
    HANDLE handle =
        ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD error = ::GetLastError();
        const DWORD attributes = ::GetFileAttributesW(path.c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
            file.failure_ = OpenFailure::Folder;
        else if (error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ||
                 error == ERROR_INVALID_NAME || error == ERROR_BAD_NETPATH || error == ERROR_DIRECTORY)
            file.failure_ = OpenFailure::Missing;
        else if (error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION ||
                 error == ERROR_LOCK_VIOLATION)
            file.failure_ = OpenFailure::Denied;
        else {
            file.failure_ = OpenFailure::Other;
            file.systemText_ = std::system_category().message(static_cast<int>(error));
        }
        return file;
    }
    // Devices (CON, NUL, COM1...) and pipes open like files but are not plain files.
    if (::GetFileType(handle) != FILE_TYPE_DISK) {
        ::CloseHandle(handle);
        file.failure_ = OpenFailure::NotPlain;
        return file;
    }
    LARGE_INTEGER size{};
    if (!::GetFileSizeEx(handle, &size)) {
        const DWORD error = ::GetLastError();
        ::CloseHandle(handle);
        file.failure_ = OpenFailure::Other;
        file.systemText_ = std::system_category().message(static_cast<int>(error));
        return file;
    }
    file.handle_ = handle;
    file.size_ = static_cast<std::uint64_t>(size.QuadPart);
    return file;
}

bool InputFile::isOpen() const {
    return handle_ != nullptr;
}

std::ptrdiff_t InputFile::read(char* into, std::size_t count) {
    if (!handle_)
        return -1;
    const DWORD want = static_cast<DWORD>(std::min<std::size_t>(count, std::numeric_limits<DWORD>::max()));
    DWORD got = 0;
    if (!::ReadFile(static_cast<HANDLE>(handle_), into, want, &got, nullptr))
        return -1;
    return static_cast<std::ptrdiff_t>(got);
}

std::ptrdiff_t InputFile::readAt(std::uint64_t offset, char* into, std::size_t count) {
    if (!handle_)
        return -1;
    OVERLAPPED at{};
    at.Offset = static_cast<DWORD>(offset & 0xFFFFFFFFu);
    at.OffsetHigh = static_cast<DWORD>(offset >> 32);
    const DWORD want = static_cast<DWORD>(std::min<std::size_t>(count, std::numeric_limits<DWORD>::max()));
    DWORD got = 0;
    if (!::ReadFile(static_cast<HANDLE>(handle_), into, want, &got, &at))
        return ::GetLastError() == ERROR_HANDLE_EOF ? 0 : -1;
    return static_cast<std::ptrdiff_t>(got);
}

void InputFile::close() {
    if (handle_)
        ::CloseHandle(static_cast<HANDLE>(handle_));
    handle_ = nullptr;
}

std::FILE* openStdio(const fs::path& path, const char* mode) {
    std::wstring wideMode;
    for (const char* c = mode; *c; ++c)
        wideMode += static_cast<wchar_t>(*c);
    return ::_wfopen(path.c_str(), wideMode.c_str());
}

#else

InputFile InputFile::open(const fs::path& path) {
    InputFile file;
    // O_NONBLOCK: opening a pipe must not wait for a writer; it is refused below.
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        const int error = errno;
        if (error == ENOENT || error == ENOTDIR)
            file.failure_ = OpenFailure::Missing;
        else if (error == EISDIR)
            file.failure_ = OpenFailure::Folder;
        else if (error == EACCES || error == EPERM)
            file.failure_ = OpenFailure::Denied;
        else {
            file.failure_ = OpenFailure::Other;
            file.systemText_ = std::generic_category().message(error);
        }
        return file;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        file.failure_ = S_ISDIR(st.st_mode) ? OpenFailure::Folder : OpenFailure::NotPlain;
        ::close(fd);
        return file;
    }
    file.fd_ = fd;
    file.size_ = static_cast<std::uint64_t>(st.st_size);
    return file;
}

bool InputFile::isOpen() const {
    return fd_ >= 0;
}

std::ptrdiff_t InputFile::read(char* into, std::size_t count) {
    if (fd_ < 0)
        return -1;
    ssize_t got = 0;
    do {
        got = ::read(fd_, into, count);
    } while (got < 0 && errno == EINTR);
    return static_cast<std::ptrdiff_t>(got);
}

std::ptrdiff_t InputFile::readAt(std::uint64_t offset, char* into, std::size_t count) {
    if (fd_ < 0 || offset > static_cast<std::uint64_t>(std::numeric_limits<off_t>::max()))
        return -1;
    count = std::min<std::size_t>(count, static_cast<std::size_t>(std::numeric_limits<ssize_t>::max()));
    ssize_t got = 0;
    do {
        got = ::pread(fd_, into, count, static_cast<off_t>(offset));
    } while (got < 0 && errno == EINTR);
    return static_cast<std::ptrdiff_t>(got);
}

void InputFile::close() {
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
}

std::FILE* openStdio(const fs::path& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

#endif

} // namespace rd::native
