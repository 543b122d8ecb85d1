#include "dialogs/text/text_add.h"

#include "core/constant_defs.h"
#include "dialogs/text/font_words.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TextItem Item(const std::string& text) {
    TextItem item;
    item.TextString = text;
    item.TextFont = "Times";
    item.TextSize = 24;
    item.TextColour = SolidColor(Rgb(255, 0, 0));
    item.TextAngle = 45;
    item.TextBold = true;
    item.TextStrikeout = true;
    return item;
}

class TextDialog : public FreshProgramTest {
protected:
    TextDialog() {
        ConstantDefs();
        Design.TextItems = {Item("first"), Item("second"), Item("third")};
    }

    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const TextItem& item : Design.TextItems) {
            texts.push_back(item.TextString);
        }
        return texts;
    }
    int TextsShown() const {
        int shown = 0;
        for (const SurfaceCall& call : machine.window.surface.Calls()) {
            shown += call.op == SurfaceOp::PutBackPicture ? 1 : 0;
        }
        return shown;
    }
};

TEST_F(TextDialog, ShowsTheTextsTheFontAndARotationOfNothing) {
    const TextAdd form;
    EXPECT_EQ(form.Caption(), "Select Text and Rotation");
    EXPECT_THAT(form.At("TextStrings").items, ElementsAre("first", "second", "third"));
    EXPECT_EQ(form.At("TextStrings").text, "");
    EXPECT_EQ(form.At("TextStrings").value, -1);
    EXPECT_EQ(form.At("TextRotation").text, "000");
    EXPECT_EQ(form.At("CurrentFont").text, "Current Font is Arial 10 point .");
    EXPECT_EQ(form.At("FontStyle").text, "Font style is Regular.");
    EXPECT_EQ(form.At("FontColor").letters.background, 0U);
    EXPECT_EQ(form.At("mnuFont").text, "&Font and Color Selection");
    EXPECT_THAT(form.At("mnuFont").items, ElementsAre("Select &Font and Color", "&Scale Factor (CGM, DXF)"));
    EXPECT_EQ(form.Focus(), "TextStrings");
    EXPECT_EQ(
        form.At("Help").text,
        "Use the above Font and Color Selection menu to change the font name, size, style, and color.\n\n"
        "To enter new text, click on the text box, type the text, and press OK.  Position text on the map by "
        "clicking the left mouse button at the desired location.  Clicking the left mouse buttom toggles "
        "the text on and off.  To end text addition, click on any menu item.");
}

TEST_F(TextDialog, HasASentenceForEachStyle) {
    const std::vector<std::string> sentences = {
        "Font style is Regular.",
        "Font style is Bold.",
        "Font style is Italic.",
        "Font style is Bold Italic.",
        "Font style is Regular Underline.",
        "Font style is Bold Underline.",
        "Font style is Italic Underline.",
        "Font style is Bold Italic Underline.",
        "Font style is Regular Strikeout.",
        "Font style is Bold Strikeout.",
        "Font style is Italic Strikeout.",
        "Font style is Bold Italic Strikeout.",
        "Font style is Regular Underline Strikeout.",
        "Font style is Bold Underline Strikeout.",
        "Font style is Italic Underline Strikeout.",
        "Font style is Bold Italic Underline Strikeout.",
    };
    for (std::size_t style = 0; style < sentences.size(); ++style) {
        TextLook look;
        look.FontBold = (style & 1U) != 0;
        look.FontItalic = (style & 2U) != 0;
        look.FontUnderline = (style & 4U) != 0;
        look.FontStrikeout = (style & 8U) != 0;
        EXPECT_EQ(FontStyleSentence(look), sentences[style]);
    }
}

TEST_F(TextDialog, OkTakesTheTextInHand) {
    Design.Fonts[TextFontSlot] = {
        .FontName = "Courier", .FontSize = 12, .FontColour = 255, .FontItalic = true};
    TextAdd form;
    form.Type("TextStrings", "Atlantis");
    form.MoveFocus("TextRotation");
    form.Type("TextRotation", "359");
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.CurrentText, "Atlantis");
    EXPECT_EQ(Design.CurrentTextAngle, "359");
    EXPECT_EQ(Design.CurrentLook, Design.Fonts[TextFontSlot]);
    EXPECT_TRUE(Design.TextPending);
    EXPECT_FALSE(Design.TextIsEdit);
    EXPECT_THAT(Texts(), ElementsAre("first", "second", "third")) << "it is not placed yet";
}

