#include "qtsurface/image_surface.h"
#include "qtsurface/pixel_grid.h"
#include "qtsurface/thin_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <random>
#include <vector>

namespace quelmont {
namespace {

constexpr std::int32_t Width = 120;
constexpr std::int32_t Height = 80;

/// Two pictures on which the same is painted, one of which remembers its spans.
class TwoPictures {
public:
    TwoPictures() {
        grids[0] = {pixels[0].data(), Width, Height, &painted};
        grids[1] = {pixels[1].data(), Width, Height, nullptr};
    }
    template <typename Paint>
    void Both(Paint&& paint) {
        for (const PixelGrid& grid : grids) {
            paint(grid);
        }
    }
    bool Same() const { return pixels[0] == pixels[1]; }
    bool OneColor() const {
        return std::all_of(pixels[1].begin(), pixels[1].end(),
                           [&](std::uint32_t pixel) { return pixel == pixels[1].front(); });
    }

    PaintedSpans painted{Width, Height};
    std::array<PixelGrid, 2> grids;

private:
    static std::vector<std::uint32_t> Black() {
        return std::vector<std::uint32_t>(static_cast<std::size_t>(Width) * Height, 0xFF000000U);
    }
    std::array<std::vector<std::uint32_t>, 2> pixels{Black(), Black()};
};

/// Paints whatever surfaces paint, mostly in one colour, here and there in another.
class RandomShapes {
public:
    void Paint(TwoPictures& pictures) {
        if (Number(0, 9) == 0) {
            color = Number(0, 1) == 0 ? 0xFFFF0000U : 0xFF0000FFU;
        }
        const SurfacePoint a{Number(-40, Width + 40), Number(-40, Height + 40)};
        const SurfacePoint b{Number(-40, Width + 40), Number(-40, Height + 40)};
        const SurfacePoint c{Number(-40, Width + 40), Number(-40, Height + 40)};
        const double radius = Number(1, 90);
        switch (Number(0, 5)) {
        case 0:
            pictures.Both([&](const PixelGrid& grid) { DrawThinLine(grid, a, b, color); });
            break;
        case 1:
            pictures.Both([&](const PixelGrid& grid) { RoundPen(7).Line(grid, a, b, color); });
            break;
        case 2:
            pictures.Both([&](const PixelGrid& grid) { FillSpan(grid, a.y, a.x, a.x, color); });
            break;
        case 3:
            pictures.Both([&](const PixelGrid& grid) {
                FillPolygon(grid, std::array{a, b, c}, FillAlternate, color);
            });
            break;
        default:
            pictures.Both([&](const PixelGrid& grid) {
                FillEllipse(grid,
                            {.centreX = static_cast<double>(a.x),
                             .centreY = static_cast<double>(a.y),
                             .semiX = radius,
                             .semiY = radius},
                            color);
            });
            break;
        }
    }

private:
    std::int32_t Number(std::int32_t least, std::int32_t most) {
        return std::uniform_int_distribution<std::int32_t>(least, most)(random);
    }
    std::mt19937 random{1}; // NOLINT(cert-msc51-cpp): the same each time
    std::uint32_t color = 0xFFFF0000U;
};

TEST(PaintedSpans, ArePaintedAsIfNothingHadBeenRemembered) {
    RandomShapes shapes;
    int whole = 0;
    for (int round = 0; round < 40; ++round) {
        TwoPictures pictures;
        for (int shape = 0; shape < 100; ++shape) {
            shapes.Paint(pictures);
            ASSERT_TRUE(pictures.Same()) << round << ' ' << shape;
            if (pictures.painted.IsWhole()) {
                ASSERT_TRUE(pictures.OneColor()) << round << ' ' << shape;
                ++whole;
            }
        }
    }
    EXPECT_GT(whole, 0);
}

TEST(PaintedSpans, WholePictureIsKnownUntilAnotherColourComes) {
    TwoPictures pictures;
    const PixelGrid& grid = pictures.grids[0];
    for (std::int32_t row = 0; row < Height; ++row) {
        EXPECT_FALSE(grid.IsAll(0xFFFF0000U));
        FillSpan(grid, row, 0, Width / 2, 0xFFFF0000U);
        FillSpan(grid, row, Width / 2, Width, 0xFFFF0000U);
    }
    EXPECT_TRUE(grid.IsAll(0xFFFF0000U));
    EXPECT_FALSE(grid.IsAll(0xFF0000FFU));
    DrawThinLine(grid, {5, 5}, {9, 9}, 0xFFFF0000U);
    EXPECT_TRUE(grid.IsAll(0xFFFF0000U));
    DrawThinLine(grid, {5, 5}, {9, 9}, 0xFF0000FFU);
    EXPECT_FALSE(grid.IsAll(0xFFFF0000U));
    EXPECT_FALSE(grid.IsAll(0xFF0000FFU));
}

/// As the outlines of wide circles lie over each other.
TEST(PaintedSpans, TwoInEachRowGrowToTheWholePicture) {
    TwoPictures pictures;
    const PixelGrid& grid = pictures.grids[0];
    constexpr std::uint32_t red = 0xFFFF0000U;
    for (std::int32_t row = 0; row < Height; ++row) {
        FillSpan(grid, row, 0, 69, red);
        FillSpan(grid, row, 90, Width - 1, red);
        FillSpan(grid, row, 70, 95, red);
        EXPECT_FALSE(grid.IsAll(red));
        FillSpan(grid, row, 90, Width - 1, red);
    }
    EXPECT_TRUE(grid.IsAll(red));
}

TEST(PaintedSpans, ClearedPictureForgetsThem) {
    ImageSurface surface(Width, Height);
    const SurfaceHandle red = surface.CreateSolidBrush(0x0000FF);
    surface.SelectObject(red);
    surface.SelectObject(surface.CreatePen(PenStyleSolid, 1, 0x0000FF));
    surface.Rectangle(-5, -5, Width + 5, Height + 5);
    surface.Clear(0xFFFFFF);
    surface.Ellipse(10, 10, 60, 60);
    EXPECT_EQ(surface.Pixels().pixels[35 * Width + 35], 0x0000FFU);
    surface.Resize(Width, Height, 0xFFFFFF);
    surface.Rectangle(10, 10, 60, 60);
    EXPECT_EQ(surface.Pixels().pixels[35 * Width + 35], 0x0000FFU);
    EXPECT_EQ(surface.Pixels().pixels[0], 0xFFFFFFU);
}

} // namespace
} // namespace quelmont
