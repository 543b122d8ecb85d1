#include "output/area_trapezoids.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

/// A side of a ring that is not level, upward.
struct Side {
    PlanePoint low, high;

    /// At the ends exactly those.
    double At(double y) const {
        if (y <= low.y) {
            return low.x;
        }
        if (y >= high.y) {
            return high.x;
        }
        return low.x + (high.x - low.x) * ((y - low.y) / (high.y - low.y));
    }
};

/// A trapezoid that goes on upward as long as its sides do.
struct Open {
    std::size_t left = 0, right = 0; ///< sides
    double low = 0.0;
    double lowLeft = 0.0, lowRight = 0.0;
};

class Sweep {
public:
    Sweep(const PlaneRings& rings, const std::function<void(const Trapezoid&)>& take_) : take(take_) {
        for (const PlaneRing& ring : rings) {
            AddSides(ring);
        }
        std::sort(sides.begin(), sides.end(), [](const Side& a, const Side& b) { return a.low.y < b.low.y; });
        std::sort(levels.begin(), levels.end());
        levels.erase(std::unique(levels.begin(), levels.end()), levels.end());
        ends.resize(sides.size());
    }

    void Run() {
        for (std::size_t level = 0; level + 1 < levels.size(); ++level) {
            Slab(levels[level], levels[level + 1]);
        }
        if (!levels.empty()) {
            CloseAll(levels.back());
        }
    }

private:
    /// Places that are nearer meet.
    static constexpr double Near = 1e-7;

    /// x of a side at a level and at the next one.
    struct Ends {
        double now = 0.0, later = 0.0;
    };

    void AddSides(const PlaneRing& ring) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PlanePoint& a = ring[i];
            const PlanePoint& b = ring[(i + 1) % ring.size()];
            if (a.y != b.y) {
                sides.push_back(a.y < b.y ? Side{a, b} : Side{b, a});
                levels.push_back(a.y);
                levels.push_back(b.y);
            }
        }
    }

    /// Between two neighbouring levels no side begins or ends, but sides may cross.
    void Slab(double low, double high) {
        std::erase_if(active, [&](std::size_t side) { return sides[side].high.y <= low; });
        while (next < sides.size() && sides[next].low.y <= low) {
            active.push_back(next++);
        }
        for (double y = low; y < high;) {
            Order(y, high);
            Match(y);
            y = FirstCrossing(y, high);
        }
    }

    /// From left to right just above a level; those that meet there by where they go.
    void Order(double y, double high) {
        for (const std::size_t side : active) {
            ends[side] = {sides[side].At(y), sides[side].At(high)};
        }
        const auto isLeftOf = [&](std::size_t a, std::size_t b) {
            const bool meet = std::fabs(ends[a].now - ends[b].now) < Near;
            return meet ? ends[a].later < ends[b].later : ends[a].now < ends[b].now;
        };
        // Nearly in order from the slab before: sorting by insertion takes little more than a look at each.
        for (std::size_t i = 1; i < active.size(); ++i) {
            const std::size_t side = active[i];
            std::size_t place = i;
            for (; place > 0 && isLeftOf(side, active[place - 1]); --place) {
                active[place] = active[place - 1];
            }
            active[place] = side;
        }
    }

    /// Where the order ends: neighbours cross first.
    double FirstCrossing(double y, double high) const {
        double first = high;
        for (std::size_t i = 0; i + 1 < active.size(); ++i) {
            const Ends& a = ends[active[i]];
            const Ends& b = ends[active[i + 1]];
            const double gap = b.now - a.now;
            const double overlap = a.later - b.later;
            if (gap > 0.0 && overlap > Near) {
                const double crossing = y + (high - y) * (gap / (gap + overlap));
                first = crossing > y ? std::min(first, crossing) : first;
            }
        }
        return first;
    }

    /// Trapezoids whose pair of sides is no more are closed, and those of new pairs opened.
    void Match(double low) {
        std::vector<Open> now;
        std::size_t before = 0;
        std::vector<bool> goesOn(open.size(), false);
        for (std::size_t i = 0; i + 1 < active.size(); i += 2) {
            const std::size_t left = active[i];
            const std::size_t right = active[i + 1];
            std::size_t found = before;
            while (found < open.size() && (open[found].left != left || open[found].right != right)) {
                ++found;
            }
            if (found < open.size()) {
                goesOn[found] = true;
                now.push_back(open[found]);
                before = found + 1;
            } else {
                now.push_back({left, right, low, sides[left].At(low), sides[right].At(low)});
            }
        }
        for (std::size_t i = 0; i < open.size(); ++i) {
            if (!goesOn[i]) {
                Close(open[i], low);
            }
        }
        open = std::move(now);
    }

    void Close(const Open& trapezoid, double high) const {
        Trapezoid whole{trapezoid.low,
                        high,
                        trapezoid.lowLeft,
                        trapezoid.lowRight,
                        sides[trapezoid.left].At(high),
                        sides[trapezoid.right].At(high)};
        // Sides that meet there, to the last bit.
        whole.lowRight = std::max(whole.lowRight, whole.lowLeft);
        whole.highRight = std::max(whole.highRight, whole.highLeft);
        if (whole.low < whole.high && (whole.lowLeft < whole.lowRight || whole.highLeft < whole.highRight)) {
            take(whole);
        }
    }

    void CloseAll(double high) {
        for (const Open& trapezoid : open) {
            Close(trapezoid, high);
        }
        open.clear();
    }

    const std::function<void(const Trapezoid&)>& take;
    std::vector<Side> sides;
    std::vector<double> levels;
    std::vector<Ends> ends; ///< by side
    std::vector<std::size_t> active;
    std::vector<Open> open; ///< from left to right
    std::size_t next = 0;   ///< side
};

} // namespace

void ForEachTrapezoid(const PlaneRings& rings, const std::function<void(const Trapezoid&)>& take) {
    Sweep(rings, take).Run();
}

} // namespace quelmont
