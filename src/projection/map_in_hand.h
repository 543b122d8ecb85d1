#pragma once

#include "core/map_design.h"
#include "core/unseen_boxes.h"

namespace quelmont {

/// As long as it lives, points can be projected and the bounds of lobes set without a trace in the design
/// and without a message box.
class MapInHand {
public:
    MapInHand() {
        Design.ProjTestMode = TestNone;
        Design.PointStatus = PointContinues;
    }
    ~MapInHand() {
        static_cast<DesignBounds&>(Design) = bounds;
        Design.LobeOffsetX = offset;
        Design.ProjLat = cell.lat;
        Design.ProjLon = cell.lon;
        Design.ProjX = cell.x;
        Design.ProjY = cell.y;
        Design.ProjOffMap = cell.offMap;
        Design.ProjTestMode = cell.testMode;
        Design.PointStatus = cell.status;
    }
    MapInHand(const MapInHand&) = delete;
    MapInHand& operator=(const MapInHand&) = delete;

private:
    struct PointCell {
        double lat = Design.ProjLat, lon = Design.ProjLon, x = Design.ProjX, y = Design.ProjY;
        bool offMap = Design.ProjOffMap;
        std::int16_t testMode = Design.ProjTestMode, status = Design.PointStatus;
    };

    DesignBounds bounds = Design;
    double offset = Design.LobeOffsetX;
    PointCell cell;
    UnseenBoxes boxes;
};

} // namespace quelmont
