#include "commandline/text_options.h"

#include "commandline/option_values.h"
#include "core/map_design.h"
#include "draw_command_fixture.h"
#include "support/cgm_file.h"
#include "support/dxf_file.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

TEST(AnchorValue, IsPixelsOrPercent) {
    EXPECT_EQ(AnchorValue("100,50"), (TextAnchor{{100.0, false}, {50.0, false}}));
    EXPECT_EQ(AnchorValue("10%,5%"), (TextAnchor{{10.0, true}, {5.0, true}}));
    EXPECT_EQ(AnchorValue("-20,+12.5%"), (TextAnchor{{-20.0, false}, {12.5, true}}));
    EXPECT_EQ(AnchorValue("100000,1000%"), (TextAnchor{{100000.0, false}, {1000.0, true}}));
}

TEST(AnchorValue, NeedsTwoNumbers) {
    for (const char* value : {"", ",", "5", "5,", ",5", "5,5,5", "a,5", "5,%", "5 ,5", "1e3,5", "5px,5",
                              "--5,5", "1.2.3,5", "100001,5", "5,1001%", "-,5", "99999999999999999,1"}) {
        EXPECT_THROW(AnchorValue(value), BadValue) << value;
    }
}

/// A window of 640 by 462 pixels of 15 twips.
class CommandTexts : public DrawCommandTest {
protected:
    Outcome RunWith(std::vector<std::string> options, const std::string& name = "a.png") {
        options.insert(options.begin(), {"--no-map", "--grid-type", "5", "--window", "640x462"});
        options.push_back(folder / name);
        return Run(options);
    }
    /// A command line that is refused: nothing is written.
    void ExpectRefused(const std::vector<std::string>& options, const std::string& reason) {
        const Outcome outcome = RunWith(options);
        EXPECT_EQ(outcome.code, ExitWrongUsage) << reason;
        EXPECT_THAT(outcome.errors, StartsWith("quelmont-draw: " + reason));
        EXPECT_THAT(Files(), IsEmpty());
    }
};

TEST_F(CommandTexts, ItemHasWhatWasSaidAboutIt) {
    const Outcome outcome =
        RunWith({"--text", "Caf\u00E9",    "--at",   "100,50",   "--font",      "DejaVu Serif", "--text-size",
                 "24",     "--text-color", "FF8000", "--bold",   "--rotate",    "45",           "--text",
                 "second", "--at",         "10%,5%", "--italic", "--underline", "--strikeout"});
    EXPECT_EQ(outcome.code, ExitDone);
    EXPECT_EQ(outcome.errors, "");
    ASSERT_EQ(Design.TextItems.size(), 2U);
    const TextItem& first = Design.TextItems[0];
    EXPECT_EQ(first.TextString, "Caf\u00E9");
    EXPECT_EQ(first.TextX, 1500);
    EXPECT_EQ(first.TextY, 750);
    EXPECT_EQ(first.TextFont, "DejaVu Serif");
    EXPECT_EQ(first.TextSize, 24);
    EXPECT_EQ(ColorBits(first.TextColour), 0x0080FFU);
    EXPECT_EQ(first.TextAngle, 45);
    EXPECT_TRUE(first.TextBold);
    EXPECT_FALSE(first.TextItalic || first.TextUnderline || first.TextStrikeout);
    // 24 points are 32 pixels; a face with Latin letters ascends by some nine tenths, 432 twips.
    EXPECT_NEAR(first.TextHeight, 432, 50);
    EXPECT_EQ(first.TextHeight % 15, 0) << "whole pixels";
    EXPECT_EQ(first.TextCellHeight, first.TextHeight + first.TextDescent);
    EXPECT_GT(first.TextWidth, 0);
    const TextItem& second = Design.TextItems[1];
    EXPECT_EQ(second.TextX, 960); // a tenth of 9600
    EXPECT_EQ(second.TextY, 346); // 346.5, a tie
    EXPECT_EQ(second.TextFont, "Arial");
    EXPECT_EQ(second.TextSize, 10);
    EXPECT_EQ(ColorBits(second.TextColour), 0U);
    EXPECT_EQ(second.TextAngle, 0);
    EXPECT_TRUE(second.TextItalic && second.TextUnderline && second.TextStrikeout);
    EXPECT_FALSE(second.TextBold);
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(CommandTexts, WhatTheDialogsRefuseIsRefused) {
    ExpectRefused({"--text", "a", "--at", "1,1", "--rotate", "360"}, "--rotate: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--rotate", "-1"}, "--rotate");
    ExpectRefused({"--text", "a", "--at", "1,1", "--text-size", "3"}, "--text-size: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--text-size", "201"}, "--text-size: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--text-size", "10.5"}, "--text-size: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--text-color", "GREEN"}, "--text-color: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--font", ""}, "--font: ");
    ExpectRefused({"--text", "a", "--at", "1"}, "--at: ");
    ExpectRefused({"--text", "a", "--at", "1,1", "--bold=0"}, "");
}

