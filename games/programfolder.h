#pragma once
// The folders the game editor fills in by itself: when the folder of a Quake 2 program changes,
// the maps and the player models are in its baseq2 folder.

#include <string>
#include <string_view>

namespace rd {

// The program name for which the maps and models folders follow the program folder.
inline constexpr std::string_view kQuake2Program = "QUAKE2.EXE";

// Whether `exeName` is the Quake 2 program, compared without regard to case (as typed, no
// blanks removed).
bool isQuake2Program(std::string_view exeName);

// <programFolder>\baseq2\<leaf>: a separator is added to the program folder when it does not end
// in one, and the same kind of separator joins baseq2 and `leaf` ('\' unless the folder uses
// only '/'). No separator at the end.
std::string quake2DataFolder(std::string_view programFolder, std::string_view leaf);

} // namespace rd
