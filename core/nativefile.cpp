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
#include <signal.h>
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

// ---- Saving ----

namespace {

std::optional<SaveFault> activeFault;
int savesSinceFault = 0;

// Whether the fault strikes the save being begun.
bool faultStrikesNewSave() {
    return activeFault && savesSinceFault++ >= activeFault->afterSaves;
}

bool faultAt(bool faulted, SaveFault::Step step) {
    return faulted && activeFault && activeFault->step == step;
}

SaveError faultError() {
    switch (activeFault->failure) {
    case SaveFailure::NoSpace:
        return {SaveFailure::NoSpace, std::generic_category().message(ENOSPC)};
    case SaveFailure::Denied:
        return {SaveFailure::Denied, {}};
    default:
        return {activeFault->failure, std::generic_category().message(EIO)};
    }
}

} // namespace

void setSaveFault(std::optional<SaveFault> fault) {
    activeFault = fault;
    savesSinceFault = 0;
}

NewFile::~NewFile() {
    discard();
}

NewFile::NewFile(NewFile&& other) noexcept
    : path_(std::move(other.path_)), written_(other.written_), exists_(std::exchange(other.exists_, false)),
      faulted_(other.faulted_) {
#ifdef _WIN32
    handle_ = std::exchange(other.handle_, nullptr);
    attributes_ = other.attributes_;
#else
    fd_ = std::exchange(other.fd_, -1);
#endif
}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
    if (this != &other) {
        discard();

#ifdef _WIN32
        handle_ = std::exchange(other.handle_, nullptr);
        attributes_ = other.attributes_;
#else
        fd_ = std::exchange(other.fd_, -1);
#endif
        path_ = std::move(other.path_);
        written_ = other.written_;
        exists_ = std::exchange(other.exists_, false);
        faulted_ = other.faulted_;
    }
    return *this;
}

namespace {
thread_local FolderAnchors* installedAnchors = nullptr;
} // namespace

FolderAnchors* FolderAnchors::current() {
    return installedAnchors;
}

FolderAnchors* FolderAnchors::install(FolderAnchors* anchors) {
    FolderAnchors* before = installedAnchors;
    installedAnchors = anchors;
    return before;
}

SaveError NewFile::write(const char* bytes, std::size_t count) {
    if (!isOpen())
        return {SaveFailure::Other, "the file is not open"};
    std::size_t allowed = count;
    const bool full = faultAt(faulted_, SaveFault::Step::Write) && written_ + count > activeFault->afterBytes;
    if (full)
        allowed = activeFault->afterBytes > written_
                      ? static_cast<std::size_t>(activeFault->afterBytes - written_)
                      : 0;
    if (const SaveError error = writeAll(bytes, allowed))
        return error;
    if (full)
        return faultError();
    return {};
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

namespace {

SaveError saveErrorOf(DWORD error) {
    switch (error) {
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return {SaveFailure::Exists, {}};
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_NETPATH:
    case ERROR_DIRECTORY:
        return {SaveFailure::Missing, {}};
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return {SaveFailure::Denied, {}};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
        return {SaveFailure::NoSpace, std::system_category().message(static_cast<int>(error))};
    default:
        return {SaveFailure::Other, std::system_category().message(static_cast<int>(error))};
    }
}

SaveError lastSaveError() {
    return saveErrorOf(::GetLastError());
}

constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

} // namespace

SaveError probeSaveTarget(const fs::path& path, SaveTarget& target) {
    target = SaveTarget{};
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const DWORD error = ::GetLastError();
        if (error == ERROR_FILE_NOT_FOUND)
            return {}; // a new file
        return saveErrorOf(error);
    }
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return {SaveFailure::Folder, {}};
    if (attributes & FILE_ATTRIBUTE_READONLY)
        return {SaveFailure::Denied, {}};
    // Whether the system lets this program write the file (its access rights, another program
    // holding it open): opened for writing without changing it.
    HANDLE handle =
        ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return lastSaveError();
    const bool plain = ::GetFileType(handle) == FILE_TYPE_DISK;
    ::CloseHandle(handle);
    if (!plain)
        return {SaveFailure::NotPlain, {}};
    target.exists = true;
    return {};
}

