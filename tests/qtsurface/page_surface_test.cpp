#include "qtsurface/page_surface.h"
#include "qtsurface/picture.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QRect>

#include <algorithm>
#include <array>
#include <functional>
#include <string>

namespace quelmont {
namespace {

constexpr std::uint32_t Black = 0x000000;

using Drawing = std::function<void(DrawSurface&)>;

/// A page whose dots are the pixels of a picture.
QImage OnPage(int side, const Drawing& draw, const QRectF& clip = {}, bool smooth = false) {
    QImage picture(side, side, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, smooth);
    PageSurface page;
    page.Begin(painter, {}, clip);
    draw(page);
    page.End();
    return picture;
}

QImage OnWindow(int side, const Drawing& draw) {
    ImageSurface window(side, side);
    window.Clear(White);
    draw(window);
    return window.Image().copy();
}

bool IsInked(const QImage& picture, int x, int y) {
    return picture.valid(x, y) && qGray(picture.pixel(x, y)) < 128;
}

int Inked(const QImage& picture) {
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += IsInked(picture, x, y) ? 1 : 0;
        }
    }
    return count;
}

/// The share of one picture's inked pixels that have none in the other within a pixel.
double Strays(const QImage& picture, const QImage& other) {
    int strays = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            bool near = !IsInked(picture, x, y);
            for (int step = 0; step < 9 && !near; ++step) {
                near = IsInked(other, x + step % 3 - 1, y + step / 3 - 1);
            }
            strays += near ? 0 : 1;
        }
    }
    return strays / std::max(1.0, static_cast<double>(Inked(picture)));
}

void ExpectAlike(const QImage& page, const QImage& window, double strays = 0.0) {
    EXPECT_GT(Inked(page), 0);
    EXPECT_LE(Strays(page, window), strays);
    EXPECT_LE(Strays(window, page), strays);
}

void SelectPen(DrawSurface& surface, int width, std::uint32_t color = Black, int style = PenStyleSolid) {
    surface.SelectObject(surface.CreatePen(style, width, color));
}

void SelectBrush(DrawSurface& surface, std::uint32_t color) {
    surface.SelectObject(surface.CreateSolidBrush(color));
}

TEST(PageSurface, DrawsLinesWhereTheWindowDoes) {
    for (const int width : {1, 2, 5, 12}) {
        const Drawing star = [width](DrawSurface& surface) {
            SelectPen(surface, width);
            for (int i = 0; i <= 100; i += 25) {
                surface.MoveToEx(60, 60);
                surface.LineTo(10 + i, 10);
                surface.MoveToEx(60, 60);
                surface.LineTo(110, 10 + i);
                surface.MoveToEx(60, 60);
                surface.LineTo(10 + i, 110);
            }
        };
        SCOPED_TRACE(width);
        // The window leaves the end of a line free.
        ExpectAlike(OnPage(120, star), OnWindow(120, star), 0.005);
    }
}

TEST(PageSurface, DrawsShapesWhereTheWindowDoes) {
    const std::array<SurfacePoint, 5> star{{{60, 5}, {95, 110}, {5, 45}, {115, 45}, {25, 110}}};
    const std::array<Drawing, 5> drawings = {
        [&](DrawSurface& surface) { surface.Polygon(star); },
        [&](DrawSurface& surface) {
            surface.SetPolyFillMode(FillWinding);
            surface.Polygon(star);
        },
        [](DrawSurface& surface) { surface.Rectangle(20, 30, 101, 72); },
        [](DrawSurface& surface) { surface.Ellipse(20, 30, 101, 72); },
        [&](DrawSurface& surface) { surface.Polyline(star); },
    };
    for (std::size_t number = 0; number < drawings.size(); ++number) {
        for (const bool filled : {false, true}) {
            SCOPED_TRACE(number);
            const Drawing draw = [&](DrawSurface& surface) {
                SelectPen(surface, 3);
                if (filled) {
                    SelectBrush(surface, Black);
                } else {
                    surface.SelectObject(surface.GetStockObject(StockNullBrush));
                }
                drawings[number](surface);
            };
            ExpectAlike(OnPage(120, draw), OnWindow(120, draw));
        }
    }
}

TEST(PageSurface, FillsAStarsMiddleByTheModeOfItsPolygons) {
    const std::array<SurfacePoint, 5> star{{{60, 5}, {95, 110}, {5, 45}, {115, 45}, {25, 110}}};
    for (const int mode : {FillAlternate, FillWinding}) {
        const QImage picture = OnPage(120, [&](DrawSurface& surface) {
            SelectBrush(surface, Black);
            EXPECT_NE(surface.SetPolyFillMode(mode), 0);
            EXPECT_TRUE(surface.Polygon(star));
        });
        EXPECT_EQ(IsInked(picture, 60, 60), mode == FillWinding);
    }
}

