#include "commandline/page_options.h"

#include "commandline/option_values.h"
#include "core/map_design.h"
#include "draw_command_fixture.h"
#include "output/output_state.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(LengthValue, HasItsUnit) {
    EXPECT_DOUBLE_EQ(LengthValue("6.5in"), 6.5);
    EXPECT_DOUBLE_EQ(LengthValue("16.51cm"), 6.5);
    EXPECT_DOUBLE_EQ(LengthValue("254mm"), 10.0);
    EXPECT_DOUBLE_EQ(LengthValue("0in"), 0.0);
}

TEST(LengthValue, IsAPlainNumberAndAUnit) {
    for (const char* value : {"", "in", "6.5", "-1in", "+1in", "1e3in", "nanin", "infcm", "1.2.3in", ".in",
                              "1 in", "1in ", "6.5pt", "99999999999999999in"}) {
        EXPECT_THROW(LengthValue(value), BadValue) << value;
    }
}

TEST(PaperValue, IsANameOrTwoSides) {
    EXPECT_DOUBLE_EQ(PaperValue("A4").width, 210.0 / 25.4);
    EXPECT_DOUBLE_EQ(PaperValue("a4").height, 297.0 / 25.4);
    EXPECT_EQ(PaperValue("letter"), (PaperSize{8.5, 11.0}));
    EXPECT_EQ(PaperValue("8.5x11in"), (PaperSize{8.5, 11.0}));
    EXPECT_EQ(PaperValue("254x508mm"), (PaperSize{10.0, 20.0}));
    EXPECT_DOUBLE_EQ(PaperValue("1x1mm").width, 1.0 / 25.4);
    EXPECT_EQ(PaperValue("200x200in"), (PaperSize{200.0, 200.0}));
}

TEST(PaperValue, HasSidesThatAPageCanHave) {
    for (const char* value :
         {"", "B4", "8.5x11", "8.5in", "x11in", "8.5xin", "0x11in", "8.5x0in", "-8x11in", "nanx11in",
          "infx11in", "1e2x11in", "201x11in", "8.5x11x2in", "0.1x5mm", "9999999999999x5in"}) {
        EXPECT_THROW(PaperValue(value), BadValue) << value;
    }
}

/// Windows of 1200 by 800 pixels: the height is two thirds of the width.
class PageOfCommand : public DrawCommandTest {
protected:
    Outcome RunWith(std::vector<std::string> options, const std::string& name = "a.pdf") {
        options.insert(options.begin(), {"--no-map", "--window", "1200x800"});
        options.push_back(folder / name);
        return Run(options);
    }
    void ExpectDone(const std::vector<std::string>& options) {
        const Outcome outcome = RunWith(options);
        EXPECT_EQ(outcome.code, ExitDone);
        EXPECT_EQ(outcome.errors, "");
        EXPECT_THAT(Files(), ElementsAre("a.pdf"));
        EXPECT_THAT(ReadWholeFile(folder / "a.pdf"), StartsWith("%PDF-"));
    }
    void ExpectRefused(const std::vector<std::string>& options, const std::string& errors) {
        const Outcome outcome = RunWith(options);
        EXPECT_EQ(outcome.code, ExitFailed) << errors;
        EXPECT_EQ(outcome.errors, errors);
        EXPECT_THAT(Files(), IsEmpty());
    }
};

TEST_F(PageOfCommand, MapStandsInTheMiddleBetweenMarginsOfAnInch) {
    ExpectDone({"--paper", "Letter"});
    EXPECT_FLOAT_EQ(Design.PrintWidth, 6.5F);
    EXPECT_NEAR(Design.PrintHeight, 6.5 * 2.0 / 3.0, 1e-5);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 1.0F);
    EXPECT_NEAR(Design.PrintTop, (11.0 - 6.5 * 2.0 / 3.0) / 2.0, 1e-5);
}

TEST_F(PageOfCommand, PaperIsA4WhenNothingIsSaid) {
    ExpectDone({});
    // 210 millimetres but for two inches.
    EXPECT_NEAR(Design.PrintWidth, 210.0 / 25.4 - 2.0, 0.001);
}

TEST_F(PageOfCommand, MapThatWouldBeHigherThanThePaperIsNarrower) {
    ExpectDone({"--paper", "11x5in"});
    EXPECT_FLOAT_EQ(Design.PrintHeight, 3.0F); // between margins of an inch
    EXPECT_FLOAT_EQ(Design.PrintWidth, 4.5F);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 3.25F);
    EXPECT_FLOAT_EQ(Design.PrintTop, 1.0F);
}

