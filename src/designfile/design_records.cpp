#include "designfile/design_records.h"

#include "core/angle_text.h"
#include "core/number_text.h"
#include "core/print_units.h"
#include "core/run_time_error.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quelmont {

namespace {

using File = DesignFile;

constexpr double Int16Most = 32767.0;
/// Twips beyond which a window is no window, and units beyond which a page is no page.
constexpr double LargestPlace = 1.0e6;
constexpr double LargestColour = SolidColorFlag | ColorMask;
constexpr double Smallest = std::numeric_limits<double>::min();

Field Within(Place place, double least, double most) { return {std::move(place), least, most}; }
Field FromZero(Place place, double most = Int16Most) { return {std::move(place), 0.0, most}; }
Field ColourAt(ColorValue& place) { return FromZero(&place, LargestColour); }
Field IndexAt(std::int16_t& place) { return FromZero(&place, 255.0); }
Field LatitudeAt(double& place) { return Within(&place, -90.0, 90.0); }
Field LongitudeAt(double& place) { return Within(&place, -180.0, 180.0); }
Field NumberIf(Place place, bool (*accepts)(double)) {
    return {.place = std::move(place), .acceptsNumber = accepts};
}

template <typename Range>
FieldList AllOf(Range& range) {
    FieldList fields;
    for (auto& value : range) {
        fields.push_back({&value});
    }
    return fields;
}

bool IsProjection(double number) { return FindProjection(static_cast<std::int16_t>(number)) != nullptr; }
bool IsInchOrCentimetre(double twips) { return twips == InchTwips || twips == CentimetreTwips; }

bool IsSpacing(std::string_view text) { return ArcSeconds(text) > 0; }

bool IsLobeCount(std::string_view text) {
    const double count = ValueOf(text);
    return count >= 0.0 && count <= 3.0 && count == std::floor(count);
}

// ---- Fields of records that have more to tell than one line.

FieldList WindowPlaceFields(File& f, std::size_t /*index*/) {
    SavedWindow& w = f.window;
    return {{&w.Width}, {&w.Height}, {&w.Left}, {&w.Top}};
}

FieldList PageFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {FromZero(&d.PrintTop, LargestPlace),
            FromZero(&d.PrintLeft, LargestPlace),
            FromZero(&d.PrintWidth, LargestPlace),
            FromZero(&d.PrintHeight, LargestPlace),
            {&d.CenterHorizontal},
            {&d.CenterVertical}};
}

FieldList ReportMarginFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {FromZero(&d.ReportLeft, LargestPlace),
            FromZero(&d.ReportRight, LargestPlace),
            FromZero(&d.ReportTop, LargestPlace),
            FromZero(&d.ReportBottom, LargestPlace),
            NumberIf(&d.PrintUnitTwips, IsInchOrCentimetre),
            Within(&d.PrinterOrientation, 1.0, 2.0)};
}

FieldList ReportFontFields(File& f, std::size_t /*index*/) {
    TextLook& font = f.design.Fonts[ReportFontSlot];
    return {{&font.FontName},     ColourAt(font.FontColour), Within(&font.FontSize, 1.0, Int16Most),
            {&font.FontBold},     {&font.FontItalic},        {&font.FontUnderline},
            {&font.FontStrikeout}};
}

FieldList StyleFields(File& f, std::size_t index) {
    FieldList fields;
    fields.reserve(MaxFeatureRows * std::size_t{5});
    for (std::size_t row = 1; row <= MaxFeatureRows; ++row) {
        FeatureStyle& style = f.design.InputFiles[index].Features[row];
        fields.insert(fields.end(), {{&style.Shown},
                                     ColourAt(style.Color),
                                     FromZero(&style.LineWidth),
                                     FromZero(&style.SymbolSize),
                                     FromZero(&style.BorderWidth)});
    }
    return fields;
}

FieldList LabelFields(File& f, std::size_t index) {
    InputFileEntry& entry = f.design.InputFiles[index];
    return {{&entry.LabelFontName}, FromZero(&entry.LabelFontSize), ColourAt(entry.LabelColor),
            {&entry.LabelBold},     {&entry.LabelItalic},           {&entry.LabelUnderline},
            {&entry.LabelStrikeout}};
}

FieldList FileNameFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {{&d.BmpFileName}, {&d.CgmFileName}, {&d.DxfFileName}, {ShownText{}},
            {&d.WmfFileName}, {&d.CnfFileName}, {&d.GcFileName},  {&d.ScFileName}};
}

