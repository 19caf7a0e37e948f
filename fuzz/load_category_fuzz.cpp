// LoadCategory over arbitrary bytes; what it loads saves and loads back the same.
#include "fuzz/fuzz_input.h"
#include "maps/categories.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& path = rd::fuzz::writeInput(data, size);
    const rd::MapCategory category = rd::LoadCategory(path);
    for (const auto& row : category.maps)
        if (row.name.empty())
            std::abort();
    // Names and titles without line breaks survive a save in the current layout.
    bool plain = true;
    for (const auto& row : category.maps)
        for (const auto* text : {&row.name, &row.title})
            if (text->find_first_of("\r\n") != std::string::npos || *text == "[V2]" || *text == "[ARENA]")
                plain = false;
    if (plain) {
        rd::SaveCategory(path, category);
        if (!(rd::LoadCategory(path) == category))
            std::abort();
    }
    return 0;
}
