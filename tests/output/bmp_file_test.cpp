#include "output/bmp/bmp_file.h"

#include "export_fixture.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::string_literals;

class Bmp : public ExportTest {
protected:
    Bmp() { Design.BmpFileName = target; }

    /// An image whose pixel in row y, column x is 0x00BBGGRR = 0x00xxyy11.
    void Show(std::int32_t width, std::int32_t height) {
        PixelImage& image = machine.window.pixels;
        image.width = width;
        image.height = height;
        image.pixels.clear();
        for (std::int32_t y = 0; y < height; ++y) {
            for (std::int32_t x = 0; x < width; ++x) {
                image.pixels.push_back(static_cast<std::uint32_t>(x) << 16U |
                                       static_cast<std::uint32_t>(y) << 8U | 0x11U);
            }
        }
    }

    /// Such an image in a file, behind its header: bottom row first, blue, green, red.
    static std::string Rows(std::int32_t width, std::int32_t height) {
        std::string rows;
        for (std::int32_t y = height - 1; y >= 0; --y) {
            for (std::int32_t x = 0; x < width; ++x) {
                rows += static_cast<char>(x | y >> 8); // a y beyond 255 reaches into the blue
                rows += static_cast<char>(y);
                rows += '\x11';
            }
            rows += std::string(static_cast<std::size_t>(width % 4), '\0'); // to whole fours
        }
        return rows;
    }

    std::string Saved() {
        BmpSave();
        return ReadWholeFile(target);
    }
};

TEST(BmpStride, WholeRowsOfFourBytes) {
    EXPECT_EQ(BmpStride(24, 1), 4);
    EXPECT_EQ(BmpStride(24, 4), 12);
    EXPECT_EQ(BmpStride(24, 5), 16);
    EXPECT_EQ(BmpStride(8, 4), 4);
    EXPECT_EQ(BmpStride(8, 5), 8);
    EXPECT_EQ(BmpStride(4, 1), 4);
    EXPECT_EQ(BmpStride(4, 8), 4);
    EXPECT_EQ(BmpStride(4, 9), 8); // four and a half bytes
    EXPECT_EQ(BmpStride(1, 32), 4);
    EXPECT_EQ(BmpStride(1, 33), 8); // four bytes and a bit
}

TEST(BmpStripe, As16384BytesHold) {
    EXPECT_EQ(BmpStripeRows(4), 4096);
    EXPECT_EQ(BmpStripeRows(16384), 1);
    EXPECT_EQ(BmpStripeRows(3840), 4);
    EXPECT_EQ(BmpStripeRows(16388), 1) << "one row at least";
}

TEST_F(Bmp, SmallImageByItsBytes) {
    Show(2, 2);
    EXPECT_EQ(Saved(), "BM\x46\x00\x00\x00\x00\x00\x00\x00\x36\x00\x00\x00" // 54 + 2 rows of 8 bytes
                       "\x28\x00\x00\x00\x02\x00\x00\x00\x02\x00\x00\x00\x01\x00\x18\x00"
                       "\x00\x00\x00\x00\x10\x00\x00\x00"
                       "\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00\x00"
                       "\x00\x01\x11\x01\x01\x11\x00\x00"    // the lower row: blue, green, red
                       "\x00\x00\x11\x01\x00\x11\x00\x00"s); // the upper one
}

TEST_F(Bmp, OnePixel) {
    Show(1, 1);
    const std::string bytes = Saved();
    ASSERT_EQ(bytes.size(), 58U);
    EXPECT_EQ(bytes.substr(54), "\x00\x00\x11\x00"s);
}

