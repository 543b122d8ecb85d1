#include "output/cgm/cgm_writer.h"

#include "core/coordinates.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "output/area_pieces.h"
#include "output/export_file.h"
#include "output/logical_point.h"
#include "output/output_state.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

// clang-format off
// Header words: class, element, length of the parameters.
constexpr std::uint16_t BeginMetafile           = 0x003F;
constexpr std::uint16_t EndMetafile             = 0x0040;
constexpr std::uint16_t BeginPicture            = 0x007F;
constexpr std::uint16_t BeginPictureBody        = 0x0080;
constexpr std::uint16_t EndPicture              = 0x00A0;
constexpr std::uint16_t MetafileVersion         = 0x1022;
constexpr std::uint16_t MetafileDescription     = 0x105F;
constexpr std::uint16_t VdcType                 = 0x1062;
constexpr std::uint16_t IntegerPrecision        = 0x1082;
constexpr std::uint16_t RealPrecision           = 0x10A6;
constexpr std::uint16_t IndexPrecision          = 0x10C2;
constexpr std::uint16_t ColourPrecision         = 0x10E2;
constexpr std::uint16_t ColourValueExtent       = 0x114C;
constexpr std::uint16_t MetafileElementList     = 0x1166;
constexpr std::uint16_t FontList                = 0x11BF;
constexpr std::uint16_t ScalingMode             = 0x2026;
constexpr std::uint16_t ColourSelectionMode     = 0x2042;
constexpr std::uint16_t LineWidthSpecification  = 0x2062;
constexpr std::uint16_t EdgeWidthSpecification  = 0x20A2;
constexpr std::uint16_t VdcExtent               = 0x20C8;
constexpr std::uint16_t BackgroundColour        = 0x20E6;
constexpr std::uint16_t PolylineShort           = 0x4028; ///< two vertices
constexpr std::uint16_t PolylineLong            = 0x403F;
constexpr std::uint16_t TextLong                = 0x409F;
constexpr std::uint16_t PolygonSetLong          = 0x411F;
constexpr std::uint16_t PolygonOfFour           = 0x40F0;
constexpr std::uint16_t PolygonOfThree          = 0x40EC;
constexpr std::uint16_t CircleElement           = 0x4186;
constexpr std::uint16_t LineType                = 0x5042;
constexpr std::uint16_t LineWidth               = 0x5062;
constexpr std::uint16_t LineColour              = 0x5086;
constexpr std::uint16_t TextPrecision           = 0x5162;
constexpr std::uint16_t CharacterExpansion      = 0x5184;
constexpr std::uint16_t CharacterSpacing        = 0x51A4;
constexpr std::uint16_t TextColour              = 0x51C6;
constexpr std::uint16_t CharacterHeight         = 0x51E2;
constexpr std::uint16_t CharacterOrientation    = 0x5208;
constexpr std::uint16_t TextAlignment           = 0x524C;
constexpr std::uint16_t InteriorStyle           = 0x52C2;
constexpr std::uint16_t FillColour              = 0x52E6;
constexpr std::uint16_t EdgeType                = 0x5362;
constexpr std::uint16_t EdgeWidth               = 0x5382;
constexpr std::uint16_t EdgeColour              = 0x53A6;
constexpr std::uint16_t EdgeVisibility          = 0x53C2;
// clang-format on

constexpr int Hollow = 0;
constexpr int Solid = 1;

constexpr const char* ProgramLine = "Map by QUELMONT, 14 Alder Row, Ostwick, ST  00000, USA";

/// Characters that the length byte and the element's one length entry can hold.
constexpr std::size_t LongestString = 254;
/// In a TEXT element, whose length counts six bytes more.
constexpr std::size_t LongestText = 248;

void Write(const CgmWords& elements) { WriteExport(elements.Bytes()); }

CgmWords ColourElement(std::uint16_t header, ColorValue color) { return CgmWords(header, {}).Color(color); }

} // namespace

// ---- The file

void CgmWriter::Header() {
    if (!Guarded("CgmHeader", [this] { CgmHeader(); })) {
        Design.PlotStopReason = StopReason::GridDiskError;
    }
}

