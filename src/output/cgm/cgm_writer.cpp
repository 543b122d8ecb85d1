#include "output/cgm/cgm_writer.h"

#include "core/coordinates.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "core/text_encoding.h"
#include "output/export_file.h"
#include "output/logical_point.h"

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

/// RunTimeError "Overflow" beyond sixteen bits.
std::uint16_t Word(int value) { return static_cast<std::uint16_t>(RoundToInt16(value)); }

} // namespace

// ---- The file

void CgmWriter::Header() {
    if (!Guarded("CgmHeader", [this] { CgmHeader(); })) {
        Design.PlotStopReason = "GridDiskError";
    }
}

void CgmWriter::CgmHeader() {
    Design.OutputFileName = Design.CgmFileName;
    Design.SymbolRadiusFile = 2;
    BeginExport(Design.CgmFileName);
    CgmWritePos = 1;
    WriteHeaderElements();
    CloseExport();
}

void CgmWriter::WriteHeaderElements() {
    const auto header = [this](std::uint16_t word, const std::string& text) {
        Set(0, word);
        CgmString(text);
    };
    header(BeginMetafile, ProgramLine);
    Element(MetafileVersion, {1});
    header(MetafileDescription, "QUELMONT version " + Design.VersionText + " CGM metafile");
    Element(VdcType, {0});
    Element(IntegerPrecision, {16});
    Element(RealPrecision, {1, 16, 16});
    Element(IndexPrecision, {16});
    Element(ColourPrecision, {16});
    Element(ColourValueExtent, {0, 0, 0, 255, 255, 255});
    Element(MetafileElementList, {1, -1, 1});
    header(FontList, Design.FontNames[1]);
    header(BeginPicture, "PICTURE 1 OF 1");
    Element(ScalingMode, {0, 0, 0});
    Element(ColourSelectionMode, {1});
    Element(LineWidthSpecification, {0});
    Element(EdgeWidthSpecification, {0});
    Element(VdcExtent,
            {-Design.LogicalMarginX, -Design.LogicalMarginY, Design.LogicalWidth + Design.LogicalMarginX,
             Design.LogicalHeight + Design.LogicalMarginY});
    ColourElement(BackgroundColour, Design.BackColor);
    Element(BeginPictureBody, {});
    Interior(Solid);
    Element(EdgeType, {1});
    Element(EdgeWidth, {1});
    Element(EdgeVisibility, {1});
    Design.PenColor = Design.GridColor;
    Element(LineType, {1});
    Element(LineWidth, {1});
}

void CgmWriter::OpenStretch(std::size_t /*slot*/) { ResumeExport(Design.CgmFileName); }

void CgmWriter::StartStretch() {
    GuardedWriting("CgmStartNewBoundaryFile", [this] { CgmStartNewBoundaryFile(); });
}

void CgmWriter::CgmStartNewBoundaryFile() {
    if (Design.CurrentSymbolType == SymbolDot || IsFilledShape(Design.CurrentSymbolType)) {
        Interior(Solid);
    } else if (IsOpenShape(Design.CurrentSymbolType)) {
        Interior(Hollow);
    }
}

void CgmWriter::Interior(int style) {
    Element(InteriorStyle, {style});
    interior = style;
}

void CgmWriter::CgmLineColor(ColorValue color) {
    GuardedWriting("CgmLineColor", [&] { ColourElement(LineColour, color); });
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
    Element(EndPicture, {});
    Element(EndMetafile, {});
    CloseExport();
    FinishExports();
    ResetLine();
    CgmWritePos = 1;
}

void CgmWriter::ResetLine() {
    CgmLengthPos = 0;
    CgmByteCount = 0;
    carried.reset();
}

// ---- Bytes

void CgmWriter::Set(std::size_t entry, std::uint16_t word) {
    CgmBuffer[entry] = word >> 8U;
    CgmBuffer[entry + 1] = word & 0xFFU;
}

void CgmWriter::Element(std::uint16_t header, std::initializer_list<int> parameters) {
    Set(0, header);
    std::size_t entry = 2;
    for (const int parameter : parameters) {
        Set(entry, Word(parameter));
        entry += 2;
    }
    CgmByteCount = static_cast<std::int16_t>(entry);
    CgmShort();
}

void CgmWriter::CgmColors(ColorValue color) {
    const ColorValue bits = ColorBits(color);
    Set(2, static_cast<std::uint16_t>(bits & 0xFFU));
    Set(4, static_cast<std::uint16_t>(bits >> 8U & 0xFFU));
    Set(6, static_cast<std::uint16_t>(bits >> 16U));
}

void CgmWriter::ColourElement(std::uint16_t header, ColorValue color) {
    Set(0, header);
    CgmColors(color);
    CgmByteCount = 8;
    CgmShort();
}