FieldList GridTextFields(File& f, std::size_t /*index*/) {
    FieldList fields = AllOf(f.design.GridText);
    fields[GridTextLatSpacing].acceptsText = IsSpacing;
    fields[GridTextLonSpacing].acceptsText = IsSpacing;
    return fields;
}

FieldList LobeTextFields(File& f, std::size_t /*index*/) {
    FieldList fields = AllOf(f.design.LobeText);
    fields[LobeTextCountNorth].acceptsText = IsLobeCount;
    fields[LobeTextCountSouth].acceptsText = IsLobeCount;
    return fields;
}

/// Entry 0 belongs to no lobe.
FieldList LobeCentralFields(File& f, std::size_t /*index*/) {
    FieldList fields = AllOf(f.design.LobeCentral);
    fields.erase(fields.begin());
    return fields;
}

FieldList SpacingTextFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {{&d.LatGridText},
            {&d.LonGridText},
            {ShownText{CompactArc(d.GridText[GridTextRange])}},
            {ShownText{d.GridText[GridTextHeight]}}};
}

FieldList SpheroidFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {{&d.SpheroidA},     {&d.UtmK0},           {&d.SpheroidE2},       {&d.SpheroidEp2},
            {&d.UtmM0},         {&d.UtmMeridianC0},   {&d.UtmMeridianC1},    {&d.UtmMeridianC2},
            {&d.UtmMeridianC3}, {&d.UtmFalseEasting}, {&d.UtmFalseNorthing}, {&d.SpheroidF}};
}

FieldList GreatCircleFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {LatitudeAt(d.GcStartLat), LongitudeAt(d.GcStartLon),
            LatitudeAt(d.GcEndLat),   LongitudeAt(d.GcEndLon),
            {&d.GcDefined},           ColourAt(d.GcColor),
            IndexAt(d.GcColorIndex),  FromZero(WholeTwips{&d.GcLineWidth})};
}

FieldList SmallCircleFields(File& f, std::size_t /*index*/) {
    MapDesign& d = f.design;
    return {LatitudeAt(d.ScCenterLat),
            LongitudeAt(d.ScCenterLon),
            FromZero(&d.ScRadiusDeg, 180.0),
            {&d.ScDefined},
            ColourAt(d.ScColor),
            IndexAt(d.ScColorIndex),
            FromZero(WholeTwips{&d.ScLineWidth}),
            Within(&d.ScSymbolCount, 1.0, 80.0)};
}

TextItem& Text(File& f, std::size_t index) { return f.design.TextItems[index]; }

FieldList TextStyleFields(File& f, std::size_t i) {
    TextItem& text = Text(f, i);
    return {{&text.TextBold}, {&text.TextItalic}, {&text.TextUnderline}, {&text.TextStrikeout}};
}

constexpr Repeat Once = Repeat::Once;
constexpr Repeat PerMapFile = Repeat::PerMapFile;
constexpr Repeat PerTextItem = Repeat::PerTextItem;

