#include "tests/support/wine_data.h"

#include "tests/support/environment_data.h"

#include <algorithm>
#include <cstdlib>

namespace rd::test {

namespace fs = std::filesystem;

FakeWinePrefix::FakeWinePrefix() {
    fs::create_directories(prefix() / "dosdevices");
    fs::create_directories(root() / "Plug-Ins");
    fs::create_directories(root() / "Game-Paths");
    link("c:", "../drive_c");
    link("z:", "/");
}

fs::path FakeWinePrefix::driveC(std::string_view relative) const {
    const fs::path c = prefix() / "drive_c";
    return relative.empty() ? c : c / fs::path(std::string(relative));
}

void FakeWinePrefix::folder(std::string_view relative) const {
    fs::create_directories(driveC(relative));
}

void FakeWinePrefix::write(std::string_view relative, std::string_view bytes) const {
    const fs::path file = driveC(relative);
    fs::create_directories(file.parent_path());
    writeBytes(file, bytes);
}

void FakeWinePrefix::writeLines(std::string_view relative, const std::vector<std::string>& lines) const {
    write(relative, crlf(lines));
}

std::string FakeWinePrefix::read(std::string_view relative) const {
    return readBytes(driveC(relative));
}

void FakeWinePrefix::link(std::string_view name, const fs::path& target) const {
    const fs::path entry = prefix() / "dosdevices" / std::string(name);
    unlink(name);
    fs::create_directory_symlink(target, entry);
}

void FakeWinePrefix::unlink(std::string_view name) const {
    std::error_code ec;
    fs::remove(prefix() / "dosdevices" / std::string(name), ec);
}

std::string zDrivePath(const fs::path& path) {
    std::string text = "Z:" + fs::absolute(path).lexically_normal().string();
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

ScopedEnvironment::ScopedEnvironment(
    std::initializer_list<std::pair<std::string, std::optional<std::string>>> values) {
    for (const auto& [name, value] : values) {
        const char* before = std::getenv(name.c_str());
        saved_.emplace_back(name, before ? std::optional<std::string>(before) : std::nullopt);
        if (value)
            setEnvironment(name, *value);
        else
            unsetEnvironment(name);
    }
}

ScopedEnvironment::~ScopedEnvironment() {
    for (auto it = saved_.rbegin(); it != saved_.rend(); ++it) {
        if (it->second)
            setEnvironment(it->first, *it->second);
        else
            unsetEnvironment(it->first);
    }
}

} // namespace rd::test
