#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

namespace quelmont {

/// How a file behaves that is not simply there: one that the system makes up while it is read, or that
/// another program writes or truncates meanwhile.
struct MemoryFileHabits {
    bool tellsTrueLength = true;
    std::int64_t toldLength = 0; ///< if it is not the true one
    std::size_t mostPerRead = std::numeric_limits<std::size_t>::max();
    std::size_t sizeAtOpening = std::numeric_limits<std::size_t>::max(); ///< of what it ever holds
    std::ptrdiff_t changePerRead = 0; ///< it grows, or shrinks, by so many bytes behind each read
};

/// The habits that a byte of an input stands for; 0 is a plain file.
MemoryFileHabits HabitsOf(std::uint8_t choice);

/// From now on whatever is opened under a file number reads these bytes, which must outlive the
/// reading. Nothing is ever written.
void SetMemoryFile(std::span<const std::uint8_t> contents, const MemoryFileHabits& habits = {});

} // namespace quelmont
