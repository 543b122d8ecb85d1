#include "output/print_text.h"

#include "core/error_box.h"
#include "export_fixture.h"
#include "output/wmf/wmf_writer.h"
#include "support/wmf_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MetafileText : public ExportTest {
protected:
    MetafileText() {
        Writers().wmf = &writer;
        Design.WmfFileName = target;
    }
    static TextItem Item(const std::string& text) { return TextOfMap(text, 0x804020); }

    static void Begin() {
        Design.OutputWmf = true;
        ResetLineState();
        PrintFileHeader();
    }

    /// The records behind the four that every map begins with, of a map without anything else.
    std::vector<std::string> Recorded() {
        Begin();
        FinishFile();
        std::vector<std::string> records = ReadWmf(ReadWholeFile(target)).Texts();
        records.erase(records.begin(), records.begin() + 4);
        return records;
    }

    WmfWriter writer;
};

TEST_F(MetafileText, TextStandsOnItsBaselineInItsFont) {
    Design.TextItems = {Item("Nuuk")};
    // 12 points are 240 twips, 480 units; 0x804020 is the words 4020 and 0080.
    EXPECT_THAT(Recorded(),
                ElementsAre("CreateFont -480 0 0 0 400 0 0 0 1 0 16 0 0 'Arial'", "SelectObject 0",
                            "SetTextAlign 24", "SetTextColor 16416 128", "TextOut 20790 8000 'Nuuk'",
                            "SetTextColor 0 0", "CreateFont 16 7 0 0 700 0 0 0 1 0 0 0 0 'System'",
                            "SelectObject 1", "DeleteObject 0"));
}

TEST_F(MetafileText, AngleIsNegatedBecauseYGrowsUpward) {
    Design.TextItems = {Item("a")};
    Design.TextItems[0].TextAngle = 45;
    EXPECT_EQ(Recorded().at(0), "CreateFont -480 0 -450 -450 400 0 0 0 1 0 16 0 0 'Arial'");
}

TEST_F(MetafileText, EachStyleHasItsPlace) {
    TextItem item = Item("a");
    item.TextBold = true;
    Design.TextItems = {item};
    EXPECT_EQ(Recorded().at(0), "CreateFont -480 0 0 0 700 0 0 0 1 0 16 0 0 'Arial'");
    item.TextBold = false;
    item.TextItalic = true;
    Design.TextItems = {item};
    EXPECT_EQ(Recorded().at(0), "CreateFont -480 0 0 0 400 1 0 0 1 0 16 0 0 'Arial'");
    item.TextItalic = false;
    item.TextUnderline = true;
    Design.TextItems = {item};
    EXPECT_EQ(Recorded().at(0), "CreateFont -480 0 0 0 400 0 1 0 1 0 16 0 0 'Arial'");
    item.TextUnderline = false;
    item.TextStrikeout = true;
    Design.TextItems = {item};
    EXPECT_EQ(Recorded().at(0), "CreateFont -480 0 0 0 400 0 0 1 1 0 16 0 0 'Arial'");
}

TEST_F(MetafileText, LaterTextsComeLaterAndReuseTheSlots) {
    Design.TextItems = {Item("One"), Item("")};
    Design.TextItems[1].TextSize = 144;
    const std::vector<std::string> records = Recorded();
    ASSERT_EQ(records.size(), 17U);
    EXPECT_EQ(records[4], "TextOut 20790 8000 'One'");
    EXPECT_EQ(records[9], "CreateFont -5760 0 0 0 400 0 0 0 1 0 16 0 0 'Arial'");
    EXPECT_EQ(records[13], "TextOut 20790 8000 ''");
    EXPECT_EQ(ReadWmf(ReadWholeFile(target)).peakSlots, 2U);
}

TEST_F(MetafileText, TextsAndFacesAreWindows1252AndFacesHaveAnEnd) {
    Design.TextItems = {Item("K\u00F8ge \u0416")};
    Design.TextItems[0].TextFont = "Schriftart f\u00FCr lange Landkartentexte";
    const std::vector<std::string> records = Recorded();
    EXPECT_EQ(records.at(0),
              "CreateFont -480 0 0 0 400 0 0 0 1 0 16 0 0 'Schriftart f\xFCr lange Landkarten'");
    EXPECT_EQ(records.at(4), "TextOut 20790 8000 'K\xF8ge ?'");
}

TEST_F(MetafileText, TextTooFarOutCostsTheFile) {
    Design.TextItems = {Item("far"), Item("near")};
    Design.TextItems[0].TextX = 20000; // 40000 units
    Begin();
    ExpectGivenUp({{"Windows API Error", "TextOut error(1) in PrintRotatedText"}});
}

TEST_F(MetafileText, FontTooLargeCostsTheFile) {
    Design.TextItems = {Item("large")};
    Design.TextItems[0].TextSize = 1000; // 40000 units
    Begin();
    ExpectGivenUp({{"Windows API Error", "CreateFontIndirect error(1) in PrintRotatedText"}});
}

TEST_F(MetafileText, WindowWithoutAWidthCostsTheFile) {
    Design.TextItems = {Item("a")};
    Begin();
    Design.ClientWidth = 0;
    ExpectGivenUp({{"Error in PrintRotatedText", "Error: Division by zero"}});
}

} // namespace
} // namespace quelmont
