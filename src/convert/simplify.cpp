#include "convert/simplify.h"

#include "convert/segment_distance.h"
#include "core/coordinates.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

/// Points of a line by their numbers, from the first to the last.
struct Stretch {
    std::size_t first = 0, last = 0;
};

/// Chooses the points of one line that are kept.
class Simplifier {
public:
    Simplifier(const MapLine& line_, double tolerance_, const std::function<void()>& pump_)
        : line(line_), tolerance(tolerance_), pump(pump_), kept(line_.size(), false),
          budget(DistancesPerLevel * static_cast<std::int64_t>(line_.size()) *
                 static_cast<std::int64_t>(std::bit_width(line_.size()))) {}

    const std::vector<bool>& Kept() {
        kept.front() = kept.back() = true;
        std::vector<Stretch> stretches{{0, line.size() - 1}};
        while (!stretches.empty()) {
            const Stretch stretch = stretches.back();
            stretches.pop_back();
            if (const std::size_t split = SplitOf(stretch); split != stretch.first) {
                kept[split] = true;
                stretches.push_back({stretch.first, split});
                stretches.push_back({split, stretch.last});
            }
        }
        return kept;
    }

private:
    /// Natural lines, whose stretches fall into two of about the same length, need less than two
    /// distances for each point and each time that the line is halved.
    static constexpr std::int64_t DistancesPerLevel = 8;
    static constexpr std::size_t Block = 4096; ///< distances between two calls of pump

    /// The point at which a stretch is divided; its first when all points may go.
    std::size_t SplitOf(const Stretch& stretch) {
        std::size_t split = Farthest(stretch, stretch.first + 1, stretch.last, tolerance * tolerance);
        const std::size_t margin = (stretch.last - stretch.first) / 4;
        const bool lopsided = split - stretch.first < margin || stretch.last - split < margin;
        if (budget < 0 && split != stretch.first && lopsided) {
            // Any point may divide the stretch; this one leaves a quarter on either side at least.
            split = Farthest(stretch, stretch.first + margin, stretch.last - margin + 1, -1.0);
        }
        return split;
    }

    /// Of the points from begin to before end the one farthest from the segment of a stretch, if the
    /// square of its distance is above that given, else the first of the stretch.
    std::size_t Farthest(const Stretch& stretch, std::size_t begin, std::size_t end, double above) {
        const SegmentDistance distance(line[stretch.first], line[stretch.last]);
        std::size_t farthest = stretch.first;
        for (std::size_t at = begin; at < end;) {
            const std::size_t stop = std::min(end, at + Block);
            Pump(static_cast<std::int64_t>(stop - at));
            for (; at < stop; ++at) {
                const double square = distance.Square(line[at]);
                if (square > above) {
                    above = square;
                    farthest = at;
                }
            }
        }
        return farthest;
    }

    void Pump(std::int64_t distances) {
        budget -= distances;
        sincePump += distances;
        if (sincePump >= static_cast<std::int64_t>(Block) && pump) {
            sincePump = 0;
            pump();
        }
    }

    const MapLine& line;
    double tolerance; ///< degrees of latitude
    const std::function<void()>& pump;
    std::vector<bool> kept;
    std::int64_t budget; ///< distances that are left before stretches are divided nearer to their middle
    std::int64_t sincePump = 0;
};

} // namespace

void Simplify(MapLine& line, double arcSeconds, const std::function<void()>& pump) {
    if (line.size() <= 2) {
        return;
    }
    Simplifier simplifier(line, arcSeconds / SecPerDegree, pump);
    const std::vector<bool>& kept = simplifier.Kept();
    std::size_t next = 0;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (kept[i]) {
            line[next++] = line[i];
        }
    }
    line.resize(next);
}

} // namespace quelmont