TEST(PageSurface, PixelIsASquareOfOneDot) {
    const QImage picture = OnPage(8, [](DrawSurface& surface) { surface.SetPixel(3, 4, Red); });
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x) {
            EXPECT_EQ(picture.pixel(x, y), x == 3 && y == 4 ? 0xFFFF0000 : 0xFFFFFFFF) << x << "," << y;
        }
    }
}

TEST(PageSurface, PixelsKeepTheirPlacesAndColoursInAnyOrder) {
    const auto dots = [](DrawSurface& surface) {
        for (int i = 0; i < 400; ++i) {
            const int at = i * 37 % 400; // every place once, in an order of no rows
            if (at % 3 != 0) {
                surface.SetPixel(at % 20, at / 20, at % 2 == 0 ? Red : Blue);
            }
        }
        for (int y = 22; y < 25; ++y) { // a square, row by row
            for (int x = 3; x < 6; ++x) {
                surface.SetPixel(x, y, Blue);
            }
        }
    };
    EXPECT_EQ(OnPage(30, dots), OnWindow(30, dots));
}

TEST(PageSurface, FillsABoxWithoutItsRightAndBottomEdge) {
    const QImage picture = OnPage(12, [](DrawSurface& surface) {
        SelectPen(surface, 1, Black, PenStyleNull);
        SelectBrush(surface, Black);
        EXPECT_TRUE(surface.Rectangle(2, 3, 9, 8));
    });
    EXPECT_EQ(Inked(picture), 7 * 5);
    EXPECT_TRUE(IsInked(picture, 2, 3));
    EXPECT_TRUE(IsInked(picture, 8, 7));
}

TEST(PageSurface, BoxOfOnePixelIsADotOfThePen) {
    const QImage picture = OnPage(20, [](DrawSurface& surface) {
        SelectPen(surface, 7);
        EXPECT_TRUE(surface.Rectangle(10, 10, 11, 11));
    });
    EXPECT_NEAR(Inked(picture), 3.14159 * 3.5 * 3.5, 6.0);
}

TEST(PageSurface, DrawsNothingWithANullPenAndBrushAndForLinesWithoutLength) {
    const QImage picture = OnPage(20, [](DrawSurface& surface) {
        SelectPen(surface, 9);
        surface.MoveToEx(10, 10);
        surface.LineTo(10, 10);
        SelectPen(surface, 9, Black, PenStyleNull);
        surface.SelectObject(surface.GetStockObject(StockNullBrush));
        surface.LineTo(3, 3);
        EXPECT_TRUE(surface.Rectangle(2, 3, 9, 8));
        EXPECT_TRUE(surface.Ellipse(2, 3, 9, 8));
        EXPECT_TRUE(surface.Rectangle(2, 3, 2, 8));
    });
    EXPECT_EQ(Inked(picture), 0);
}

TEST(PageSurface, JointsOfWideLinesAreRound) {
    const QImage picture = OnPage(60, [](DrawSurface& surface) {
        SelectPen(surface, 11);
        surface.MoveToEx(10, 30);
        surface.LineTo(40, 30);
        surface.LineTo(40, 55);
    });
    // The corner at the outer side: within 5.5 of (40, 30), and none of a sharp one.
    EXPECT_TRUE(IsInked(picture, 43, 27));
    EXPECT_FALSE(IsInked(picture, 45, 25));
}

TEST(PageSurface, LineOfManyPointsHasNoGapWhereItIsHandedOn) {
    constexpr int points = static_cast<int>(PageSurface::MostVertices) * 3 + 5;
    const auto zigzag = [](DrawSurface& surface) {
        SelectPen(surface, 1);
        surface.MoveToEx(0, 0);
        for (int i = 1; i < points; ++i) {
            surface.LineTo(i % 128, i / 128);
        }
    };
    ExpectAlike(OnPage(130, zigzag), OnWindow(130, zigzag));
}

TEST(PageSurface, WhatIsDrawnLaterLiesOverWhatWasDrawnBefore) {
    const QImage picture = OnPage(20, [](DrawSurface& surface) {
        SelectPen(surface, 5, Red);
        surface.MoveToEx(0, 10);
        surface.LineTo(19, 10);
        surface.SetPixel(5, 10, Blue);
        SelectPen(surface, 1, Black);
        surface.MoveToEx(10, 0);
        surface.LineTo(10, 19);
    });
    EXPECT_EQ(picture.pixel(5, 10), 0xFF0000FF);
    EXPECT_EQ(picture.pixel(10, 10), 0xFF000000);
    EXPECT_EQ(picture.pixel(15, 10), 0xFFFF0000);
}

