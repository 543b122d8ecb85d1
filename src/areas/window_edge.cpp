#include "areas/window_edge.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quelmont {

namespace {

/// An end of a chain on the edge.
struct Cut {
    double place;
    std::size_t chain;
    bool isEnd;
};

class EdgeLinks {
public:
    EdgeLinks(std::vector<InsideChain>& chains_, const WindowEdge& edge_) : chains(chains_), edge(edge_) {
        for (std::size_t i = 0; i < chains.size(); ++i) {
            cuts.push_back({chains[i].from, i, false});
            cuts.push_back({chains[i].to, i, true});
        }
        std::stable_sort(cuts.begin(), cuts.end(),
                         [](const Cut& a, const Cut& b) { return a.place < b.place; });
        cutOf.resize(cuts.size());
        for (std::size_t i = 0; i < cuts.size(); ++i) {
            cutOf[2 * cuts[i].chain + (cuts[i].isEnd ? 1 : 0)] = i;
        }
    }

    void FindInside(const std::function<bool(double)>& edgeInside) {
        std::size_t widest = 0;
        for (std::size_t i = 1; i < cuts.size(); ++i) {
            widest = Gap(i) > Gap(widest) ? i : widest;
        }
        double middle = cuts[widest].place + Gap(widest) / 2.0;
        middle -= middle >= edge.length ? edge.length : 0.0;
        oddInside = edgeInside(middle) == (widest % 2 == 1);
    }

    void Close(PlaneRings& rings) {
        std::vector<bool> done(chains.size(), false);
        for (std::size_t first = 0; first < chains.size(); ++first) {
            if (done[first]) {
                continue;
            }
            PlaneRing ring;
            std::size_t chain = first;
            bool forward = true;
            do {
                done[chain] = true;
                Append(ring, chains[chain].points, forward);
                const Cut& next = AlongEdge(ring, cutOf[2 * chain + (forward ? 1 : 0)]);
                chain = next.chain;
                forward = !next.isEnd;
            } while (!done[chain]);
            rings.push_back(std::move(ring));
        }
    }

private:
    std::size_t After(std::size_t cut) const { return cut + 1 == cuts.size() ? 0 : cut + 1; }
    std::size_t Before(std::size_t cut) const { return cut == 0 ? cuts.size() - 1 : cut - 1; }

    /// From a cut to the next one.
    double Gap(std::size_t cut) const {
        const double gap = cuts[After(cut)].place - cuts[cut].place;
        return cut + 1 == cuts.size() ? gap + edge.length : gap;
    }

    static void Append(PlaneRing& ring, const PlaneRing& points, bool forward) {
        if (forward) {
            ring.insert(ring.end(), points.begin(), points.end());
        } else {
            ring.insert(ring.end(), points.rbegin(), points.rend());
        }
    }

    /// Goes from a cut along the edge where that is inside, to the other end of that stretch.
    const Cut& AlongEdge(PlaneRing& ring, std::size_t cut) const {
        const bool onward = (cut % 2 == 1) == oddInside;
        const std::size_t next = onward ? After(cut) : Before(cut);
        const double from = cuts[cut].place;
        const double to = cuts[next].place;
        if (onward) {
            Onward(ring, from, cut + 1 == cuts.size() ? to + edge.length : to);
        } else {
            PlaneRing stretch;
            Onward(stretch, to, cut == 0 ? from + edge.length : from);
            Append(ring, stretch, false);
        }
        return cuts[next];
    }

    /// The stops between two places, the second of which may lie beyond the edge's length.
    void Onward(PlaneRing& ring, double from, double to) const {
        auto stop = std::upper_bound(edge.stops.begin(), edge.stops.end(), from);
        double turn = 0.0;
        for (;; ++stop) {
            if (stop == edge.stops.end()) {
                if (turn > 0.0 || edge.stops.empty()) {
                    return;
                }
                turn = edge.length;
                stop = edge.stops.begin();
            }
            if (*stop + turn >= to) {
                return;
            }
            ring.push_back(edge.at(*stop));
        }
    }

    std::vector<InsideChain>& chains;
    const WindowEdge& edge;
    std::vector<Cut> cuts;
    std::vector<std::size_t> cutOf; ///< of each chain's beginning and end
    bool oddInside = false;         ///< what follows cuts of odd numbers is inside
};

} // namespace

PlaneRing WindowEdge::Whole() const {
    PlaneRing ring;
    ring.reserve(stops.size());
    for (const double stop : stops) {
        ring.push_back(at(stop));
    }
    return ring;
}

void CloseAlongEdge(std::vector<InsideChain>& chains, const WindowEdge& edge,
                    const std::function<bool(double)>& edgeInside, PlaneRings& rings) {
    if (chains.empty()) {
        if (edgeInside(0.0)) {
            rings.push_back(edge.Whole());
        }
        return;
    }
    EdgeLinks links(chains, edge);
    links.FindInside(edgeInside);
    links.Close(rings);
}

} // namespace quelmont
