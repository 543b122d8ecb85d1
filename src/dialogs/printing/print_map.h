#pragma once

#include "dialogs/printing/page_dialog.h"
#include "platform/printers.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quelmont {

/// "Print Map on ...": how the paper lies, the size of the map and its margins, in inches or centimetres.
/// Width and height follow each other in the proportions of the window; the margins of a map in the middle of
/// the paper follow its size and cannot be typed. OK accepts what fits on the paper (page_checks.h); a
/// refusal leaves the dialog open.
///
/// A length that the program wrote into a field counts as it is, not as it is shown with two decimals.
///
/// Reads   the window's drawing area.
/// Writes  PrintLeft, PrintTop, PrintWidth, PrintHeight, CenterHorizontal, CenterVertical,
///         PrinterOrientation; PrintUnitTwips, and the margins of reports in it; DialogCancelled. Cancel
///         gives all of them back.
class PrintMap : public PageDialog {
public:
    /// The printer outlives the dialog.
    explicit PrintMap(const Printer& printer_);

protected:
    /// A list of papers, the control PaperList. It waits for TakePrinter.
    PrintMap(std::string_view printerName, std::vector<std::string> papers, std::size_t paper);

    /// Takes the measures of a printer, or of none that would hold a map; margins follow.
    void TakePrinter(const Printer* newPrinter);

private:
    /// A field for a length of the design.
    struct LengthField {
        const char* name;
        float* length;
        std::string written = {}; ///< by the program
        float exact = 0.0F;       ///< what that stands for
    };
    /// A check that centres the map one way, and what the box says where the map is too large for it.
    struct CenterCheck {
        const char* name;
        bool (*canCenter)();
        bool* centered;     ///< of the design
        const char* margin; ///< the field that is worked out then
        const char* title;
        const char* why;
        const char* remedy;
    };
    PrintMap(const Printer* printer_, std::string_view printerName);
    void AddControls();
    void Form_Load();
    void AddLengths();
    void Show(LengthField& field);
    void ShowLengths();
    void ShowUnit();
    /// What a field says.
    float Length(const LengthField& field) const;

    void LeftMap_Change();
    void TopMap_Change();
    void WidthMap_Change();
    void HeightMap_Change();
    /// The margins of a centred map after its size.
    void FollowSize();
    void Center(const CenterCheck& check);
    void HorizontalMap_Click();
    void VerticalMap_Click();
    void TakeUnit(std::int32_t twips) override;
    void TakeOrientation(std::int16_t orientation) override;
    void OK_Click();

    const Printer* printer;
    LengthField left, top, width, height;
};

/// "Print Map on PDF": the same for a page in a file, with a list of papers. The paper that was accepted last
/// is proposed the next time.
///
/// Writes  PdfPaper of DialogsNow as well.
class PrintMapOnPdf : public PrintMap {
public:
    PrintMapOnPdf();

private:
    void PaperList_Click();
    void Cancel_Click() override;

    std::size_t paperBefore;
    std::unique_ptr<Printer> page; ///< of the paper chosen
};

} // namespace quelmont