void CgmWriter::CgmHeader() {
    Design.OutputFileName = Design.CgmFileName;
    Design.SymbolRadiusFile = 2;
    BeginExport(Design.CgmFileName);
    WriteHeaderElements();
    CloseExport();
}

void CgmWriter::WriteHeaderElements() {
    const auto element = [](std::uint16_t header, std::initializer_list<int> parameters) {
        CgmShort({header, parameters});
    };
    CgmString(BeginMetafile, ProgramLine);
    element(MetafileVersion, {1});
    CgmString(MetafileDescription, "QUELMONT version " + Design.VersionText + " CGM metafile");
    element(VdcType, {0});
    element(IntegerPrecision, {16});
    element(RealPrecision, {1, 16, 16});
    element(IndexPrecision, {16});
    element(ColourPrecision, {16});
    element(ColourValueExtent, {0, 0, 0, 255, 255, 255});
    element(MetafileElementList, {1, -1, 1});
    CgmString(FontList, Design.Fonts[CgmFontSlot].FontName);
    CgmString(BeginPicture, "PICTURE 1 OF 1");
    element(ScalingMode, {0, 0, 0});
    element(ColourSelectionMode, {1});
    element(LineWidthSpecification, {0});
    element(EdgeWidthSpecification, {0});
    element(VdcExtent,
            {-Design.LogicalMarginX, -Design.LogicalMarginY, Design.LogicalWidth + Design.LogicalMarginX,
             Design.LogicalHeight + Design.LogicalMarginY});
    CgmShort(ColourElement(BackgroundColour, Design.BackColor));
    element(BeginPictureBody, {});
    Interior(Solid);
    element(EdgeType, {1});
    element(EdgeWidth, {1});
    element(EdgeVisibility, {1});
    Design.PenColor = Design.GridColor;
    element(LineType, {1});
    element(LineWidth, {1});
}

void CgmWriter::OpenStretch(std::size_t /*slot*/) { ResumeExport(Design.CgmFileName); }

void CgmWriter::StartStretch() {
    GuardedWriting("CgmStartNewBoundaryFile", [this] { CgmStartNewBoundaryFile(); });
}

void CgmWriter::StartCircles(ColorValue color) {
    StartStretch();
    CgmLineColor(color);
}

void CgmWriter::CgmStartNewBoundaryFile() {
    if (Design.CurrentSymbolType == SymbolDot || IsFilledShape(Design.CurrentSymbolType)) {
        Interior(Solid);
    } else if (IsOpenShape(Design.CurrentSymbolType)) {
        Interior(Hollow);
    }
}

void CgmWriter::Interior(int style) {
    CgmShort({InteriorStyle, {style}});
    interior = style;
}

void CgmWriter::CgmLineColor(ColorValue color) {
    GuardedWriting("CgmLineColor", [&] { CgmShort(ColourElement(LineColour, color)); });
}

void CgmWriter::Finish() {
    Guarded("CgmEnd", [this] {
        ResumeExport(Design.CgmFileName);
        Design.CurrentSymbolType = SymbolText;
        for (std::size_t item = 0; item < Design.TextItems.size(); ++item) {
            GuardedWriting("CgmWrite", [&] { CgmText(item); });
        }
        CgmEnd();
    });
}

void CgmWriter::CgmEnd() {
    CgmShort({EndPicture, {}});
    CgmShort({EndMetafile, {}});
    CloseExport();
    FinishExports();
    ResetLine();
}

void CgmWriter::ResetLine() {
    CgmLengthPos.reset();
    carried.reset();
}

// ---- Elements

void CgmWriter::CgmShort(const CgmWords& elements) {
    GuardedWriting("CgmShort", [&] { Write(elements); });
}

/// An element whose parameters are a string, or a place and a string.
void CgmWriter::CgmString(std::uint16_t header, std::string_view text, const CgmWords* place) {
    GuardedWriting("CgmString", [&] {
        const std::string characters = ToWindows1252(text);
        if (characters.size() > (place != nullptr ? LongestText : LongestString)) {
            throw RunTimeError(ErrorOverflow);
        }
        CgmWords parameters;
        if (place != nullptr) {
            parameters.Append(*place);
        }
        parameters.String(characters);
        CgmWords element;
        element.Bits(header).Bits(static_cast<std::uint16_t>(parameters.Bytes().size()));
        Write(element.Append(parameters).PadToEven());
    });
}

