#pragma once

#include "core/map_design.h"
#include "dialogs/design_dialog.h"

#include <cstddef>
#include <string>

namespace quelmont {

/// "Select Text and Rotation": a new text for the map, or another text, font or rotation of one that stands
/// there. Texts are deleted here too, at once and for good.
///
/// OK takes the text in hand, to be placed on the map (mainwindow/text_placing.h); an empty one is left
/// alone. Characters that cannot be seen, line ends among them, become blanks.
///
/// Reads   TextItems, Fonts, BackColor.
/// Writes  TextItems (deletions), TextIsEdit, TextEditIndex, TextPending, FontSlot, the text slot of Fonts;
///         CurrentText, CurrentTextAngle, CurrentLook, by OK alone; DialogCancelled, which is true unless OK
///         was pressed. Cancel clears TextIsEdit and gives the slot back.
class TextAdd : public DesignDialog {
public:
    TextAdd();

private:
    void Form_Load();
    void ShowLook();
    void TextStrings_Click();
    void TextRotation_LostFocus();
    void mnuFont_Click();
    void DeleteText_Click();
    void DeleteAllText_Click();
    void ShowDeleted();
    void OK_Click();
    void Cancel_Click() override;

    TextLook lookBefore; ///< of the slot, when the dialog opened
};

} // namespace quelmont