NewFile NewFile::create(const fs::path& path, const fs::path* permissionsOf, SaveError& error) {
    NewFile file;
    error = {};
    const bool faulted = faultStrikesNewSave();
    if (faultAt(faulted, SaveFault::Step::Create)) {
        error = faultError();
        return file;
    }
    // Nobody else opens it while it is written; hidden, so listings of the folder pass it by.
    HANDLE handle = ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        error = lastSaveError();
        return file;
    }
    file.handle_ = handle;
    file.path_ = path;
    file.exists_ = true;
    file.faulted_ = faulted;
    file.attributes_ = FILE_ATTRIBUTE_ARCHIVE;
    if (permissionsOf) {
        const DWORD attributes = ::GetFileAttributesW(permissionsOf->c_str());
        if (attributes != INVALID_FILE_ATTRIBUTES)
            file.attributes_ = (attributes | FILE_ATTRIBUTE_ARCHIVE) & kKeptAttributes;
    }
    return file;
}

bool NewFile::isOpen() const {
    return handle_ != nullptr;
}

SaveError NewFile::writeAll(const char* bytes, std::size_t count) {
    while (count > 0) {
        const DWORD want = static_cast<DWORD>(std::min<std::size_t>(count, 1u << 30));
        DWORD done = 0;
        if (!::WriteFile(static_cast<HANDLE>(handle_), bytes, want, &done, nullptr))
            return lastSaveError();
        if (done == 0)
            return saveErrorOf(ERROR_DISK_FULL);
        bytes += done;
        count -= done;
        written_ += done;
    }
    return {};
}

SaveError NewFile::finish() {
    if (!isOpen())
        return {SaveFailure::Other, "the file is not open"};
    SaveError error;
    if (faultAt(faulted_, SaveFault::Step::Flush))
        error = faultError();
    else if (!::FlushFileBuffers(static_cast<HANDLE>(handle_)))
        error = lastSaveError();
    if (!::CloseHandle(static_cast<HANDLE>(handle_)) && !error)
        error = lastSaveError();
    handle_ = nullptr;
    return error;
}

SaveError NewFile::replace(const fs::path& target) {
    if (isOpen() || !exists_)
        return {SaveFailure::Other, "the file is not finished"};
    if (faultAt(faulted_, SaveFault::Step::Replace))
        return faultError();
    // The target's attributes (a new file: archive only), so the hidden mark goes.
    ::SetFileAttributesW(path_.c_str(), attributes_);
    if (!::MoveFileExW(path_.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
        const SaveError error = lastSaveError();
        ::SetFileAttributesW(path_.c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED);
        return error;
    }
    exists_ = false;
    return {};
}

void NewFile::discard() {
    if (handle_)
        ::CloseHandle(static_cast<HANDLE>(handle_));
    handle_ = nullptr;
    if (exists_)
        ::DeleteFileW(path_.c_str());
    exists_ = false;
}

bool removeFile(const fs::path& path) {
    return ::DeleteFileW(path.c_str()) != 0;
}

unsigned long currentProcessId() {
    return ::GetCurrentProcessId();
}

bool processRunning(unsigned long id) {
    HANDLE process = ::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(id));
    if (!process)
        return ::GetLastError() == ERROR_ACCESS_DENIED;
    DWORD code = 0;
    const bool running = ::GetExitCodeProcess(process, &code) && code == STILL_ACTIVE;
    ::CloseHandle(process);
    return running;
}

#else

namespace {

// Opens `path` relative to an anchor of its folder or of that folder's folder when one is known;
// otherwise as it stands.
int openFile(const fs::path& path, int flags) {
    const std::string& text = path.native();
    if (FolderAnchors* anchors = installedAnchors) {
        std::size_t cut = text.size();
        for (int up = 0; up < 2; ++up) {
            // The folder is the text up to the separator before the last component; only a plain
            // "folder/name" split is taken (no "//", no "." or "..", no trailing separator).
            if (cut == 0)
                break;
            const std::size_t slash = text.rfind('/', cut - 1);
            if (slash == std::string::npos || slash == 0 || slash + 1 == cut)
                break;
            const std::string_view component(text.data() + slash + 1, cut - slash - 1);
            if (component == "." || component == ".." || text[slash - 1] == '/')
                break;
            cut = slash;
            const int folder = anchors->anchor(std::string_view(text.data(), cut));
            if (folder >= 0)
                return ::openat(folder, text.c_str() + cut + 1, flags);
        }
    }
    return ::open(text.c_str(), flags);
}

} // namespace

