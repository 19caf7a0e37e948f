#pragma once
// Files opened by path through the operating system: the one place where reading and writing a
// file meets POSIX calls or the Windows API. Everything above this works on std::filesystem paths.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>

namespace rd::native {

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

} // namespace rd::native
