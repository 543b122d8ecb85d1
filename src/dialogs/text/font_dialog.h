#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace quelmont {

/// Sizes of letters that can be typed, points.
constexpr std::int32_t SmallestFontSize = 4;
constexpr std::int32_t LargestFontSize = 200;

/// "Select Font and Color": font, size, style and colour of one font slot, with a sample on the colour of the
/// map. The families are those of the machine; a family of the slot that the machine does not have stays
/// as long as no other is chosen.
///
/// Reads   FontSlot, the slot's look, FontSizeList, BackColor.
/// Writes  the slot's look, by OK alone; DialogCancelled, which is true unless OK was pressed.
/// A handler that fails shows a message box with its name.
class FontDialog : public DesignDialog {
public:
    FontDialog();

private:
    void Form_Load();
    void Form_Activate();
    void AddChecks();
    void AddColors();
    /// Runs a handler; its failure shows a message box whose text is its name.
    void Named(const char* handler, const std::function<void()>& body);
    void OnClick(const char* control, const char* handler, std::function<void()> body);

    void comFontName_Change();
    void comFontName_LostFocus();
    void comFontSize_Click();
    void comFontSize_Change();
    void comFontSize_LostFocus();
    void ColorSquare_MouseMove();
    void ColorSquare_MouseUp();
    void DisplaySampleText();
    /// Asks about a field whose text means nothing: Retry gives it the focus, Cancel its last good text.
    void Refuse(const char* control, const char* text, const std::string& lastGood);
    void cmdOK_Click();

    TextLook working;
    std::vector<std::string> families;
};

} // namespace quelmont