InputFile InputFile::open(const fs::path& path) {
    InputFile file;
    // O_NONBLOCK: opening a pipe must not wait for a writer; it is refused below.
    const int fd = openFile(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
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

namespace {

SaveError saveErrorOf(int error) {
    switch (error) {
    case EEXIST:
        return {SaveFailure::Exists, {}};
    case ENOENT:
    case ENOTDIR:
        return {SaveFailure::Missing, {}};
    case EISDIR:
        return {SaveFailure::Folder, {}};
    case EACCES:
    case EPERM:
        return {SaveFailure::Denied, {}};
    case EROFS:
    case ETXTBSY:
        return {SaveFailure::Denied, std::generic_category().message(error)};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {SaveFailure::NoSpace, std::generic_category().message(error)};
    default:
        return {SaveFailure::Other, std::generic_category().message(error)};
    }
}

} // namespace

SaveError probeSaveTarget(const fs::path& path, SaveTarget& target) {
    target = SaveTarget{};
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) {
        if (errno == ENOENT)
            return {}; // a new file (a missing folder shows when the new file is made)
        return saveErrorOf(errno);
    }
    if (S_ISDIR(st.st_mode))
        return {SaveFailure::Folder, {}};
    if (!S_ISREG(st.st_mode))
        return {SaveFailure::NotPlain, {}};
    // A read-only file is refused as writing it in place would be (the rename would not ask).
    if (::access(path.c_str(), W_OK) != 0)
        return saveErrorOf(errno);
    target.exists = true;
    return {};
}

NewFile NewFile::create(const fs::path& path, const fs::path* permissionsOf, SaveError& error) {
    NewFile file;
    error = {};
    const bool faulted = faultStrikesNewSave();
    if (faultAt(faulted, SaveFault::Step::Create)) {
        error = faultError();
        return file;
    }
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOCTTY, 0666);
    if (fd < 0) {
        error = saveErrorOf(errno);
        return file;
    }
    file.fd_ = fd;
    file.path_ = path;
    file.exists_ = true;
    file.faulted_ = faulted;
    struct stat st {};
    if (permissionsOf && ::stat(permissionsOf->c_str(), &st) == 0) {
        // Owner and group where the system allows it (changing them clears set-id bits, so the
        // mode comes after), then the mode. A failure here keeps the new file's defaults.
        if ((st.st_uid != ::geteuid() || st.st_gid != ::getegid()) &&
            ::fchown(fd, st.st_uid, st.st_gid) != 0) {
            // Not allowed: the new file keeps this program's owner.
        }
        ::fchmod(fd, st.st_mode & 07777);
    }
    return file;
}

bool NewFile::isOpen() const {
    return fd_ >= 0;
}

SaveError NewFile::writeAll(const char* bytes, std::size_t count) {
    while (count > 0) {
        const ssize_t done = ::write(fd_, bytes, count);
        if (done < 0) {
            if (errno == EINTR)
                continue;
            return saveErrorOf(errno);
        }
        if (done == 0)
            return saveErrorOf(ENOSPC);
        bytes += done;
        count -= static_cast<std::size_t>(done);
        written_ += static_cast<std::uint64_t>(done);
    }
    return {};
}

SaveError NewFile::finish() {
    if (!isOpen())
        return {SaveFailure::Other, "the file is not open"};
    SaveError error;
    if (faultAt(faulted_, SaveFault::Step::Flush))
        error = faultError();
#ifdef __linux__
    else if (::fdatasync(fd_) != 0) // the data and the size; the times need not wait for the disk
#else
    else if (::fsync(fd_) != 0)
#endif
        error = saveErrorOf(errno);
    if (::close(fd_) != 0 && !error && errno != EINTR)
        error = saveErrorOf(errno);
    fd_ = -1;
    return error;
}

SaveError NewFile::replace(const fs::path& target) {
    if (isOpen() || !exists_)
        return {SaveFailure::Other, "the file is not finished"};
    if (faultAt(faulted_, SaveFault::Step::Replace))
        return faultError();
    if (::rename(path_.c_str(), target.c_str()) != 0)
        return saveErrorOf(errno);
    exists_ = false;
    return {};
}

void NewFile::discard() {
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
    if (exists_)
        ::unlink(path_.c_str());
    exists_ = false;
}

bool removeFile(const fs::path& path) {
    return ::unlink(path.c_str()) == 0;
}

unsigned long currentProcessId() {
    return static_cast<unsigned long>(::getpid());
}

bool processRunning(unsigned long id) {
    const auto pid = static_cast<pid_t>(id);
    if (pid <= 0 || static_cast<unsigned long>(pid) != id)
        return false;
    return ::kill(pid, 0) == 0 || errno == EPERM;
}

#endif

} // namespace rd::native
