#include "fuzz/fuzz_input.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace rd::fuzz {

namespace fs = std::filesystem;

namespace {

fs::path scratchFolder() {
    std::error_code ec;
    fs::path base = fs::is_directory("/dev/shm", ec) ? fs::path("/dev/shm") : fs::temp_directory_path();
    fs::path folder = base / ("rosterdesk-fuzz-" + std::to_string(::getpid()));
    fs::create_directories(folder);
    return folder;
}

} // namespace

const fs::path& writeInput(const std::uint8_t* data, std::size_t size) {
    static const fs::path folder = scratchFolder();
    static const fs::path file = folder / "input.dat";
    static const bool cleanup = [] {
        std::atexit([] {
            std::error_code ec;
            fs::remove_all(folder, ec);
        });
        return true;
    }();
    (void)cleanup;
    std::FILE* out = std::fopen(file.c_str(), "wb");
    if (!out)
        std::abort();
    if (size > 0 && std::fwrite(data, 1, size, out) != size)
        std::abort();
    std::fclose(out);
    return file;
}

} // namespace rd::fuzz
