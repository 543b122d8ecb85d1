#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A reader of DXF text files of its own, for tests.

namespace quelmont {

struct DxfGroup {
    int code = 0;
    std::string value;
    bool operator==(const DxfGroup&) const = default;
};

/// The groups of a whole file. std::runtime_error for a line that does not end with CR LF, a code that does
/// not stand in three columns, a code without its value, a file that does not end with EOF.
std::vector<DxfGroup> ReadDxf(std::string_view bytes);

/// The section of entities, a line of text for each entity with the groups in their order: "POLYLINE 8=0
/// 62=7 40=1".
std::vector<std::string> DxfEntities(std::string_view bytes);

} // namespace quelmont
