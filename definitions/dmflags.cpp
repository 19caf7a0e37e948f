#include "definitions/dmflags.h"

#include "core/conversions.h"
#include "core/errors.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "definitions/options.h"

#include <algorithm>

namespace rd {

namespace fs = std::filesystem;

std::vector<FlagRow> LoadDMflags(const fs::path& path) {
    return readFlagFile(path, nullptr);
}

std::vector<FlagRow> readFlagFile(const fs::path& path, std::vector<RowPlace>* places) {
    std::vector<FlagRow> rows;
    if (places)
        places->clear();
    if (!fileExists(path))
        return rows;
    LineReader reader(resolvePath(path.parent_path(), nameOf(path)));
    std::size_t lineNumber = 0;
    // The next line, counting the lines that are really there.
    const auto next = [&](bool& present) {
        present = !reader.atEnd();
        if (present)
            ++lineNumber;
        return reader.readLine("");
    };
    bool present = false;
    while (!reader.atEnd()) {
        std::string line = next(present);
        RowPlace place{lineNumber, -1};
        if (!line.empty() && line.front() == '[') {
            rows.push_back(FlagRow::category(categoryName(line)));
        } else {
            FlagRow row;
            row.name = std::move(line);
            next(present); // always empty on writing, ignored on reading
            const std::string fieldsLine = next(present);
            if (present)
                place.tabs = static_cast<int>(std::count(fieldsLine.begin(), fieldsLine.end(), '\t'));
            if (!fieldsLine.empty()) {
                const auto fields = SplitTabFields(fieldsLine, 4);
                row.bitmap = fields[0];
                row.checked = fields[1];
                row.unchecked = fields[2];
                row.help = fields[3];
            }
            rows.push_back(std::move(row));
        }
        if (places)
            places->push_back(place);
    }
    return rows;
}

void SaveDMflags(const fs::path& path, const std::vector<FlagRow>& rows) {
    LineWriter writer(resolvePath(path.parent_path(), nameOf(path)));
    for (const auto& row : rows) {
        if (row.isCategory) {
            writer.writeLine("[" + row.name + "]");
            continue;
        }
        writer.writeLine(row.name);
        writer.writeLine("");
        writer.writeLine(row.bitmap + '\t' + row.checked + '\t' + row.unchecked + '\t' + row.help);
    }
    writer.close();
}

std::array<std::string, 27> dmflagValues() {
    std::array<std::string, 27> values;
    values[0] = "0";
    for (std::size_t i = 1; i < values.size(); ++i)
        values[i] = std::to_string(1LL << (i - 1));
    return values;
}

FlagValuesCheck checkFlagValues(std::string_view checked, std::string_view unchecked) {
    FlagValuesCheck result;
    result.checked = isNumeric(checked) ? std::string(checked) : "0";
    result.unchecked = isNumeric(unchecked) ? std::string(unchecked) : "0";
    std::int32_t on = 0, off = 0;
    try {
        on = toInt32(result.checked);
        off = toInt32(result.unchecked);
    } catch (const ConversionError&) {
        result.refusal = kFlagsOutOfRange;
        return result;
    }
    if (on == 0 && off == 0)
        result.refusal = kFlagsBothZero;
    else if (on != 0 && off != 0)
        result.refusal = kFlagsBothSet;
    return result;
}

} // namespace rd
