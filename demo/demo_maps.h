#pragma once
// The maps of the demo's fake game installation: small real Quake 2 maps (rooms joined by
// corridors, a title, spawn points, weapons; the CTF maps with flags and team spawn points), and
// one damaged map, so the map cards have something to show.

#include <string>

namespace rd::demo {

// The bytes of the demo map named `name` (a map name, or a loose map's file name with ".bsp").
std::string demoMapBytes(const std::string& name);

} // namespace rd::demo
