#include "dialogs/text/font_dialog.h"

#include "core/constant_defs.h"
#include "core/run_time_error.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Families that cannot be listed.
class BrokenFonts : public FixedFonts {
public:
    std::vector<std::string> Families() override { throw RunTimeError(ErrorOutOfMemory); }
};

class FontChoice : public FreshProgramTest {
protected:
    FontChoice() {
        ConstantDefs();
        machine.fonts.families = {"Arial", "Courier", "Times", "Symbol"};
    }

    static const SampleLetters& Letters(const Form& form) { return form.At("SampleText").letters; }
    AskedBox Refused(std::string text, BoxAnswer answer) {
        return {"Error", std::move(text), BoxButtons::RetryCancel, BoxIcon::Exclamation, answer};
    }
    static inline const std::string WrongSize = "The font size must be a whole number from 4 to 200.";
};

TEST_F(FontChoice, OffersTheFamiliesWithTheirCountAndTheSizes) {
    const FontDialog form;
    EXPECT_EQ(form.At("comFontName").caption, "&TrueType Fonts (4)");
    EXPECT_THAT(form.At("comFontName").items, ElementsAre("Arial", "Courier", "Times", "Symbol"));
    EXPECT_THAT(form.At("comFontSize").items,
                ElementsAre("8", "9", "10", "11", "12", "14", "16", "18", "20", "22", "24", "26", "28", "36",
                            "48", "60", "72", "84", "96", "108", "120", "132", "144"));
    EXPECT_EQ(form.At("ColorSquare").colors.size(), 256U);
    EXPECT_EQ(form.At("ColorSquare").columns, 16);
}

TEST_F(FontChoice, ShowsTheSlotInUse) {
    for (const std::int16_t slot : {ReportFontSlot, CgmFontSlot, LabelFontSlot, TextFontSlot}) {
        Design.Fonts[static_cast<std::size_t>(slot)] = {.FontName = "Times",
                                                        .FontSize = 20 + slot,
                                                        .FontColour = SolidColor(Rgb(255, 0, 0)),
                                                        .FontBold = slot == 0,
                                                        .FontItalic = slot == 1,
                                                        .FontUnderline = slot == 2,
                                                        .FontStrikeout = slot == 3};
        Design.FontSlot = slot;
        const FontDialog form;
        EXPECT_EQ(form.At("comFontName").text, "Times");
        EXPECT_EQ(form.At("comFontName").value, 2);
        EXPECT_EQ(form.At("comFontSize").text, std::to_string(20 + slot));
        EXPECT_EQ(form.At("chkBold").value, slot == 0);
        EXPECT_EQ(form.At("chkItalic").value, slot == 1);
        EXPECT_EQ(form.At("chkUnderline").value, slot == 2);
        EXPECT_EQ(form.At("chkStrikethru").value, slot == 3);
        EXPECT_EQ(form.At("ColorSquare").marked, 12) << "the first red of the table";
    }
}

TEST_F(FontChoice, SampleIsAWordOfTallAndDeepLettersOnTheColourOfTheMap) {
    Design.BackColor = SolidColor(Rgb(0, 0, 128));
    Design.Fonts[TextFontSlot].FontColour = SolidColor(Rgb(255, 255, 255));
    const FontDialog form;
    EXPECT_EQ(form.At("SampleText").text, "Ypiranga ");
    EXPECT_EQ(Letters(form),
              (SampleLetters{.fontName = "Arial", .points = 10, .color = 0xFFFFFF, .background = 0x800000}));
}

TEST_F(FontChoice, SampleFollowsEachControl) {
    FontDialog form;
    form.Choose("comFontName", 1);
    EXPECT_EQ(Letters(form).fontName, "Courier");
    form.Choose("comFontSize", 14);
    EXPECT_EQ(Letters(form).points, 48);
    form.Choose("chkBold");
    EXPECT_TRUE(Letters(form).bold);
    form.Choose("chkItalic");
    EXPECT_TRUE(Letters(form).italic);
    form.Choose("chkUnderline");
    EXPECT_TRUE(Letters(form).underline);
    form.Choose("chkStrikethru");
    EXPECT_TRUE(Letters(form).strikeout);
    form.Choose("chkBold", 0);
    EXPECT_FALSE(Letters(form).bold);
    form.Choose("ColorSquare", 48);
    EXPECT_EQ(Letters(form).color, Rgb(0x4D, 0x26, 0));
    EXPECT_EQ(form.At("ColorSquare").marked, 48);
    EXPECT_FALSE(form.Closed()) << "a colour does not close the dialog";
}

TEST_F(FontChoice, OkStoresWhatTheSampleShowsInItsSlotAlone) {
    Design.FontSlot = LabelFontSlot;
    const auto before = Design.Fonts;
    FontDialog form;
    form.Choose("comFontName", 2);
    form.Type("comFontSize", "33");
    form.Choose("chkBold");
    form.Choose("ColorSquare", 9);
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fonts[LabelFontSlot], (TextLook{.FontName = "Times",
                                                     .FontSize = 33,
                                                     .FontColour = SolidColor(Rgb(0, 0, 255)),
                                                     .FontBold = true}));
    EXPECT_EQ(Design.Fonts[TextFontSlot], before[TextFontSlot]);
    EXPECT_EQ(Design.Fonts[CgmFontSlot], before[CgmFontSlot]);
    EXPECT_EQ(Design.Fonts[ReportFontSlot], before[ReportFontSlot]);
}

