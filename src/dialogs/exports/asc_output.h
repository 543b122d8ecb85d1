#pragma once

#include "dialogs/design_dialog.h"

#include <string>
#include <vector>

namespace quelmont {

/// Asks for the names of the text files that an ASCII export writes: one for each part of the grid,
/// one for each map file. A cell of the last column, pressed or taken with the space bar, opens the
/// file dialog. When there is nothing to export, a message box says so and the dialog is closed from the
/// start.
///
/// Reads   GridTypeCode, GridOutputCount, InputFiles, AsciiFileName.
/// Writes  OutputAscii (false at the start, true when accepted), AsciiFileName, DialogCancelled.
class AscOutput : public DesignDialog {
public:
    AscOutput();

private:
    void Form_Load();
    void AscGrid_Click();
    void OK_Click();
    bool NamesAreComplete() const;
    bool ReplacementsAllowed() const;
    bool NamesDiffer() const;
    void ShowName(std::size_t row);

    std::vector<std::string> inputs; ///< of each row: " Grid", or the name of a map file
    std::vector<std::string> names;  ///< of each row: the file to write, empty when none was chosen
};

} // namespace quelmont
