// LoadDefinitions over arbitrary bytes, then the option editor's rules on what was loaded.
#include "core/errors.h"
#include "definitions/numberrange.h"
#include "definitions/options.h"
#include "fuzz/fuzz_input.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto& path = rd::fuzz::writeInput(data, size);
    const auto rows = rd::LoadDefinitions(path);
    for (std::size_t i = 0; i < rows.size() && i < 8; ++i) {
        const auto& row = rows[i];
        if (row.isCategory)
            continue;
        const std::string key = rd::MakeKey(rows, row.name);
        if (!rd::IsKeyUnique(rows, key))
            std::abort();
        (void)rd::NormaliseNumberRange(row.parameter);
        (void)rd::NormaliseFolderFlag(row.parameter);
        const auto fields = rd::parseNumberRange(row.parameter);
        (void)rd::formatNumberRange(fields.min, fields.max, row.type);
        (void)rd::TypeKeyword(row.name);
    }
    return 0;
}
