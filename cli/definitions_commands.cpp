// Definition files (options, deathmatch flags, value and text lists) and the small rules of the
// option editor: key generation and number ranges.

#include "cli/registry.h"
#include "core/steprunner.h"
#include "core/text.h"
#include "core/workspace.h"
#include "definitions/dmflags.h"
#include "definitions/lists.h"
#include "definitions/numberrange.h"
#include "definitions/options.h"

#include <memory>

namespace rd::cli {
namespace {

namespace fs = std::filesystem;

Json optionRows(const std::vector<OptionRow>& rows) {
    Json out = Json::array();
    for (const auto& row : rows) {
        if (row.isCategory) {
            out.push_back(Json{{"category", str(row.name)}});
            continue;
        }
        out.push_back(Json{{"name", str(row.name)},
                           {"checked", str(row.checked)},
                           {"unchecked", str(row.unchecked)},
                           {"help", str(row.helpText)},
                           {"type", str(row.type)},
                           {"parameter", str(row.parameter)},
                           {"where", str(row.where)},
                           {"key", str(row.key)}});
    }
    return out;
}

Json flagRows(const std::vector<FlagRow>& rows) {
    Json out = Json::array();
    for (const auto& row : rows) {
        if (row.isCategory) {
            out.push_back(Json{{"category", str(row.name)}});
            continue;
        }
        out.push_back(Json{{"name", str(row.name)},
                           {"checked", str(row.checked)},
                           {"unchecked", str(row.unchecked)},
                           {"bitmap", str(row.bitmap)},
                           {"help", str(row.help)}});
    }
    return out;
}

const bool optionsRegistered = addFileKind(
    "options", loadSaveKind<std::vector<OptionRow>>(LoadDefinitions, SaveDefinitions, optionRows));

const bool flagsRegistered =
    addFileKind("dmflags", loadSaveKind<std::vector<FlagRow>>(LoadDMflags, SaveDMflags, flagRows));

// A list's kind is decided by its file name.
const bool listRegistered = addFileKind(
    "list", loadSaveKind<std::pair<bool, std::vector<ListItem>>>(
                [](const fs::path& path) {
                    const bool valueList = isValueListName(nameOf(path));
                    return std::pair{valueList, LoadList(path, valueList)};
                },
                [](const fs::path& path, const std::pair<bool, std::vector<ListItem>>& list) {
                    SaveList(path, list.second, list.first);
                },
                [](const std::pair<bool, std::vector<ListItem>>& list) {
                    Json items = Json::array();
                    for (const auto& item : list.second)
                        items.push_back(Json{{"text", str(item.text)}, {"value", str(item.value)}});
                    return Json{{"valueList", list.first}, {"items", items}};
                }));

// Commands whose arguments are free text that may begin with '-' take them unparsed.
Configure rawArguments(std::size_t count, std::string usage,
                       std::function<Json(Context&, const std::vector<std::string>&)> run) {
    return [count, usage = std::move(usage), run = std::move(run)](CLI::App& sub) -> Action {
        sub.prefix_command();
        CLI::App* self = &sub;
        return [self, count, usage, run](Context& ctx) {
            auto args = self->remaining();
            if (args.size() != count)
                throw UsageError("usage: " + usage);
            for (auto& arg : args)
                arg = utf8ToCp1252(arg);
            return run(ctx, args);
        };
    };
}

const bool makeKeyRegistered = addCommand(
    "make-key", "The key generated for a new option NAME in the definition file FILE: make-key NAME FILE",
    rawArguments(2, "make-key NAME FILE", [](Context& ctx, const std::vector<std::string>& args) {
        const fs::path file = pathFromUtf8(cp1252ToUtf8(args[1]));
        std::vector<OptionRow> rows;
        StepRunner(ctx.trap()).step([&] { rows = LoadDefinitions(file); });
        return str(MakeKey(rows, args[0]));
    }));

const bool numberRangeRegistered = addCommand(
    "number-range", "A NUMBER option's parameter as stored after the field loses focus: number-range TEXT",
    rawArguments(1, "number-range TEXT", [](Context& ctx, const std::vector<std::string>& args) {
        const NumberRangeCheck check = NormaliseNumberRange(args[0]);
        if (!check.accepted)
            ctx.message(numberRangeWarning());
        return str(check.text);
    }));

const bool formatRangeRegistered = addCommand(
    "format-range", "The parameter the number range dialog writes on OK: format-range MIN MAX DECIMALS",
    rawArguments(3, "format-range MIN MAX DECIMALS", [](Context&, const std::vector<std::string>& args) {
        const auto text = formatNumberRange(args[0], args[1], args[2]);
        return text ? str(*text) : Json(nullptr);
    }));

} // namespace
} // namespace rd::cli
