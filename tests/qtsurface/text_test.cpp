#include "qtsurface/picture.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPoint>
#include <QRect>

#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>
#include <string_view>

namespace quelmont {
namespace {

constexpr std::uint32_t Black = 0x000000;

struct Writing {
    std::string_view text = "HEH";
    int height = 40; ///< of the characters, pixels
    int degrees = 0;
    bool bold = false, italic = false, underline = false, strikeout = false;
    int align = AlignBaseline;
    std::string_view face = "Arial";
    std::uint32_t color = Black;
};

bool Write(ImageSurface& surface, SurfacePoint anchor, const Writing& writing) {
    const SurfaceHandle font = surface.CreateFontIndirectA({.height = -writing.height,
                                                            .escapement = writing.degrees * 10,
                                                            .orientation = writing.degrees * 10,
                                                            .weight = writing.bold ? 700 : 400,
                                                            .italic = writing.italic,
                                                            .underline = writing.underline,
                                                            .strikeout = writing.strikeout,
                                                            .faceName = writing.face});
    const SurfaceHandle before = surface.SelectObject(font);
    surface.SetTextAlign(writing.align);
    surface.SetTextColor(writing.color);
    const bool done = surface.TextOutA(anchor.x, anchor.y, writing.text);
    surface.SelectObject(before);
    surface.DeleteObject(font);
    return done;
}

/// A white square with a text whose anchor is in its middle.
class Page {
public:
    explicit Page(const Writing& writing, int side = 600) : surface(side, side), middle(side / 2) {
        surface.Clear(White);
        Write(surface, {middle, middle}, writing);
        image = surface.Image().copy();
    }

    /// How much of a pixel is covered, 0 to 1.
    double Ink(int x, int y) const { return 1.0 - qGray(image.pixel(x, y)) / 255.0; }
    double Ink() const {
        double sum = 0.0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                sum += Ink(x, y);
            }
        }
        return sum;
    }
    /// The box of all pixels that are covered by more than a tenth, from the anchor.
    QRect Box() const {
        QRect box;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (Ink(x, y) > 0.1) {
                    box |= QRect(x - middle, y - middle, 1, 1);
                }
            }
        }
        return box;
    }

    ImageSurface surface;
    QImage image;
    int middle;
};

TEST(PaintedText, StandsOnTheRowAboveItsAnchorAndBeginsAtIt) {
    for (const int height : {8, 13, 40, 96, 192}) {
        const QRect box = Page({.height = height}).Box();
        EXPECT_EQ(box.bottom(), -1) << height;
        EXPECT_GE(box.left(), 0) << height;
        EXPECT_LE(box.left(), height / 8 + 1) << height;
        // A capital letter has from two thirds to three quarters of an em.
        EXPECT_NEAR(-box.top(), 0.7 * height, 0.06 * height + 1.0) << height;
    }
}

TEST(PaintedText, QuarterTurnsPutTheBaselineThroughTheAnchorToo) {
    const QRect box = Page({}).Box();
    const QRect up = Page({.degrees = 90}).Box();
    EXPECT_EQ(up.right(), -1) << "letters stand on the left of it, upward";
    EXPECT_EQ(up.size(), box.size().transposed());
    EXPECT_EQ(up.bottom(), -1 - box.left());
    const QRect back = Page({.degrees = 180}).Box();
    EXPECT_EQ(back.top(), 0);
    EXPECT_EQ(back.right(), -1 - box.left());
    EXPECT_EQ(back.size(), box.size());
    const QRect down = Page({.degrees = 270}).Box();
    EXPECT_EQ(down.left(), 0);
    EXPECT_EQ(down.top(), box.left());
    EXPECT_EQ(down.size(), box.size().transposed());
}

