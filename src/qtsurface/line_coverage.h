#pragma once

#include "qtsurface/pixel_grid.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace quelmont {

/// A place in parts of a pixel, FinePerPixel to one, as FineLines counts them.
struct FinePoint {
    std::int64_t x = 0;
    std::int64_t y = 0;
    bool operator==(const FinePoint&) const = default;
};

/// How much of each pixel one line covers, in 255ths, and how it comes onto a picture.
///
/// A pixel is covered as far as its centre lies inside of the line: whole up to half a pixel inside of its
/// edge, not at all from half a pixel outside on, evenly between. What counts is the distance to the nearest
/// place of the whole line, ends and corners rounded. So there is no seam between its segments, and the
/// order and direction in which they come do not matter to a single pixel. The line is laid onto the picture
/// once, at its end.
///
/// A line that is level or upright from its beginning to its end lies on whole pixels, as sharp as a plain
/// one: the nearest ones, by both of its ends.
///
/// Coordinates may be any 32-bit numbers of pixels; what lies outside is cut off.
class LineCoverage {
public:
    /// For a picture of that size; forgets the line. std::bad_alloc.
    void Resize(std::int32_t width, std::int32_t height);

    bool HasSize(std::int32_t width_, std::int32_t height_) const {
        return width == width_ && height == height_;
    }

    /// The pen of the next line, width in pixels from 1 on. The line before must have ended.
    void SetPen(double width, std::uint32_t pixel);

    /// Adds a segment to the line, from where the one before ended; nothing for a length of zero.
    void Segment(FinePoint from, FinePoint to) {
        if (from.x == to.x && from.y == to.y) {
            return;
        }
        // Pairs are handed on one by one: a compiler that puts a pair together in memory and takes it out as
        // a whole has the processor wait for each.
        if (bent) {
            Add(from.x, from.y, to.x, to.y);
        } else {
            GoStraight(from, to);
        }
    }
    /// Adds a round dot as wide as the pen.
    void Dot(FinePoint at);

    /// Paints the line as far as it has come; it can be continued after Hide.
    void Show(const PixelGrid& grid);
    /// Takes what Show has painted off again. Nothing else may have been painted since.
    void Hide(const PixelGrid& grid) {
        if (shown) {
            TakeOff(grid);
        }
    }
    /// Paints the line, unless it is shown already, and begins a new one.
    void Finish(const PixelGrid& grid);
    /// Forgets the line without painting it.
    void Forget();

private:
    static constexpr std::size_t coverageBefore = 8;

    /// The pen's mark at each of 16 x 16 places inside of a pixel, for pens of up to seven pixels.
    struct Stamps {
        double width = 0.0;
        std::int32_t first = 0; ///< from the pixel of the place to the first column and row of the mark
        std::int32_t side = 0;  ///< rows
        std::vector<std::array<std::uint8_t, 8>> rows;
    };
    /// What of a segment is the same in each row: distances in 255ths of a pixel.
    struct Slopes;

    bool IsEmpty() const { return lastRow < firstRow; }
    void GoStraight(FinePoint from, FinePoint to);
    void TakeOff(const PixelGrid& grid);
    void Bend();
    void Add(std::int64_t fromX, std::int64_t fromY, std::int64_t toX, std::int64_t toY);
    void AddStraight();
    void ForgetCoverage();
    const Stamps& StampsOf(double penWidth);
    /// Of the first pixel of a row. The bytes before it belong to no pixel, as many as a block has.
    std::uint8_t* CoverageOf(std::int32_t row) {
        return coverage.data() + coverageBefore + static_cast<std::size_t>(row) * stride;
    }
    void Stamp(std::int64_t x, std::int64_t y);
    void StampAtEdge(std::int64_t left, std::int64_t top, const std::array<std::uint8_t, 8>* rows);
    void Stroke(FinePoint from, FinePoint to);
    void Mark(std::int32_t row, std::int32_t left, std::int32_t right);
    template <class Visit>
    void EachBlock(const PixelGrid& grid, Visit visit);

    std::int32_t width = 0;
    std::int32_t height = 0;
    std::size_t stride = 0;             ///< of a row, whole blocks and one more
    std::size_t wordsOfRow = 0;         ///< of marks
    std::vector<std::uint8_t> coverage; ///< row after row
    std::vector<std::uint64_t> marks;   ///< a bit for each block of eight pixels that is touched
    std::int32_t firstRow = 0, lastRow = -1;
    std::int32_t firstWord = 0, lastWord = -1; ///< of the marks of all these rows
    std::vector<FinePoint> straight;           ///< the line as long as it is level or upright
    bool bent = false;                         ///< it is not, and lies in the coverage
    double reach = 1.0;                        ///< pixels from the line to where nothing is covered
    std::uint32_t pixel = 0;
    std::deque<Stamps> kept;        ///< of the widths in use
    const Stamps* stamps = nullptr; ///< of the pen; none for wide ones
    FinePoint stamped;              ///< last, in sixteenths
    FinePoint stampedTo;            ///< where the last segment ended that was stamped
    bool hasStamped = false;
    bool shown = false;
    std::vector<std::uint32_t> below; ///< what the shown line lies on, by blocks
};

/// A colour laid over another with a coverage of 0 to 255; pixels as in PixelGrid.
inline std::uint32_t Blend(std::uint32_t below, std::uint32_t above, std::uint32_t coverage) {
    const std::uint32_t share = coverage + (coverage >> 7U); // 0 to 256
    const std::uint32_t rest = 256 - share;
    constexpr std::uint32_t outer = 0x00FF00FFU;
    constexpr std::uint32_t middle = 0x0000FF00U;
    const std::uint32_t redBlue = ((below & outer) * rest + (above & outer) * share + 0x00800080U) >> 8U;
    const std::uint32_t green = ((below & middle) * rest + (above & middle) * share + 0x00008000U) >> 8U;
    return 0xFF000000U | (redBlue & outer) | (green & middle);
}

} // namespace quelmont
