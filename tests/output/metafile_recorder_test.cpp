#include "output/wmf/metafile_recorder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<int> WordsOf(std::string_view bytes) {
    EXPECT_EQ(bytes.size() % 2, 0U);
    std::vector<int> words;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        words.push_back(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
    }
    return words;
}

class Recorder : public testing::Test {
protected:
    /// The words of the records since the last call: size (two words, the lower first), function,
    /// parameters from the last to the first.
    std::vector<int> Recorded() { return WordsOf(recorder.TakeRecords()); }

    MetafileRecorder recorder;
};

TEST_F(Recorder, PositionsAndLines) {
    recorder.MoveToEx(300, -2); // -2 is FFFE
    EXPECT_THAT(Recorded(), ElementsAre(5, 0, 0x0214, 0xFFFE, 300));
    recorder.LineTo(-32768, 32767);
    EXPECT_THAT(Recorded(), ElementsAre(5, 0, 0x0213, 0x7FFF, 0x8000));
}

TEST_F(Recorder, PixelsHaveTheirColourFirst) {
    recorder.SetPixel(7, 8, 0x02CC8844); // the highest byte is no colour
    EXPECT_THAT(Recorded(), ElementsAre(7, 0, 0x041F, 0x8844, 0x00CC, 8, 7));
}

TEST_F(Recorder, Shapes) {
    const std::array<SurfacePoint, 3> points = {{{1, 2}, {3, 4}, {5, 6}}};
    EXPECT_TRUE(recorder.Polyline(points));
    EXPECT_THAT(Recorded(), ElementsAre(10, 0, 0x0325, 3, 1, 2, 3, 4, 5, 6)) << "x first, unlike the others";
    EXPECT_TRUE(recorder.Polygon(points));
    EXPECT_THAT(Recorded(), ElementsAre(10, 0, 0x0324, 3, 1, 2, 3, 4, 5, 6));
    EXPECT_TRUE(recorder.Rectangle(1, 2, 3, 4));
    EXPECT_THAT(Recorded(), ElementsAre(7, 0, 0x041B, 4, 3, 2, 1));
    EXPECT_TRUE(recorder.Ellipse(1, 2, 3, 4));
    EXPECT_THAT(Recorded(), ElementsAre(7, 0, 0x0418, 4, 3, 2, 1));
}

TEST_F(Recorder, CoordinatesBeyondSixteenBitsRecordNothing) {
    for (const SurfacePoint far :
         {SurfacePoint{32768, 0}, SurfacePoint{-32769, 0}, SurfacePoint{0, 32768}, SurfacePoint{0, -32769}}) {
        recorder.MoveToEx(far.x, far.y);
        recorder.LineTo(far.x, far.y);
        recorder.SetPixel(far.x, far.y, 0);
        const std::array<SurfacePoint, 3> points = {{{1, 2}, far, {5, 6}}};
        EXPECT_FALSE(recorder.Polyline(points));
        EXPECT_FALSE(recorder.Polygon(points));
        EXPECT_FALSE(recorder.Rectangle(far.x, far.y, 3, 4));
        EXPECT_FALSE(recorder.Rectangle(1, 2, far.x, far.y));
        EXPECT_FALSE(recorder.Ellipse(far.x, far.y, 3, 4));
        EXPECT_FALSE(recorder.Ellipse(1, 2, far.x, far.y));
        EXPECT_FALSE(recorder.SetWindowOrgEx(far.x, far.y));
        EXPECT_FALSE(recorder.SetWindowExtEx(far.x, far.y));
        EXPECT_FALSE(recorder.TextOutA(far.x, far.y, "a"));
    }
    EXPECT_EQ(recorder.CreatePen(PenStyleSolid, 32768, 0), 0U);
    EXPECT_EQ(recorder.CreateFontIndirectA({.height = -32769, .faceName = "Arial"}), 0U);
    EXPECT_THAT(Recorded(), IsEmpty());
    EXPECT_THAT(WordsOf(recorder.Header()), ElementsAre(1, 9, 0x0300, 9, 0, 0, 0, 0, 0));
}

