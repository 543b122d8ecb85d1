#include "circles/save_circles.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class SavedCircles : public FreshProgramTest {
protected:
    SavedCircles() {
        machine.window.caption = "Quelmont: Robinson projection";
        Design.GcFileName = folder / "route.prn";
        Design.ScFileName = folder / "rings.prn";
    }

    static void GreatCircle(double startLat, double startLon, double endLat, double endLon) {
        Design.GcStartLat = startLat;
        Design.GcStartLon = startLon;
        Design.GcEndLat = endLat;
        Design.GcEndLon = endLon;
        GcCalc();
        Design.GcDefined = true;
    }
    static void SmallCircles(double lat, double lon, double radius, std::int16_t circles) {
        Design.ScCenterLat = lat;
        Design.ScCenterLon = lon;
        Design.ScRadiusDeg = radius;
        Design.ScSymbolCount = circles;
        ScCalc();
        Design.ScDefined = true;
    }
    static AskedBox Box(const char* title, const std::string& text) {
        return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
    }

    TemporaryFolder folder;
};

TEST_F(SavedCircles, GreatCircleIsAPointOnEachLine) {
    Design.OutputGc = true;
    GreatCircle(9.5, 30.25, 11.0, 30.25);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0   09.5000   030.2500\r\n"
                                                "-1   10.0000   030.2500\r\n"
                                                "-1   11.0000   030.2500\r\n");
    EXPECT_FALSE(Design.OutputGc);
    EXPECT_THAT(folder.Names(), ElementsAre("route.prn")) << "nothing else is left";
}

TEST_F(SavedCircles, SignsTakeThePlaceOfABlank) {
    GreatCircle(-9.0, -7.5, -10.5, -7.5);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0  -09.0000  -007.5000\r\n"
                                                "-1  -10.0000  -007.5000\r\n"
                                                "-1  -10.5000  -007.5000\r\n");
}

TEST_F(SavedCircles, GreatCircleRunsFromItsStart) {
    GreatCircle(50.0, -179.0, 50.0, 179.0);
    EXPECT_EQ(Design.GcTable.GcStep, -1);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0   50.0000  -179.0000\r\n"
                                                "-1   50.0043   180.0000\r\n"
                                                "-1   50.0000   179.0000\r\n");
}

TEST_F(SavedCircles, EndOnTheEquatorIsWrittenAsZero) {
    GreatCircle(0.0, 0.0, 0.01, 0.5);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0   00.0000   000.0000\r\n"
                                                "-1   00.0100   000.5000\r\n");
}

TEST_F(SavedCircles, NumberThatRoundsToZeroKeepsItsMinus) {
    GreatCircle(-0.00001, -0.00002, -0.00001, -0.00002);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0  -00.0000  -000.0000\r\n");
}

TEST_F(SavedCircles, EachSmallCircleBeginsALine) {
    Design.OutputSc = true;
    SmallCircles(0.0, 20.0, 10.0, 2);
    ScSave();
    const std::string text = ReadWholeFile(Design.ScFileName);
    constexpr std::size_t lineLength = 25;
    ASSERT_EQ(text.size(), 2U * 361U * lineLength);
    for (std::size_t line = 0; line < 722; ++line) {
        EXPECT_EQ(text.substr(line * lineLength, 2), line % 361 == 0 ? " 0" : "-1") << line;
    }
    EXPECT_THAT(text, StartsWith(" 0   05.0000   020.0000\r\n"));
    EXPECT_EQ(text.substr(361 * lineLength, lineLength), " 0   10.0000   020.0000\r\n");
    EXPECT_EQ(text.substr(90 * lineLength, 2), "-1");
    EXPECT_FALSE(Design.OutputSc);
}

TEST_F(SavedCircles, CaptionTellsOfTheWriting) {
    GreatCircle(9.0, 30.0, 11.0, 30.0);
    SmallCircles(0.0, 20.0, 10.0, 1);
    GcSave();
    ScSave();
    EXPECT_THAT(machine.window.captions,
                ElementsAre("Quelmont: printing Great Circle", "Quelmont: Robinson projection",
                            "Quelmont: printing Small Circle", "Quelmont: Robinson projection"));
}

TEST_F(SavedCircles, UndefinedOnesAreNotWritten) {
    Design.OutputGc = true;
    Design.OutputSc = true;
    GcSave();
    ScSave();
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(Box("Great Circle Not Defined",
                        "You have not defined the endpoints of the great circle.\n"
                        "To define the endpoints, press OK, then select the Great Circle option from "
                        "the Design Map menu."),
                    Box("Small Circle Not Defined",
                        "You have not defined the center of the small circle.\n"
                        "To define the center, press OK, then select the Small Circle option from the "
                        "Design Map menu.")));
    EXPECT_THAT(folder.Names(), IsEmpty());
    EXPECT_FALSE(Design.OutputGc);
    EXPECT_FALSE(Design.OutputSc);
    EXPECT_THAT(machine.window.captions, IsEmpty());
}

TEST_F(SavedCircles, ReplaceAnEarlierFile) {
    WriteWholeFile(Design.GcFileName, std::string(10000, 'x'));
    GreatCircle(9.0, 30.0, 9.0, 30.0);
    GcSave();
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), " 0   09.0000   030.0000\r\n");
}

TEST_F(SavedCircles, FullDiskLeavesTheEarlierFile) {
    WriteWholeFile(Design.ScFileName, "before");
    SmallCircles(0.0, 20.0, 10.0, 80);
    Design.OutputSc = true;
    {
        FailingFiles files;
        files.FailWritingAfter(100000, ErrorDiskFull);
        ScSave();
    }
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Box("Error in ScSave", "Error: Disk full")));
    EXPECT_EQ(ReadWholeFile(Design.ScFileName), "before");
    EXPECT_THAT(folder.Names(), ElementsAre("rings.prn"));
    EXPECT_EQ(machine.window.caption, "Quelmont: Robinson projection");
    EXPECT_FALSE(Design.OutputSc);
}

TEST_F(SavedCircles, FolderAndMissingFolderAreRefused) {
    GreatCircle(9.0, 30.0, 11.0, 30.0);
    Design.GcFileName = folder / "folder";
    std::filesystem::create_directory(Design.GcFileName);
    GcSave();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Box("Error in GcSave", "Error: Path/File access error")));
    Design.GcFileName = folder / "missing/route.prn";
    GcSave();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Box("Error in GcSave", "Error: Path not found")));
    EXPECT_THAT(folder.Names(), ElementsAre("folder"));
}

TEST_F(SavedCircles, MapFileOfTheDesignIsNotReplaced) {
    WriteWholeFile(Design.GcFileName, "-1 10 20");
    Design.InputFiles.emplace_back().MapFileName = Design.GcFileName;
    GreatCircle(9.0, 30.0, 11.0, 30.0);
    GcSave();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Box("Error in GcSave", "Error: Path/File access error")));
    EXPECT_EQ(ReadWholeFile(Design.GcFileName), "-1 10 20");
}

} // namespace
} // namespace quelmont
