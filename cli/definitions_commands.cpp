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

// A file named on the command line must exist.
void requireFile(const fs::path& path) {
    if (!fileExists(path))
        throw UsageError("File not found: " + utf8ToCp1252(path.string()));
}

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

const bool optionsRegistered =
    addFileKind("options", FileKind{[](Context& ctx, const fs::path& path, const std::vector<std::string>&) {
                                        requireFile(path);
                                        std::vector<OptionRow> rows;
                                        StepRunner(ctx.trap()).step([&] { rows = LoadDefinitions(path); });
                                        return optionRows(rows);
                                    },
                                    [](Context& ctx, const fs::path& path) {
                                        requireFile(path);
                                        std::vector<OptionRow> rows;
                                        StepRunner trap(ctx.trap());
                                        if (trap.step([&] { rows = LoadDefinitions(path); }))
                                            trap.step([&] { SaveDefinitions(path, rows); });
                                    }});

const bool flagsRegistered =
    addFileKind("dmflags", FileKind{[](Context& ctx, const fs::path& path, const std::vector<std::string>&) {
                                        requireFile(path);
                                        std::vector<FlagRow> rows;
                                        StepRunner(ctx.trap()).step([&] { rows = LoadDMflags(path); });
                                        return flagRows(rows);
                                    },
                                    [](Context& ctx, const fs::path& path) {
                                        requireFile(path);
                                        std::vector<FlagRow> rows;
                                        StepRunner trap(ctx.trap());
                                        if (trap.step([&] { rows = LoadDMflags(path); }))
                                            trap.step([&] { SaveDMflags(path, rows); });
                                    }});

const bool listRegistered = addFileKind(
    "list", FileKind{[](Context& ctx, const fs::path& path, const std::vector<std::string>&) {
                         requireFile(path);
                         const bool valueList = isValueListName(nameOf(path));
                         std::vector<ListItem> items;
                         StepRunner(ctx.trap()).step([&] { items = LoadList(path, valueList); });
                         Json list = Json::array();
                         for (const auto& item : items)
                             list.push_back(Json{{"text", str(item.text)}, {"value", str(item.value)}});
                         return Json{{"valueList", valueList}, {"items", list}};
                     },
                     [](Context& ctx, const fs::path& path) {
                         requireFile(path);
                         const bool valueList = isValueListName(nameOf(path));
                         std::vector<ListItem> items;
                         StepRunner trap(ctx.trap());
                         if (trap.step([&] { items = LoadList(path, valueList); }))
                             trap.step([&] { SaveList(path, items, valueList); });
                     }});

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
        const fs::path file(cp1252ToUtf8(args[1]));
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
