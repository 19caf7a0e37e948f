#include "core/filesave.h"

#include "core/errors.h"
#include "core/nativefolder.h"
#include "core/text.h"
#include "core/workspace.h"

#include <cctype>
#include <system_error>

namespace rd {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kLeftoverEnding = ".rdsave";
constexpr std::size_t kBufferSize = 64 * 1024;
constexpr int kMostLinks = 40;

std::string withReason(const std::string& text, const std::string& reason) {
    return reason.empty() ? text : text + " (" + reason + ")";
}

std::string withDetail(const std::string& text, const std::string& detail) {
    return detail.empty() ? text : text + ": " + detail;
}

// The file a save replaces: the path itself, or for a symbolic link the file it leads to (through
// every link of a chain). A link that leads nowhere is saved where it leads.
fs::path followLinks(const fs::path& path) {
    fs::path current = path;
    for (int hops = 0; hops < kMostLinks; ++hops) {
        std::error_code ec;
        if (!fs::is_symlink(fs::symlink_status(current, ec)))
            return current;
        const fs::path link = fs::read_symlink(current, ec);
        if (ec)
            return current;
        current = link.is_absolute() ? link : current.parent_path() / link;
    }
    throw FileError("Path/File access error: " + pathText(path) + " (too many levels of symbolic links)");
}

// Removes what earlier saves of the file named `name` in `folder` left behind: temporary files
// of programs that are no longer running (or of this one). Whatever cannot be removed stays; the
// doctor reports it.
void removeLeftovers(const fs::path& folder, std::string_view name) {
    const unsigned long self = native::currentProcessId();
    for (const auto& entry : native::readFolder(folder)) {
        if (entry.isFolder)
            continue;
        const auto leftover = saveLeftoverOf(entry.name);
        if (!leftover || !equalsNoCase(leftover->file, name))
            continue;
        if (leftover->processId == self || !native::processRunning(leftover->processId))
            native::removeFile(joinName(folder, entry.name));
    }
}

} // namespace

std::string saveTemporaryName(std::string_view name, unsigned long processId) {
    return "." + std::string(name) + "." + std::to_string(processId) + std::string(kLeftoverEnding);
}

std::optional<SaveLeftover> saveLeftoverOf(std::string_view name) {
    // "." + file + "." + digits + ".rdsave"
    if (name.size() < 1 + 1 + 1 + 1 + kLeftoverEnding.size() || name.front() != '.' ||
        !equalsNoCase(name.substr(name.size() - kLeftoverEnding.size()), kLeftoverEnding))
        return std::nullopt;
    std::string_view rest = name.substr(1, name.size() - 1 - kLeftoverEnding.size());
    const std::size_t dot = rest.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == rest.size())
        return std::nullopt;
    const std::string_view digits = rest.substr(dot + 1);
    unsigned long id = 0;
    for (const char c : digits) {
        if (!std::isdigit(static_cast<unsigned char>(c)) || digits.size() > 10)
            return std::nullopt;
        id = id * 10 + static_cast<unsigned long>(c - '0');
    }
    return SaveLeftover{std::string(rest.substr(0, dot)), id};
}