TEST_F(TextDialog, EmptyTextIsLeftAlone) {
    TextAdd form;
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_FALSE(Design.TextPending);
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(TextDialog, ItemThatWasEmptiedIsLeftAlone) {
    TextAdd form;
    form.Choose("TextStrings", 1);
    form.Type("TextStrings", "");
    form.PressDefault();
    EXPECT_FALSE(Design.TextPending);
    EXPECT_FALSE(Design.TextIsEdit);
    EXPECT_THAT(Texts(), ElementsAre("first", "second", "third"));
}

TEST_F(TextDialog, RotationAbove359IsRefusedAndKeepsTheFocus) {
    for (const char* const rotation : {"360", "999"}) {
        TextAdd form;
        form.Type("TextStrings", "Atlantis");
        form.MoveFocus("TextRotation");
        form.Type("TextRotation", rotation);
        form.PressDefault();
        EXPECT_FALSE(form.Closed());
        EXPECT_EQ(form.Focus(), "TextRotation");
        form.MoveFocus("TextStrings");
        EXPECT_EQ(form.Focus(), "TextRotation");
        EXPECT_THAT(machine.boxes.Taken(),
                    ElementsAre(AskedBox{"Error", "Text rotation cannot exceed 359°"},
                                AskedBox{"Error", "Text rotation cannot exceed 359°"}));
        form.PressCancel();
        EXPECT_TRUE(form.Closed()) << "Cancel checks nothing";
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    }
}

TEST_F(TextDialog, ChosenItemIsEditedInItsOwnFont) {
    TextAdd form;
    form.Choose("TextStrings", 1);
    EXPECT_TRUE(Design.TextIsEdit);
    EXPECT_EQ(Design.TextEditIndex, 2);
    EXPECT_EQ(form.At("TextStrings").text, "second");
    EXPECT_EQ(form.At("TextRotation").text, "045");
    EXPECT_EQ(form.At("CurrentFont").text, "Current Font is Times 24 point .");
    EXPECT_EQ(form.At("FontStyle").text, "Font style is Bold Strikeout.");
    EXPECT_EQ(form.At("FontColor").letters.background, Rgb(255, 0, 0));
    form.Type("TextStrings", "second and a half");
    form.PressDefault();
    EXPECT_TRUE(Design.TextPending);
    EXPECT_TRUE(Design.TextIsEdit);
    EXPECT_EQ(Design.TextEditIndex, 2);
    EXPECT_EQ(Design.CurrentText, "second and a half");
    EXPECT_EQ(Design.CurrentTextAngle, "045");
    EXPECT_EQ(Design.CurrentLook,
              (TextLook{"Times", 24, SolidColor(Rgb(255, 0, 0)), true, false, false, true}));
}

TEST_F(TextDialog, CancelGivesTheSlotBackAndEditsNothing) {
    const TextLook before = Design.Fonts[TextFontSlot];
    TextAdd form;
    form.Choose("TextStrings", 1);
    EXPECT_NE(Design.Fonts[TextFontSlot], before);
    form.PressCancel();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fonts[TextFontSlot], before);
    EXPECT_FALSE(Design.TextIsEdit);
    EXPECT_FALSE(Design.TextPending);
    EXPECT_EQ(Design.CurrentText, "");
}

TEST_F(TextDialog, MenuOpensTheFontsOfTextsAndTheScale) {
    Design.FontSlot = ReportFontSlot;
    TextAdd form;
    machine.forms.Script("FontDialog", [](Form& fonts) {
        fonts.Choose("comFontSize", 4);
        fonts.PressDefault();
    });
    form.Choose("mnuFont", 0);
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontSize, 12);
    EXPECT_EQ(Design.Fonts[ReportFontSlot].FontSize, 10);
    EXPECT_EQ(form.At("CurrentFont").text, "Current Font is Arial 12 point .");
    machine.forms.Script("VectorScale", [](Form& scale) {
        scale.Spin("VecScale", 80);
        scale.PressDefault();
    });
    form.Choose("mnuFont", 1);
    EXPECT_EQ(Design.TextScalePercent, 80);
    EXPECT_THAT(machine.forms.shown, ElementsAre("FontDialog", "VectorScale"));
    form.PressCancel();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(Design.Fonts[TextFontSlot].FontSize, 10) << "it was Cancel in the end";
}