// ---- Lines

std::optional<CgmWords> CgmWriter::CgmVertices(std::initializer_list<Offset> offsets) {
    CgmWords vertices;
    const bool done = GuardedWriting("CgmVertices", [&] {
        const LogicalPoint centre = LogicalPointOfCell();
        const auto place = [](std::int16_t offset, std::int16_t from, std::int32_t most) {
            // The quotient is a single-precision number.
            const auto share = static_cast<double>(static_cast<float>(offset) / 1000.0F);
            return std::clamp<std::int32_t>(RoundToInt16(Design.SymbolRadiusFile * share + from), 0, most);
        };
        for (const Offset& offset : offsets) {
            vertices.Bits(static_cast<std::uint16_t>(place(offset.x, centre.x, Design.LogicalWidth)));
            vertices.Bits(static_cast<std::uint16_t>(place(offset.y, centre.y, Design.LogicalHeight)));
        }
    });
    return done ? std::optional(vertices) : std::nullopt;
}

void CgmWriter::OpenChain() {
    LineStyle(); // a width too large leaves the chain to the next point
    OutputNow.LineBreakPending = false;
    CgmLengthPos = ExportLength() + 2;
    CgmShort({PolylineLong, {1}}); // the length is written over when the chain ends
    Design.PointCount = 0;
    if (carried) {
        WriteVertex(*std::exchange(carried, std::nullopt));
    }
}

void CgmWriter::WriteVertex(const CgmWords& vertex) {
    Write(vertex);
    ++Design.PointCount;
}

void CgmWriter::CgmPoly(const CgmWords& vertex) {
    GuardedWriting("CgmPoly", [&] {
        if (OutputNow.LineBreakPending) {
            OpenChain();
        }
        WriteVertex(vertex);
        if (Design.PointCount == Design.MaxChainPoints) {
            PatchLength();
            OutputNow.LineBreakPending = true;
            carried = vertex;
        }
    });
}

void CgmWriter::PatchLength() {
    if (CgmLengthPos) {
        CgmWords length;
        length.Bits(static_cast<std::uint16_t>(Design.PointCount * 4));
        PatchExport(*std::exchange(CgmLengthPos, std::nullopt), length.Bytes());
    }
}

void CgmWriter::LineBreak() {
    if (Design.CurrentSymbolType == SymbolLine) {
        PatchLength();
        carried.reset();
    }
}

// ---- Areas

void CgmWriter::Area(ColorValue color, const PlaneRings& rings) {
    constexpr std::size_t mostPoints = 5000; // six bytes each, in a length of fifteen bits
    constexpr int hiddenEdge = 0;
    constexpr int hiddenLastEdge = 2;
    if (interior != Solid) {
        Interior(Solid);
    }
    CgmShort(ColourElement(FillColour, color));
    CgmShort({EdgeVisibility, {0}});
    ForEachPiece(rings, mostPoints, [&](const AreaPiece& piece) {
        CgmWords vertices;
        std::size_t next = 0;
        for (const std::int32_t count : piece.counts) {
            for (std::int32_t i = 1; i <= count; ++i, ++next) {
                const LogicalPoint& point = piece.points[next];
                vertices.Word(point.x).Word(point.y).Word(i == count ? hiddenLastEdge : hiddenEdge);
            }
        }
        CgmWords element;
        element.Bits(PolygonSetLong).Bits(static_cast<std::uint16_t>(vertices.Bytes().size()));
        CgmShort(element.Append(vertices));
    });
    CgmShort({EdgeVisibility, {1}});
}

// ---- Symbols

void CgmWriter::Point() {
    GuardedWriting("CgmWrite", [this] { CgmWrite(); });
}

void CgmWriter::LineStyle() {
    const std::int16_t width = RoundToInt16(FileLineWidth());
    CgmShort(ColourElement(LineColour, Design.PenColor));
    CgmShort({LineWidth, {width}});
}

