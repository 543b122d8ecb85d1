#include "view/small_map.h"

#include "designfile/cnf_save.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "output/output_state.h"
#include "platform/machine.h"
#include "projection/projection_table.h"
#include "view/bounds_proposal.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class SmallMap : public StartedProgram {
protected:
    RecordingSurface small;
};

TEST_F(SmallMap, ShowsGridAndCoastsOfEachProjectionInItsPixels) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        AcceptProjection(entry.ProjNum);
        RecordingSurface picture;
        DrawSmallMap(picture, 120, 80, entry.ProjNum, Design);
        int lines = 0;
        for (const RecordedSegment& segment : picture.Segments()) {
            if (segment.from != segment.to) {
                ++lines;
                for (const SurfacePoint& point : {segment.from, segment.to}) {
                    EXPECT_GE(point.x, 0);
                    EXPECT_LT(point.x, 120);
                    EXPECT_GE(point.y, 0);
                    EXPECT_LT(point.y, 80);
                }
            }
        }
        EXPECT_GT(lines, 20);
        EXPECT_EQ(picture.LiveObjects(), RecordingSurface().LiveObjects());
    }
    EXPECT_TRUE(machine.boxes.asked.empty());
}

TEST_F(SmallMap, LeavesTheDesignTheWindowAndTheMachineAlone) {
    Design.LabelsVisible = true;
    Design.GcDefined = true;
    Design.Fill.land = 0x00FF00;
    Design.Frame.frame = true;
    MapDraw();
    const std::string before = DesignFileText();
    const auto calls = surface.Calls().size();
    const int refreshes = window.refreshes;
    const auto captions = window.captions.size();
    const auto beeps = machine.clock.beeps;
    const int turns = machine.pump.calls;
    const double seconds = Design.PlotSeconds;
    const double scale = Design.ScreenScaleX;
    const auto devicePixel = OutputNow.DevicePixelX;
    DrawSmallMap(small, 120, 80, Design.ProjNum, Design);
    EXPECT_FALSE(small.Calls().empty());
    EXPECT_EQ(DesignFileText(), before);
    EXPECT_TRUE(Design.GcDefined);
    EXPECT_TRUE(Design.Frame.frame);
    EXPECT_EQ(Design.PlotSeconds, seconds);
    EXPECT_EQ(Design.ScreenScaleX, scale);
    EXPECT_EQ(OutputNow.DevicePixelX, devicePixel);
    EXPECT_EQ(surface.Calls().size(), calls);
    EXPECT_EQ(window.refreshes, refreshes);
    EXPECT_EQ(window.captions.size(), captions);
    EXPECT_EQ(machine.clock.beeps, beeps);
    EXPECT_EQ(machine.pump.calls, turns) << "no event comes in between";
    EXPECT_EQ(Machine().window, &window);
    EXPECT_FALSE(MainWindowNow.Quiet);
}

TEST_F(SmallMap, IsThatOfItsBoundsAndNotOfTheDesign) {
    AcceptProjection(ProjRobinson);
    const DesignBounds robinson = Design;
    DrawSmallMap(small, 120, 80, ProjRobinson, robinson);
    AcceptProjection(ProjAlbers);
    RecordingSurface again;
    DrawSmallMap(again, 120, 80, ProjRobinson, robinson);
    EXPECT_EQ(again.Calls(), small.Calls());
    EXPECT_EQ(Design.ProjNum, ProjAlbers);
}

TEST_F(SmallMap, IsAGridWithoutTheWorldMap) {
    files.FailOpening(ErrorFileNotFound);
    DrawSmallMap(small, 120, 80, Design.ProjNum, Design);
    EXPECT_FALSE(small.Segments().empty());
    EXPECT_TRUE(machine.boxes.asked.empty());
}

} // namespace
} // namespace quelmont
