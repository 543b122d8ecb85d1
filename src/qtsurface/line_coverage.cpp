#include "qtsurface/line_coverage.h"

#include "platform/fine_lines.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <utility>

namespace quelmont {

namespace {

constexpr std::int32_t BlockSize = 8; ///< pixels that are computed together
constexpr double Full = 255.0;        ///< the coverage of a whole pixel
constexpr double FullOfFine = Full / FinePerPixel;

// ---- Stamps
constexpr std::int32_t StampPlaces = 16; ///< in a pixel, each way
constexpr std::int32_t FinePerStamp = FinePerPixel / StampPlaces;
/// Stamps that lie as near as this to each other, in fine parts, show no waist between them.
constexpr std::int64_t StampStep = 12;
/// A segment of up to this length is drawn faster by stamps than as a stroke.
constexpr std::int64_t LongestStamped = 2 * StampStep;
/// Reach of the widest pen whose stamp is eight pixels wide at each place.
constexpr double LargestStampReach = 4.0;
/// Pens of more widths than this are hardly on one map.
constexpr std::size_t MostStamps = 16;

/// Longer segments are looked at from their nearer end, 255ths of a pixel: beyond, a float has no parts of
/// one.
constexpr double LongestHalf = 1000.0 * Full;

std::uint8_t CoverageAt(double reach, double distance) {
    return static_cast<std::uint8_t>(std::clamp(Full * (reach - distance) + 0.5, 0.0, Full));
}

/// Eight bytes, each the larger one of two.
void TakeLarger(std::uint8_t* covered, const std::array<std::uint8_t, BlockSize>& values) {
    std::array<std::uint8_t, BlockSize> larger;
    std::memcpy(larger.data(), covered, BlockSize);
    for (std::size_t i = 0; i < BlockSize; ++i) {
        larger[i] = larger[i] > values[i] ? larger[i] : values[i];
    }
    std::memcpy(covered, larger.data(), BlockSize);
}

/// A real as a place on an axis of that many pixels; what lies outside ends up just outside.
std::int32_t OnAxis(double place, std::int32_t size) {
    return static_cast<std::int32_t>(std::clamp(place, -1.0, static_cast<double>(size)));
}

} // namespace

struct LineCoverage::Slopes {
    std::array<float, BlockSize> aside; ///< by the pixel of a block: farther to the side of the line
    std::array<float, BlockSize> along; ///< and along it
    float half;                         ///< length
    float reach;

