#pragma once

#include "convert/line_encoder.h"
#include "convert/line_target.h"
#include "core/replaced_file.h"

#include <cstdint>
#include <memory>
#include <string>

namespace quelmont {

/// One of the program's own map files, written under file number 2.
class MapFileTarget : public LineTarget {
public:
    /// With append it goes on behind what the file holds, if it is there. ConvertError when it cannot be
    /// written, or is to be added to and is not whole.
    MapFileTarget(const std::string& name, const MapFileKind& kind, bool append, const UtmZone* zone,
                  ConvertTally& tally);
    ~MapFileTarget() override;

    void Write(const TargetFeature& feature, MapLine& line) override;
    void Finish() override;

private:
    void CopyEarlier(const MapFileKind& kind);

    std::string name;
    std::string replaced; ///< the file itself, links followed
    TemporaryFile file;
    ByteSink bytes;
    std::unique_ptr<LineEncoder> encoder;
};

} // namespace quelmont
