// The key lookup over arbitrary text and key (split at the first NUL byte).
#include "core/keylookup.h"

#include <cstddef>
#include <cstdint>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t split = input.find('\0');
    const std::string text = input.substr(0, split);
    std::string key = split == std::string::npos ? std::string("map") : input.substr(split + 1);
    (void)rd::KeyLookup(text, key);
    (void)rd::lookupKey(key, text);
    return 0;
}
