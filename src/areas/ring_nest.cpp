#include "areas/ring_nest.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <memory>
#include <tuple>

namespace quelmont {

namespace {

/// Answers IsInside for one line that is asked often: its edges by the meridians that they cross.
class RingIndex {
public:
    explicit RingIndex(const Ring& ring_) : ring(ring_) {
        if (ring.places.size() <= fewEdges || ring.metres) {
            return;
        }
        buckets.resize(Buckets);
        const std::size_t count = ring.places.size();
        for (std::size_t i = 0; i < count; ++i) {
            const std::int64_t from = ring.places[i].lon;
            const std::int64_t to = i + 1 < count
                                        ? ring.places[i + 1].lon
                                        : ring.places.front().lon + std::int64_t{ring.turns} * SecPerCircle;
            const auto [west, east] = std::minmax(from, to);
            for (std::int64_t bucket = FloorDivide(west, Width); bucket <= FloorDivide(east, Width);
                 ++bucket) {
                buckets[static_cast<std::size_t>(Modulo(bucket, Buckets))].push_back(i);
            }
        }
    }

    bool Holds(const RingPlace& place) const {
        if (buckets.empty()) {
            return IsInside(ring, place.lat, place.lon);
        }
        if (ring.turns == 0 && (place.lat < ring.south || place.lat > ring.north)) {
            return false;
        }
        bool odd = ring.northInside;
        const std::int64_t bucket = Modulo(FloorDivide(place.lon, Width), Buckets);
        for (const std::size_t edge : buckets[static_cast<std::size_t>(bucket)]) {
            odd = odd != Crosses(edge, place);
        }
        return odd;
    }

private:
    static constexpr std::int64_t Buckets = 720;
    static constexpr std::int64_t Width = SecPerCircle / Buckets;
    static constexpr std::size_t fewEdges = 48;

    static std::int64_t FloorDivide(std::int64_t a, std::int64_t b) { return a / b - (a % b < 0 ? 1 : 0); }
    static std::int64_t Modulo(std::int64_t a, std::int64_t b) { return a - FloorDivide(a, b) * b; }

    /// Whether an edge crosses the meridian of a place north of it.
    bool Crosses(std::size_t edge, const RingPlace& place) const {
        const bool closes = edge + 1 == ring.places.size();
        const RingPlace& a = ring.places[edge];
        const RingPlace& b = ring.places[closes ? 0 : edge + 1];
        const std::int64_t lonA = a.lon;
        const std::int64_t lonB = b.lon + (closes ? std::int64_t{ring.turns} * SecPerCircle : 0);
        // The longitude of the place that is next to the edge, from its western end on.
        const std::int64_t west = std::min(lonA, lonB);
        const std::int64_t lon = west + Modulo(place.lon - west, SecPerCircle);
        if ((lonA <= lon) == (lonB <= lon)) {
            return false;
        }
        const double share = static_cast<double>(lon - lonA) / static_cast<double>(lonB - lonA);
        return a.lat + share * (static_cast<double>(b.lat) - a.lat) > place.lat;
    }

    const Ring& ring;
    std::vector<std::vector<std::size_t>> buckets;
};

/// Which lines may be about a place: those whose box touches its cell of ten degrees.
class RingCells {
public:
    explicit RingCells(const std::vector<Ring>& rings_) : rings(rings_), cells(Columns * Rows) {}

    void Add(std::size_t number) {
        const Ring& ring = rings[number];
        if (ring.metres) {
            cells.front().push_back(number);
            return;
        }
        const bool round = ring.turns != 0 || std::int64_t{ring.east} - ring.west >= SecPerCircle;
        const std::int64_t first = round ? 0 : Column(ring.west);
        const std::int64_t columns = round ? Columns : Span(ring.west, ring.east);
        const std::size_t firstRow = ring.turns != 0 ? 0 : Row(ring.south);
        const std::size_t lastRow = ring.turns != 0 ? Rows - 1 : Row(ring.north);
        for (std::size_t row = firstRow; row <= lastRow; ++row) {
            for (std::int64_t column = first; column < first + columns; ++column) {
                cells[row * Columns + static_cast<std::size_t>(column % Columns)].push_back(number);
            }
        }
    }