void CgmWriter::EdgeAndFillStyle() {
    if (Design.CurrentSymbolType == SymbolDot && interior != Solid) {
        Interior(Solid); // points of the grid in a lobe behind a map file of open shapes
    }
    CgmShort(ColourElement(EdgeColour, Design.PenColor));
    CgmShort(ColourElement(FillColour, Design.PenColor));
    CgmShort({EdgeWidth, {IsOpenShape(Design.CurrentSymbolType) ? Design.BorderWidthFile : 1}});
}

void CgmWriter::ClosedShape(std::uint16_t header, std::initializer_list<Offset> corners) {
    if (const std::optional<CgmWords> vertices = CgmVertices(corners)) {
        EdgeAndFillStyle();
        CgmShort(CgmWords(header, {}).Append(*vertices));
    }
}

void CgmWriter::TwoStrokes(std::initializer_list<Offset> first, std::initializer_list<Offset> second) {
    CgmWords strokes;
    for (const auto& stroke : {first, second}) {
        const std::optional<CgmWords> vertices = CgmVertices(stroke);
        if (!vertices) {
            return;
        }
        strokes.Bits(PolylineShort).Append(*vertices);
    }
    LineStyle();
    CgmShort(strokes);
}

void CgmWriter::Circle() {
    if (const std::optional<CgmWords> centre = CgmVertices({{0, 0}})) {
        EdgeAndFillStyle();
        CgmShort(CgmWords(CircleElement, {}).Append(*centre).Word(Design.SymbolRadiusFile));
    }
}

void CgmWriter::CgmWrite() {
    switch (Design.CurrentSymbolType) {
    case SymbolLine:
        if (const std::optional<CgmWords> vertex = CgmVertices({{0, 0}})) {
            CgmPoly(*vertex);
        }
        break;
    case SymbolDot:
    case SymbolOpenSquare:
    case SymbolFilledSquare:
        ClosedShape(PolygonOfFour, {{-1000, -1000}, {-1000, 1000}, {1000, 1000}, {1000, -1000}});
        break;
    case SymbolPlus:
        TwoStrokes({{-1000, 0}, {1000, 0}}, {{0, -1000}, {0, 1000}});
        break;
    case SymbolCross:
        TwoStrokes({{-1000, -1000}, {1000, 1000}}, {{1000, -1000}, {-1000, 1000}});
        break;
    case SymbolOpenDiamond:
    case SymbolFilledDiamond:
        ClosedShape(PolygonOfFour, {{-1000, 0}, {0, 1000}, {1000, 0}, {0, -1000}});
        break;
    case SymbolOpenTriangle:
    case SymbolFilledTriangle:
        ClosedShape(PolygonOfThree, {{-1000, -577}, {1000, -577}, {0, 1155}});
        break;
    case SymbolOpenCircle:
    case SymbolFilledCircle:
        Circle();
        break;
    default:
        break;
    }
}

// ---- Text

void CgmWriter::CgmText(std::size_t item) {
    const TextItem& text = Design.TextItems[item];
    const std::int16_t height = RoundToInt16(FileTextHeight(text));
    CgmShort(ColourElement(TextColour, text.TextColour));
    CgmShort({TextPrecision, {2}});
    CgmShort({CharacterHeight, {height}});
    CgmShort({CharacterExpansion, {1, 0}});
    CgmShort({CharacterSpacing, {0, 0}});
    const auto direction = [&](double (*function)(double), int degrees) {
        return RoundToInt16(10000.0 * function((text.TextAngle + degrees) * DegToRad));
    };
    CgmShort(
        {CharacterOrientation,
         {direction(std::cos, 90), direction(std::sin, 90), direction(std::cos, 0), direction(std::sin, 0)}});
    CgmShort({TextAlignment, {1, 4, 0, 0, 0, 0}});
    const LogicalPoint place = LogicalPointOfText(text);
    constexpr int final = 1;
    CgmWords placed;
    placed.Word(place.x).Word(place.y).Word(final);
    CgmString(TextLong, text.TextString, &placed);
}

} // namespace quelmont
