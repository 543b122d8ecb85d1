#include "commandline/frame_options.h"

#include "core/map_design.h"
#include "draw_command_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class CommandFrames : public DrawCommandTest {
protected:
    Outcome RunWith(std::vector<std::string> options, const std::string& name = "a.png") {
        options.insert(options.begin(), "--no-map");
        if (std::find(options.begin(), options.end(), "--window") == options.end()) {
            options.insert(options.begin(), {"--window", "640x462"});
        }
        options.push_back(folder / name);
        return Run(options);
    }
};

TEST_F(CommandFrames, ChoiceIsTheOneOfTheCommandLine) {
    EXPECT_EQ(RunWith({}).code, ExitDone);
    EXPECT_EQ(Design.Frame, FrameChoice{});
    EXPECT_EQ(RunWith({"--frame", "--scale-bar", "nmi@12:30S"}).code, ExitDone);
    EXPECT_EQ(Design.Frame, (FrameChoice{true, ScaleBarUnit::NauticalMiles, -12.5}));
    EXPECT_EQ(RunWith({"--scale-bar", "mi"}).code, ExitDone);
    EXPECT_EQ(Design.Frame, (FrameChoice{false, ScaleBarUnit::StatuteMiles, std::nullopt}));
    EXPECT_EQ(RunWith({"--scale-bar", "none"}).code, ExitDone);
    EXPECT_EQ(Design.Frame, FrameChoice{});
}

TEST_F(CommandFrames, WhatIsNoUnitOrNoLatitudeIsRefused) {
    for (const char* const value : {"", "feet", "km@", "km@91N", "km@45E", "@45N", "KM"}) {
        const Outcome outcome = RunWith({"--scale-bar", value});
        EXPECT_EQ(outcome.code, ExitWrongUsage) << value;
        EXPECT_THAT(outcome.errors, HasSubstr("--scale-bar")) << value;
        EXPECT_THAT(Files(), IsEmpty());
    }
}

TEST_F(CommandFrames, AMapWithoutABarSaysSoAndIsDrawn) {
    const Outcome outcome = RunWith({"--projection", "orthographic", "--scale-bar", "km"});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_THAT(outcome.errors, HasSubstr("quelmont-draw: --scale-bar: This map has no scale bar"));
    EXPECT_THAT(Files(), testing::ElementsAre("a.png"));
    EXPECT_THAT(RunWith({"--scale-bar", "km"}).errors, IsEmpty());
    EXPECT_THAT(RunWith({"--projection", "orthographic"}).errors, IsEmpty());
}

TEST_F(CommandFrames, ABarWithoutRoomIsReported) {
    const Outcome outcome = RunWith({"--scale-bar", "km", "--window", "60x40"});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_THAT(outcome.errors,
                HasSubstr("quelmont-draw: --scale-bar: The picture has no room for a scale bar"));
    EXPECT_THAT(RunWith({"--window", "60x40"}).errors, IsEmpty());
}

TEST_F(CommandFrames, TheMapGivesWayToTicksAndBar) {
    RunWith({"--projection", "2", "--std-north", "0N"}, "plain.png");
    const double plain = Design.ScreenScaleX;
    RunWith({"--projection", "2", "--std-north", "0N", "--frame"}, "frame.png");
    const double framed = Design.ScreenScaleX;
    EXPECT_LT(framed, plain);
    EXPECT_GT(framed, plain * 0.95) << "by the ticks alone";
    RunWith({"--projection", "robinson"}, "robinson.png");
    const double robinson = Design.ScreenScaleX;
    RunWith({"--projection", "robinson", "--scale-bar", "km"}, "bar.png");
    EXPECT_EQ(Design.ScreenScaleX, robinson) << "there is room below it";
}

} // namespace
} // namespace quelmont
