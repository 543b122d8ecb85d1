#include "mapfiles/fixed_records.h"

#include <algorithm>
#include <cstddef>
#include <span>

namespace quelmont {

namespace {

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

} // namespace

bool FixedRecords::Next() {
    // One byte more, to know the last record.
    const std::span<const std::byte> ready = bytes.Ahead(FixedRecordSize + 1);
    size = std::min(ready.size(), FixedRecordSize);
    record.fill(' ');
    std::transform(ready.begin(), ready.begin() + static_cast<std::ptrdiff_t>(size), record.begin(),
                   [](std::byte byte) { return static_cast<char>(byte); });
    const bool last = ready.size() <= FixedRecordSize;
    if (last && std::all_of(record.begin(), record.begin() + static_cast<std::ptrdiff_t>(size), IsLineEnd)) {
        return false;
    }
    bytes.Skip(static_cast<std::int64_t>(size));
    return true;
}

bool FixedRecords::IsWhole() const {
    constexpr std::size_t pointSize = 15;
    return size >= pointSize || std::all_of(record.begin(), record.end(),
                                            [](char c) { return c == ' ' || IsLineEnd(c) || c == '\x1A'; });
}

} // namespace quelmont
