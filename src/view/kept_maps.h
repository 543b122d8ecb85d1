#pragma once

#include "areas/file_areas.h"
#include "mapinput/kept_lines.h"

namespace quelmont {

/// What was read of map files stays in memory as long as this lives: up to 200 megabytes, each file as long
/// as it is not changed. Pictures are the same with and without.
class KeptMaps {
public:
    KeptMaps() {
        KeptMapLines() = &lines;
        KeptMapAreas() = &areas;
    }
    ~KeptMaps() {
        KeptMapLines() = nullptr;
        KeptMapAreas() = nullptr;
    }
    KeptMaps(const KeptMaps&) = delete;
    KeptMaps& operator=(const KeptMaps&) = delete;

private:
    KeptLines lines;
    KeptAreas areas;
};

} // namespace quelmont