TEST_F(Recorder, PointsAreAtMostAsManyAsAWordCounts) {
    std::vector<SurfacePoint> points(32768);
    EXPECT_FALSE(recorder.Polyline(points));
    EXPECT_THAT(Recorded(), IsEmpty());
    points.pop_back();
    EXPECT_TRUE(recorder.Polyline(points));
    const std::vector<int> words = Recorded();
    // 3 + 1 + 2 * 32767 = 65538 is 10002 in hexadecimal
    ASSERT_EQ(words.size(), 65538U);
    EXPECT_THAT(std::vector<int>(words.begin(), words.begin() + 4), ElementsAre(2, 1, 0x0325, 0x7FFF));
    // 9 words of the header more; the largest record is this one.
    EXPECT_THAT(WordsOf(recorder.Header()), ElementsAre(1, 9, 0x0300, 11, 1, 0, 2, 1, 0));
}

TEST_F(Recorder, ObjectsTakeTheLowestFreeSlotAndTheHeaderTellsThePeak) {
    const SurfaceHandle first = recorder.CreatePen(PenStyleSolid, 3, 0xCC8844);
    EXPECT_THAT(Recorded(), ElementsAre(8, 0, 0x02FA, PenStyleSolid, 3, 0, 0x8844, 0x00CC));
    const SurfaceHandle second = recorder.CreateSolidBrush(0xCC8844);
    EXPECT_THAT(Recorded(), ElementsAre(7, 0, 0x02FC, 0, 0x8844, 0x00CC, 0));
    recorder.CreatePen(PenStyleSolid, 1, 0); // the third
    EXPECT_TRUE(recorder.DeleteObject(second));
    EXPECT_TRUE(recorder.DeleteObject(first));
    Recorded();
    const SurfaceHandle inFirst = recorder.CreateSolidBrush(0);
    const SurfaceHandle inSecond = recorder.CreatePen(PenStyleSolid, 1, 0);
    Recorded();
    recorder.SelectObject(inSecond);
    EXPECT_THAT(Recorded(), ElementsAre(4, 0, 0x012D, 1));
    recorder.SelectObject(inFirst);
    EXPECT_THAT(Recorded(), ElementsAre(4, 0, 0x012D, 0));
    EXPECT_EQ(WordsOf(recorder.Header())[5], 3) << "alive at once, not made in all";
    recorder.CreateSolidBrush(0);
    EXPECT_EQ(WordsOf(recorder.Header())[5], 4);
}

TEST_F(Recorder, SelectedAndUnknownObjectsAreNotDeleted) {
    const SurfaceHandle pen = recorder.CreatePen(PenStyleSolid, 1, 0);
    const SurfaceHandle before = recorder.SelectObject(pen);
    Recorded();
    EXPECT_FALSE(recorder.DeleteObject(pen));
    EXPECT_FALSE(recorder.DeleteObject(pen + 1));
    EXPECT_FALSE(recorder.DeleteObject(before)) << "the device's own";
    EXPECT_EQ(recorder.SelectObject(pen + 1), 0U);
    EXPECT_THAT(Recorded(), IsEmpty());
    EXPECT_EQ(recorder.SelectObject(before), pen);
    EXPECT_TRUE(recorder.DeleteObject(pen));
    EXPECT_FALSE(recorder.DeleteObject(pen)) << "twice";
}

TEST_F(Recorder, ModesAreTheOnesBefore) {
    EXPECT_EQ(recorder.SetPolyFillMode(FillWinding), FillAlternate);
    EXPECT_EQ(recorder.SetPolyFillMode(FillAlternate), FillWinding);
    EXPECT_THAT(Recorded(), ElementsAre(4, 0, 0x0106, FillWinding, 4, 0, 0x0106, FillAlternate));
}

TEST_F(Recorder, HeaderCountsAllRecordsAlsoThoseThatWereTaken) {
    recorder.MoveToEx(1, 2); // 5 words
    Recorded();
    recorder.SetPixel(1, 2, 0); // 7 words
    Recorded();
    recorder.LineTo(1, 2); // 5 words
    EXPECT_EQ(recorder.Waiting(), 10U) << "bytes";
    recorder.RecordEnd(); // 3 words
    EXPECT_THAT(WordsOf(recorder.Header()), ElementsAre(1, 9, 0x0300, 9 + 5 + 7 + 5 + 3, 0, 0, 7, 0, 0));
    EXPECT_THAT(Recorded(), ElementsAre(5, 0, 0x0213, 2, 1, 3, 0, 0));
}

} // namespace
} // namespace quelmont
