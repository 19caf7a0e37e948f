#pragma once
// Configuration text files: single-byte text, CR LF after every line, no header, always
// rewritten whole. On reading, a line ends at CR LF or at a lone LF; a lone CR stays in the
// line, and the bytes after the last terminator are a line of their own.

#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// Reads a file line by line. Opening a missing file, a folder, or anything else that is not a
// readable file raises FileError with a description for the user.
class LineReader {
public:
    LineReader() = default;
    explicit LineReader(const std::filesystem::path& path);
    ~LineReader();
    // Opens the file when it exists as a file; nothing when there is no entry of that name or
    // the entry is a folder ("a directory search for the file finds nothing"). Other failures
    // raise FileError.
    static std::optional<LineReader> openExisting(const std::filesystem::path& path);
    LineReader(LineReader&& other) noexcept;
    LineReader& operator=(LineReader&& other) noexcept;
    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    bool isOpen() const { return fd_ >= 0; }
    // True when the reader is closed or no byte is left.
    bool atEnd();
    // "Read next line (reader, default)": the next line, or `fallback` unchanged when the
    // reader is closed or at its end.
    std::string readLine(std::string_view fallback);
    void close();

private:
    bool fill();

    int fd_ = -1;
    std::size_t firstRead_ = 0; // the file's size: small files are read with one call
    bool started_ = false;
    std::string buffer_;
    std::size_t pos_ = 0;
    bool eof_ = false;
};

// Every line of a file, read to its end (the file must exist).
std::vector<std::string> readAllLines(const std::filesystem::path& path);

// Writes a file line by line: created or truncated on opening, CR LF after every line. A
// failure part-way leaves what was written so far.
class LineWriter {
public:
    explicit LineWriter(const std::filesystem::path& path);
    ~LineWriter();
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void writeLine(std::string_view line);
    void close();

private:
    std::FILE* file_ = nullptr;
    std::filesystem::path path_;
};

// Rewrites a file whole with the given lines (an empty list gives an empty file).
void writeAllLines(const std::filesystem::path& path, const std::vector<std::string>& lines);

} // namespace rd
