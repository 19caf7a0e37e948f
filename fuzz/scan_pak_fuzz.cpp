// ScanPak over arbitrary bytes: any header, any directory, truncated or lying.
#include "fuzz/fuzz_input.h"
#include "maps/pak.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& path = rd::fuzz::writeInput(data, size);
    for (const bool mapsOnly : {true, false}) {
        std::vector<std::string> names;
        rd::ScanPak(path, names, mapsOnly);
        // Nothing is invented: every entry takes 64 bytes of the file.
        if (names.size() * 64 > size)
            std::abort();
        if (!mapsOnly)
            for (const auto& name : names)
                if (name.size() != 56)
                    std::abort();
    }
    return 0;
}
