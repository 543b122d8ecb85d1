#pragma once

#include "areas/area_lines.h"
#include "areas/ring.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

/// Collects the lines of a map file, thinned, and joins them to closed ones.
class LineJoiner {
public:
    LineJoiner(const LineDetail& detail_, bool metres_) : detail(detail_), metres(metres_) {}

    /// The places that follow make a line of a row; those of no row are left out.
    void Begin(AreaRow next);
    void Add(std::int32_t lat, std::int32_t lon) {
        if (wanted) {
            Take({lat, lon});
        }
    }
    bool IsWanted() const { return wanted; }

    /// Puts all closed lines behind rings and forgets every line.
    void Finish(std::vector<Ring>& rings);

private:
    struct Line {
        AreaRow row;
        std::size_t begin, end; ///< of places
    };
    /// One end of a line that is open.
    struct LineEnd {
        AreaRow row;
        RingPlace place;
        std::size_t line;
        bool isEnd;
    };
    class Links;

    void Take(RingPlace place);
    void Keep(RingPlace place);
    void EndLine();
    bool IsNear(const RingPlace& place) const;
    bool IsAside(const RingPlace& place) const;
    bool SamePlace(const RingPlace& a, const RingPlace& b) const;
    void AddRing(std::vector<RingPlace> line, AreaRow row, std::vector<Ring>& rings) const;
    void JoinOpenLines(const std::vector<std::size_t>& open, std::vector<Ring>& rings) const;

    LineDetail detail;
    bool metres;
    bool wanted = false;
    std::vector<RingPlace> places; ///< of all lines
    std::vector<Line> lines;
    std::size_t lineBegin = 0; ///< of the line in hand
    AreaRow row = AreaRow::None;
    RingPlace pending; ///< the last place, when it was left out
    bool hasPending = false;
    bool pendingAside = false; ///< it has to be kept before one that is seen
};

} // namespace quelmont
