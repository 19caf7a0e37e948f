#include "definitions/lists.h"

#include "core/text.h"
#include "core/textfile.h"
#include "core/workspace.h"
#include "games/gamelist.h"

namespace rd {

namespace fs = std::filesystem;

bool isValueListName(std::string_view fileName) {
    return containsNoCase(fileName, ".val");
}

fs::path listFolder(const fs::path& root, std::string_view gameName) {
    return resolvePath(gamePathsFolder(root), gameName);
}

std::vector<ListItem> LoadList(const fs::path& path, bool valueList) {
    const auto lines = readAllLines(path);
    std::vector<ListItem> items;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        ListItem item{lines[i], lines[i]};
        if (valueList && i + 1 < lines.size())
            item.value = lines[++i];
        items.push_back(std::move(item));
    }
    return items;
}

bool SaveList(const fs::path& path, const std::vector<ListItem>& items, bool valueList) {
    if (items.empty())
        return false;
    LineWriter writer(resolvePath(path.parent_path(), nameOf(path)));
    for (const auto& item : items) {
        writer.writeLine(item.text);
        if (valueList)
            writer.writeLine(item.value);
    }
    writer.close();
    return true;
}

std::string newListFileName(std::string_view typed, bool valueList) {
    return std::string(typed) + (valueList ? ".val" : ".lst");
}

NewListOutcome newList(const fs::path& folder, std::string_view typed, bool valueList) {
    NewListOutcome outcome;
    if (typed.empty())
        return outcome;
    if (auto refusal = refuseNewName(typed)) {
        outcome.refusal = *refusal;
        return outcome;
    }
    const std::string fileName = newListFileName(typed, valueList);
    if (fileExists(joinName(folder, fileName))) {
        outcome.refusal = kListExists;
        return outcome;
    }
    outcome.fileName = fileName;
    return outcome;
}

} // namespace rd
