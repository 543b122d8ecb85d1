#include "dialogs/text/font_dialog.h"
#include "dialogs/text/font_words.h"

#include "core/color_table.h"
#include "core/run_time_error.h"
#include "platform/machine.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace quelmont {

namespace {

/// Letters with ascenders and descenders.
constexpr const char* SampleText = "Ypiranga ";

struct StyleCheck {
    const char* name;
    const char* handler;
    const char* text;
    bool TextLook::*flag;
};

constexpr std::array StyleChecks = std::to_array<StyleCheck>({
    {"chkBold", "chkBold_Click", "&Bold", &TextLook::FontBold},
    {"chkItalic", "chkItalic_Click", "&Italic", &TextLook::FontItalic},
    {"chkUnderline", "chkUnderline_Click", "&Underline", &TextLook::FontUnderline},
    {"chkStrikethru", "chkStrikethru_Click", "Stri&keout", &TextLook::FontStrikeout},
});

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// A size that letters can have, as it was typed.
std::optional<std::int32_t> SizeOf(std::string_view text) {
    text = Trimmed(text);
    std::int32_t size = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), size);
    const bool number = error == std::errc() && end == text.data() + text.size();
    return number && size >= SmallestFontSize && size <= LargestFontSize ? std::optional(size) : std::nullopt;
}

char Lower(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool SameFamily(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](char left, char right) { return Lower(left) == Lower(right); });
}

} // namespace

FontDialog::FontDialog()
    : DesignDialog("FontDialog", "Select Font and Color"),
      working(Design.Fonts.at(static_cast<std::size_t>(Design.FontSlot))) {
    Form_Load();
    Form_Activate();
    DisplaySampleText();
}

void FontDialog::Named(const char* handler, const std::function<void()>& body) {
    try {
        body();
    } catch (const RunTimeError&) {
        Machine().boxes->Ask("Error in FontDialog", handler, BoxButtons::Ok, BoxIcon::Exclamation);
    }
}

void FontDialog::OnClick(const char* control, const char* handler, std::function<void()> body) {
    On(control, ControlEvent::Click, [this, handler, body = std::move(body)] {
        Named(handler, [&] {
            body();
            DisplaySampleText();
        });
    });
}

void FontDialog::Form_Load() {
    Design.DialogCancelled = true;
    Add({.name = "comFontName", .kind = ControlKind::Combo, .text = working.FontName, .completes = true});
    std::vector<std::string> sizes;
    for (const std::int32_t size : Design.FontSizeList) {
        sizes.push_back(std::to_string(size));
    }
    Add({.name = "comFontSize",
         .kind = ControlKind::Combo,
         .text = std::to_string(working.FontSize),
         .caption = "&Size",
         .value = -1,
         .items = std::move(sizes)});
    OnClick("comFontName", "comFontName_Click", [this] { comFontName_Change(); });
    On("comFontName", ControlEvent::Change, [this] { comFontName_Change(); });
    On("comFontName", ControlEvent::LostFocus, [this] { comFontName_LostFocus(); });
    OnClick("comFontSize", "comFontSize_Click", [this] { comFontSize_Click(); });
    On("comFontSize", ControlEvent::Change, [this] { comFontSize_Change(); });
    On("comFontSize", ControlEvent::LostFocus, [this] { comFontSize_LostFocus(); });
    AddChecks();
    AddColors();
    Add({.name = "SampleText", .kind = ControlKind::Sample, .text = SampleText, .caption = "Sample"});
    AddOkAndCancel([this] { cmdOK_Click(); });
}

void FontDialog::AddChecks() {
    for (const StyleCheck& check : StyleChecks) {
        Add({.name = check.name,
             .kind = ControlKind::Check,
             .text = check.text,
             .value = working.*check.flag ? 1 : 0});
        OnClick(check.name, check.handler,
                [this, check] { working.*check.flag = At(check.name).value != 0; });
    }
}

void FontDialog::AddColors() {
    std::vector<std::uint32_t> colors;
    for (std::size_t cell = 0; cell < ColorCells; ++cell) {
        colors.push_back(ColorOfCell(cell));
    }
    Add({.name = "ColorSquare",
         .kind = ControlKind::Palette,
         .caption = "Co&lor",
         .value = -1,
         .colors = std::move(colors),
         .columns = ColorColumns,
         .marked = CellOfColor(working.FontColour, -1)});
    On("ColorSquare", ControlEvent::MouseMove, [this] { ColorSquare_MouseMove(); });
    OnClick("ColorSquare", "ColorSquare_MouseUp", [this] { ColorSquare_MouseUp(); });
}

void FontDialog::Form_Activate() {
    Named("Form Activate", [this] { families = Machine().fonts->Families(); });
    Control& names = Edit("comFontName");
    // All of them can be scaled and turned.
    names.caption = "&TrueType Fonts (" + std::to_string(families.size()) + ")";
    names.items = families;
    const auto found = std::find(families.begin(), families.end(), working.FontName);
    names.value = found == families.end() ? -1 : static_cast<int>(found - families.begin());
}

void FontDialog::comFontName_Change() {
    const std::string& name = At("comFontName").text;
    const auto found = std::find_if(families.begin(), families.end(),
                                    [&](const std::string& family) { return SameFamily(family, name); });
    if (found != families.end()) {
        working.FontName = *found;
        DisplaySampleText();
    }
}

void FontDialog::comFontName_LostFocus() {
    if (!SameFamily(At("comFontName").text, working.FontName)) {
        Refuse("comFontName", "There is no font of that name.", working.FontName);
    } else {
        SetText("comFontName", working.FontName);
    }
}

void FontDialog::comFontSize_Click() {
    const std::optional<std::int32_t> size = SizeOf(At("comFontSize").text);
    if (!size) {
        throw RunTimeError(ErrorInvalidCall);
    }
    working.FontSize = *size;
}

void FontDialog::comFontSize_Change() {
    if (const std::optional<std::int32_t> size = SizeOf(At("comFontSize").text)) {
        working.FontSize = *size;
        DisplaySampleText();
    }
}

void FontDialog::comFontSize_LostFocus() {
    const std::string lastGood = std::to_string(working.FontSize);
    if (!SizeOf(At("comFontSize").text) && At("comFontSize").text != lastGood) {
        Refuse("comFontSize", "The font size must be a whole number from 4 to 200.", lastGood);
    }
}

void FontDialog::Refuse(const char* control, const char* text, const std::string& lastGood) {
    if (Machine().boxes->AskAbout(control, "Error", text, BoxButtons::RetryCancel, BoxIcon::Exclamation) ==
        BoxAnswer::Retry) {
        SetFocus(control);
    } else {
        SetText(control, lastGood);
    }
}

void FontDialog::ColorSquare_MouseMove() {
    const int cell = At("ColorSquare").value;
    Edit("ColorSquare").text = cell < 0 ? "" : CellInWords(static_cast<std::size_t>(cell));
}

void FontDialog::ColorSquare_MouseUp() {
    const int cell = At("ColorSquare").value;
    working.FontColour = SolidColor(ColorOfCell(static_cast<std::size_t>(cell)));
    Edit("ColorSquare").marked = cell;
}

void FontDialog::DisplaySampleText() {
    Edit("SampleText").letters = LettersOf(working, ColorBits(Design.BackColor));
}

void FontDialog::cmdOK_Click() {
    Design.Fonts.at(static_cast<std::size_t>(Design.FontSlot)) = working;
    CloseAccepted();
}

} // namespace quelmont
