#include "areas/line_joiner.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <tuple>
#include <utility>

namespace quelmont {

namespace {

/// A longitude once, for places that are the same: the 180th meridian has two.
std::int32_t OneLongitude(std::int32_t lon) { return static_cast<std::int32_t>(ShortStep(0, lon)); }

} // namespace

void LineJoiner::Begin(AreaRow next) {
    EndLine();
    row = next;
    wanted = next != AreaRow::None;
}

bool LineJoiner::IsNear(const RingPlace& place) const {
    const RingPlace& kept = places.back();
    return !metres && std::abs(std::int64_t{place.lat} - kept.lat) < detail.least &&
           std::abs(ShortStep(kept.lon, place.lon)) < detail.least;
}

/// Whether it lies, as the place that was kept last, where nothing is seen, and the way between them goes
/// through nothing else.
bool LineJoiner::IsAside(const RingPlace& place) const {
    constexpr std::int64_t most = std::int64_t{60} * SecPerDegree;
    const RingPlace& kept = places.back();
    return !metres && std::abs(ShortStep(kept.lon, place.lon)) < most &&
           ((place.lat > detail.north && kept.lat > detail.north) ||
            (place.lat < detail.south && kept.lat < detail.south));
}

void LineJoiner::Keep(RingPlace place) {
    places.push_back(place);
    hasPending = false;
}

void LineJoiner::Take(RingPlace place) {
    if (!metres) {
        place.lon = OneLongitude(place.lon);
    }
    if (places.size() == lineBegin) {
        Keep(place);
        return;
    }
    bool aside = IsAside(place);
    if (!aside && hasPending && pendingAside) {
        Keep(pending);
        aside = IsAside(place);
    }
    if (aside || IsNear(place)) {
        pending = place;
        hasPending = true;
        pendingAside = aside;
        return;
    }
    Keep(place);
}

void LineJoiner::EndLine() {
    if (hasPending) {
        Keep(pending);
    }
    if (places.size() - lineBegin >= 2) {
        lines.push_back({row, lineBegin, places.size()});
    } else {
        places.resize(lineBegin);
    }
    lineBegin = places.size();
}

bool LineJoiner::SamePlace(const RingPlace& a, const RingPlace& b) const {
    return a.lat == b.lat && (metres ? a.lon == b.lon : ShortStep(a.lon, b.lon) == 0);
}

void LineJoiner::AddRing(std::vector<RingPlace> line, AreaRow lineRow, std::vector<Ring>& rings) const {
    if (Ring ring; MakeRing(std::move(line), lineRow, metres, ring)) {
        rings.push_back(std::move(ring));
    }
}

/// Which end of an open line meets which: those at one place, two and two in their order.
class LineJoiner::Links {
public:
    static constexpr std::size_t None = std::numeric_limits<std::size_t>::max();

    /// ends: of each line its beginning, then its end.
    explicit Links(const std::vector<LineEnd>& ends) : other(ends.size(), None) {
        std::vector<std::size_t> order(ends.size());
        for (std::size_t i = 0; i < order.size(); ++i) {
            order[i] = i;
        }
        const auto key = [&](std::size_t i) {
            return std::tuple(ends[i].row, ends[i].place.lat, ends[i].place.lon);
        };
        std::stable_sort(order.begin(), order.end(),
                         [&](std::size_t a, std::size_t b) { return key(a) < key(b); });
        for (std::size_t i = 0; i + 1 < order.size(); ++i) {
            if (key(order[i]) == key(order[i + 1])) {
                other[order[i]] = order[i + 1];
                other[order[i + 1]] = order[i];
                ++i;
            }
        }
    }

    std::size_t Of(std::size_t end) const { return other[end]; }

private:
    std::vector<std::size_t> other;
};

void LineJoiner::JoinOpenLines(const std::vector<std::size_t>& open, std::vector<Ring>& rings) const {
    std::vector<LineEnd> ends;
    for (const std::size_t index : open) {
        const Line& line = lines[index];
        for (const bool isEnd : {false, true}) {
            RingPlace place = places[isEnd ? line.end - 1 : line.begin];
            if (!metres && place.lon == -SecPerHalfCircle) {
                place.lon = SecPerHalfCircle;
            }
            ends.push_back({line.row, place, index, isEnd});
        }
    }
    const Links links(ends);
    std::vector<bool> done(open.size(), false);
    for (std::size_t first = 0; first < open.size(); ++first) {
        std::vector<RingPlace> ring;
        std::size_t entered = 2 * first; // the end of a line from which it is gone through
        bool closed = false;
        while (entered != Links::None && !done[entered / 2]) {
            const Line& line = lines[open[entered / 2]];
            done[entered / 2] = true;
            const auto begin = places.begin() + static_cast<std::ptrdiff_t>(line.begin);
            const auto end = places.begin() + static_cast<std::ptrdiff_t>(line.end);
            if (entered % 2 == 0) {
                ring.insert(ring.end(), begin, end);
            } else {
                ring.insert(ring.end(), std::make_reverse_iterator(end), std::make_reverse_iterator(begin));
            }
            entered = links.Of(entered ^ 1U);
            closed = entered == 2 * first;
        }
        if (closed) {
            AddRing(std::move(ring), lines[open[first]].row, rings);
        }
    }
}

void LineJoiner::Finish(std::vector<Ring>& rings) {
    EndLine();
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Line& line = lines[i];
        if (SamePlace(places[line.begin], places[line.end - 1])) {
            AddRing({places.begin() + static_cast<std::ptrdiff_t>(line.begin),
                     places.begin() + static_cast<std::ptrdiff_t>(line.end)},
                    line.row, rings);
        } else {
            open.push_back(i);
        }
    }
    JoinOpenLines(open, rings);
    places.clear();
    lines.clear();
    lineBegin = 0;
    hasPending = false;
}

} // namespace quelmont
