#include "games/programfolder.h"

#include "core/text.h"
#include "core/workspace.h"

namespace rd {

bool isQuake2Program(std::string_view exeName) {
    return equalsNoCase(exeName, kQuake2Program);
}

std::string quake2DataFolder(std::string_view programFolder, std::string_view leaf) {
    const bool hasBackslash = programFolder.find('\\') != std::string_view::npos;
    const bool hasSlash = programFolder.find('/') != std::string_view::npos;
    const char separator = (hasSlash && !hasBackslash) ? '/' : '\\';
    return withTrailingSeparator(programFolder) + "baseq2" + separator + std::string(leaf);
}

} // namespace rd
