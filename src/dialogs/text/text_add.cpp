#include "dialogs/text/text_add.h"

#include "annotation/text_picture.h"
#include "core/color_table.h"
#include "core/number_text.h"
#include "dialogs/exports/vector_scale.h"
#include "dialogs/text/font_dialog.h"
#include "dialogs/text/font_words.h"
#include "output/print_text.h"
#include "platform/machine.h"

#include <utility>

namespace quelmont {

namespace {

constexpr int LargestRotation = 359;
constexpr const char* RotationPicture = "000";

constexpr const char* Explanation =
    "Use the above Font and Color Selection menu to change the font name, size, style, and color.\n\n"
    "To enter new text, click on the text box, type the text, and press OK.  Position text on the map by "
    "clicking the left mouse button at the desired location.  Clicking the left mouse buttom toggles the "
    "text "
    "on and off.  To end text addition, click on any menu item.";

enum FontMenuItem : int { SelectFontItem = 0, ScaleFactorItem = 1 };

TextLook& TextSlot() { return Design.Fonts[TextFontSlot]; }

/// The controls of ASCII and of Latin-1, and the two line ends of Unicode.
std::string WithoutControls(const std::string& text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto byte = static_cast<unsigned char>(text[at]);
        const std::string_view rest = std::string_view(text).substr(at);
        if (byte < 0x20 || byte == 0x7F) {
            shown += ' ';
        } else if (byte == 0xC2 && rest.size() > 1 && static_cast<unsigned char>(rest[1]) < 0xA0) {
            shown += ' ';
            at += 1;
        } else if (rest.starts_with("\xE2\x80\xA8") || rest.starts_with("\xE2\x80\xA9")) {
            shown += ' ';
            at += 2;
        } else {
            shown += text[at];
        }
    }
    return shown;
}

} // namespace

TextAdd::TextAdd() : DesignDialog("TextAdd", "Select Text and Rotation"), lookBefore(TextSlot()) {
    Form_Load();
}

void TextAdd::Form_Load() {
    Design.DialogCancelled = true;
    Design.TextIsEdit = false;
    Design.TextEditIndex = 0;
    Design.TextPending = false;
    Design.FontSlot = TextFontSlot;
    Add({.name = "mnuFont",
         .kind = ControlKind::Menu,
         .text = "&Font and Color Selection",
         .value = -1,
         .items = {"Select &Font and Color", "&Scale Factor (CGM, DXF)"}});
    Add({.name = "CurrentFont", .kind = ControlKind::Label});
    Add({.name = "FontStyle", .kind = ControlKind::Label});
    Add({.name = "FontColor", .kind = ControlKind::Sample});
    ShowLook();
    Add({.name = "Help", .kind = ControlKind::Label, .text = Explanation});
    std::vector<std::string> texts;
    for (const TextItem& item : Design.TextItems) {
        texts.push_back(item.TextString);
    }
    Add({.name = "TextStrings",
         .kind = ControlKind::Combo,
         .caption = "&Text:",
         .value = -1,
         .items = std::move(texts)});
    Add({.name = "TextRotation",
         .kind = ControlKind::Edit,
         .text = RotationPicture,
         .caption = "&Rotation (degrees):",
         .mask = "%%%"});
    Add({.name = "DeleteText", .kind = ControlKind::Button, .text = "&Delete Text"});
    Add({.name = "DeleteAllText", .kind = ControlKind::Button, .text = "Delete &All Text"});
    On("mnuFont", ControlEvent::Click, [this] { mnuFont_Click(); });
    On("TextStrings", ControlEvent::Click, [this] { TextStrings_Click(); });
    On("TextRotation", ControlEvent::LostFocus, [this] { TextRotation_LostFocus(); });
    On("DeleteText", ControlEvent::Click, [this] { DeleteText_Click(); });
    On("DeleteAllText", ControlEvent::Click, [this] { DeleteAllText_Click(); });
    AddOkAndCancel([this] { OK_Click(); });
}

void TextAdd::ShowLook() {
    Edit("CurrentFont").text = CurrentFontSentence(TextSlot());
    Edit("FontStyle").text = FontStyleSentence(TextSlot());
    Edit("FontColor").letters.background = ColorBits(TextSlot().FontColour);
    Edit("FontColor").caption = "Font color " + ColorInWords(TextSlot().FontColour);
}

void TextAdd::TextStrings_Click() {
    const int line = At("TextStrings").value;
    const TextItem& item = Design.TextItems[static_cast<std::size_t>(line)];
    Design.TextIsEdit = true;
    Design.TextEditIndex = line + 1;
    TextSlot() = LookOf(item);
    SetText("TextRotation", FormatNumber(item.TextAngle, RotationPicture));
    ShowLook();
}

void TextAdd::TextRotation_LostFocus() {
    if (ValueOf(At("TextRotation").text) > LargestRotation) {
        Machine().boxes->AskAbout("TextRotation", "Error", "Text rotation cannot exceed 359°", BoxButtons::Ok,
                                  BoxIcon::Exclamation);
        SetFocus("TextRotation");
    }
}

void TextAdd::mnuFont_Click() {
    if (At("mnuFont").value == SelectFontItem) {
        FontDialog fonts;
        Machine().forms->Show(fonts);
        ShowLook();
    } else {
        VectorScale scale;
        Machine().forms->Show(scale);
    }
}

void TextAdd::DeleteText_Click() {
    const int line = At("TextStrings").value;
    if (line < 0) {
        Machine().boxes->Ask("Text Error", "You did not select text to delete.", BoxButtons::Ok,
                             BoxIcon::Exclamation);
        return;
    }
    Design.TextItems.erase(Design.TextItems.begin() + line);
    std::vector<std::string>& lines = Edit("TextStrings").items;
    lines.erase(lines.begin() + line);
    ShowDeleted();
}

void TextAdd::DeleteAllText_Click() {
    if (Machine().boxes->Ask("Information", "Do you really want to delete\nevery text item?",
                             BoxButtons::YesNo, BoxIcon::Information) == BoxAnswer::Yes) {
        Design.TextItems.clear();
        Edit("TextStrings").items.clear();
        ShowDeleted();
    }
}

void TextAdd::ShowDeleted() {
    Design.TextIsEdit = false;
    Design.TextEditIndex = 0;
    Edit("TextStrings").value = -1;
    SetText("TextStrings", "");
    SetFocus("TextStrings");
    ShowTexts();
}

void TextAdd::OK_Click() {
    const std::string text = WithoutControls(At("TextStrings").text);
    if (text.empty()) {
        Design.TextIsEdit = false;
    } else {
        Design.CurrentText = text;
        Design.CurrentTextAngle = At("TextRotation").text;
        Design.CurrentLook = TextSlot();
        Design.TextPending = true;
    }
    CloseAccepted();
}

void TextAdd::Cancel_Click() {
    Design.TextIsEdit = false;
    TextSlot() = lookBefore;
    DesignDialog::Cancel_Click();
}

} // namespace quelmont
