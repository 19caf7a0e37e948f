#include "core/textfile.h"

#include "core/errors.h"
#include "core/workspace.h"

#include <algorithm>
#include <cstring>
#include <system_error>
#include <unordered_map>

namespace rd {

namespace fs = std::filesystem;

// ---- Line endings ----

void LineEndingsScanner::endLine(bool bare) {
    ++seen_.lines;
    if (bare) {
        ++seen_.bareLineFeeds;
        if (seen_.firstBareLineFeed == 0)
            seen_.firstBareLineFeed = seen_.lines;
    }
    if (lineHasLoneReturn_) {
        ++seen_.loneReturns;
        if (seen_.firstLoneReturn == 0)
            seen_.firstLoneReturn = seen_.lines;
    }
    lineHasLoneReturn_ = false;
    lineStarted_ = false;
}

void LineEndingsScanner::feed(std::string_view bytes) {
    // Line by line: the bytes up to each LF are searched for CRs at once, not byte by byte.
    const char* p = bytes.data();
    const char* const end = p + bytes.size();
    while (p < end) {
        if (pendingReturn_) {
            pendingReturn_ = false;
            if (*p == '\n') {
                endLine(false);
                ++p;
                continue;
            }
            lineHasLoneReturn_ = true;
        }
        const auto* lf = static_cast<const char*>(std::memchr(p, '\n', static_cast<std::size_t>(end - p)));
        const char* const segmentEnd = lf ? lf : end;
        const auto length = static_cast<std::size_t>(segmentEnd - p);
        if (length > 0) {
            lineStarted_ = true;
            // A CR before the segment's last byte has something other than LF after it.
            if (length > 1 && std::memchr(p, '\r', length - 1))
                lineHasLoneReturn_ = true;
        }
        const bool endsInReturn = length > 0 && segmentEnd[-1] == '\r';
        if (!lf) {
            pendingReturn_ = endsInReturn;
            break;
        }
        endLine(!endsInReturn);
        p = lf + 1;
    }
}

LineEndings LineEndingsScanner::finish() const {
    LineEndingsScanner last = *this;
    if (last.pendingReturn_)
        last.lineHasLoneReturn_ = true;
    if (last.lineStarted_) {
        last.endLine(false);
        last.seen_.lastLineUnterminated = true;
    }
    return last.seen_;
}

LineEndings lineEndingsOf(std::string_view bytes) {
    LineEndingsScanner scanner;
    scanner.feed(bytes);
    return scanner.finish();
}

namespace {
thread_local LineEndingsAudit* currentAudit = nullptr;
}

LineEndingsAudit::LineEndingsAudit() : previous_(currentAudit) {
    currentAudit = this;
}

LineEndingsAudit::~LineEndingsAudit() {
    currentAudit = previous_;
}

LineEndingsAudit* LineEndingsAudit::current() {
    return currentAudit;
}

const LineEndings* LineEndingsAudit::find(const fs::path& path) const {
    // The last reading of the file counts.
    for (auto it = entries_.rbegin(); it != entries_.rend(); ++it)
        if (it->path == path.native())
            return &it->endings;
    return nullptr;
}

void LineEndingsAudit::record(fs::path::string_type path, const LineEndings& endings) {
    anyFaulty_ = anyFaulty_ || !endings.clean();
    entries_.push_back(Entry{std::move(path), endings});
}

std::vector<LineEndingsAudit::File> LineEndingsAudit::collect(bool onlyFaulty) const {
    std::vector<File> files;
    if (onlyFaulty && !anyFaulty_)
        return files; // every reading was clean: no file can be faulty
    // A file read more than once is listed once, where it was first closed, with its last reading.
    std::unordered_map<PathView, std::size_t> last;
    last.reserve(entries_.size());
    for (std::size_t i = 0; i < entries_.size(); ++i)
        last.insert_or_assign(PathView(entries_[i].path), i);
    for (const auto& entry : entries_) {
        const auto it = last.find(PathView(entry.path));
        if (it == last.end())
            continue; // listed already
        const LineEndings& endings = entries_[it->second].endings;
        if (!onlyFaulty || !endings.clean())
            files.push_back(File{fs::path(entry.path), endings});
        last.erase(it);
    }
    return files;
}

std::vector<LineEndingsAudit::File> LineEndingsAudit::files() const {
    return collect(false);
}

std::vector<LineEndingsAudit::File> LineEndingsAudit::faultyFiles() const {
    return collect(true);
}

// ---- Reading ----

namespace {

constexpr std::size_t kChunk = 64 * 1024;

// The description the user sees when a file cannot be opened for reading.
FileError readFailure(const fs::path& path, const native::InputFile& file) {
    switch (file.failure()) {
    case native::OpenFailure::Folder:
        return FileError("Path/File access error: " + pathText(path) + " is a folder");
    case native::OpenFailure::NotPlain:
        return FileError("Path/File access error: " + pathText(path) + " is not a plain file");
    case native::OpenFailure::Missing: {
        std::error_code ec;
        if (!fs::exists(path.parent_path(), ec))
            return FileError("Path not found: " + pathText(path));
        return FileError("File not found: " + pathText(path));
    }
    case native::OpenFailure::Denied:
        return FileError("Permission denied: " + pathText(path));
    case native::OpenFailure::Other:
    case native::OpenFailure::None:
        break;
    }
    return FileError("Path/File access error: " + pathText(path) + " (" + file.systemText() + ")");
}

} // namespace

LineReader::LineReader(const fs::path& path) : file_(native::InputFile::open(path)) {
    if (!file_.isOpen())
        throw readFailure(path, file_);
    firstRead_ = static_cast<std::size_t>(file_.size());
    attachAudit(path);
}

std::optional<LineReader> LineReader::openExisting(const fs::path& path) {
    native::InputFile file = native::InputFile::open(path);
    if (!file.isOpen()) {
        if (file.failure() == native::OpenFailure::Missing || file.failure() == native::OpenFailure::Folder)
            return std::nullopt;
        throw readFailure(path, file);
    }
    LineReader reader;
    reader.firstRead_ = static_cast<std::size_t>(file.size());
    reader.file_ = std::move(file);
    reader.attachAudit(path);
    return reader;
}

void LineReader::attachAudit(const fs::path& path) {
    if (LineEndingsAudit::current())
        audited_ = std::make_unique<Audited>(Audited{path.native(), {}});
}

LineReader::~LineReader() {
    close();
}

LineReader::LineReader(LineReader&& other) noexcept
    : file_(std::move(other.file_)), firstRead_(other.firstRead_), started_(other.started_),
      buffer_(std::move(other.buffer_)), pos_(other.pos_), eof_(other.eof_),
      audited_(std::move(other.audited_)) {}

LineReader& LineReader::operator=(LineReader&& other) noexcept {
    if (this != &other) {
        close();
        file_ = std::move(other.file_);
        firstRead_ = other.firstRead_;
        started_ = other.started_;
        buffer_ = std::move(other.buffer_);
        pos_ = other.pos_;
        eof_ = other.eof_;
        audited_ = std::move(other.audited_);
    }
    return *this;
}

void LineReader::close() {
    if (audited_ && file_.isOpen()) {
        // The audit sees the whole file: what the loader left unread is read now.
        try {
            while (fill()) {
            }
            if (LineEndingsAudit* audit = LineEndingsAudit::current())
                audit->record(std::move(audited_->path), audited_->scanner.finish());
        } catch (const std::exception&) {
            // A file that cannot be read to its end is not reported.
        }
    }
    audited_.reset();
    file_.close();
    buffer_.clear();
    pos_ = 0;
    eof_ = false;
    started_ = false;
}

bool LineReader::fill() {
    if (!file_.isOpen() || eof_)
        return false;
    if (pos_ > 0) {
        buffer_.erase(0, pos_);
        pos_ = 0;
    }
    // The first read asks for the whole (small) file and one byte more, to see its end at once:
    // a plain file that gives fewer bytes than asked for has no more.
    std::size_t want = kChunk;
    const bool first = !started_;
    if (first) {
        want = std::min(kChunk, firstRead_ + 1);
        started_ = true;
    }
    const std::size_t old = buffer_.size();
    buffer_.resize(old + want);
    const std::ptrdiff_t got = file_.read(buffer_.data() + old, want);
    if (got <= 0) {
        buffer_.resize(old);
        if (got < 0)
            throw FileError("Device I/O error while reading");
        eof_ = true;
        return false;
    }
    buffer_.resize(old + static_cast<std::size_t>(got));
    if (first && static_cast<std::size_t>(got) < want)
        eof_ = true;
    if (audited_)
        audited_->scanner.feed(std::string_view(buffer_).substr(old));
    return true;
}

bool LineReader::atEnd() {
    if (!file_.isOpen())
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

// ---- Writing ----

LineWriter::LineWriter(const fs::path& path) : save_(path) {}

void LineWriter::writeLine(std::string_view line) {
    save_.write(line);
    save_.write("\r\n");
}

void LineWriter::close() {
    save_.commit();
}

void writeAllLines(const fs::path& path, const std::vector<std::string>& lines) {
    LineWriter writer(path);
    for (const auto& line : lines)
        writer.writeLine(line);
    writer.close();
}

} // namespace rd
