#pragma once
// Saving a file so that it is never left half written: the bytes go to a new temporary file in
// the same folder, which is flushed to the disk and only then renamed over the old file. Until
// the rename the old file stays exactly as it was; when anything fails (a full disk, a quota, a
// file size limit, a vanished folder), or the program is killed, the old file is whole.
//
// The temporary file is named after the file it saves (".Options.cfg.4711.rdsave": hidden on
// POSIX, marked hidden on Windows, with the saving program's process id and an ending no file of
// the launcher has), so the next save of that file removes what a killed program left, and the
// workspace doctor reports it.

#include "core/nativefile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rd {

// The name of the temporary file a program with process id `processId` writes to save the file
// named `name`.
std::string saveTemporaryName(std::string_view name, unsigned long processId);

// A temporary file of a save, recognised by its name.
struct SaveLeftover {
    std::string file;            // the name of the file it was saving
    unsigned long processId = 0; // the program that was saving it
};
std::optional<SaveLeftover> saveLeftoverOf(std::string_view name);

// One save of a file. Opening checks the file (a folder, a device, a read-only file or folder is
// refused with FileError, as writing in place would be), removes the temporary files of earlier
// saves of it that were never finished, and creates the new temporary file. A file reached
// through a symbolic link is saved at the link's target; the link stays. The file's permissions
// stay as they were.
class FileSave {
public:
    // `permissionsOf`: for a file that does not exist yet, the file whose permissions it takes (a
    // copy's source); by default it gets the system's defaults for a new file.
    explicit FileSave(const std::filesystem::path& path,
                      const std::filesystem::path* permissionsOf = nullptr);
    // A save that was not committed is dropped: the temporary file goes, the old file stays.
    ~FileSave();
    FileSave(const FileSave&) = delete;
    FileSave& operator=(const FileSave&) = delete;

    // Adds bytes to the new file (buffered). Raises FileError when the disk refuses them.
    void write(std::string_view bytes);
    // Writes what is buffered, flushes the new file to the disk and renames it over the old one.
    // Raises FileError when any of that fails; the old file is then untouched.
    void commit();
    // Drops the save: the temporary file goes, the old file stays.
    void discard();

    bool committed() const { return committed_; }
    // The path as given, and the file actually replaced (a symbolic link's target).
    const std::filesystem::path& path() const { return path_; }
    const std::filesystem::path& target() const { return target_; }

private:
    void flushBuffer();
    // Drops the save and raises FileError with the description.
    [[noreturn]] void abandon(const std::string& description);

    std::filesystem::path path_;
    std::filesystem::path target_;
    native::NewFile file_;
    std::string buffer_;
    bool committed_ = false;
};

// Copies a file whole through a save: afterwards `to` is a complete copy of `from` or, when the
// copy fails, what it was before (nothing, for a new file). A new copy takes the permissions of
// `from`.
void copyFileWhole(const std::filesystem::path& from, const std::filesystem::path& to);

} // namespace rd
