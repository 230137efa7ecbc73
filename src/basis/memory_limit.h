#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace crownlab {

/// Throws OutOfMemory if `bytes` more than the process holds now would pass the bound: four fifths of the
/// machine's memory, or the number of bytes in the environment variable CROWNLAB_MEMORY. Called with the
/// whole size, computed in 64 bits, before large arrays are made, so that the old state is still whole.
void RequireMemory(std::uint64_t bytes, std::string_view what);

/// Tells the system that a large block is going to be filled throughout, so that it may use large pages:
/// without them, half the time of reading a large surface goes into page faults. No effect on small blocks.
void HintLargePages(void* block, std::size_t bytes);

/// The bound itself in bytes.
std::uint64_t MemoryBound();

}  // namespace crownlab
