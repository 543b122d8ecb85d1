#include "surround/label_spots.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/lobes.h"
#include "projection/inverse_place.h"
#include "projection/lobe_row.h"
#include "projection/map_in_hand.h"
#include "projection/projection_table.h"
#include "surround/grid_label_text.h"
#include "surround/outline_ends.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace quelmont {

namespace {

/// Collects the lines of one map, or of one lobe.
class LineCollector {
public:
    explicit LineCollector(const GridLabelChoice& choice_) : choice(choice_) {}

    void CollectMap(bool cutByEquator) {
        const bool disc = IsAzimuthal(Design.ProjNum);
        ofMeridians = false;
        for (GridLine& line : ParallelsOfGrid(choice.style)) {
            const double lat = line.at;
            Add(
                std::move(line), [&] { return disc ? RimEndsOfParallel(lat) : EndsOfParallel(lat); },
                [&] { return SpotsAlongParallel(lat); });
        }
        ofMeridians = Design.ProjNum == ProjInterruptedMollweide;
        for (GridLine& line : MeridiansOfGrid(choice.style)) {
            const double lon = line.at;
            Add(
                std::move(line),
                [&] { return disc ? RimEndsOfMeridian(lon) : EndsOfMeridian(lon, cutByEquator); },
                [&] { return SpotsAlongMeridian(lon); });
        }
    }

    std::vector<LabelledLine> lines;

private:
    template <typename Ends, typename Along>
    void Add(GridLine&& line, Ends&& ends, Along&& along) {
        LabelledLine labelled{.text = std::move(line.text), .outerness = line.outerness};
        if (choice.place == GridLabelPlace::Frame) {
            labelled.spots = ends();
            labelled.atFrame = !labelled.spots.empty();
        }
        if (!labelled.atFrame) {
            labelled.spots = along();
        }
        Keep(std::move(labelled));
    }

    /// A meridian that goes through lobes of both hemispheres has one label.
    void Keep(LabelledLine&& labelled) {
        const auto same = std::find_if(lines.begin(), lines.end(), [&](const LabelledLine& line) {
            return ofMeridians && !labelled.atFrame && !line.atFrame && line.text == labelled.text;
        });
        if (same != lines.end()) {
            same->outerness = std::min(same->outerness, labelled.outerness);
            same->spots.insert(same->spots.end(), labelled.spots.begin(), labelled.spots.end());
        } else if (!labelled.spots.empty()) {
            lines.push_back(std::move(labelled));
        }
    }

    GridLabelChoice choice;
    bool ofMeridians = false;
};

/// RunTimeError for texts that no dialog has accepted.
void CollectLobes(LineCollector& collector) {
    const bool bothHemispheres = Design.MapYMin < 0.0 && Design.MapYMax > 0.0;
    for (const LobeRow& row : {LobesOf(0), LobesOf(1)}) {
        for (std::size_t lobe = row.first; lobe <= row.last; ++lobe) {
            CalcGraticuleInterrupt(static_cast<std::int16_t>(lobe));
            Design.LobeOffsetX = Design.LobeCentral[lobe];
            if (Design.LatNorthSec > Design.LatSouthSec) {
                collector.CollectMap(bothHemispheres);
            }
        }
    }
}

bool HasStraightEdges() {
    const ProjectionFamily family = PropertiesOf(Design.ProjNum).family;
    return family == ProjectionFamily::Cylindrical || family == ProjectionFamily::MetricGrid;
}

} // namespace

std::vector<LabelledLine> LabelledLines(const GridLabelChoice& choice) {
    if (choice.place == GridLabelPlace::None || Design.BoundsProjNum != Design.ProjNum) {
        return {};
    }
    const MapInHand map;
    LineCollector collector(choice);
    try {
        if (Design.ProjNum == ProjInterruptedMollweide) {
            CollectLobes(collector);
        } else {
            collector.CollectMap(false);
        }
    } catch (const RunTimeError&) {
        return {};
    }
    return std::move(collector.lines);
}

bool IsOnMap(double x, double y) {
    if (HasStraightEdges()) {
        return x >= Design.MapXMin && x <= Design.MapXMax && y >= Design.MapYMin && y <= Design.MapYMax;
    }
    return PlaceAt(x, y).has_value();
}

} // namespace quelmont
