#include "commandline/page_options.h"

#include "commandline/option_values.h"
#include "core/file_names.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "dialogs/printing/page_checks.h"
#include "output/print/page_layout.h"
#include "output/print/papers.h"
#include "output/print/printer_params.h"
#include "platform/machine.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <array>

namespace quelmont {

namespace {

constexpr double TwipsPerInch = 1440.0;

struct Unit {
    std::string_view name;
    double perInch;
};
constexpr std::array Units = std::to_array<Unit>({
    {"in", 1.0},
    {"cm", CentimetresPerInch},
    {"mm", MillimetresPerInch},
});

/// A number of plain digits and perhaps a point.
std::optional<double> PlainValue(std::string_view text) {
    constexpr std::size_t mostCharacters = 16;
    const bool plain = text.find_first_not_of("0123456789.") == std::string_view::npos &&
                       text.find_first_of("0123456789") != std::string_view::npos &&
                       std::count(text.begin(), text.end(), '.') <= 1 && text.size() <= mostCharacters;
    return plain ? std::optional(ValueOf(text)) : std::nullopt;
}

/// What a unit stands behind, and how many of that unit an inch has.
std::optional<std::pair<std::string_view, double>> WithoutUnit(std::string_view text) {
    for (const Unit& unit : Units) {
        if (text.ends_with(unit.name)) {
            text.remove_suffix(unit.name.size());
            return std::pair(text, unit.perInch);
        }
    }
    return std::nullopt;
}

std::string NamesOfPapers() {
    std::string names;
    for (const Paper& paper : Papers) {
        names += std::string(paper.name) + ", ";
    }
    return names;
}

bool Refuse(const std::string& title, const std::string& text) {
    Machine().boxes->Ask(title, text, BoxButtons::Ok, BoxIcon::Exclamation);
    return false;
}

/// A margin that was asked for is tested, not made to fit.
void FindMargins(const PageOptions& page) {
    if (!page.left) {
        CalcPrnLeft();
    }
    if (!page.top) {
        CalcPrnTop();
    }
}

/// Whether the map has room on the paper in the width that it has. The margins stay as they are.
bool StandsOnPaper(const PageOptions& page) {
    const float left = Design.PrintLeft;
    const float top = Design.PrintTop;
    SetPrintWidth(Design.PrintWidth);
    FindMargins(page);
    const bool stands = !CheckPage();
    Design.PrintLeft = left;
    Design.PrintTop = top;
    return stands;
}

/// Size and margins of the map, in the unit of the design.
bool PlaceMap(const PageOptions& page, bool ofDesign) {
    const double unit = TwipsPerInch / Design.PrintUnitTwips;
    const auto take = [unit](const std::optional<double>& inches, float& length) {
        length = inches ? static_cast<float>(*inches * unit) : length;
    };
    take(page.left, Design.PrintLeft);
    take(page.top, Design.PrintTop);
    Design.CenterHorizontal = Design.CenterHorizontal && !page.left;
    Design.CenterVertical = Design.CenterVertical && !page.top;
    // A margin of a map in the middle was worked out for another paper.
    const auto usual = static_cast<float>(unit);
    Design.PrintLeft = Design.CenterHorizontal ? usual : Design.PrintLeft;
    Design.PrintTop = Design.CenterVertical ? usual : Design.PrintTop;
    if (page.mapWidth) {
        SetPrintWidth(static_cast<float>(*page.mapWidth * unit));
    } else if (!(ofDesign && StandsOnPaper(page)) && !FitPrintToPaper()) {
        return Refuse("Error: Margins too large", "The margins leave no room for the map on this paper.");
    }
    FindMargins(page);
    const std::optional<PageRefusal> refusal = CheckPage();
    return !refusal || Refuse(refusal->title, refusal->text);
}

} // namespace

double LengthValue(std::string_view value) {
    const auto number = WithoutUnit(value);
    const std::optional<double> length = number ? PlainValue(number->first) : std::nullopt;
    if (!length) {
        throw BadValue("\"" + std::string(value) + "\" is no length such as 6.5in, 16.5cm or 165mm");
    }
    return *length / number->second;
}

PaperSize PaperValue(std::string_view value) {
    const std::string wanted = Capitals(value);
    for (const Paper& paper : Papers) {
        if (Capitals(paper.name) == wanted) {
            return {paper.width, paper.height};
        }
    }
    if (const auto sides = WithoutUnit(value)) {
        const std::size_t cross = std::min(sides->first.find('x'), sides->first.size());
        const std::optional<double> width = PlainValue(sides->first.substr(0, cross));
        const std::optional<double> height =
            PlainValue(sides->first.substr(std::min(cross + 1, sides->first.size())));
        const PaperSize size{width.value_or(0.0) / sides->second, height.value_or(0.0) / sides->second};
        if (CanBePageSide(size.width) && CanBePageSide(size.height)) {
            return size;
        }
    }
    throw BadValue("\"" + std::string(value) + "\" is no paper: " + NamesOfPapers() +
                   "or sides of up to 200 inches such as 210x297mm, 8.5x11in");
}

void AddPageOptions(CLI::App& app, const std::string& group, const AddOption& add, PageOptions& page) {
    add("--paper", "NAME|WxH",
        "A5 to A0, Letter, Legal, Tabloid, or its sides such as\n210x297mm, 11x8.5in, which lies on its long "
        "side (A4)",
        [&page](const std::string& value) { page.paper = PaperValue(value); });
    app.add_flag("--landscape", page.landscape, "The paper lies on its long side")
        ->disable_flag_override()
        ->group(group);
    add("--map-width", "W",
        "Width of the map, 6.5in or 16.5cm; its height follows\n(that of the design, or what the margins "
        "leave)",
        [&page](const std::string& value) {
            page.mapWidth = LengthValue(value);
            if (!(*page.mapWidth > 0.0)) {
                throw BadValue("\"" + value + "\" is no width of a map");
            }
        });
    add("--left", "M", "Its distance from the left edge (in the middle)",
        [&page](const std::string& value) { page.left = LengthValue(value); });
    add("--top", "M", "Its distance from the top edge (in the middle)",
        [&page](const std::string& value) { page.top = LengthValue(value); });
}

std::unique_ptr<Printer> LayOutPage(const PageOptions& page, const std::string& output, bool ofDesign) {
    const Paper& usual = *PaperOf(DefaultPaper);
    const PaperSize paper = page.paper.value_or(PaperSize{usual.width, usual.height});
    const auto [shorter, longer] = std::minmax(paper.width, paper.height);
    std::unique_ptr<Printer> printer = Machine().printers->Pdf(shorter, longer, output);
    if (page.landscape || paper.width > paper.height) {
        Design.PrinterOrientation = Landscape;
    }
    if (!printer || !GetPrinterParams(*printer) || !PlaceMap(page, ofDesign)) {
        return nullptr;
    }
    return printer;
}

} // namespace quelmont
