#pragma once

#include "commandline/text_options.h"
#include "platform/printers.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// A paper's size, inches; one that is wider than high lies on its long side.
struct PaperSize {
    double width = 0.0, height = 0.0;
    bool operator==(const PaperSize&) const = default;
};

/// The page of a map in a PDF file. Inches.
struct PageOptions {
    std::optional<PaperSize> paper; ///< A4 without one
    bool landscape = false;
    std::optional<double> mapWidth;  ///< otherwise what the margins leave free
    std::optional<double> left, top; ///< margins; without one the map is in the middle

    bool Any() const { return paper || landscape || mapWidth || left || top; }
};

/// A paper by its name in any case, or by its sides: "A4", "210x297mm", "8.5x11in". Throws BadValue.
PaperSize PaperValue(std::string_view value);

/// A length with its unit, "16.5cm", "6.5in", "165mm", 0 and more, as inches. Throws BadValue.
double LengthValue(std::string_view value);

/// Adds the options of a page to the command line.
void AddPageOptions(CLI::App& app, const std::string& group, const AddOption& add, PageOptions& page);

/// Opens a PDF file as a printer and gives the map its place on the paper. Of a recalled design (ofDesign)
/// the orientation, margins and centring hold where no option names them, and the map's width where it has
/// room. What cannot stand on the paper shows the message box of the dialog of printing, and gives nullptr.
///
/// Reads   PrintUnitTwips, the window's drawing area.
/// Writes  PrinterOrientation, PrintLeft, PrintTop, PrintWidth, PrintHeight, CenterHorizontal, CenterVertical
///         and what GetPrinterParams takes.
std::unique_ptr<Printer> LayOutPage(const PageOptions& page, const std::string& output, bool ofDesign);

} // namespace quelmont
