#include "commandline/distortion_options.h"

#include "core/map_design.h"
#include "draw_command_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class CommandDistortion : public DrawCommandTest {
protected:
    Outcome RunWith(std::vector<std::string> options) {
        options.insert(options.begin(), {"--no-map", "--window", "320x231"});
        options.push_back(folder / "a.png");
        return Run(options);
    }
};

TEST_F(CommandDistortion, ChoiceIsTheOneOfTheCommandLine) {
    EXPECT_EQ(RunWith({}).code, ExitDone);
    EXPECT_EQ(Design.Distortion, DistortionChoice{});
    EXPECT_EQ(
        RunWith({"--distortion", "ellipses", "--distortion-radius", "2:30", "--distortion-spacing", "15"})
            .code,
        ExitDone);
    EXPECT_EQ(Design.Distortion, (DistortionChoice{DistortionKind::Ellipses, 2.5, 15.0}));
    EXPECT_EQ(RunWith({"--distortion", "area"}).code, ExitDone);
    EXPECT_EQ(Design.Distortion, (DistortionChoice{DistortionKind::Area, 5.0, 30.0}));
    EXPECT_EQ(RunWith({"--distortion", "angle"}).code, ExitDone);
    EXPECT_EQ(Design.Distortion.kind, DistortionKind::Angle);
    EXPECT_EQ(RunWith({"--distortion", "none"}).code, ExitDone);
    EXPECT_EQ(Design.Distortion.kind, DistortionKind::None);
}

TEST_F(CommandDistortion, WhatIsNoKindAndWhatIsNoCircleIsRefused) {
    for (const char* const value : {"", "areas", "Ellipses", "ellipses,5"}) {
        const Outcome outcome = RunWith({"--distortion", value});
        EXPECT_EQ(outcome.code, ExitWrongUsage) << value;
        EXPECT_THAT(outcome.errors, HasSubstr("--distortion")) << value;
        EXPECT_THAT(Files(), IsEmpty());
    }
    for (const char* const option : {"--distortion-radius", "--distortion-spacing"}) {
        for (const char* const value : {"0", "0:0:35", "90:0:1", "1e300", "-5", "5N", "", "nan"}) {
            const Outcome outcome = RunWith({"--distortion", "ellipses", std::string(option) + "=" + value});
            EXPECT_EQ(outcome.code, ExitWrongUsage) << option << ' ' << value;
            EXPECT_THAT(outcome.errors, HasSubstr(option)) << value;
            EXPECT_THAT(Files(), IsEmpty());
        }
    }
    EXPECT_EQ(RunWith({"--distortion-radius", "45:0:1"}).code, ExitWrongUsage);
}

TEST_F(CommandDistortion, APictureWithoutItIsTheOneOfBefore) {
    RunWith({});
    const std::string plain = ReadWholeFile(folder / "a.png");
    RunWith({"--distortion", "angle"});
    EXPECT_NE(ReadWholeFile(folder / "a.png"), plain);
    RunWith({"--distortion", "none"});
    EXPECT_EQ(ReadWholeFile(folder / "a.png"), plain);
}

} // namespace
} // namespace quelmont
