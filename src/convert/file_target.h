#pragma once

#include "convert/append_lock.h"
#include "convert/line_encoder.h"
#include "convert/line_target.h"
#include "core/replaced_file.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quelmont {

/// A file that an encoder fills, written under file number 2.
class FileTarget : public LineTarget {
public:
    /// With a kind to add to it goes on behind what a map file of that kind holds, if it is there; it
    /// waits until no other process adds to the file, after a call of waiting if it has to.
    /// ConvertError when it cannot be written, is to be added to and is not whole, or when the process
    /// gets a signal to end while it waits.
    FileTarget(const std::string& name, std::unique_ptr<LineEncoder> encoder, const MapFormat* addTo,
               const std::function<void()>& waiting);
    ~FileTarget() override;

    void Write(const TargetFeature& feature, MapLine& line) override;
    void Finish() override;

private:
    void CopyEarlier(const MapFormat& format);

    std::string name;
    std::string replaced;           ///< the file itself, links followed
    std::optional<AppendLock> lock; ///< held until the file has taken its place
    TemporaryFile file;
    ByteSink bytes;
    std::unique_ptr<LineEncoder> encoder;
};

} // namespace quelmont