TEST(PaintedText, BaselineRunsThroughTheAnchorAtEveryAngle) {
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const Page page({.degrees = degrees});
        const double angle = degrees * std::numbers::pi / 180.0;
        double lowest = 1000.0; // above the baseline
        double first = 1000.0;  // along it
        for (int y = 0; y < page.image.height(); ++y) {
            for (int x = 0; x < page.image.width(); ++x) {
                if (page.Ink(x, y) > 0.5) {
                    const double right = x + 0.5 - page.middle;
                    const double up = page.middle - (y + 0.5);
                    lowest = std::min(lowest, up * std::cos(angle) - right * std::sin(angle));
                    first = std::min(first, right * std::cos(angle) + up * std::sin(angle));
                }
            }
        }
        EXPECT_NEAR(lowest, 0.35, 0.4) << degrees; // centres of pixels on the line: half a pixel above it
        EXPECT_NEAR(first, 3.5, 1.5) << degrees;
    }
}

TEST(PaintedText, NothingIsCutOffAtAnyAngleAndSize) {
    // Ypiranga with an accent reaches high and low; at each angle it has the same area.
    for (const auto& [height, tolerance] : {std::pair{8, 0.02}, std::pair{24, 0.005}, std::pair{96, 0.002}}) {
        const Writing writing{.text = "\u00C5jgQY\u0301",
                              .height = height,
                              .italic = true,
                              .underline = true,
                              .strikeout = true};
        const double whole = Page(writing, 1000).Ink();
        EXPECT_GT(whole, 1.0);
        for (const int degrees : {30, 45, 90, 135, 180, 200, 270, 359}) {
            Writing turned = writing;
            turned.degrees = degrees;
            EXPECT_NEAR(Page(turned, 1000).Ink() / whole, 1.0, tolerance) << height << " at " << degrees;
        }
    }
}

TEST(PaintedText, AreaGrowsWithTheSquareOfTheHeight) {
    const double small = Page({.height = 40}).Ink();
    EXPECT_NEAR(Page({.height = 80}).Ink() / small, 4.0, 0.02) << "the text is the same at each size";
}

TEST(PaintedText, IsCutOffAtTheEdgesOfThePictureAlone) {
    const Writing writing{.text = "Mediterranean", .degrees = 20};
    ImageSurface large(400, 400);
    large.Clear(White);
    Write(large, {100, 200}, writing);
    ImageSurface small(120, 90);
    small.Clear(White);
    Write(small, {-60, 80}, writing); // a window on the large one, 160 to the right and 120 down
    EXPECT_EQ(small.Image(), large.Image().copy(160, 120, 120, 90));
    ImageSurface away(120, 90);
    away.Clear(White);
    const QImage blank = away.Image().copy();
    Write(away, {2'000'000'000, -2'000'000'000}, writing);
    Write(away, {-400, 80}, writing);
    EXPECT_EQ(away.Image(), blank);
}

TEST(PaintedText, EdgesAreGreyAndNeverColoured) {
    const Page page({.text = "Quelmont", .height = 13});
    for (int y = 0; y < page.image.height(); ++y) {
        for (int x = 0; x < page.image.width(); ++x) {
            const QRgb pixel = page.image.pixel(x, y);
            ASSERT_TRUE(qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel)) << x << ' ' << y;
        }
    }
}

TEST(PaintedText, ShadesLieBetweenItsColourAndWhatIsBehind) {
    ImageSurface surface(100, 60);
    surface.Clear(Blue);
    Write(surface, {5, 50}, {.color = Red});
    const QImage image = surface.Image();
    bool solid = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            EXPECT_EQ(qGreen(pixel), 0);
            EXPECT_NEAR(qRed(pixel) + qBlue(pixel), 255, 1);
            solid = solid || pixel == 0xFFFF0000;
        }
    }
    EXPECT_TRUE(solid);
    EXPECT_EQ(image.pixel(99, 0), 0xFF0000FF) << "what is not written on stays";
}