TEST_F(Bmp, RowsOfSeveralStripesFollowEachOther) {
    Show(100, 200); // rows of 300 bytes, 54 in a stripe
    const std::string bytes = Saved();
    ASSERT_EQ(bytes.size(), 54U + 200U * 300U);
    for (std::size_t row = 0; row < 200; ++row) {
        EXPECT_EQ(bytes.substr(54 + row * 300, 3), std::string({'\0', static_cast<char>(199 - row), '\x11'}));
        EXPECT_EQ(bytes.substr(54 + row * 300 + 297, 3),
                  std::string({'\x63', static_cast<char>(199 - row), '\x11'}));
    }
}

TEST_F(Bmp, ColumnOfOneStripeAndOneThatIsARowLonger) {
    for (const std::int32_t height : {4096, 4097}) { // rows of 4 bytes: 16384 and one more
        Show(1, height);
        const std::string bytes = Saved();
        EXPECT_EQ(bytes.size(), 54U + 4U * static_cast<std::size_t>(height));
        EXPECT_TRUE(bytes.substr(54) == Rows(1, height)) << height;
    }
}

TEST_F(Bmp, RowLongerThanAStripeIsWrittenWhole) {
    Show(5462, 3); // 16386 bytes and 2 of padding
    const std::string bytes = Saved();
    EXPECT_EQ(bytes.size(), 54U + 3U * 16388U);
    EXPECT_TRUE(bytes.substr(54) == Rows(5462, 3));
}

TEST_F(Bmp, LongerFileLeavesNoTail) {
    WriteWholeFile(target, std::string(1000, 'x'));
    Show(1, 1);
    EXPECT_EQ(Saved().size(), 58U);
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Bmp, AreaIsBlankBeforeTheFirstDraw) {
    Design.TwipsPerPixelX = Design.TwipsPerPixelY = 15.0F;
    machine.window.scaleWidth = 45.0;
    machine.window.scaleHeight = 30.0;
    Design.BackColor = 0x02FF8001;
    const std::string bytes = Saved();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    ASSERT_EQ(bytes.size(), 54U + 2U * 12U); // three pixels and three bytes of padding
    EXPECT_EQ(bytes.substr(18, 8), "\x03\x00\x00\x00\x02\x00\x00\x00"s);
    const std::string row = "\xFF\x80\x01\xFF\x80\x01\xFF\x80\x01\x00\x00\x00"s;
    EXPECT_EQ(bytes.substr(54), row + row);
}

TEST_F(Bmp, AreaWithoutASizeCannotBeCaptured) {
    machine.window.scaleWidth = 0.0;
    BmpSave();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "BITMAP_CaptureBmp - Capture Failed"}));
    EXPECT_THAT(Files(), IsEmpty());
}

/// Whose picture does not fit the memory a second time.
class WindowThatCannotBeCopied : public ScriptedWindow {
public:
    PixelImage CopyPixels() override { throw RunTimeError(ErrorOutOfMemory); }
};

TEST_F(Bmp, CopyThatFailsIsReportedAndKeepsTheEarlierFile) {
    WriteWholeFile(target, "earlier");
    WindowThatCannotBeCopied window;
    Machine().window = &window;
    BmpSave();
    Machine().window = &machine.window;
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in BmpSave", "Error: Out of memory"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

TEST_F(Bmp, EmptyCaptureCannotBeSaved) {
    SaveBmp(target, BitmapCapture{});
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "BITMAP_SaveBmp - No Bitmap"}));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(Bmp, FolderInPlaceOfAFile) {
    Design.BmpFileName = folder.Path();
    Show(1, 1);
    BmpSave();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in BmpSave", "Error: Path/File access error"}));
}

TEST_F(Bmp, FullDiskKeepsTheEarlierFile) {
    WriteWholeFile(target, "earlier");
    Show(300, 300);
    {
        FailingFiles disk;
        disk.FailWritingAfter(100, ErrorDiskFull);
        BmpSave();
    }
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in BmpSave", "Error: Disk full"}));
    EXPECT_EQ(ReadWholeFile(target), "earlier");
    EXPECT_THAT(Files(), ElementsAre("map"));
}

} // namespace
} // namespace quelmont
