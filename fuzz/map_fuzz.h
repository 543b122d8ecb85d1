#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quelmont {

/// Feeds an input as a map file through the whole of MapPlot, and aborts where the program is not left
/// as it has to be.
///
/// The first five bytes choose the map, the name (the names are spread evenly over the values of the
/// third byte) with its symbol and what is hidden, the turn of events at which Escape is pressed, and the
/// habits of the file (see memory_file.h); the rest is the file. Shorter inputs do nothing.
void FuzzMapFile(std::span<const std::uint8_t> input, std::span<const char* const> names);

} // namespace quelmont

/// The entry of a fuzzer that feeds files of some names.
#define QUELMONT_MAP_FUZZER(...)                                                                             \
    extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {                      \
        static constexpr const char* names[] = {__VA_ARGS__};                                                \
        quelmont::FuzzMapFile({data, size}, names);                                                          \
        return 0;                                                                                            \
    }