void CgmWriter::Write(std::string_view bytes) {
    WriteExport(bytes);
    CgmWritePos += static_cast<std::int64_t>(bytes.size());
}

void CgmWriter::CgmShort() {
    GuardedWriting("CgmShort", [this] {
        std::array<char, EntryCount> bytes = {};
        const auto count = static_cast<std::size_t>(std::max<std::int16_t>(CgmByteCount, 0));
        std::transform(CgmBuffer.begin(), CgmBuffer.begin() + static_cast<std::ptrdiff_t>(count),
                       bytes.begin(), [](std::uint16_t byte) { return static_cast<char>(byte); });
        CgmByteCount = 0;
        Write({bytes.data(), count});
    });
}

void CgmWriter::CgmString(std::string_view text) {
    GuardedWriting("CgmString", [&] {
        const bool isText = CgmByteCount == -1;
        CgmByteCount = 0;
        const std::string characters = ToWindows1252(text);
        if (characters.size() > (isText ? LongestText : LongestString)) {
            throw RunTimeError(ErrorOverflow);
        }
        const std::size_t length = characters.size() + 1;
        Set(2, static_cast<std::uint16_t>(length + (isText ? 6 : 0)));
        std::string bytes;
        for (std::size_t entry = 0; entry < (isText ? 10U : 4U); ++entry) {
            bytes += static_cast<char>(CgmBuffer[entry]);
        }
        bytes += static_cast<char>(characters.size());
        bytes += characters;
        if (bytes.size() % 2 != 0) {
            bytes += '\0'; // elements start on even offsets
        }
        Write(bytes);
    });
}

// ---- Lines

bool CgmWriter::CgmVertices(int start, int count, int stride) {
    return GuardedWriting("CgmVertices", [&] {
        const LogicalPoint centre = LogicalPointOfCell();
        const auto vertex = [&](std::int16_t offset, std::int16_t from, std::int32_t most) {
            // The quotient is a single-precision number.
            const auto share = static_cast<double>(static_cast<float>(offset) / 1000.0F);
            const std::int16_t place = RoundToInt16(Design.SymbolRadiusFile * share + from);
            return static_cast<std::uint16_t>(std::clamp<std::int32_t>(place, 0, most));
        };
        for (int i = 0; i < count; ++i) {
            const auto entry = static_cast<std::size_t>(start + stride * i);
            const auto at = static_cast<std::size_t>(i);
            Set(entry, vertex(CgmOffset[at], centre.x, Design.LogicalWidth));
            Set(entry + 2, vertex(CgmOffset[at + 5], centre.y, Design.LogicalHeight));
        }
    });
}

void CgmWriter::OpenChain() {
    LineStyle(); // a width too large leaves the chain to the next point
    Design.LineBreakPending = false;
    Set(0, PolylineLong);
    Set(2, 1); // the length is written over when the chain ends
    CgmLengthPos = CgmWritePos + 2;
    CgmByteCount = 4;
    CgmShort();
    Design.PointCount = 0;
    if (carried) {
        WriteVertex(*std::exchange(carried, std::nullopt));
    }
}

void CgmWriter::WriteVertex(const Vertex& vertex) {
    Write({vertex.data(), vertex.size()});
    ++Design.PointCount;
}

void CgmWriter::CgmPoly() {
    GuardedWriting("CgmPoly", [this] {
        Vertex vertex = {};
        std::transform(CgmBuffer.begin() + 4, CgmBuffer.begin() + 8, vertex.begin(),
                       [](std::uint16_t byte) { return static_cast<char>(byte); });
        if (Design.LineBreakPending) {
            OpenChain();
        }
        WriteVertex(vertex);
        if (Design.PointCount == Design.MaxChainPoints) {
            PatchLength();
            Design.LineBreakPending = true;
            carried = vertex;
        }
    });
}

void CgmWriter::PatchLength() {
    if (CgmLengthPos > 0) {
        const auto length = static_cast<std::uint32_t>(Design.PointCount) * 4U;
        const std::array<char, 2> bytes = {static_cast<char>(length >> 8U),
                                           static_cast<char>(length & 0xFFU)};
        PatchExport(CgmLengthPos - 1, std::string_view(bytes.data(), bytes.size()));
        CgmLengthPos = 0;
    }
}

void CgmWriter::LineBreak() {
    if (Design.CurrentSymbolType == SymbolLine) {
        PatchLength();
        carried.reset();
    } else {
        CgmShort();
    }
}

// ---- Symbols

void CgmWriter::Point() {
    GuardedWriting("CgmWrite", [this] { CgmWrite(); });
}