TEST_F(PageOfCommand, LandscapeTurnsThePaper) {
    ExpectDone({"--paper", "letter", "--landscape"});
    EXPECT_EQ(Design.PrinterOrientation, Landscape);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 9.0F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, 6.0F);
}

TEST_F(PageOfCommand, SidesOfWhichTheFirstIsLongerMakeThePaperLie) {
    for (const std::vector<std::string>& turned :
         std::vector<std::vector<std::string>>{{}, {"--landscape"}}) {
        std::vector<std::string> options{"--paper", "420x297mm", "--map-width", "42cm"};
        options.insert(options.end(), turned.begin(), turned.end());
        ExpectDone(options);
        EXPECT_EQ(Design.PrinterOrientation, Landscape);
        EXPECT_NEAR(OutputNow.page.PaperWidth, 420.0 / 25.4, 0.001);
        EXPECT_NEAR(OutputNow.page.PaperHeight, 297.0 / 25.4, 0.001);
    }
}

TEST_F(PageOfCommand, WidthIsThatOfTheOptionInEitherUnit) {
    ExpectDone({"--paper", "Letter", "--map-width", "7.62cm"});
    EXPECT_FLOAT_EQ(Design.PrintWidth, 3.0F);
    EXPECT_FLOAT_EQ(Design.PrintHeight, 2.0F);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 2.75F);
    EXPECT_FLOAT_EQ(Design.PrintTop, 4.5F);
}

TEST_F(PageOfCommand, LeftAndTopEachTakeTheMapOutOfTheMiddle) {
    ExpectDone({"--paper", "Letter", "--map-width", "3in", "--left", "0.25in"});
    EXPECT_FLOAT_EQ(Design.PrintLeft, 0.25F);
    EXPECT_FLOAT_EQ(Design.PrintTop, 4.5F);
    EXPECT_FALSE(Design.CenterHorizontal);
    EXPECT_TRUE(Design.CenterVertical);
    ExpectDone({"--paper", "Letter", "--map-width", "3in", "--top", "0in"});
    EXPECT_FLOAT_EQ(Design.PrintLeft, 2.75F);
    EXPECT_FLOAT_EQ(Design.PrintTop, 0.0F);
    EXPECT_TRUE(Design.CenterHorizontal);
    EXPECT_FALSE(Design.CenterVertical);
}

TEST_F(PageOfCommand, WidthFollowsAMarginThatWasAskedFor) {
    ExpectDone({"--paper", "Letter", "--left", "2in"});
    EXPECT_FLOAT_EQ(Design.PrintWidth, 4.5F);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 2.0F);
}

TEST_F(PageOfCommand, MapAsWideAsThePaperPassesAndAWiderOneIsRefused) {
    ExpectDone({"--paper", "Letter", "--map-width", "8.5in"});
    ExpectDone({"--map-width", "21cm"});
    ExpectDone({"--paper", "210x297mm", "--map-width", "210mm"});
    std::filesystem::remove(folder / "a.pdf");
    ExpectRefused({"--paper", "Letter", "--map-width", "8.51in"},
                  "Error: Map width too large\nThe map width cannot exceed 8.50 inches.\n");
}

TEST_F(PageOfCommand, RefusalsAreThoseOfTheDialog) {
    ExpectRefused({"--paper", "Letter", "--map-width", "8in", "--left", "1in"},
                  "Error: (Map width + left margin) too large\n"
                  "The sum (map width + left margin) cannot exceed 8.50 inches.\n\n"
                  "Reduce the map width and/or the left margin!\n");
    ExpectRefused({"--paper", "8.5x4in", "--map-width", "8in"},
                  "Error: Map height too large\nThe map height cannot exceed 4.00 inches.\n\n"
                  "Reduce the map width to reduce the map height!\n");
    ExpectRefused({"--paper", "Letter", "--map-width", "6in", "--top", "9in"},
                  "Error: (Map height + top margin) too large\n"
                  "The sum (map height + top margin)  cannot exceed 11.00 inches.\n\n"
                  "Reduce the map width and/or the top margin!\n");
}

