#pragma once
// A fresh temporary workspace for one test, with helpers that write and read files byte for
// byte. Paths are relative to the workspace root and use '/'.

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace rd::test {

// The folder temporary workspaces are made in: ROSTERDESK_TEST_TEMP when set, else the system's
// temporary folder.
std::filesystem::path testTempFolder();

class TempWorkspace {
public:
    TempWorkspace();
    ~TempWorkspace();
    TempWorkspace(const TempWorkspace&) = delete;
    TempWorkspace& operator=(const TempWorkspace&) = delete;

    const std::filesystem::path& root() const { return root_; }
    std::filesystem::path path(std::string_view relative) const;

    // Creates a folder (and its parents).
    void folder(std::string_view relative) const;
    // Writes bytes exactly as given (parents created).
    void write(std::string_view relative, std::string_view bytes) const;
    // Writes lines, each followed by CR LF.
    void writeLines(std::string_view relative, const std::vector<std::string>& lines) const;
    // The file's bytes; throws when it cannot be read.
    std::string read(std::string_view relative) const;
    bool exists(std::string_view relative) const;
    // Whether the folder's listing holds an entry spelled exactly as the path's last part (on a
    // file system that ignores case, exists() is true for every spelling; this is not).
    bool listed(std::string_view relative) const;

private:
    std::filesystem::path root_;
};

// Lines joined with CR LF after each one: the bytes a configuration text file holds.
std::string crlf(const std::vector<std::string>& lines);

// Reads a whole file's bytes.
std::string readBytes(const std::filesystem::path& path);
void writeBytes(const std::filesystem::path& path, std::string_view bytes);

} // namespace rd::test