    const std::vector<std::size_t>& About(const Ring& ring) const {
        if (ring.metres) {
            return cells.front();
        }
        const RingPlace& place = ring.places.front();
        return cells[Row(place.lat) * Columns + static_cast<std::size_t>(Column(place.lon))];
    }

private:
    static constexpr std::int64_t Columns = 36;
    static constexpr std::size_t Rows = 19;
    static constexpr std::int64_t CellSize = std::int64_t{10} * SecPerDegree;

    static std::int64_t Column(std::int64_t lon) {
        const std::int64_t turned = lon % SecPerCircle;
        return (turned < 0 ? turned + SecPerCircle : turned) / CellSize;
    }
    static std::int64_t Span(std::int64_t west, std::int64_t east) {
        return std::min(Columns, (east - west) / CellSize + 2);
    }
    static std::size_t Row(std::int32_t lat) {
        return static_cast<std::size_t>((lat + 90 * SecPerDegree) / CellSize);
    }

    const std::vector<Ring>& rings;
    std::vector<std::vector<std::size_t>> cells;
};

class Nesting {
public:
    explicit Nesting(const std::vector<Ring>& rings_) : rings(rings_), cells(rings_) {}

    std::vector<NestedRing> Run() {
        std::vector<std::size_t> order;
        for (std::size_t i = 0; i < rings.size(); ++i) {
            order.push_back(i);
        }
        const auto key = [&](std::size_t i) {
            const Ring& ring = rings[i];
            return std::tuple(-ring.size, ring.south, ring.north, ShortStep(0, ring.west),
                              ring.places.size());
        };
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return key(a) < key(b); });
        indices.resize(rings.size());
        listed.assign(rings.size(), NestedRing::None);
        for (std::size_t i = 0; i < order.size(); ++i) {
            if (i == 0 || key(order[i - 1]) != key(order[i])) {
                Place(order[i]);
            }
        }
        return nested;
    }

private:
    /// Larger lines have been placed. Of those about it the last is the innermost.
    void Place(std::size_t number) {
        const Ring& ring = rings[number];
        std::size_t around = NestedRing::None;
        const std::vector<std::size_t>& near = cells.About(ring);
        for (auto it = near.rbegin(); it != near.rend() && around == NestedRing::None; ++it) {
            if (Holds(*it, ring)) {
                around = listed[*it];
            }
        }
        const bool outermost = around == NestedRing::None;
        const AreaClass outside = outermost ? AreaClass::Sea : nested[around].inside;
        const AreaClass inside = InsideOf(ring.row, outside);
        if (inside == outside) {
            return;
        }
        listed[number] = nested.size();
        nested.push_back({number, around, outermost ? 0 : nested[around].depth + 1, inside});
        cells.Add(number);
    }

    bool Holds(std::size_t outer, const Ring& inner) {
        const Ring& ring = rings[outer];
        if (ring.turns == 0 && (inner.north < ring.south || inner.south > ring.north)) {
            return false;
        }
        if (indices[outer] == nullptr) {
            indices[outer] = std::make_unique<RingIndex>(ring);
        }
        constexpr std::size_t asked = 5;
        std::size_t holds = 0;
        for (std::size_t i = 0; i < asked; ++i) {
            const std::size_t place = i * inner.places.size() / asked;
            holds += indices[outer]->Holds(inner.places[place]) ? 1 : 0;
        }
        return 2 * holds > asked;
    }

    const std::vector<Ring>& rings;
    RingCells cells;
    std::vector<std::unique_ptr<RingIndex>> indices;
    std::vector<std::size_t> listed; ///< of each line its place in the list
    std::vector<NestedRing> nested;
};

} // namespace

std::vector<NestedRing> Nest(const std::vector<Ring>& rings) { return Nesting(rings).Run(); }

} // namespace quelmont
