#pragma once
// Files opened by path through the operating system: the one place where reading and writing a
// file meets POSIX calls or the Windows API. Everything above this works on std::filesystem paths.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rd::native {

// Folders already known to the program, to open files relative to: while one is installed on a
// thread (POSIX), InputFile::open on that thread asks it for a descriptor of the file's folder, or
// of that folder's folder, and opens the file relative to it, so the system does not walk the whole
// path from its root again for every file of a folder it has just listed. (On Windows nothing asks.)
class FolderAnchors {
public:
    virtual ~FolderAnchors() = default;
    // An open descriptor of `folder` (a path's text as the system spells it) to open files
    // relative to, or -1 when the folder is not one of those known.
    virtual int anchor(std::string_view folder) = 0;

    // The anchors installed on this thread, or nothing.
    static FolderAnchors* current();
    // Installs `anchors` on this thread (nothing to uninstall); returns those installed before.
    static FolderAnchors* install(FolderAnchors* anchors);
};

// Why a file could not be opened for reading.
enum class OpenFailure {
    None,
    Missing,  // no entry of that name (or a part of the path is missing or not a folder)
    Folder,   // the name is a folder
    NotPlain, // a pipe, a device or anything else that is not a plain file
    Denied,   // the system refused access
    Other     // any other failure; see systemText()
};

// A plain file open for reading, closed when the object goes.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(InputFile&& other) noexcept;
    InputFile& operator=(InputFile&& other) noexcept;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    // Opens a plain file for reading; on failure the object is closed and failure() says why.
    static InputFile open(const std::filesystem::path& path);

    bool isOpen() const;
    OpenFailure failure() const { return failure_; }
    // The system's own words for an OpenFailure::Other.
    const std::string& systemText() const { return systemText_; }
    // The file's size when it was opened.
    std::uint64_t size() const { return size_; }
    // Reads up to `count` bytes: the number read, 0 at the end of the file, -1 on a read error.
    std::ptrdiff_t read(char* into, std::size_t count);
    // Reads up to `count` bytes from byte `offset` of the file (counted from its start): the number
    // read, 0 at or past the end of the file, -1 on a read error.
    std::ptrdiff_t readAt(std::uint64_t offset, char* into, std::size_t count);
    void close();

private:
#ifdef _WIN32
    void* handle_ = nullptr;
#else
    int fd_ = -1;
#endif
    OpenFailure failure_ = OpenFailure::None;
    std::string systemText_;
    std::uint64_t size_ = 0;
};

// std::fopen on a path (the wide-character call on Windows, so every name can be opened).
std::FILE* openStdio(const std::filesystem::path& path, const char* mode);

// ---- Saving a file: a new file beside the old one, flushed to the disk, renamed over it ----

// Why a step of a save failed.
enum class SaveFailure {
    None,
    Missing,  // a folder of the path is missing
    Folder,   // the name is a folder
    NotPlain, // a pipe, a device or anything else that is not a plain file
    Denied,   // the system refused access (a read-only file or folder, a file in use)
    Exists,   // the name of the new file is taken
    NoSpace,  // the disk, a quota or a file size limit is full
    Other     // any other failure; see SaveError::systemText
};

struct SaveError {
    SaveFailure failure = SaveFailure::None;
    std::string systemText; // the system's own words for the failure
    explicit operator bool() const { return failure != SaveFailure::None; }
};

// What lies at the path a save replaces: nothing (a new file), or a plain file the program may
// write (its permissions are then copied to the new file).
struct SaveTarget {
    bool exists = false;
};
// Checks the file a save is about to replace: a folder, a device, a read-only file or one the
// system does not let this program write is refused.
SaveError probeSaveTarget(const std::filesystem::path& path, SaveTarget& target);

// A new file created for a save, hidden from folder listings where the system can hide it. It is
// removed unless it was finished and renamed over its target.
class NewFile {
public:
    NewFile() = default;
    ~NewFile();
    NewFile(NewFile&& other) noexcept;
    NewFile& operator=(NewFile&& other) noexcept;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // Creates `path`, which must not exist yet. When `permissionsOf` names a file, the new file
    // takes its permissions (POSIX: mode, owner and group where allowed; Windows: attributes).
    static NewFile create(const std::filesystem::path& path, const std::filesystem::path* permissionsOf,
                          SaveError& error);

    bool isOpen() const;
    const std::filesystem::path& path() const { return path_; }
    // Writes every byte, or fails.
    SaveError write(const char* bytes, std::size_t count);
    // Flushes what was written to the disk (fsync; FlushFileBuffers on Windows) and closes.
    SaveError finish();
    // Renames the finished file over `target` (in the same folder), replacing it.
    SaveError replace(const std::filesystem::path& target);
    // Closes and removes the file (nothing when it was renamed already).
    void discard();

private:
    SaveError writeAll(const char* bytes, std::size_t count);

#ifdef _WIN32
    void* handle_ = nullptr;
    unsigned long attributes_ = 0; // the target's attributes, given to the file before the rename
#else
    int fd_ = -1;
#endif
    std::filesystem::path path_;
    std::uint64_t written_ = 0;
    bool exists_ = false;  // the file is on disk under path_
    bool faulted_ = false; // a test's fault strikes this file
};

// Removes a file; false when it could not be removed.
bool removeFile(const std::filesystem::path& path);

// This program's process id, and whether a process of that id is running.
unsigned long currentProcessId();
bool processRunning(unsigned long id);

// A fault the tests put into the saving of files, in place of a full disk or a failing device.
// While set, every save meets it.
struct SaveFault {
    enum class Step { Create, Write, Flush, Replace };
    Step step = Step::Write;
    // Step::Write: the file takes this many bytes, then the failure strikes.
    std::uint64_t afterBytes = 0;
    // What the system answers: a full disk by default; Denied as a read-only folder or a file
    // in use answers.
    SaveFailure failure = SaveFailure::NoSpace;
    // The saves begun before it strikes (the files an operation saves before the one it hits).
    int afterSaves = 0;
};
void setSaveFault(std::optional<SaveFault> fault);

} // namespace rd::native
