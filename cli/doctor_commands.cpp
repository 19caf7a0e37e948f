// The workspace doctor: what the launcher would misread or what is plainly broken.

#include "cli/registry.h"
#include "core/workspace.h"
#include "doctor/doctor.h"

#include <system_error>

namespace rd::cli {
namespace {

const bool doctorRegistered = addCommand(
    "doctor", "What the launcher would misread or what is plainly broken in the workspace (changes nothing)",
    [](CLI::App&) -> Action {
        return [](Context& ctx) {
            // A workspace that is not there has nothing to find; saying "[]" would mislead.
            std::error_code ec;
            if (!std::filesystem::is_directory(ctx.root, ec))
                throw UsageError("Path not found: " + pathText(ctx.root));
            Json out = Json::array();
            for (const auto& finding : Diagnose(ctx.root)) {
                out.push_back(Json{{"severity", severityName(finding.severity)},
                                   {"file", str(finding.file)},
                                   {"line", finding.line ? Json(*finding.line) : Json(nullptr)},
                                   {"message", str(finding.message)}});
            }
            // Findings are the answer, not messages: the status tells whether there are any.
            if (!out.empty())
                ctx.failed = true;
            return out;
        };
    });

} // namespace
} // namespace rd::cli
