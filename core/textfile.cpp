#include "core/textfile.h"

#include "core/errors.h"

#include <cerrno>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kChunk = 64 * 1024;

// The description the user sees when a file cannot be opened.
FileError openFailure(const fs::path& path, bool forWriting, int err) {
    std::error_code ec;
    if (fs::is_directory(path, ec))
        return FileError("Path/File access error: " + path.string() + " is a folder");
    if (!forWriting && err == ENOENT) {
        if (!fs::exists(path.parent_path(), ec))
            return FileError("Path not found: " + path.string());
        return FileError("File not found: " + path.string());
    }
    if (forWriting && err == ENOENT)
        return FileError("Path not found: " + path.string());
    if (err == EACCES || err == EPERM)
        return FileError("Permission denied: " + path.string());
    return FileError("Path/File access error: " + path.string() + " (" +
                     std::generic_category().message(err) + ")");
}

} // namespace

LineReader::LineReader(const fs::path& path) {
    std::error_code ec;
    if (fs::is_directory(path, ec))
        throw openFailure(path, false, EISDIR);
    // Only plain files are read: a pipe or a device would block or never end.
    const auto status = fs::status(path, ec);
    if (!ec && fs::exists(status) && !fs::is_regular_file(status))
        throw FileError("Path/File access error: " + path.string() + " is not a plain file");
    errno = 0;
    file_ = std::fopen(path.c_str(), "rb");
    if (!file_)
        throw openFailure(path, false, errno);
}

LineReader::~LineReader() {
    close();
}

LineReader::LineReader(LineReader&& other) noexcept
    : file_(other.file_), buffer_(std::move(other.buffer_)), pos_(other.pos_), eof_(other.eof_) {
    other.file_ = nullptr;
}

LineReader& LineReader::operator=(LineReader&& other) noexcept {
    if (this != &other) {
        close();
        file_ = other.file_;
        buffer_ = std::move(other.buffer_);
        pos_ = other.pos_;
        eof_ = other.eof_;
        other.file_ = nullptr;
    }
    return *this;
}

void LineReader::close() {
    if (file_)
        std::fclose(file_);
    file_ = nullptr;
    buffer_.clear();
    pos_ = 0;
    eof_ = false;
}

bool LineReader::fill() {
    if (!file_ || eof_)
        return false;
    if (pos_ > 0) {
        buffer_.erase(0, pos_);
        pos_ = 0;
    }
    char chunk[kChunk];
    const std::size_t got = std::fread(chunk, 1, sizeof chunk, file_);
    if (got == 0) {
        if (std::ferror(file_))
            throw FileError("Device I/O error while reading");
        eof_ = true;
        return false;
    }
    buffer_.append(chunk, got);
    return true;
}

bool LineReader::atEnd() {
    if (!file_)
        return true;
    while (pos_ >= buffer_.size())
        if (!fill())
            return true;
    return false;
}

std::string LineReader::readLine(std::string_view fallback) {
    if (atEnd())
        return std::string(fallback);
    std::size_t searchFrom = pos_;
    for (;;) {
        const std::size_t lf = buffer_.find('\n', searchFrom);
        if (lf != std::string::npos) {
            std::size_t end = lf;
            if (end > pos_ && buffer_[end - 1] == '\r')
                --end;
            std::string line = buffer_.substr(pos_, end - pos_);
            pos_ = lf + 1;
            return line;
        }
        const std::size_t consumed = buffer_.size() - pos_;
        if (!fill()) {
            // Last line without a terminator.
            std::string line = buffer_.substr(pos_);
            pos_ = buffer_.size();
            return line;
        }
        searchFrom = pos_ + consumed;
    }
}

std::vector<std::string> readAllLines(const fs::path& path) {
    LineReader reader(path);
    std::vector<std::string> lines;
    while (!reader.atEnd())
        lines.push_back(reader.readLine(""));
    return lines;
}

LineWriter::LineWriter(const fs::path& path) : path_(path) {
    std::error_code ec;
    if (fs::is_directory(path, ec))
        throw openFailure(path, true, EISDIR);
    errno = 0;
    file_ = std::fopen(path.c_str(), "wb");
    if (!file_)
        throw openFailure(path, true, errno);
}

LineWriter::~LineWriter() {
    if (file_)
        std::fclose(file_);
}

void LineWriter::writeLine(std::string_view line) {
    if (!file_)
        throw FileError("Bad file name or number: " + path_.string() + " is not open");
    if (std::fwrite(line.data(), 1, line.size(), file_) != line.size() ||
        std::fwrite("\r\n", 1, 2, file_) != 2)
        throw FileError("Device I/O error while writing " + path_.string());
}

void LineWriter::close() {
    if (file_) {
        const int result = std::fclose(file_);
        file_ = nullptr;
        if (result != 0)
            throw FileError("Device I/O error while writing " + path_.string());
    }
}

void writeAllLines(const fs::path& path, const std::vector<std::string>& lines) {
    LineWriter writer(path);
    for (const auto& line : lines)
        writer.writeLine(line);
    writer.close();
}

} // namespace rd