TEST_F(TextDialog, CancelledFontsDoNotCancelTheText) {
    TextAdd form;
    form.Type("TextStrings", "Atlantis");
    machine.forms.Script("FontDialog", [](Form& fonts) { fonts.PressCancel(); });
    form.Choose("mnuFont", 0);
    form.PressDefault();
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_TRUE(Design.TextPending);
}

// ---- Deleting.

TEST_F(TextDialog, DeletingWithoutAChoiceIsRefused) {
    TextAdd form;
    form.Type("TextStrings", "first");
    form.Press("DeleteText");
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Text Error", "You did not select text to delete."}));
    EXPECT_THAT(Texts(), ElementsAre("first", "second", "third"));
    EXPECT_EQ(TextsShown(), 0);
}

TEST_F(TextDialog, DeletesTheChosenTextAtOnceAndForGood) {
    TextAdd form;
    form.Choose("TextStrings", 1);
    form.Press("DeleteText");
    EXPECT_THAT(Texts(), ElementsAre("first", "third"));
    EXPECT_EQ(TextsShown(), 1) << "the window shows those that are left";
    EXPECT_THAT(form.At("TextStrings").items, ElementsAre("first", "third"));
    EXPECT_EQ(form.At("TextStrings").text, "");
    EXPECT_EQ(form.At("TextStrings").value, -1);
    EXPECT_FALSE(Design.TextIsEdit);
    EXPECT_EQ(form.Focus(), "TextStrings") << "another text can be typed";
    form.PressCancel();
    EXPECT_THAT(Texts(), ElementsAre("first", "third"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(TextDialog, TextAfterADeletionIsANewOne) {
    TextAdd form;
    form.Choose("TextStrings", 2);
    form.Press("DeleteText");
    form.Type("TextStrings", "fourth");
    form.PressDefault();
    EXPECT_FALSE(Design.TextIsEdit);
    EXPECT_EQ(Design.CurrentText, "fourth");
}

TEST_F(TextDialog, DeletesAllAfterAQuestion) {
    const AskedBox question{"Information", "Do you really want to delete\nevery text item?",
                            BoxButtons::YesNo, BoxIcon::Information, BoxAnswer::No};
    TextAdd form;
    form.Press("DeleteAllText");
    EXPECT_THAT(Texts(), ElementsAre("first", "second", "third"));
    machine.boxes.Answer(BoxAnswer::Yes);
    form.Press("DeleteAllText");
    EXPECT_THAT(Texts(), IsEmpty());
    EXPECT_THAT(form.At("TextStrings").items, IsEmpty());
    EXPECT_EQ(TextsShown(), 1);
    AskedBox confirmed = question;
    confirmed.answer = BoxAnswer::Yes;
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(question, confirmed));
}

// ---- What people paste.

TEST_F(TextDialog, TakesTextsOfAnyLengthAndScript) {
    std::string hundredScripts;
    while (hundredScripts.size() < 10'000) {
        hundredScripts += "Ω\"Б'日م\xE2\x80\x8F ";
    }
    for (const std::string& text : {std::string("1"), std::string(255, 'x'), std::string(10'000, 'x'),
                                    std::string("\"quoted\" 'twice'"),
                                    std::string("\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D"), hundredScripts}) {
        TextAdd form;
        form.Type("TextStrings", text);
        form.PressDefault();
        EXPECT_EQ(Design.CurrentText, text);
    }
}

TEST_F(TextDialog, WhatCannotBeSeenBecomesABlank) {
    TextAdd form;
    form.Type("TextStrings", std::string("a\r\nb\tc\0d\x7F", 9) + "e\xC2\x85"
                                                                  "f\xE2\x80\xA8g\xE2\x80\xA9h\x1B");
    form.PressDefault();
    EXPECT_EQ(Design.CurrentText, "a  b c d e f g h ");
}

TEST_F(TextDialog, HasRoomForAHundredThousandTexts) {
    Design.TextItems.assign(100'000, Item("same"));
    TextAdd form;
    form.Choose("TextStrings", 99'999);
    EXPECT_EQ(Design.TextEditIndex, 100'000);
    form.Press("DeleteText");
    EXPECT_EQ(Design.TextItems.size(), 99'999U);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

} // namespace
} // namespace quelmont