void CgmWriter::LineStyle() {
    const std::int16_t width = RoundToInt16(FileLineWidth());
    ColourElement(LineColour, Design.PenColor);
    Element(LineWidth, {width});
}

void CgmWriter::EdgeAndFillStyle() {
    if (Design.CurrentSymbolType == SymbolDot && interior != Solid) {
        Interior(Solid); // points of the grid in a lobe behind a map file of open shapes
    }
    ColourElement(EdgeColour, Design.PenColor);
    ColourElement(FillColour, Design.PenColor);
    Element(EdgeWidth, {IsOpenShape(Design.CurrentSymbolType) ? Design.BorderWidthFile : 1});
}

void CgmWriter::ClosedShape(std::uint16_t header, std::initializer_list<int> offsets) {
    const int count = static_cast<int>(offsets.size() / 2);
    const int* offset = offsets.begin();
    for (int i = 0; i < count; ++i) {
        CgmOffset[static_cast<std::size_t>(i)] = static_cast<std::int16_t>(*offset++);
        CgmOffset[static_cast<std::size_t>(i + 5)] = static_cast<std::int16_t>(*offset++);
    }
    if (!CgmVertices(2, count, 4)) {
        return;
    }
    const auto vertices = CgmBuffer;
    EdgeAndFillStyle();
    CgmBuffer = vertices;
    Set(0, header);
    CgmByteCount = static_cast<std::int16_t>(2 + 4 * count);
    CgmShort();
}

void CgmWriter::TwoStrokes(std::initializer_list<int> first, std::initializer_list<int> second) {
    int start = 2;
    for (const auto& stroke : {first, second}) {
        const int* offset = stroke.begin();
        for (const std::size_t i : {0U, 1U}) {
            CgmOffset[i] = static_cast<std::int16_t>(*offset++);
            CgmOffset[i + 5] = static_cast<std::int16_t>(*offset++);
        }
        if (!CgmVertices(start, 2, 4)) {
            return;
        }
        start += 10;
    }
    const auto vertices = CgmBuffer;
    LineStyle();
    CgmBuffer = vertices;
    Set(0, PolylineShort);
    Set(10, PolylineShort);
    CgmByteCount = 20;
    CgmShort();
}

void CgmWriter::Circle() {
    CgmOffset[0] = 0;
    CgmOffset[5] = 0;
    if (!CgmVertices(2, 1, 0)) {
        return;
    }
    const auto centre = CgmBuffer;
    EdgeAndFillStyle();
    CgmBuffer = centre;
    Set(0, CircleElement);
    Set(6, Word(Design.SymbolRadiusFile));
    CgmByteCount = 8;
    CgmShort();
}

void CgmWriter::CgmWrite() {
    switch (Design.CurrentSymbolType) {
    case SymbolLine:
        CgmOffset[0] = 0;
        CgmOffset[5] = 0;
        if (CgmVertices(4, 1, 0)) {
            CgmPoly();
        }
        break;
    case SymbolDot:
    case SymbolOpenSquare:
    case SymbolFilledSquare:
        ClosedShape(PolygonOfFour, {-1000, -1000, -1000, 1000, 1000, 1000, 1000, -1000});
        break;
    case SymbolPlus:
        TwoStrokes({-1000, 0, 1000, 0}, {0, -1000, 0, 1000});
        break;
    case SymbolCross:
        TwoStrokes({-1000, -1000, 1000, 1000}, {1000, -1000, -1000, 1000});
        break;
    case SymbolOpenDiamond:
    case SymbolFilledDiamond:
        ClosedShape(PolygonOfFour, {-1000, 0, 0, 1000, 1000, 0, 0, -1000});
        break;
    case SymbolOpenTriangle:
    case SymbolFilledTriangle:
        ClosedShape(PolygonOfThree, {-1000, -577, 1000, -577, 0, 1155});
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
    ColourElement(TextColour, text.TextColour);
    Element(TextPrecision, {2});
    Element(CharacterHeight, {height});
    Element(CharacterExpansion, {1, 0});
    Element(CharacterSpacing, {0, 0});
    const auto direction = [&](double (*function)(double), int degrees) {
        return RoundToInt16(10000.0 * function((text.TextAngle + degrees) * DegToRad));
    };
    Element(CharacterOrientation, {direction(std::cos, 90), direction(std::sin, 90), direction(std::cos, 0),
                                   direction(std::sin, 0)});
    Element(TextAlignment, {1, 4, 0, 0, 0, 0});
    const LogicalPoint place = LogicalPointOfText(text);
    Set(0, TextLong);
    Set(4, Word(place.x));
    Set(6, Word(place.y));
    Set(8, 1); // final
    CgmByteCount = -1;
    CgmString(text.TextString);
}

} // namespace quelmont
