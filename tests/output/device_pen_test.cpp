#include "output/device_pen.h"

#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using DevicePenTest = OutputTest;

TEST_F(DevicePenTest, PenIsMadeSelectedAndGivenBack) {
    MakeDevicePen(PenStyleSolid, 3, SolidColor(0x0000FF), 1, "MapPlot");
    EXPECT_EQ(surface.CurrentPen(), (RecordedPen{PenStyleSolid, 3, 0x0000FF})) << "without the flag";
    ReleaseDevicePen(2, "MapPlot");
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_EQ(surface.CurrentPen(), RecordedPen{}) << "the surface's own pen";
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DevicePenTest, ReleasingTwiceDoesNothing) {
    MakeDevicePen(PenStyleSolid, 1, 0, 1, "MapPlot");
    ReleaseDevicePen(1, "MapPlot");
    surface.Forget();
    ReleaseDevicePen(1, "MapPlot");
    EXPECT_EQ(Drawn(), "");
}

TEST_F(DevicePenTest, PenThatCannotBeMadeNamesItsSite) {
    surface.FailAt(SurfaceOp::CreatePen, 1);
    MakeDevicePen(PenStyleSolid, 1, 0, 5, "MapPlot");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "CreatePen(5) error in MapPlot"}));
    EXPECT_EQ(surface.Count(SurfaceOp::SelectObject), 0);
    ReleaseDevicePen(3, "MapPlot");
    EXPECT_EQ(surface.Count(SurfaceOp::DeleteObject), 0);
}

TEST_F(DevicePenTest, PenThatCannotBeDeletedNamesItsSiteOnce) {
    MakeDevicePen(PenStyleSolid, 1, 0, 1, "MapPlot");
    surface.FailAt(SurfaceOp::DeleteObject, 0);
    ReleaseDevicePen(15, "MapPlot");
    ReleaseDevicePen(15, "MapPlot");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(15) error in MapPlot"}));
}

TEST_F(DevicePenTest, PenGoesBackToTheSurfaceItWasMadeOn) {
    MakeDevicePen(PenStyleSolid, 1, 0, 1, "MapPlot");
    RecordingSurface other;
    Design.Surface = &other;
    ReleaseDevicePen(1, "MapPlot");
    EXPECT_EQ(other.Text(), "");
    EXPECT_EQ(surface.LiveObjects(), 0);
}

} // namespace
} // namespace quelmont
