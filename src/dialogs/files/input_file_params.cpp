#include "dialogs/files/input_file_params.h"

#include "core/color_table.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "dialogs/dialogs_state.h"
#include "dialogs/files/label_font.h"
#include "dialogs/files/symbol_size_spin.h"
#include "dialogs/look/colors256.h"
#include "mapfiles/feature_rows.h"
#include "mapfiles/map_formats.h"
#include "platform/machine.h"

#include <array>

namespace quelmont {

namespace {

// Columns of GeoFeatures.
constexpr std::size_t SizeColumn = 0;
constexpr std::size_t ColorColumn = 1;
constexpr std::size_t BorderColumn = 2;
constexpr std::size_t NameColumn = 3;
constexpr std::size_t Columns = 4;

constexpr ColorValue ShownText = StandardColors[0];
constexpr ColorValue HiddenText = StandardColors[7];

constexpr const char* LineHeading = "Line Width";
constexpr const char* SymbolHeading = "Symbol Radius";
constexpr const char* SizePicture = "0000";

// clang-format off
constexpr std::array<const char*, SymbolTypes> SymbolNames = {
    "Line",            //  1
    "Dot",             //  2
    "Plus",            //  3
    "Diagonal cross",  //  4
    "Open square",     //  5
    "Filled square",   //  6
    "Open diamond",    //  7
    "Filled diamond",  //  8
    "Open triangle",   //  9
    "Filled triangle", // 10
    "Open circle",     // 11
    "Filled circle",   // 12
};
// clang-format on

std::int16_t CellTwips(const GridCell& cell) { return TwipsOf(ValueOf(cell.text)); }

} // namespace

InputFileParams::InputFileParams(std::string_view name, InputFileEntry& entry_, MapFileMode mode_)
    : DesignDialog("InputFileParams", "Digital Map File Plot Parameters"), fileName(name), entry(entry_),
      mode(mode_), symbolType(entry_.MapFileType) {
    Design.DialogCancelled = true;
    if (symbolType < SymbolLine || symbolType > SymbolTypes) {
        symbolType = SymbolLine;
    }
    Add({.name = "MapFile", .kind = ControlKind::Label, .text = fileName, .caption = "Map File: "});
    AddSymbolTypes();
    AddFeatures();
    AddOkAndCancel([this] { OK_Click(); });
}

void InputFileParams::AddSymbolTypes() {
    std::vector<GridCell> cells;
    cells.reserve(SymbolNames.size());
    for (const char* const name : SymbolNames) {
        cells.push_back({.text = name, .picture = static_cast<int>(cells.size()) + 1});
    }
    Add({.name = "SymbolType1",
         .kind = ControlKind::Grid,
         .caption = "Symbol &Type",
         .value = symbolType - 1,
         .items = {"Symbol Type"},
         .columns = 1,
         .cells = std::move(cells)});
    // A press and the arrow keys choose.
    On("SymbolType1", ControlEvent::Change, [this] { SymbolType1_Click(); });
    On("SymbolType1", ControlEvent::Click, [this] { SymbolType1_Click(); });
}

void InputFileParams::AddFeatures() {
    Add({.name = "GeoFeatures",
         .kind = ControlKind::Grid,
         .caption = "&Geographic Features",
         .value = static_cast<int>(NameColumn),
         .items = {LineHeading, "Color", "Border", "Geographic Feature"},
         .columns = static_cast<int>(Columns),
         .cells = std::vector<GridCell>(FeatureRows(fileName).size() * Columns)});
    for (std::size_t row = 0; row < Rows(); ++row) {
        const FeatureStyle& style = entry.Features[row + 1];
        ShowColor(row, style.Color);
        ShowName(row, style.Shown);
    }
    ShowSizes();
    On("GeoFeatures", ControlEvent::Click, [this] { GeoFeatures_Click(); });
    Add({.name = "ShowAll", .kind = ControlKind::Button, .text = "&Show all"});
    Add({.name = "HideAll", .kind = ControlKind::Button, .text = "&Hide all"});
    On("ShowAll", ControlEvent::Click, [this] { ShowEveryRow(true); });
    On("HideAll", ControlEvent::Click, [this] { ShowEveryRow(false); });
}

std::size_t InputFileParams::Rows() const { return At("GeoFeatures").cells.size() / Columns; }

GridCell& InputFileParams::Cell(std::size_t row, std::size_t column) {
    return Edit("GeoFeatures").cells[row * Columns + column];
}

void InputFileParams::ShowColor(std::size_t row, ColorValue color) {
    Cell(row, ColorColumn).color = ColorBits(color);
    Cell(row, ColorColumn).words = ColorInWords(color);
}

void InputFileParams::ShowName(std::size_t row, bool shown) {
    GridCell& cell = Cell(row, NameColumn);
    cell.text = FeatureRows(fileName)[row].name;
    cell.textColor = shown ? ShownText : HiddenText;
    cell.checked = shown;
    cell.words = cell.text + (shown ? ", shown" : ", not shown");
}

bool InputFileParams::IsShown(std::size_t row) const {
    return *At("GeoFeatures").cells[row * Columns + NameColumn].checked;
}

std::string InputFileParams::SizeText(std::int16_t twips, double proposedPixels) const {
    const bool stored = mode == MapFileMode::Edit && twips != 0;
    return FormatNumber(stored ? twips / static_cast<double>(Design.TwipsPerPixelY) : proposedPixels,
                        SizePicture);
}

void InputFileParams::SymbolType1_Click() {
    const auto chosen = static_cast<std::int16_t>(At("SymbolType1").value + 1);
    if (chosen != symbolType) {
        symbolType = chosen;
        ShowSizes();
    }
}

void InputFileParams::ShowSizes() {
    const bool line = symbolType == SymbolLine;
    Edit("GeoFeatures").items[SizeColumn] = line ? LineHeading : SymbolHeading;
    for (std::size_t row = 0; row < Rows(); ++row) {
        const FeatureStyle& style = entry.Features[row + 1];
        Cell(row, SizeColumn).text =
            line ? SizeText(style.LineWidth, LinePixels) : SizeText(style.SymbolSize, SymbolPixels);
        Cell(row, BorderColumn).text =
            HasBorder(symbolType) ? SizeText(style.BorderWidth, BorderPixels) : std::string();
    }
}

void InputFileParams::GeoFeatures_Click() {
    const auto cell = static_cast<std::size_t>(At("GeoFeatures").value);
    const std::size_t row = cell / Columns;
    const std::size_t column = cell % Columns;
    if (column == NameColumn) {
        ShowName(row, !IsShown(row));
    } else if (column == ColorColumn) {
        ColorPicBox_Click(row);
    } else if (!Cell(row, column).text.empty()) {
        EditSize(row, column);
    }
}

void InputFileParams::ShowEveryRow(bool shown) {
    SetFocus("GeoFeatures");
    for (std::size_t row = 0; row < Rows(); ++row) {
        ShowName(row, shown);
    }
}

void InputFileParams::ColorPicBox_Click(std::size_t row) {
    Design.ColorPurpose = PurposeFeature;
    DialogsNow.FeatureColor = SolidColor(*Cell(row, ColorColumn).color);
    Colors256 picker;
    Machine().forms->Show(picker);
    if (!Design.DialogCancelled) {
        ShowColor(row, DialogsNow.FeatureColor);
    }
}

void InputFileParams::EditSize(std::size_t row, std::size_t column) {
    const SymbolSizeKind kind = column == BorderColumn     ? SymbolSizeKind::BorderWidth
                                : symbolType == SymbolLine ? SymbolSizeKind::LineWidth
                                                           : SymbolSizeKind::SymbolRadius;
    SymbolSizeSpin spin(kind, ValueOf(Cell(row, column).text));
    Machine().forms->Show(spin);
    if (!Design.DialogCancelled) {
        Cell(row, column).text = FormatNumber(spin.Pixels(), SizePicture);
    }
}

void InputFileParams::OK_Click() {
    InputFileEntry accepted = entry;
    Store(accepted);
    if (MapFormatOf(fileName).labels) {
        ChooseLabelFont(accepted);
    }
    entry = std::move(accepted);
    CloseAccepted();
}

void InputFileParams::Store(InputFileEntry& target) {
    for (FeatureStyle& style : target.Features) {
        style.Shown = false;
    }
    for (std::size_t row = 0; row < Rows(); ++row) {
        FeatureStyle& style = target.Features[row + 1];
        style.Shown = IsShown(row);
        style.Color = SolidColor(*Cell(row, ColorColumn).color);
        (symbolType == SymbolLine ? style.LineWidth : style.SymbolSize) = CellTwips(Cell(row, SizeColumn));
        if (HasBorder(symbolType)) {
            style.BorderWidth = CellTwips(Cell(row, BorderColumn));
        }
    }
    target.MapFileType = symbolType;
}

} // namespace quelmont