TEST_F(CommandTexts, LimitsAreAllowed) {
    EXPECT_EQ(RunWith({"--text", "a", "--at", "1,1", "--rotate", "359", "--text-size", "200"}).code,
              ExitDone);
    EXPECT_EQ(RunWith({"--text", "a", "--at", "1,1", "--rotate", "0", "--text-size", "4"}).code, ExitDone);
}

TEST_F(CommandTexts, TextWithoutAPlaceIsRefused) {
    ExpectRefused({"--text", "lost"}, "--text: \"lost\" has no --at");
    ExpectRefused({"--text", "a", "--at", "1,1", "--text", "lost"}, "--text: \"lost\" has no --at");
}

TEST_F(CommandTexts, OptionsOfATextNeedOneBeforeThem) {
    for (const std::vector<std::string>& option :
         {std::vector<std::string>{"--at", "1,1"}, {"--bold"}, {"--rotate", "5"}, {"--font", "Arial"}}) {
        std::vector<std::string> options = option;
        options.insert(options.end(), {"--text", "a", "--at", "1,1"});
        ExpectRefused(options, option[0] + ": no --text stands before it");
    }
}

TEST_F(CommandTexts, EmptyTextIsNone) {
    EXPECT_EQ(RunWith({"--text", "", "--at", "1,1"}).code, ExitDone);
    EXPECT_THAT(Design.TextItems, IsEmpty());
}

TEST_F(CommandTexts, PictureHasThemInTheirColour) {
    ASSERT_EQ(RunWith({"--text", "HH", "--at", "100,50", "--text-size", "24", "--text-color", "FF0000"}).code,
              ExitDone);
    const QImage image(QString::fromStdString(folder / "a.png"));
    int red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) == 0xFFFF0000) {
                ++red;
                EXPECT_GE(x, 100);
                EXPECT_LT(x, 160);
                EXPECT_LT(y, 50) << "above the baseline";
                EXPECT_GE(y, 24);
            }
        }
    }
    EXPECT_GT(red, 50);
}

TEST_F(CommandTexts, FilesHaveThem) {
    const std::vector<std::string> title = {"--text", "Title", "--at", "50%,50%", "--rotate", "90"};
    ASSERT_EQ(RunWith(title, "a.cgm").code, ExitDone);
    ASSERT_EQ(RunWith(title, "a.dxf").code, ExitDone);
    ASSERT_EQ(RunWith(title, "a.wmf").code, ExitDone);
    // The drawing is 32000 by 23086 units and 9585 by 6915 twips; half of the window's 9600 by 6930 twips are
    // 4800 * 32000 / 9585 = 16025.04 and, from below, 23086 - 3465 * 23086 / 6915 = 11517.96.
    bool found = false;
    for (const auto& element : ReadCgm(ReadWholeFile(folder / "a.cgm"))) {
        found = found || element.text == "Title";
    }
    EXPECT_TRUE(found);
    const std::string dxf = ReadWholeFile(folder / "a.dxf");
    EXPECT_THAT(dxf, HasSubstr("  1\r\nTitle\r\n"));
    EXPECT_THAT(dxf, HasSubstr(" 10\r\n16025\r\n 20\r\n11518\r\n"));
    const std::vector<std::string> wmf = ReadWmf(ReadWholeFile(folder / "a.wmf")).Texts();
    EXPECT_THAT(wmf, Contains("TextOut 11518 16025 'Title'"));
    EXPECT_THAT(wmf, Contains(HasSubstr(" -900 -900 400 ")));
}

TEST_F(CommandTexts, ColourThatADxfFileLacksIsRefused) {
    const Outcome outcome = RunWith({"--text", "a", "--at", "1,1", "--text-color", "FE0000"}, "a.dxf");
    EXPECT_EQ(outcome.code, ExitWrongUsage);
    EXPECT_THAT(outcome.errors,
                HasSubstr("cannot have the colour FE0000; the nearest that it can have is FF0000"));
    EXPECT_THAT(Files(), IsEmpty());
}

} // namespace
} // namespace quelmont