TEST(PaintedText, AnchorAtTheTopHangsTheCellFromIt) {
    const QRect hanging = Page({.align = AlignTop}).Box();
    const QRect standing = Page({}).Box();
    EXPECT_GE(hanging.top(), 0);
    EXPECT_LE(hanging.top(), 12);
    EXPECT_EQ(hanging.left(), standing.left());
    EXPECT_NEAR(hanging.height(), standing.height(), 1);
}

TEST(PaintedText, LineUnderItFollowsTheTextFromItsAnchorOn) {
    const Writing writing{.text = "   ", .underline = true}; // nothing but the line
    const QRect box = Page(writing).Box();
    EXPECT_EQ(box.left(), 0);
    EXPECT_NEAR(box.width(), 3 * 0.28 * 40, 5.0) << "blanks are a quarter to a third of an em";
    EXPECT_GE(box.top(), 1) << "below the baseline";
    EXPECT_LT(box.bottom(), 13);
    EXPECT_LT(box.height(), 6);
    Writing turned = writing;
    turned.degrees = 90;
    const QRect up = Page(turned).Box();
    EXPECT_EQ(up, QRect(box.top(), -box.right() - 1, box.height(), box.width()));
}

TEST(PaintedText, LineThroughItRunsThroughItsLetters) {
    const QRect box = Page({.text = "   ", .strikeout = true}).Box();
    EXPECT_EQ(box.left(), 0);
    EXPECT_LT(box.bottom(), -5);
    EXPECT_GT(box.top(), -20);
    EXPECT_LT(box.height(), 6);
}

TEST(PaintedText, BoldIsHeavierAndItalicLeans) {
    EXPECT_GT(Page({.bold = true}).Ink(), 1.2 * Page({}).Ink());
    // The stem of an I leans to the right.
    EXPECT_GT(Page({.text = "I", .height = 100, .italic = true}).Box().width(),
              Page({.text = "I", .height = 100}).Box().width() + 10);
}

TEST(PaintedText, LettersThatTheFontLacksComeFromOthers) {
    for (const auto& [one, other] :
         {std::pair{"\u0416", "\u0429"}, std::pair{"\u03A9", "\u03A6"}, std::pair{"\u0639", "\u0633"}}) {
        // A font without them would paint the same box for both.
        EXPECT_NE(Page({.text = one}).image, Page({.text = other}).image) << one;
    }
}

TEST(PaintedText, MarksStandOverTheirLetters) {
    const QRect letter = Page({.text = "e"}).Box();
    const QRect accented = Page({.text = "e\u0301"}).Box();
    EXPECT_LT(accented.top(), letter.top() - 3);
    EXPECT_LE(accented.right(), letter.right() + 3);
    EXPECT_EQ(Page({.text = "e\u0301"}).image, Page({.text = "\u00E9"}).image);
}

TEST(PaintedText, ArabicIsJoinedAndReadFromTheRight) {
    const QRect one = Page({.text = "\u0628"}).Box(); // beh
    const QRect two = Page({.text = "\u0628\u0628"}).Box();
    EXPECT_LT(two.width(), 2 * one.width()) << "the joined forms are narrower";
    EXPECT_GE(two.left(), -1) << "it begins at the anchor all the same";
    // Alef is a stroke that reaches high: as the first letter it stands on the right.
    const Page word({.text = "\u0627\u0628", .height = 80});
    const QRect box = word.Box();
    double right = 0.0;
    double left = 0.0;
    for (int y = word.middle + box.top(); y < word.middle + box.top() + 10; ++y) {
        for (int x = word.middle + box.left(); x <= word.middle + box.right(); ++x) {
            (x - word.middle > box.center().x() ? right : left) += word.Ink(x, y);
        }
    }
    EXPECT_GT(right, 0.0);
    EXPECT_EQ(left, 0.0);
}