// clang-format off
constexpr std::array Table = std::to_array<Record>({
    { 2, LineKind::Text,      Once, [](File& f, std::size_t) { return FieldList{{&f.design.ProjName}}; }},
    { 3, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{NumberIf(&f.design.ProjNum, IsProjection)}; }},
    { 4, LineKind::Quoted,    Once, [](File& f, std::size_t) { return FieldList{{&f.design.GridTypeText}}; }},
    { 5, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{Within(&f.design.GridTypeCode, 1.0, 5.0)}; }},
    { 6, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{FromZero(WholeTwips{&f.design.GridLineWidth})}; }},
    { 7, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{{&f.design.LineWidthsScaled}}; }},
    { 8, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{{&f.window.ScreenPixelsX}, {&f.window.ScreenPixelsY}}; }},
    { 9, LineKind::Spaced,    Once, [](File& f, std::size_t) { return FieldList{Within(&f.window.TwipsPerPixelX, 0.01, 1440.0), Within(&f.window.TwipsPerPixelY, 0.01, 1440.0)}; }},
    {10, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{{&f.window.WindowState}}; }},
    {11, LineKind::Spaced,    Once, WindowPlaceFields},
    {12, LineKind::Spaced,    Once, [](File& f, std::size_t) { return FieldList{Within(&f.window.AreaWidth, 1.0, LargestPlace), Within(&f.window.AreaHeight, 1.0, LargestPlace)}; }},
    {13, LineKind::Spaced,    Once, [](File& f, std::size_t) { return FieldList{Within(&f.design.MapReduce, Smallest, 1.0)}; }},
    {14, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{ColourAt(f.design.BackColor), IndexAt(f.design.BackColorIndex), ColourAt(f.design.GridColor), IndexAt(f.design.GridColorIndex)}; }},
    {15, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{{&f.design.LabelsVisible}}; }},
    {16, LineKind::Spaced,    Once, PageFields},
    {17, LineKind::Spaced,    Once, ReportMarginFields},
    {18, LineKind::RightList, Once, ReportFontFields},
    {19, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.ConeConstant}, {&d.ConicC}, {&d.ConicF}, {&d.ConicG}, {&d.ConicRho0}}; }},
    {20, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{Within(&f.design.GridOutputCount, 0.0, 2.0), FromZero(&f.MapFileCount)}; }},
    {21, LineKind::RightList, PerMapFile, [](File& f, std::size_t i) { InputFileEntry& e = f.design.InputFiles[i]; return FieldList{{&e.MapFileName}, Within(&e.MapFileType, 1.0, SymbolTypes)}; }},
    {22, LineKind::Styles,    PerMapFile, StyleFields},
    {23, LineKind::RightList, PerMapFile, LabelFields},
    {24, LineKind::Text,      Once, [](File& f, std::size_t) { return AllOf(f.design.AsciiFileName); }},
    {25, LineKind::LeftList,  Once, FileNameFields},
    {26, LineKind::Text,      Once, GridTextFields},
    {27, LineKind::Text,      Once, [](File& f, std::size_t) { return AllOf(f.design.StdParText); }},
    {28, LineKind::Text,      Once, LobeTextFields},
    {29, LineKind::Spaced,    Once, LobeCentralFields},
    {30, LineKind::LeftList,  Once, [](File& f, std::size_t) { return AllOf(f.design.LobeLonText); }},
    {31, LineKind::LeftList,  Once, [](File& f, std::size_t) { return FieldList{{&f.design.LatNorthText}, {&f.design.LatSouthText}}; }},
    {32, LineKind::LeftList,  Once, [](File& f, std::size_t) { return FieldList{{&f.design.StdParNorthText}, {&f.design.StdParSouthText}}; }},
    {33, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.StdParNorth}, {&d.StdParSouth}, {&d.CosStdPar}}; }},
    {34, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.LatNorth}, {&d.LatSouth}, {&d.LatGrid}, {&d.LatGridCount}}; }},
    {35, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.LonSpan}, {&d.LonZero}, {&d.LonGrid}, {&d.LonGridCount}}; }},
    {36, LineKind::LeftList,  Once, [](File& f, std::size_t) { return FieldList{{&f.design.LatCentralText}, {&f.design.LonCentralText}}; }},
    {37, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{LatitudeAt(d.LatCentral), Within(&d.LonMiddle, -360.0, 360.0), Within(&d.LonCentral, -360.0, 360.0)}; }},
    {38, LineKind::Spaced,    Once, [](File& f, std::size_t) { return FieldList{{&f.design.LonEast}, {&f.design.LonWest}}; }},
    {39, LineKind::LeftList,  Once, SpacingTextFields},
    {40, LineKind::Numbers,   Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.LatNorthSec}, {&d.LatSouthSec}, {&d.LatGridSec}}; }},
    {41, LineKind::Numbers,   Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.LonSpanSec}, {&d.LonZeroSec}, {&d.LonGridSec}}; }},
    {42, LineKind::Numbers,   Once, [](File& f, std::size_t) { return FieldList{{&f.design.LonEastSec}, {&f.design.LonWestSec}}; }},
    {43, LineKind::Spaced,    Once, [](File& f, std::size_t) { return FieldList{FromZero(&f.design.RangeSec, SecPerHalfCircle), {&f.design.VpP}}; }},
    {44, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.MapXMax}, {&d.MapXMin}, {&d.MapYMax}, {&d.MapYMin}}; }},
    {45, LineKind::Spaced,    Once, [](File& f, std::size_t) { MapDesign& d = f.design; return FieldList{{&d.ScreenOriginX}, {&d.ScreenScaleX}, {&d.ScreenOriginY}, {&d.ScreenScaleY}}; }},
    {46, LineKind::Text,      Once, [](File& f, std::size_t) { return FieldList{{&f.design.SpheroidName}}; }},
    {47, LineKind::Spaced,    Once, SpheroidFields},
    {48, LineKind::Text,      Once, [](File& f, std::size_t) { return AllOf(f.design.UtmText); }},
    {49, LineKind::Text,      Once, [](File& f, std::size_t) { return AllOf(f.design.GcText); }},
    {50, LineKind::Spaced,    Once, GreatCircleFields},
    {51, LineKind::Text,      Once, [](File& f, std::size_t) { return AllOf(f.design.ScText); }},
    {52, LineKind::Spaced,    Once, SmallCircleFields},
    {53, LineKind::Zones,     Once, [](File& f, std::size_t) { return FieldList{Within(&f.design.TextScalePercent, 1.0, 1000.0), FromZero(&f.TextCount, std::numeric_limits<std::int32_t>::max())}; }},
    {54, LineKind::Quoted,    PerTextItem, [](File& f, std::size_t i) { return FieldList{{&Text(f, i).TextString}}; }},
    {55, LineKind::Numbers,   PerTextItem, [](File& f, std::size_t i) { TextItem& t = Text(f, i); return FieldList{Within(&t.TextAngle, 0.0, 359.0), ColourAt(t.TextColour), FromZero(&t.TextSize)}; }},
    {56, LineKind::Text,      PerTextItem, [](File& f, std::size_t i) { return FieldList{{&Text(f, i).TextFont}}; }},
    {57, LineKind::Numbers,   PerTextItem, TextStyleFields},
    {58, LineKind::Numbers,   PerTextItem, [](File& f, std::size_t i) { TextItem& t = Text(f, i); return FieldList{FromZero(&t.TextWidth), FromZero(&t.TextHeight)}; }},
    {59, LineKind::Numbers,   PerTextItem, [](File& f, std::size_t i) { TextItem& t = Text(f, i); return FieldList{{&t.TextX}, {&t.TextDescent}, {&t.TextY}}; }},
    {60, LineKind::Numbers,   PerTextItem, [](File& f, std::size_t i) { return FieldList{{&Text(f, i).TextCellHeight}}; }},
});
// clang-format on

