#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>
#include <vector>

namespace quelmont {

/// The bytes of the map file that has just been opened under file number 1, read in large blocks.
/// Every reader takes its bytes from here and nothing else touches the file. How long the file is shows
/// when it has been read, and not before.
class ByteReader {
public:
    /// RunTimeError when the file is not open.
    ByteReader();

    /// Fills a span with the next bytes and returns how many there were, 0 only at their end.
    using Source = std::function<std::size_t(std::span<std::byte>)>;
    /// Bytes of another source, which goes forward only: nothing may be stepped over that does not lie ready.
    explicit ByteReader(Source source_) : block(BlockSize), source(std::move(source_)) {}

    /// Whether at least so many bytes are left, count up to BlockSize. RunTimeError when the file
    /// cannot be read. Once the file has no more, it has no more until the next Seek, even if it grows.
    bool Has(std::size_t count) { return Buffered() >= count || Fill(count); }

    /// The next Size bytes, which stay valid until the next call. RunTimeError "Input past end of
    /// file" when there are fewer; nothing is taken then.
    template <std::size_t Size>
    std::span<const std::byte, Size> Take() {
        if (!Has(Size)) [[unlikely]] {
            PastEnd();
        }
        const std::byte* bytes = block.data() + next;
        next += Size;
        return std::span<const std::byte, Size>(bytes, Size);
    }

    /// The bytes that lie ready, at least so many (up to BlockSize) unless the file ends before; they
    /// stay valid until more are asked for. RunTimeError when the file cannot be read.
    std::span<const std::byte> Ahead(std::size_t least) {
        Has(std::min(least, BlockSize));
        return {block.data() + next, Buffered()};
    }

    /// Steps over bytes, and over the end of the file if they are more than it has. What lies beyond
    /// the block is not read. RunTimeError "Invalid procedure call or argument" for a negative count and
    /// for what another source than the file does not have ready, and when the file cannot be sought.
    void Skip(std::int64_t count) {
        if (count >= 0 && static_cast<std::uint64_t>(count) <= Buffered()) [[likely]] {
            next += static_cast<std::size_t>(count);
        } else {
            Seek(count);
        }
    }

    /// Of the next byte in the file, counted from 0; behind the end after a step over it.
    std::int64_t Position() const { return position - static_cast<std::int64_t>(Buffered()); }

    static constexpr std::size_t BlockSize = std::size_t{256} * 1024;

private:
    std::size_t Buffered() const { return filled - next; }
    bool Fill(std::size_t count);
    void Seek(std::int64_t count);
    [[noreturn]] static void PastEnd();

    /// Of BlockSize bytes, whatever length the file reports: generated files (/proc) report none, and a file
    /// may grow or shrink while it is read.
    std::vector<std::byte> block;
    Source source;             ///< none: the file
    std::size_t next = 0;      ///< of the block's bytes, the first that was not taken
    std::size_t filled = 0;    ///< bytes in the block
    std::int64_t position = 0; ///< of the block's end in the file
    bool atEnd = false;        ///< the file has no more
};

/// The two bytes of a signed number, the low one first.
constexpr std::array<std::byte, 2> LittleBytes(std::int16_t number) {
    const auto bits = static_cast<std::uint16_t>(number);
    return {static_cast<std::byte>(bits & 0xFFU), static_cast<std::byte>(bits >> 8U)};
}

/// A signed number of two bytes, the low one first.
constexpr std::int16_t LittleInt16(std::byte low, std::byte high) {
    return static_cast<std::int16_t>(
        static_cast<std::uint16_t>(std::to_integer<unsigned>(low) | std::to_integer<unsigned>(high) << 8U));
}

} // namespace quelmont
