#include "core/textfile.h"

#include "core/errors.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

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

namespace {

// Opens a plain file for reading with one open and one fstat. A folder, a pipe or a device is
// refused (a pipe would block, a device might never end). Returns -1 with `missing` set when
// there is no such file or the entry is a folder.
int openPlainFile(const fs::path& path, bool& missing, int& error, std::size_t& size) {
    missing = false;
    error = 0;
    const int fd = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        error = errno;
        missing = (errno == ENOENT || errno == ENOTDIR);
        return -1;
    }
    struct stat st {};
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        const bool folder = S_ISDIR(st.st_mode);
        ::close(fd);
        error = folder ? EISDIR : EINVAL;
        missing = folder;
        return -1;
    }
    size = static_cast<std::size_t>(st.st_size);
    return fd;
}

FileError readFailure(const fs::path& path, int err) {
    if (err == EINVAL)
        return FileError("Path/File access error: " + path.string() + " is not a plain file");
    return openFailure(path, false, err);
}

} // namespace

LineReader::LineReader(const fs::path& path) {
    bool missing = false;
    int err = 0;
    fd_ = openPlainFile(path, missing, err, firstRead_);
    if (fd_ < 0)
        throw readFailure(path, err);
}

std::optional<LineReader> LineReader::openExisting(const fs::path& path) {
    bool missing = false;
    int err = 0;
    std::size_t size = 0;
    const int fd = openPlainFile(path, missing, err, size);
    if (fd < 0) {
        if (missing)
            return std::nullopt;
        throw readFailure(path, err);
    }
    LineReader reader;
    reader.fd_ = fd;
    reader.firstRead_ = size;
    return reader;
}

LineReader::~LineReader() {
    close();
}

LineReader::LineReader(LineReader&& other) noexcept
    : fd_(other.fd_), firstRead_(other.firstRead_), started_(other.started_),
      buffer_(std::move(other.buffer_)), pos_(other.pos_), eof_(other.eof_) {
    other.fd_ = -1;
}

LineReader& LineReader::operator=(LineReader&& other) noexcept {
    if (this != &other) {
        close();
        fd_ = other.fd_;
        firstRead_ = other.firstRead_;
        started_ = other.started_;
        buffer_ = std::move(other.buffer_);
        pos_ = other.pos_;
        eof_ = other.eof_;
        other.fd_ = -1;
    }
    return *this;
}

void LineReader::close() {
    if (fd_ >= 0)
        ::close(fd_);
    fd_ = -1;
    buffer_.clear();
    pos_ = 0;
    eof_ = false;
    started_ = false;
}

bool LineReader::fill() {
    if (fd_ < 0 || eof_)
        return false;
    if (pos_ > 0) {
        buffer_.erase(0, pos_);
        pos_ = 0;
    }
    // The first read asks for the whole (small) file and one byte more, to see its end at once.
    std::size_t want = kChunk;
    if (!started_) {
        want = std::min(kChunk, firstRead_ + 1);
        started_ = true;
    }
    const std::size_t old = buffer_.size();
    buffer_.resize(old + want);
    ssize_t got = 0;
    do {
        got = ::read(fd_, buffer_.data() + old, want);
    } while (got < 0 && errno == EINTR);
    if (got <= 0) {
        buffer_.resize(old);
        if (got < 0)
            throw FileError("Device I/O error while reading");
        eof_ = true;
        return false;
    }
    buffer_.resize(old + static_cast<std::size_t>(got));
    return true;
}

bool LineReader::atEnd() {
    if (fd_ < 0)
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