TEST_F(PageOfCommand, MarginsThatLeaveNoRoomAreRefused) {
    const std::string refusal =
        "Error: Margins too large\nThe margins leave no room for the map on this paper.\n";
    ExpectRefused({"--paper", "1x1mm"}, refusal);
    ExpectRefused({"--paper", "Letter", "--left", "4.25in"}, refusal);
    ExpectRefused({"--paper", "Letter", "--top", "1000000in"}, refusal);
}

TEST_F(PageOfCommand, PaperOfAMillimetreTakesAMapThatIsSmallEnough) {
    ExpectDone({"--paper", "1x1mm", "--map-width", "0.5mm"});
}

TEST_F(PageOfCommand, OptionsOfAPageAreForPdfFilesAlone) {
    for (const std::vector<std::string>& option :
         std::vector<std::vector<std::string>>{{"--paper", "A3"},
                                               {"--landscape"},
                                               {"--map-width", "5in"},
                                               {"--left", "1in"},
                                               {"--top", "1in"}}) {
        const Outcome outcome = RunWith(option, "a.png");
        EXPECT_EQ(outcome.code, ExitWrongUsage) << option[0];
        EXPECT_THAT(outcome.errors, HasSubstr("are for an OUTPUT that ends in .pdf"));
        EXPECT_THAT(Files(), IsEmpty());
    }
    EXPECT_EQ(RunWith({"--map-width", "0cm"}).code, ExitWrongUsage);
    EXPECT_EQ(RunWith({"--paper", "A4 "}).code, ExitWrongUsage);
}

TEST_F(PageOfCommand, DesignBringsItsOrientationAndItsPlaceOnThePage) {
    const std::string design = folder / "a.cnf";
    const std::string page = folder / "a.pdf";
    ASSERT_EQ(Run({"--no-map", "--window", "1200x800", "--paper", "Letter", "--landscape", "--left", "2in",
                   "--save-design", design, page})
                  .code,
              ExitDone);
    ASSERT_EQ(Run({"--design", design, "--paper", "Letter", "--top", "1.5in", page}).code, ExitDone);
    EXPECT_EQ(Design.PrinterOrientation, Landscape);
    EXPECT_FALSE(Design.CenterHorizontal);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 2.0F);
    EXPECT_FALSE(Design.CenterVertical);
    EXPECT_FLOAT_EQ(Design.PrintTop, 1.5F);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 7.0F); // 11 inches but for twice the margin at the left
}

TEST_F(PageOfCommand, DesignKeepsItsWidthWhereThatHasRoomAndElseIsFitted) {
    const std::string design = folder / "a.cnf";
    const std::string page = folder / "a.pdf";
    ASSERT_EQ(Run({"--no-map", "--window", "1200x800", "--paper", "A2", "--map-width", "30cm",
                   "--save-design", design, page})
                  .code,
              ExitDone);
    ASSERT_EQ(Run({"--design", design, "--paper", "A3", "--landscape", page}).code, ExitDone);
    EXPECT_NEAR(Design.PrintWidth, 30.0 / 2.54, 1e-5);
    EXPECT_NEAR(Design.PrintLeft, (42.0 - 30.0) / 2.0 / 2.54, 0.001);
    EXPECT_NEAR(Design.PrintTop, (29.7 - 20.0) / 2.0 / 2.54, 0.001);
    // Too wide for a letter: an inch is left on both sides, as without the design.
    ASSERT_EQ(Run({"--design", design, "--paper", "Letter", page}).code, ExitDone);
    EXPECT_FLOAT_EQ(Design.PrintWidth, 6.5F);
    EXPECT_FLOAT_EQ(Design.PrintLeft, 1.0F);
}

TEST_F(PageOfCommand, FileThatCannotBeWrittenIsReported) {
    const Outcome outcome = RunWith({}, "missing/a.pdf");
    EXPECT_EQ(outcome.code, ExitFailed);
    EXPECT_EQ(outcome.errors, "Windows API Error\nStartDoc error(1) in MapPrint\nquelmont-draw: " +
                                  (folder / "missing/a.pdf") + ": not written\n");
}

TEST_F(PageOfCommand, MapFileThatIsDrawnIsNotReplaced) {
    WriteWholeFile(folder / "map.pdf", "-1 0 0\n");
    const Outcome outcome = Run({"--map", folder / "map.pdf", folder / "map.pdf"});
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_THAT(outcome.errors, HasSubstr("it would replace the map file"));
    EXPECT_EQ(ReadWholeFile(folder / "map.pdf"), "-1 0 0\n");
}

} // namespace
} // namespace quelmont