TEST(PaintedText, ControlCharactersAndLineEndsAreBlanks) {
    const Page blank({.text = "a b"});
    for (const std::string_view text :
         {std::string_view("a\nb"), std::string_view("a\0b", 3), std::string_view("a\tb"),
          std::string_view("a\x7F"
                           "b"),
          std::string_view("a\u2028b"), std::string_view("a\u0085b")}) {
        EXPECT_EQ(Page({.text = text}).image, blank.image) << std::string(text);
    }
    EXPECT_EQ(Page({.text = "a\u200Fb\u200E"}).image, Page({.text = "ab"}).image) << "marks of direction";
}

TEST(PaintedText, BytesThatAreNoUtf8AreLettersOfWindows) {
    EXPECT_EQ(Page({.text = "\xC5\xE6"}).image, Page({.text = "\u00C5\u00E6"}).image);
}

TEST(PaintedText, EmptyTextChangesNothing) {
    ImageSurface surface(20, 20);
    surface.Clear(White);
    const QImage before = surface.Image().copy();
    EXPECT_TRUE(Write(surface, {5, 15}, {.text = "", .underline = true}));
    EXPECT_EQ(surface.Image(), before);
    ImageSurface none(0, 0);
    EXPECT_TRUE(Write(none, {5, 15}, {}));
}

TEST(PaintedText, LongTextsAreLaidOutToTheirEnd) {
    for (const std::size_t length : {1U, 255U, 10'000U, 32'767U}) {
        const std::string text = std::string(length - 1, 'i') + "W";
        ImageSurface surface(300, 40);
        surface.Clear(White);
        const QImage blank = surface.Image().copy();
        // An i of 13 pixels advances by some 2.9 of them; the end is brought into the picture.
        const auto back = static_cast<std::int32_t>(2.888 * static_cast<double>(length - 1));
        EXPECT_TRUE(Write(surface, {100 - back, 30}, {.text = text, .height = 13}));
        EXPECT_NE(surface.Image(), blank) << length;
    }
    ImageSurface surface(20, 20);
    surface.Clear(White);
    const QImage before = surface.Image().copy();
    EXPECT_FALSE(Write(surface, {5, 15}, {.text = std::string(32'768, 'W')}));
    EXPECT_EQ(surface.Image(), before);
}

TEST(PaintedText, FontThatDoesNotExistIsStoodInFor) {
    EXPECT_GT(Page({.face = "No Such Font"}).Ink(), 100.0);
    EXPECT_GT(Page({.face = ""}).Ink(), 100.0);
    EXPECT_GT(Page({.face = std::string(10'000, 'x')}).Ink(), 100.0);
}

TEST(PaintedText, HugeLettersCoverThePicture) {
    ImageSurface surface(50, 50);
    surface.Clear(White);
    // The stem of an H of 32767 pixels is thousands of pixels wide, and begins at a thirteenth of an em.
    Write(surface, {-4000, 10'000}, {.text = "H", .height = 32'767});
    EXPECT_EQ(surface.Image().pixel(0, 0), 0xFF000000);
    EXPECT_EQ(surface.Image().pixel(49, 49), 0xFF000000);
}

TEST(PaintedText, AnglesBeyondATurnAreThoseWithin) {
    ImageSurface once(200, 200);
    once.Clear(White);
    ImageSurface beyond(200, 200);
    beyond.Clear(White);
    Write(once, {100, 100}, {.degrees = 30});
    Write(beyond, {100, 100}, {.degrees = 30 - 720});
    EXPECT_EQ(once.Image(), beyond.Image());
}

TEST(PaintedText, WhatWasFilledBeforeIsFilledAnewOverIt) {
    ImageSurface surface(100, 60);
    surface.SelectObject(surface.CreateSolidBrush(Red));
    surface.SelectObject(surface.CreatePen(PenStyleSolid, 1, Red));
    surface.Rectangle(0, 0, 100, 60);
    const QImage red = surface.Image().copy();
    Write(surface, {5, 50}, {});
    EXPECT_NE(surface.Image(), red);
    surface.Rectangle(0, 0, 100, 60);
    EXPECT_EQ(surface.Image(), red);
}

} // namespace
} // namespace quelmont
