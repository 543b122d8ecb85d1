#pragma once

#include "areas/area_lines.h"
#include "areas/ring.h"
#include "areas/ring_nest.h"
#include "core/file_numbers.h"
#include "core/kept_values.h"
#include "core/map_file_entry.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quelmont {

/// The closed lines of a map file that bound areas, and how they lie in one another.
struct FileAreas {
    std::vector<Ring> lines;
    std::vector<NestedRing> nested;
};

/// Of a file in so much detail. Null when Escape was pressed. RunTimeError as ReadAreaRings.
std::shared_ptr<const FileAreas> AreasOfFile(const InputFileEntry& file, const LineDetail& detail);

/// What AreasOfFile found, kept from one picture to the next.
class KeptAreas {
public:
    /// What the areas of a file hang on.
    struct Key {
        std::string name; ///< whose ending says what its rows are
        FileStamp stamp;
        std::array<bool, MaxFeatureRows + 1> shown = {};
        LineDetail detail;
        bool operator==(const Key&) const = default;
    };
    static constexpr std::size_t Limit = std::size_t{100} * 1000 * 1000; ///< bytes
    KeptValues<Key, FileAreas> areas{Limit};
};

/// Put here by a program that draws the same files again and again; nullptr: nothing is kept.
KeptAreas*& KeptMapAreas();

} // namespace quelmont