// ---- Versions 2.00 to 2.99.

FieldList OlderColourFields(File& f, std::size_t /*index*/) {
    return {ColourAt(f.design.BackColor), ColourAt(f.design.GridColor)};
}

/// Three measures of a page that has other margins now.
FieldList OlderMarginFields(File& /*f*/, std::size_t /*index*/) {
    return {{ShownText{}}, {ShownText{}}, {ShownText{}}};
}

FieldList OlderFileNameFields(File& f, std::size_t index) {
    FieldList fields = FileNameFields(f, index);
    fields.pop_back();
    return fields;
}

FieldList OlderGreatCircleFields(File& f, std::size_t index) {
    FieldList fields = GreatCircleFields(f, index);
    fields.erase(fields.end() - 2);
    return fields;
}

constexpr std::array OlderTable = std::to_array<Record>({
    {14, LineKind::Numbers, Once, OlderColourFields},
    {17, LineKind::Spaced, Once, OlderMarginFields},
    {25, LineKind::LeftList, Once, OlderFileNameFields},
    {50, LineKind::Spaced, Once, OlderGreatCircleFields},
});

constexpr std::array OlderOrder =
    std::to_array({2,  3,  4,  5,  9,  12, 8,  13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23,
                   24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36, 37, 38, 39, 40, 41,
                   42, 43, 44, 45, 46, 47, 48, 49, 50, 53, 54, 55, 56, 57, 58, 59, 60});
/// The last version without the height of a text's cell.
constexpr int NoCellHeight = 203;
constexpr int RecordCellHeight = 60;

template <typename Records>
const Record* Find(const Records& records, int number) {
    const auto found = std::find_if(records.begin(), records.end(),
                                    [&](const Record& record) { return record.number == number; });
    return found == records.end() ? nullptr : &*found;
}

} // namespace

std::span<const Record> DesignRecords() { return Table; }

std::vector<Record> OlderDesignRecords(int version) {
    std::vector<Record> records;
    for (const int number : OlderOrder) {
        if (number != RecordCellHeight || version > NoCellHeight) {
            const Record* record = Find(OlderTable, number);
            if (record == nullptr) {
                record = Find(Table, number);
            }
            if (record != nullptr) {
                records.push_back(*record);
            }
        }
    }
    return records;
}

} // namespace quelmont