TEST_F(FontChoice, CancelLeavesTheSlotAsItWas) {
    const auto before = Design.Fonts;
    FontDialog form;
    form.Choose("comFontName", 2);
    form.Choose("comFontSize", 5);
    form.Choose("chkItalic");
    form.Choose("ColorSquare", 9);
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fonts, before);
}

TEST_F(FontChoice, AnyWholeSizeFromFourTo200CanBeTyped) {
    for (const auto& [text, size] :
         std::vector<std::pair<std::string, int>>{{"4", 4}, {"13", 13}, {" 17 ", 17}, {"200", 200}}) {
        FontDialog form;
        form.MoveFocus("comFontSize");
        form.Type("comFontSize", text);
        EXPECT_EQ(Letters(form).points, size);
        form.PressDefault();
        EXPECT_EQ(Design.Fonts[TextFontSlot].FontSize, size);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FontChoice, AnyOtherSizeIsAskedAboutAndGivenBackByCancel) {
    for (const char* const text : {"3", "201", "12.5", "-8", "abc", "", "99999999999", "12pt"}) {
        FontDialog form;
        form.MoveFocus("comFontSize");
        form.Type("comFontSize", text);
        EXPECT_EQ(Letters(form).points, 10) << text;
        form.MoveFocus("chkBold");
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Refused(WrongSize, BoxAnswer::Cancel))) << text;
        EXPECT_EQ(form.At("comFontSize").text, "10");
        EXPECT_EQ(form.Focus(), "chkBold");
    }
}

TEST_F(FontChoice, RetryStaysAtTheSizeAndOkIsNotPressed) {
    FontDialog form;
    form.MoveFocus("comFontSize");
    form.Type("comFontSize", "2");
    machine.boxes.Answer(BoxAnswer::Retry);
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.Focus(), "comFontSize");
    EXPECT_EQ(form.At("comFontSize").text, "2");
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(Refused(WrongSize, BoxAnswer::Retry)));
}

TEST_F(FontChoice, TypedNameIsAFamilyInAnyCase) {
    FontDialog form;
    form.Type("comFontName", "tim");
    EXPECT_EQ(Letters(form).fontName, "Arial") << "not yet";
    form.Type("comFontName", "times");
    EXPECT_EQ(Letters(form).fontName, "Times");
    form.MoveFocus("comFontSize");
    EXPECT_EQ(form.At("comFontName").text, "Times");
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FontChoice, NameThatIsNotThereIsAskedAbout) {
    FontDialog form;
    form.Type("comFontName", "Comic");
    machine.boxes.Answer(BoxAnswer::Retry);
    form.MoveFocus("comFontSize");
    EXPECT_EQ(form.Focus(), "comFontName");
    EXPECT_EQ(form.At("comFontName").text, "Comic");
    form.MoveFocus("comFontSize");
    EXPECT_EQ(form.Focus(), "comFontSize");
    EXPECT_EQ(form.At("comFontName").text, "Arial");
    const std::string text = "There is no font of that name.";
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(Refused(text, BoxAnswer::Retry), Refused(text, BoxAnswer::Cancel)));
}

TEST_F(FontChoice, FontOfTheSlotStaysWhereTheMachineLacksIt) {
    Design.Fonts[TextFontSlot].FontName = "Helvetica Neue";
    Design.Fonts[TextFontSlot].FontSize = 7;
    FontDialog form;
    EXPECT_EQ(form.At("comFontName").text, "Helvetica Neue");
    EXPECT_EQ(form.At("comFontName").value, -1);
    form.MoveFocus("comFontSize");
    form.MoveFocus("chkBold");
    form.PressDefault();
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontName, "Helvetica Neue");
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontSize, 7);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FontChoice, FontWithoutABoldFaceStillTakesTheFlag) {
    FontDialog form;
    form.Choose("comFontName", 3);
    form.Choose("chkBold");
    form.PressDefault();
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontName, "Symbol");
    EXPECT_TRUE(Design.Fonts[TextFontSlot].FontBold);
}

TEST_F(FontChoice, TellsTheColourUnderTheMouse) {
    FontDialog form;
    form.Hover("ColorSquare", 12);
    EXPECT_EQ(form.At("ColorSquare").text, "red: red 255, green 0, blue 0");
    form.Hover("ColorSquare", -1);
    EXPECT_EQ(form.At("ColorSquare").text, "");
    EXPECT_EQ(Letters(form).color, 0U);
}

TEST_F(FontChoice, HandlerThatFailsShowsItsName) {
    BrokenFonts broken;
    Machine().fonts = &broken;
    const FontDialog without;
    EXPECT_EQ(without.At("comFontName").caption, "&TrueType Fonts (0)");
    Machine().fonts = &machine.fonts;
    Design.FontSizeList[0] = 3;
    FontDialog form;
    form.Choose("comFontSize", 0);
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in FontDialog", "Form Activate"},
                                                   AskedBox{"Error in FontDialog", "comFontSize_Click"}));
}

} // namespace
} // namespace quelmont
