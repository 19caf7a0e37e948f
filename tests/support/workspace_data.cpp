#include "tests/support/workspace_data.h"

#include <atomic>
#include <cstdlib>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace rd::test {

namespace fs = std::filesystem;

fs::path testTempFolder() {
    const char* chosen = std::getenv("ROSTERDESK_TEST_TEMP");
    if (chosen && *chosen)
        return fs::path(chosen);
    return fs::temp_directory_path();
}

TempWorkspace::TempWorkspace() {
    static std::atomic<int> counter{0};
    // A random part chosen once per process tells parallel test programs apart.
    static const unsigned long long process = std::random_device{}();
    std::random_device random;
    const fs::path base = testTempFolder() / "rosterdesk-tests";
    fs::create_directories(base);
    for (;;) {
        fs::path candidate = base / ("ws-" + std::to_string(process % 1000000) + "-" +
                                     std::to_string(counter++) + "-" + std::to_string(random() % 100000));
        if (fs::create_directory(candidate)) {
            root_ = candidate;
            break;
        }
    }
}

TempWorkspace::~TempWorkspace() {
    std::error_code ec;
    fs::remove_all(root_, ec);
}

fs::path TempWorkspace::path(std::string_view relative) const {
    // In the system's own spelling (backslashes on Windows), as the program shows paths.
    return (root_ / fs::path(std::string(relative))).make_preferred();
}

void TempWorkspace::folder(std::string_view relative) const {
    fs::create_directories(path(relative));
}

void TempWorkspace::write(std::string_view relative, std::string_view bytes) const {
    const fs::path p = path(relative);
    fs::create_directories(p.parent_path());
    writeBytes(p, bytes);
}

void TempWorkspace::writeLines(std::string_view relative, const std::vector<std::string>& lines) const {
    write(relative, crlf(lines));
}

std::string TempWorkspace::read(std::string_view relative) const {
    return readBytes(path(relative));
}

bool TempWorkspace::exists(std::string_view relative) const {
    return fs::exists(path(relative));
}

bool TempWorkspace::listed(std::string_view relative) const {
    const fs::path wanted = path(relative);
    std::error_code ec;
    for (fs::directory_iterator it(wanted.parent_path(), ec), end; !ec && it != end; it.increment(ec))
        if (it->path().filename() == wanted.filename())
            return true;
    return false;
}

std::string crlf(const std::vector<std::string>& lines) {
    std::string out;
    for (const auto& line : lines)
        out += line + "\r\n";
    return out;
}

std::string readBytes(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in || fs::is_directory(path))
        throw std::runtime_error("cannot read " + path.string());
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

void writeBytes(const fs::path& path, std::string_view bytes) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        throw std::runtime_error("cannot write " + path.string());
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace rd::test
