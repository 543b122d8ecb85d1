#pragma once

#include "mapinput/byte_reader.h"
#include "mapinput/text_items.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// A map file read as text, item by item.

namespace quelmont {

/// The most characters that belong together. What is longer is no map: it is read as if it ended
/// there.
constexpr std::size_t MaxTextItem = std::size_t{64} * 1024;

/// The text that lies ahead, up to MaxTextItem. It stays valid until more is asked for.
inline std::string_view TextAhead(ByteReader& bytes) {
    const std::span<const std::byte> ready = bytes.Ahead(MaxTextItem);
    return std::string_view(reinterpret_cast<const char*>(ready.data()), ready.size()).substr(0, MaxTextItem);
}

/// Takes from the file what a function takes off the front of the text ahead, and gives its result.
template <typename Take>
auto TakeText(ByteReader& bytes, Take&& take) {
    const std::string_view before = TextAhead(bytes);
    std::string_view text = before;
    auto result = take(text);
    bytes.Skip(static_cast<std::int64_t>(before.size() - text.size()));
    return result;
}

/// Steps over blank lines. False at the end of the file.
inline bool FindText(ByteReader& bytes) {
    while (bytes.Has(1)) {
        if (TakeText(bytes, [](std::string_view& text) {
                TakeBlankLines(text);
                return !text.empty();
            })) {
            return true;
        }
    }
    return false;
}

/// Steps over the mark that some programs put at the front of UTF-8.
inline void SkipByteOrderMark(ByteReader& bytes) {
    if (TextAhead(bytes).substr(0, 3) == "\xEF\xBB\xBF") {
        bytes.Skip(3);
    }
}

} // namespace quelmont