TEST(PageSurface, DrawsNothingOutsideOfItsClip) {
    const QImage picture = OnPage(
        20,
        [](DrawSurface& surface) {
            SelectBrush(surface, Black);
            surface.Rectangle(-100, -100, 100, 100);
        },
        QRectF(5, 6, 7, 8));
    EXPECT_EQ(Inked(picture), 7 * 8);
    EXPECT_TRUE(IsInked(picture, 5, 6));
    EXPECT_TRUE(IsInked(picture, 11, 13));
}

TEST(PageSurface, CountsFromTheCornerThatItIsGiven) {
    QImage picture(30, 30, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    PageSurface page;
    page.Begin(painter, {10, 5}, QRectF(2, 0, 8, 8));
    SelectBrush(page, Black);
    page.Rectangle(0, 1, 20, 20);
    page.SetPixel(1, 0, Black);
    page.End();
    EXPECT_EQ(Inked(picture), 8 * 7);
    EXPECT_TRUE(IsInked(picture, 12, 6));
    EXPECT_TRUE(IsInked(picture, 19, 12));
}

TEST(PageSurface, WritesWhereTheWindowDoes) {
    struct Case {
        int degrees;
        int align;
        bool bold, italic, lines;
        const char* text;
    };
    for (const Case& tried : {Case{0, AlignBaseline, false, false, false, "Hagia"},
                              Case{37, AlignBaseline, true, false, false, "Hagia"},
                              Case{90, AlignTop, false, true, true, "Hagia"},
                              Case{200, AlignTop, false, false, true, "\xCE\xA9\xCE\xBC \xD7\x90\xD7\x91"}}) {
        SCOPED_TRACE(tried.degrees);
        const Drawing write = [&](DrawSurface& surface) {
            surface.SelectObject(surface.CreateFontIndirectA({.height = -40,
                                                              .escapement = tried.degrees * 10,
                                                              .orientation = tried.degrees * 10,
                                                              .weight = tried.bold ? 700 : 400,
                                                              .italic = tried.italic,
                                                              .underline = tried.lines,
                                                              .strikeout = tried.lines,
                                                              .faceName = "Arial"}));
            EXPECT_TRUE(surface.SetTextAlign(tried.align));
            EXPECT_TRUE(surface.TextOutA(150, 150, tried.text));
        };
        ExpectAlike(OnPage(300, write, {}, true), OnWindow(300, write), 0.01);
    }
}

TEST(PageSurface, WritesInTheColourOfTexts) {
    const QImage picture = OnPage(60, [](DrawSurface& surface) {
        surface.SelectObject(surface.CreateFontIndirectA({.height = -40, .faceName = "Arial"}));
        surface.SetTextAlign(AlignBaseline);
        EXPECT_EQ(surface.SetTextColor(Blue), Black);
        EXPECT_TRUE(surface.TextOutA(10, 50, "I"));
        EXPECT_TRUE(surface.TextOutA(10, 50, ""));
        EXPECT_FALSE(surface.TextOutA(10, 50, std::string(MostTextCharacters + 1, 'x')));
    });
    EXPECT_EQ(picture.pixel(15, 35), 0xFF0000FF);
}

TEST(PageSurface, WithoutAPageTakesObjectsAndRefusesToDraw) {
    PageSurface page;
    SelectPen(page, 3);
    SelectBrush(page, Red);
    const std::array<SurfacePoint, 3> points{{{0, 0}, {5, 5}, {9, 0}}};
    EXPECT_FALSE(page.Polyline(points));
    EXPECT_FALSE(page.Polygon(points));
    EXPECT_FALSE(page.Rectangle(0, 0, 5, 5));
    EXPECT_FALSE(page.Ellipse(0, 0, 5, 5));
    EXPECT_FALSE(page.TextOutA(0, 0, "x"));
    page.LineTo(3, 3);
    page.SetPixel(1, 1, Red);
    page.End();
}

TEST(PageSurface, TellsEachTimeThatSoManyVerticesAreDrawn) {
    int told = 0;
    QImage picture(10, 10, QImage::Format_RGB32);
    QPainter painter(&picture);
    PageSurface page(10'000, [&] { ++told; });
    page.Begin(painter, {}, {});
    for (int i = 0; i < 100'000; ++i) {
        page.LineTo(i % 10, i / 10 % 10);
    }
    page.End();
    EXPECT_GE(told, 6);
    EXPECT_LE(told, 10);
}

} // namespace
} // namespace quelmont
