#pragma once

#include "convert/convert_tally.h"
#include "convert/line_target.h"
#include "convert/utm_zone.h"
#include "mapfiles/map_formats.h"

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

/// Turns lines into the bytes of a file.
class LineEncoder {
public:
    LineEncoder() = default;
    virtual ~LineEncoder() = default;
    LineEncoder(const LineEncoder&) = delete;
    LineEncoder& operator=(const LineEncoder&) = delete;

    /// What stands before all lines; in a file that is added to, something stands there already.
    virtual void Begin(bool /*isEmpty*/, ByteSink& /*bytes*/) {}
    /// Appends the bytes of a line, as LineTarget::Write takes it. Points that fall onto the one before
    /// are left out. ConvertError for a feature that the file has no rank or code for.
    virtual void Encode(const TargetFeature& feature, MapLine& line, ByteSink& bytes) = 0;
    /// What stands behind all lines.
    virtual void End(ByteSink& /*bytes*/) {}
};

/// The encoder of one of the program's own map files, whose name tells what ranks mean. The zone is that
/// of a .utm file. What is lost or changed is counted.
std::unique_ptr<LineEncoder> NewMapFileEncoder(const std::string& mapFile, const MapFormat& format,
                                               const UtmZone* zone, ConvertTally& tally);

} // namespace quelmont
