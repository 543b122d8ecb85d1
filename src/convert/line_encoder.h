#pragma once

#include "convert/convert_tally.h"
#include "convert/file_kind.h"
#include "convert/line_target.h"
#include "convert/utm_zone.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>

namespace quelmont {

/// Collects bytes and hands them on in blocks.
class ByteSink {
public:
    using Taker = std::function<void(std::span<const std::byte>)>;
    explicit ByteSink(Taker take_) : take(std::move(take_)) {}

    /// Bytes or characters.
    template <typename Bytes>
    void Append(const Bytes& bytes) {
        block.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        if (block.size() >= BlockSize) {
            Flush();
        }
    }
    void Flush() {
        take(std::as_bytes(std::span(block)));
        block.clear();
    }

private:
    static constexpr std::size_t BlockSize = std::size_t{64} * 1024;

    Taker take;
    std::string block;
};

/// Turns lines into the records of one of the program's own map files.
class LineEncoder {
public:
    LineEncoder() = default;
    virtual ~LineEncoder() = default;
    LineEncoder(const LineEncoder&) = delete;
    LineEncoder& operator=(const LineEncoder&) = delete;

    /// Appends the bytes of a line, as LineTarget::Write takes it. Points that fall onto the one before
    /// are left out. ConvertError for a feature that the file has no rank or code for.
    virtual void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) = 0;
};

/// The encoder of a map file; its name tells what ranks mean. Whether the file is still empty matters
/// where something stands between lines. The zone is that of a .utm file. What is lost or changed is
/// counted.
std::unique_ptr<LineEncoder> NewLineEncoder(const std::string& mapFile, const MapFileKind& kind, bool isEmpty,
                                            const UtmZone* zone, ConvertTally& tally);

} // namespace quelmont
