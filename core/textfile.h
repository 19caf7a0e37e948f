#pragma once
// Configuration text files: single-byte text, CR LF after every line, no header, always
// rewritten whole. On reading, a line ends at CR LF or at a lone LF; a lone CR stays in the
// line, and the bytes after the last terminator are a line of their own.

#include "core/filesave.h"
#include "core/nativefile.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rd {

// How the lines of a text file end. The launcher's files end every line with CR LF; its own
// reader takes a lone CR as the end of a line and a lone LF as part of one.
struct LineEndings {
    std::size_t lines = 0;             // lines in the file; a last line without terminator counts
    std::size_t bareLineFeeds = 0;     // lines ended by LF without CR before it
    std::size_t firstBareLineFeed = 0; // the first such line (1-based; 0 when there is none)
    std::size_t loneReturns = 0;       // lines holding a CR that no LF follows
    std::size_t firstLoneReturn = 0;   // the first such line (1-based; 0 when there is none)
    bool lastLineUnterminated = false; // the file has bytes after its last LF
    bool operator==(const LineEndings&) const = default;
    // Every line ends with CR LF and holds no other CR.
    bool clean() const { return bareLineFeeds == 0 && loneReturns == 0 && !lastLineUnterminated; }
};

// Scans a file's bytes in order, in as many pieces as they come.
class LineEndingsScanner {
public:
    void feed(std::string_view bytes);
    LineEndings finish() const;

private:
    void endLine(bool bare);

    LineEndings seen_;
    bool pendingReturn_ = false; // the last byte fed was a CR
    bool lineHasLoneReturn_ = false;
    bool lineStarted_ = false; // bytes were fed after the last LF
};

LineEndings lineEndingsOf(std::string_view bytes);

// While an audit is alive, every LineReader of this thread reads its file to the end when it is
// closed and reports how the file's lines end. The loaders read exactly as they always do; the
// audit sees each file through the same single read.
class LineEndingsAudit {
public:
    LineEndingsAudit();
    ~LineEndingsAudit();
    LineEndingsAudit(const LineEndingsAudit&) = delete;
    LineEndingsAudit& operator=(const LineEndingsAudit&) = delete;

    struct File {
        std::filesystem::path path; // as the reader opened it
        LineEndings endings;
    };
    // Every file read while the audit was alive, in the order they were first closed.
    std::vector<File> files() const;
    // Only those files whose lines do not all end in CR LF, in the same order.
    std::vector<File> faultyFiles() const;
    // The file read under this path, or nothing.
    const LineEndings* find(const std::filesystem::path& path) const;

    // The audit of this thread, or nothing (used by the readers).
    static LineEndingsAudit* current();
    void record(std::filesystem::path::string_type path, const LineEndings& endings);

private:
    // Each reading is kept as it comes, its path as the system's text, and made a path only when
    // asked for: most files are read once, found clean and never named, so nothing is looked up
    // while reading; a file read twice is merged when the files are asked for.
    struct Entry {
        std::filesystem::path::string_type path;
        LineEndings endings;
    };
    using PathView = std::basic_string_view<std::filesystem::path::value_type>;
    std::vector<File> collect(bool onlyFaulty) const;

    std::vector<Entry> entries_;
    bool anyFaulty_ = false; // a reading whose lines do not all end in CR LF was recorded
    LineEndingsAudit* previous_ = nullptr;
};

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

    bool isOpen() const { return file_.isOpen(); }
    // True when the reader is closed or no byte is left.
    bool atEnd();
    // "Read next line (reader, default)": the next line, or `fallback` unchanged when the
    // reader is closed or at its end.
    std::string readLine(std::string_view fallback);
    void close();

private:
    struct Audited {
        std::filesystem::path::string_type path;
        LineEndingsScanner scanner;
    };

    bool fill();
    void attachAudit(const std::filesystem::path& path);

    native::InputFile file_;
    std::size_t firstRead_ = 0; // the file's size: small files are read with one call
    bool started_ = false;
    std::string buffer_;
    std::size_t pos_ = 0;
    bool eof_ = false;
    std::unique_ptr<Audited> audited_; // set while a LineEndingsAudit is alive
};

// Every line of a file, read to its end (the file must exist).
std::vector<std::string> readAllLines(const std::filesystem::path& path);

// Writes a file line by line, CR LF after every line, through a FileSave: the lines go to a new
// file that replaces the old one on close(). A failure on the way (or a writer dropped without
// close()) leaves the old file exactly as it was, and no temporary file.
class LineWriter {
public:
    explicit LineWriter(const std::filesystem::path& path);
    LineWriter(const LineWriter&) = delete;
    LineWriter& operator=(const LineWriter&) = delete;

    void writeLine(std::string_view line);
    void close();

private:
    FileSave save_;
};

// Rewrites a file whole with the given lines (an empty list gives an empty file); on failure the
// old file stays as it was.
void writeAllLines(const std::filesystem::path& path, const std::vector<std::string>& lines);

} // namespace rd
