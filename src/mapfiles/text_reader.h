#pragma once

#include "core/run_time_error.h"
#include "mapfiles/byte_reader.h"
#include "mapfiles/text_items.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// A map file read as text, item by item.

namespace quelmont {

/// The most characters that belong together. What is longer is no map.
constexpr std::size_t MaxTextItem = std::size_t{64} * 1024;
/// The most bytes that may stand together and mean nothing: blanks in one line, what lies behind a point.
constexpr std::size_t MaxFilling = 16 * MaxTextItem;

/// The text that lies ahead, up to MaxTextItem. It stays valid until more is asked for.
inline std::string_view TextAhead(ByteReader& bytes) {
    const std::span<const std::byte> ready =
        bytes.Ahead(MaxTextItem + 1); // one more shows whether it goes on
    return std::string_view(reinterpret_cast<const char*>(ready.data()), ready.size()).substr(0, MaxTextItem);
}

/// Takes from the file what a function takes off the front of the text ahead, and gives its result.
/// RunTimeError "Input past end of file" when that is MaxTextItem characters without an end.
template <typename Take>
auto TakeText(ByteReader& bytes, Take&& take) {
    const std::string_view before = TextAhead(bytes);
    std::string_view text = before;
    auto result = take(text);
    if (text.empty() && before.size() == MaxTextItem && !IsDelimiter(before.back()) &&
        bytes.Has(MaxTextItem + 1)) {
        throw RunTimeError(ErrorInputPastEnd);
    }
    bytes.Skip(static_cast<std::int64_t>(before.size() - text.size()));
    return result;
}

/// Steps over blank lines. False at the end of the file. RunTimeError "Input past end of file" for a
/// line of more than MaxFilling blanks.
inline bool FindText(ByteReader& bytes) {
    if (bytes.Has(1) && !IsFilling(TextAhead(bytes).front())) {
        return true;
    }
    std::size_t blanks = 0; // since the last line end
    while (bytes.Has(1)) {
        const std::string_view before = TextAhead(bytes);
        std::string_view text = before;
        TakeBlankLines(text);
        const std::string_view taken = before.substr(0, before.size() - text.size());
        if (blanks + std::min(taken.find_first_of("\r\n"), taken.size()) > MaxFilling) {
            throw RunTimeError(ErrorInputPastEnd);
        }
        const std::size_t lineEnd = taken.find_last_of("\r\n");
        blanks = lineEnd == std::string_view::npos ? blanks + taken.size() : taken.size() - lineEnd - 1;
        const bool found = !text.empty();
        bytes.Skip(static_cast<std::int64_t>(taken.size()));
        if (found) {
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