    /// One block of pixels; the first one lies so far aside of the line, and along it from its middle.
    void Cover(std::uint8_t* bytes, double firstAside, double firstAlong) const {
        const auto asideOfLine = static_cast<float>(firstAside);
        const auto alongLine = static_cast<float>(firstAlong);
        // Loops so simple that compilers make vector instructions of them.
        std::array<float, BlockSize> squares;
        for (std::size_t i = 0; i < BlockSize; ++i) {
            const float side = asideOfLine + aside[i];
            const float past = std::fabs(alongLine + along[i]) - half;
            const float beyond = 0.5F * (past + std::fabs(past)); // the larger one of past and 0
            squares[i] = side * side + beyond * beyond;
        }
        std::array<std::int32_t, BlockSize> covered;
        for (std::size_t i = 0; i < BlockSize; ++i) {
            covered[i] = static_cast<std::int32_t>(reach - std::sqrt(squares[i]));
        }
        for (std::int32_t& value : covered) {
            value = value < 0 ? 0 : value;
            value = value > 255 ? 255 : value;
        }
        std::array<std::uint8_t, BlockSize> values;
        for (std::size_t i = 0; i < BlockSize; ++i) {
            values[i] = static_cast<std::uint8_t>(covered[i]);
        }
        TakeLarger(bytes, values);
    }
};

void LineCoverage::Resize(std::int32_t width_, std::int32_t height_) {
    constexpr std::size_t blocksOfWord = 64;
    const std::size_t blocks = (static_cast<std::size_t>(width_) + BlockSize - 1) / BlockSize + 1;
    const std::size_t words = (blocks + blocksOfWord - 1) / blocksOfWord;
    coverage.assign(blocks * BlockSize * static_cast<std::size_t>(height_) + BlockSize, 0);
    marks.assign(words * static_cast<std::size_t>(height_), 0);
    width = width_;
    height = height_;
    stride = blocks * BlockSize;
    wordsOfRow = words;
    lastRow = firstRow - 1;
    Forget();
}

void LineCoverage::SetPen(double penWidth, std::uint32_t pixel_) {
    pixel = pixel_;
    reach = std::max(penWidth, 1.0) / 2.0 + 0.5;
    stamps = reach <= LargestStampReach ? &StampsOf(std::max(penWidth, 1.0)) : nullptr;
    hasStamped = false;
}

const LineCoverage::Stamps& LineCoverage::StampsOf(double penWidth) {
    const auto found =
        std::find_if(kept.begin(), kept.end(), [&](const Stamps& made) { return made.width == penWidth; });
    if (found != kept.end()) {
        return *found;
    }
    if (kept.size() == MostStamps) {
        kept.pop_front();
    }
    Stamps made;
    made.width = penWidth;
    made.first = static_cast<std::int32_t>(std::floor(-reach)) + 1;
    made.side = static_cast<std::int32_t>(std::ceil(reach + (StampPlaces - 1.0) / StampPlaces)) - made.first;
    for (std::int32_t y = 0; y < StampPlaces; ++y) {
        for (std::int32_t x = 0; x < StampPlaces; ++x) {
            for (std::int32_t row = 0; row < made.side; ++row) {
                std::array<std::uint8_t, 8>& bytes = made.rows.emplace_back();
                const double dy = made.first + row - static_cast<double>(y) / StampPlaces;
                for (std::int32_t column = 0; column < BlockSize; ++column) {
                    const double dx = made.first + column - static_cast<double>(x) / StampPlaces;
                    bytes[static_cast<std::size_t>(column)] = CoverageAt(reach, std::sqrt(dx * dx + dy * dy));
                }
            }
        }
    }
    kept.push_back(std::move(made));
    return kept.back();
}

void LineCoverage::Mark(std::int32_t row, std::int32_t left, std::int32_t right) {
    const std::int32_t first = left / BlockSize;
    const std::int32_t last = right / BlockSize;
    std::uint64_t* const words = marks.data() + static_cast<std::size_t>(row) * wordsOfRow;
    for (std::int32_t block = first; block <= last; ++block) {
        words[block / 64] |= std::uint64_t{1} << static_cast<unsigned>(block % 64);
    }
    if (IsEmpty()) {
        firstRow = lastRow = row;
        firstWord = first / 64;
        lastWord = last / 64;
        return;
    }
    firstRow = std::min(firstRow, row);
    lastRow = std::max(lastRow, row);
    firstWord = std::min(firstWord, first / 64);
    lastWord = std::max(lastWord, last / 64);
}

void LineCoverage::Stamp(std::int64_t x, std::int64_t y) {
    constexpr unsigned fineShift = 2;
    constexpr unsigned shift = 4;
    static_assert(FinePerStamp == 1 << fineShift && StampPlaces == 1 << shift);
    const std::int64_t placeX = (x + FinePerStamp / 2) >> fineShift;
    const std::int64_t placeY = (y + FinePerStamp / 2) >> fineShift;
    if (hasStamped && placeX == stamped.x && placeY == stamped.y) {
        return;
    }
    const std::int64_t left = (placeX >> shift) + stamps->first;
    const std::int64_t top = (placeY >> shift) + stamps->first;
    const auto inside =
        static_cast<std::size_t>((placeY & (StampPlaces - 1)) * StampPlaces + (placeX & (StampPlaces - 1)));
    const std::array<std::uint8_t, 8>* const rows =
        stamps->rows.data() + inside * static_cast<std::size_t>(stamps->side);
    const bool samePixel =
        hasStamped && stamped.x >> shift == placeX >> shift && stamped.y >> shift == placeY >> shift;
    stamped.x = placeX;
    stamped.y = placeY;
    hasStamped = true;
    if (left < 0 || top < 0 || left + BlockSize > width || top + stamps->side > height) {
        StampAtEdge(left, top, rows);
        return;
    }
    std::uint8_t* covered = CoverageOf(static_cast<std::int32_t>(top)) + left;
    for (std::int32_t row = 0; row < stamps->side; ++row) {
        TakeLarger(covered, rows[row]);
        covered += stride;
    }
    if (!samePixel) {
        for (std::int32_t row = 0; row < stamps->side; ++row) {
            Mark(static_cast<std::int32_t>(top) + row, static_cast<std::int32_t>(left),
                 static_cast<std::int32_t>(left) + stamps->side - 1);
        }
    }
}

void LineCoverage::StampAtEdge(std::int64_t left, std::int64_t top, const std::array<std::uint8_t, 8>* rows) {
    for (std::int32_t row = 0; row < stamps->side; ++row) {
        for (std::int32_t column = 0; column < stamps->side; ++column) {
            const std::int64_t x = left + column;
            const std::int64_t y = top + row;
            const std::uint8_t value = rows[row][static_cast<std::size_t>(column)];
            if (value == 0 || x < 0 || x >= width || y < 0 || y >= height) {
                continue;
            }
            std::uint8_t& covered = CoverageOf(static_cast<std::int32_t>(y))[x];
            covered = std::max(covered, value);
            Mark(static_cast<std::int32_t>(y), static_cast<std::int32_t>(x), static_cast<std::int32_t>(x));
        }
    }
}

void LineCoverage::GoStraight(FinePoint from, FinePoint to) {
    if (straight.empty()) {
        straight = {from, to};
    } else {
        straight.push_back(to);
    }
    const bool level = straight[0].y == straight[1].y && straight[0].y == to.y;
    const bool upright = straight[0].x == straight[1].x && straight[0].x == to.x;
    if (!level && !upright) {
        Bend();
    }
}

void LineCoverage::Bend() {
    bent = true;
    for (std::size_t i = 1; i < straight.size(); ++i) {
        Add(straight[i - 1].x, straight[i - 1].y, straight[i].x, straight[i].y);
    }
    straight.clear();
}

void LineCoverage::AddStraight() {
    if (straight.empty()) {
        return;
    }
    // An even pen lies between two rows of pixels.
    const std::int64_t between = std::fmod(std::floor(2.0 * reach - 1.0), 2.0) == 0.0 ? FinePerPixel / 2 : 0;
    const auto whole = [&](std::int64_t place) {
        return ((place - between + FinePerPixel / 2) & ~std::int64_t{FinePerPixel - 1}) + between;
    };
    FinePoint first = straight.front();
    FinePoint last = straight.front();
    for (const FinePoint& point : straight) {
        first = {std::min(first.x, point.x), std::min(first.y, point.y)};
        last = {std::max(last.x, point.x), std::max(last.y, point.y)};
    }
    Stroke({whole(first.x), whole(first.y)}, {whole(last.x), whole(last.y)});
}

void LineCoverage::Add(std::int64_t fromX, std::int64_t fromY, std::int64_t toX, std::int64_t toY) {
    const std::int64_t length = std::max(std::abs(toX - fromX), std::abs(toY - fromY));
    if (stamps == nullptr || length > LongestStamped) {
        Stroke({fromX, fromY}, {toX, toY});
        return;
    }
    if (!hasStamped || fromX != stampedTo.x || fromY != stampedTo.y) {
        Stamp(fromX, fromY);
    }
    stampedTo.x = toX;
    stampedTo.y = toY;
    if (length > StampStep) {
        Stamp((fromX + toX) >> 1, (fromY + toY) >> 1);
    }
    Stamp(toX, toY);
}

void LineCoverage::Dot(FinePoint at) {
    Bend();
    Stroke(at, at);
}

void LineCoverage::Stroke(FinePoint from, FinePoint to) {
    // The upper end first, so that a segment and its reverse are the same arithmetic.
    if (to.y < from.y || (to.y == from.y && to.x < from.x)) {
        std::swap(from, to);
    }
    const auto dx = static_cast<double>(to.x - from.x);
    const auto dy = static_cast<double>(to.y - from.y);
    const double length = std::sqrt(dx * dx + dy * dy);
    const double directionX = length > 0.0 ? dx / length : 1.0;
    const double directionY = length > 0.0 ? dy / length : 0.0;
    const double middleX = (static_cast<double>(from.x) + static_cast<double>(to.x)) / 2.0;
    const double middleY = (static_cast<double>(from.y) + static_cast<double>(to.y)) / 2.0;

    // The pixels about the line whose centres lie nearer to its box than the pen reaches.
    const double fineReach = reach * FinePerPixel;
    const auto firstOf = [&](std::int64_t place) {
        return std::floor((static_cast<double>(place) - fineReach) / FinePerPixel) + 1.0;
    };
    const auto lastOf = [&](std::int64_t place) {
        return std::ceil((static_cast<double>(place) + fineReach) / FinePerPixel) - 1.0;
    };
    const auto leftOfAll = static_cast<std::int64_t>(firstOf(std::min(from.x, to.x)));
    const std::int32_t left = std::max(OnAxis(static_cast<double>(leftOfAll), width), 0);
    const std::int32_t right = std::min(OnAxis(lastOf(std::max(from.x, to.x)), width), width - 1);
    const std::int32_t top = std::max(OnAxis(firstOf(from.y), height), 0);
    const std::int32_t bottom = std::min(OnAxis(lastOf(to.y), height), height - 1);
    if (left > right || top > bottom) {
        return;
    }

    Slopes slopes;
    for (std::size_t i = 0; i < BlockSize; ++i) {
        const double step = Full * static_cast<double>(i);
        slopes.aside[i] = static_cast<float>(-directionY * step);
        slopes.along[i] = static_cast<float>(directionX * step);
    }
    const double half = length / 2.0 * FullOfFine;
    const double cut = std::max(half - LongestHalf, 0.0);
    slopes.half = static_cast<float>(half - cut);
    slopes.reach = static_cast<float>(Full * reach + 0.5);

    // Where the line is long, a row meets only a stretch of its box.
    const bool stretches = length > BlockSize * FinePerPixel && dy > 0.0;
    const double slope = stretches ? dx / dy : 0.0;
    const double stretch = stretches ? fineReach * length / dy : 0.0;
    for (std::int32_t row = top; row <= bottom; ++row) {
        const double y = static_cast<double>(row) * FinePerPixel - middleY;
        std::int32_t first = left;
        std::int32_t last = right;
        if (stretches) {
            const double centre = middleX + y * slope;
            first = std::max(first, OnAxis(std::floor((centre - stretch) / FinePerPixel), width));
            last = std::min(last, OnAxis(std::ceil((centre + stretch) / FinePerPixel), width));
            if (first > last) {
                continue;
            }
        }
        std::uint8_t* const line = CoverageOf(row);
        // Blocks are counted from the left of the segment, wherever it is cut off: their rounding, too, does
        // not depend on the edge of the picture.
        for (std::int64_t column = first - (first - leftOfAll) % BlockSize; column <= last;
             column += BlockSize) {
            const double x = static_cast<double>(column) * FinePerPixel - middleX;
            double along = (directionX * x + directionY * y) * FullOfFine;
            if (cut > 0.0) {
                along = along > cut ? along - cut : along < -cut ? along + cut : 0.0;
            }
            slopes.Cover(line + column, (directionX * y - directionY * x) * FullOfFine, along);
        }
        Mark(row, first, last);
    }
}

template <class Visit>
void LineCoverage::EachBlock(const PixelGrid& grid, Visit visit) {
    for (std::int32_t row = firstRow; row <= lastRow; ++row) {
        std::uint64_t* const words = marks.data() + static_cast<std::size_t>(row) * wordsOfRow;
        for (std::int32_t word = firstWord; word <= lastWord; ++word) {
            for (std::uint64_t left = words[word]; left != 0; left &= left - 1) {
                const std::int32_t column = (word * 64 + std::countr_zero(left)) * BlockSize;
                std::uint32_t* const pixels =
                    grid.pixels + static_cast<std::ptrdiff_t>(row) * grid.width + column;
                visit(CoverageOf(row) + column, pixels,
                      static_cast<std::size_t>(std::min(BlockSize, width - column)));
            }
        }
    }
}

namespace {

/// Blend of a whole block, byte by byte: without a branch, so that compilers make vector instructions of it.
void PaintWholeBlock(const std::uint8_t* covered, std::uint32_t* pixels, std::uint32_t pixel) {
    constexpr std::size_t bytes = BlockSize * sizeof(std::uint32_t);
    std::array<std::uint32_t, BlockSize> spread;
    std::array<std::uint32_t, BlockSize> above;
    for (std::size_t i = 0; i < BlockSize; ++i) {
        const std::uint32_t value = covered[i];
        spread[i] = value | value << 8U | value << 16U | value << 24U;
        above[i] = pixel;
    }
    std::array<std::uint8_t, bytes> shares;
    std::array<std::uint8_t, bytes> own;
    std::array<std::uint8_t, bytes> result;
    std::memcpy(shares.data(), spread.data(), bytes);
    std::memcpy(own.data(), above.data(), bytes);
    std::memcpy(result.data(), pixels, bytes);
    for (std::size_t i = 0; i < bytes; ++i) {
        const auto share = static_cast<std::uint16_t>(shares[i] + (shares[i] >> 7U));
        const auto rest = static_cast<std::uint16_t>(256 - share);
        const auto sum = static_cast<std::uint16_t>(result[i] * rest + own[i] * share + 128);
        result[i] = static_cast<std::uint8_t>(sum >> 8U);
    }
    std::memcpy(pixels, result.data(), bytes);
}

void PaintBlock(const std::uint8_t* covered, std::uint32_t* pixels, std::size_t count, std::uint32_t pixel) {
    if (count == BlockSize) {
        PaintWholeBlock(covered, pixels, pixel);
        return;
    }
    for (std::size_t i = 0; i < count; ++i) {
        pixels[i] = Blend(pixels[i], pixel, covered[i]);
    }
}

} // namespace

void LineCoverage::Show(const PixelGrid& grid) {
    if (shown) {
        return;
    }
    AddStraight();
    if (IsEmpty()) {
        return;
    }
    grid.Take(pixel);
    below.clear();
    EachBlock(grid, [&](const std::uint8_t* covered, std::uint32_t* pixels, std::size_t count) {
        below.insert(below.end(), pixels, pixels + count);
        PaintBlock(covered, pixels, count, pixel);
    });
    shown = true;
}

void LineCoverage::TakeOff(const PixelGrid& grid) {
    grid.Forget();
    const std::uint32_t* saved = below.data();
    EachBlock(grid, [&](const std::uint8_t*, std::uint32_t* pixels, std::size_t count) {
        std::copy(saved, saved + count, pixels);
        saved += count;
    });
    shown = false;
    if (!bent) {
        ForgetCoverage();
    }
}

void LineCoverage::Finish(const PixelGrid& grid) {
    if (!shown) {
        AddStraight();
    }
    if (!shown && !IsEmpty()) {
        grid.Take(pixel);
        EachBlock(grid, [&](const std::uint8_t* covered, std::uint32_t* pixels, std::size_t count) {
            PaintBlock(covered, pixels, count, pixel);
        });
    }
    Forget();
}

void LineCoverage::Forget() {
    ForgetCoverage();
    straight.clear();
    bent = false;
    shown = false;
}

void LineCoverage::ForgetCoverage() {
    for (std::int32_t row = firstRow; row <= lastRow; ++row) {
        for (std::int32_t word = firstWord; word <= lastWord; ++word) {
            std::uint64_t& bits =
                marks[static_cast<std::size_t>(row) * wordsOfRow + static_cast<std::size_t>(word)];
            for (; bits != 0; bits &= bits - 1) {
                std::memset(CoverageOf(row) + std::ptrdiff_t{word * 64 + std::countr_zero(bits)} * BlockSize,
                            0, BlockSize);
            }
        }
    }
    firstRow = 0;
    lastRow = -1;
    hasStamped = false;
}

} // namespace quelmont
