// The flag reader over arbitrary bytes, the flag editor's OK rules on what was loaded, and a
// save and reload of plain rows.
#include "core/conversions.h"
#include "definitions/dmflags.h"
#include "fuzz/fuzz_input.h"

#include <cstdlib>

namespace {

bool plain(const std::string& text) {
    return text.find_first_of("\r\n\t") == std::string::npos;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& path = rd::fuzz::writeInput(data, size);
    const auto rows = rd::LoadDMflags(path);
    bool allPlain = true;
    for (const auto& row : rows) {
        const auto check = rd::checkFlagValues(row.checked, row.unchecked);
        if (!check.refusal && (!rd::isNumeric(check.checked) || !rd::isNumeric(check.unchecked)))
            std::abort();
        if (!plain(row.name) || !plain(row.checked) || !plain(row.unchecked) || !plain(row.bitmap) ||
            !plain(row.help) || (!row.isCategory && !row.name.empty() && row.name.front() == '['))
            allPlain = false;
        if (row.isCategory && (row.name.empty() || row.name.front() == '[' || row.name.back() == ']'))
            allPlain = false;
    }
    if (allPlain) {
        rd::SaveDMflags(path, rows);
        auto again = rd::LoadDMflags(path);
        // A flag whose fields are all empty is written as three TABs and read back the same.
        if (again != rows)
            std::abort();
    }
    return 0;
}