FileSave::FileSave(const fs::path& path, const fs::path* permissionsOf) : path_(path) {
    const std::string shown = pathText(path_);
    target_ = followLinks(path_);

    native::SaveTarget existing;
    if (const native::SaveError error = native::probeSaveTarget(target_, existing)) {
        switch (error.failure) {
        case native::SaveFailure::Folder:
            throw FileError("Path/File access error: " + shown + " is a folder");
        case native::SaveFailure::NotPlain:
            throw FileError("Path/File access error: " + shown + " is not a plain file");
        case native::SaveFailure::Missing:
            throw FileError("Path not found: " + shown);
        case native::SaveFailure::Denied:
            throw FileError(withReason("Permission denied: " + shown, error.systemText));
        default:
            throw FileError(withReason("Path/File access error: " + shown, error.systemText));
        }
    }

    const fs::path folder = target_.parent_path();
    const std::string name = nameOf(target_);
    removeLeftovers(folder, name);

    const fs::path temporary = joinName(folder, saveTemporaryName(name, native::currentProcessId()));
    const fs::path* permissions = existing.exists ? &target_ : permissionsOf;
    native::SaveError error;
    file_ = native::NewFile::create(temporary, permissions, error);
    if (error.failure == native::SaveFailure::Exists && native::removeFile(temporary))
        file_ = native::NewFile::create(temporary, permissions, error);
    if (error) {
        switch (error.failure) {
        case native::SaveFailure::Missing:
            throw FileError("Path not found: " + shown);
        case native::SaveFailure::Denied:
            throw FileError("Permission denied: " + shown + " (" +
                            withDetail("its folder cannot be written to", error.systemText) + ")");
        case native::SaveFailure::NoSpace:
            throw FileError(withReason("Device I/O error while writing " + shown, error.systemText));
        case native::SaveFailure::Exists:
            throw FileError("Path/File access error: " + shown + " (the temporary file " +
                            pathText(temporary) + " of an earlier save cannot be removed)");
        default:
            throw FileError(withReason("Path/File access error: " + shown, error.systemText));
        }
    }
    buffer_.reserve(kBufferSize);
}

FileSave::~FileSave() {
    discard();
}

void FileSave::discard() {
    file_.discard();
    buffer_.clear();
}

void FileSave::abandon(const std::string& description) {
    discard();
    throw FileError(description);
}

void FileSave::flushBuffer() {
    if (buffer_.empty())
        return;
    const native::SaveError error = file_.write(buffer_.data(), buffer_.size());
    buffer_.clear();
    if (error)
        abandon(withReason("Device I/O error while writing " + pathText(path_), error.systemText));
}

void FileSave::write(std::string_view bytes) {
    if (!file_.isOpen())
        throw FileError("Bad file name or number: " + pathText(path_) + " is not open");
    if (buffer_.size() + bytes.size() > kBufferSize) {
        flushBuffer();
        if (bytes.size() >= kBufferSize) {
            if (const native::SaveError error = file_.write(bytes.data(), bytes.size()))
                abandon(withReason("Device I/O error while writing " + pathText(path_), error.systemText));
            return;
        }
    }
    buffer_.append(bytes);
}

void FileSave::commit() {
    if (committed_)
        return;
    if (!file_.isOpen())
        throw FileError("Bad file name or number: " + pathText(path_) + " is not open");
    flushBuffer();
    if (const native::SaveError error = file_.finish())
        abandon(withReason("Device I/O error while writing " + pathText(path_), error.systemText));
    if (const native::SaveError error = file_.replace(target_)) {
        const std::string shown = pathText(path_);
        switch (error.failure) {
        case native::SaveFailure::Denied:
            abandon("Permission denied: " + shown + " (" +
                    withDetail("the file cannot be replaced", error.systemText) + ")");
        case native::SaveFailure::Missing:
            abandon("Path not found: " + shown);
        case native::SaveFailure::Folder:
            abandon("Path/File access error: " + shown + " is a folder");
        default:
            abandon(withReason("Path/File access error: cannot replace " + shown, error.systemText));
        }
    }
    committed_ = true;
}

void copyFileWhole(const fs::path& from, const fs::path& to) {
    native::InputFile source = native::InputFile::open(from);
    if (!source.isOpen()) {
        std::string reason;
        switch (source.failure()) {
        case native::OpenFailure::Missing:
            reason = "file not found";
            break;
        case native::OpenFailure::Folder:
            reason = "it is a folder";
            break;
        case native::OpenFailure::NotPlain:
            reason = "it is not a plain file";
            break;
        case native::OpenFailure::Denied:
            reason = "permission denied";
            break;
        default:
            reason = source.systemText();
            break;
        }
        throw FileError(withReason("Path/File access error: cannot copy " + pathText(from), reason));
    }
    FileSave copy(to, &from);
    std::string chunk(kBufferSize, '\0');
    for (;;) {
        const std::ptrdiff_t got = source.read(chunk.data(), chunk.size());
        if (got < 0)
            throw FileError("Device I/O error while reading " + pathText(from));
        if (got == 0)
            break;
        copy.write(std::string_view(chunk.data(), static_cast<std::size_t>(got)));
    }
    copy.commit();
}

} // namespace rd
