#pragma once

#include "convert/line_encoder.h"
#include "convert/line_target.h"
#include "core/replaced_file.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quelmont {

/// A file that an encoder fills, written under file number 2.
class FileTarget : public LineTarget {
public:
    /// With a kind to add to it goes on behind what a map file of that kind holds, if it is there.
    /// ConvertError when it cannot be written, or is to be added to and is not whole.
    FileTarget(const std::string& name, std::unique_ptr<LineEncoder> encoder, const MapFormat* addTo);
    ~FileTarget() override;

    void Write(const TargetFeature& feature, MapLine& line) override;
    void Finish() override;

private:
    void CopyEarlier(const MapFormat& format);

    std::string name;
    std::string replaced; ///< the file itself, links followed
    TemporaryFile file;
    ByteSink bytes;
    std::unique_ptr<LineEncoder> encoder;
};

} // namespace quelmont
