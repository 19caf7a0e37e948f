#include "core/findings.h"

namespace rd {

std::string inQuotes(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

namespace {

std::string moreLines(std::size_t count, std::string_view what) {
    if (count <= 1)
        return {};
    return " (" + std::to_string(count) + " lines " + std::string(what) + ")";
}

} // namespace

void lineEndingFindings(const std::filesystem::path& file, const LineEndings& endings, Findings& out) {
    if (endings.bareLineFeeds > 0)
        out.push_back({Severity::Error, file, endings.firstBareLineFeed,
                       "the line ends with a line feed alone, not CR LF; the launcher reads on into the next "
                       "line" +
                           moreLines(endings.bareLineFeeds, "end so")});
    if (endings.loneReturns > 0)
        out.push_back(
            {Severity::Warning, file, endings.firstLoneReturn,
             "the line holds a carriage return without a line feed; the launcher ends the line there" +
                 moreLines(endings.loneReturns, "hold one")});
    if (endings.lastLineUnterminated)
        out.push_back(
            {Severity::Warning, file, endings.lines,
             "the last line has no CR LF after it; every line of the launcher's files ends with CR LF"});
}

} // namespace rd
