#pragma once
// Fuzz inputs reach the file readers through a scratch file of their own.

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace rd::fuzz {

// Writes the input to this process's scratch file and returns its path.
const std::filesystem::path& writeInput(const std::uint8_t* data, std::size_t size);

} // namespace rd::fuzz
