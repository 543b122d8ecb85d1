#include "output/svg/svg_writer.h"

#include "core/checked_math.h"
#include "core/color_table.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/export_file.h"
#include "output/output_state.h"
#include "output/print_text.h"
#include "output/svg/svg_text.h"
#include "output/symbols.h"
#include "output/thinned_ring.h"
#include "platform/machine.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace quelmont {

namespace {

constexpr double TwipsPerCssPixel = 15.0;

/// Whole coordinates of the picture are the middles of pixels.
constexpr double PixelMiddle = 0.5;

std::string_view IdOf(MapPart part) {
    switch (part) {
    case MapPart::Grid:
        return "grid";
    case MapPart::MapFile:
        return "map-file";
    case MapPart::SmallCircles:
        return "small-circles";
    case MapPart::GreatCircle:
        return "great-circle";
    case MapPart::Frame:
        return "frame";
    case MapPart::Distortion:
        return "distortion";
    case MapPart::Areas:
        return "area";
    }
    return "part";
}

/// An attribute with a blank before it; the value needs no escapes.
std::string Attribute(std::string_view name, std::string_view value) {
    std::string text = " ";
    text.append(name).append("=\"").append(value).append("\"");
    return text;
}

std::string Attribute(std::string_view name, double value) { return Attribute(name, HundredthsText(value)); }

std::string Color(ColorValue color) { return "#" + ColorDigits(color); }

/// The text of an element on a line of its own.
std::string Element(std::string_view name, std::string_view text) {
    std::string element = "<";
    element.append(name).append(">").append(XmlText(text)).append("</").append(name).append(">\n");
    return element;
}

/// A closed or open path through places.
std::string Path(std::initializer_list<std::pair<double, double>> places, std::string_view end) {
    std::string path = "<path d=\"M";
    for (const auto& [x, y] : places) {
        path.append(path.back() == 'M' ? "" : " ")
            .append(HundredthsText(x))
            .append(",")
            .append(HundredthsText(y));
    }
    return path.append(end).append("\"/>\n");
}

} // namespace

// ---- The file

void SvgWriter::Header() {
    *this = SvgWriter{};
    Design.OutputFileName = Design.SvgFileName;
    Design.SymbolRadiusFile = 2;
    const double width = Machine().window->ScaleWidth();
    const double height = Machine().window->ScaleHeight();
    const std::string pixelsX = HundredthsText(Divide(width, Design.TwipsPerPixelX));
    const std::string pixelsY = HundredthsText(Divide(height, Design.TwipsPerPixelY));
    BeginExport(Design.SvgFileName);
    WriteExport("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\"" +
                Attribute("width", width / TwipsPerCssPixel) +
                Attribute("height", height / TwipsPerCssPixel) +
                Attribute("viewBox", "0 0 " + pixelsX + " " + pixelsY) +
                " stroke-linecap=\"round\" stroke-linejoin=\"round\">\n" + Element("title", Design.MapTitle) +
                Element("desc", Design.MapDescription) + "<!-- Quelmont " + XmlText(Design.VersionText) +
                " -->\n<rect id=\"background\"" + Attribute("width", pixelsX) + Attribute("height", pixelsY) +
                Attribute("fill", Color(Design.BackColor)) + "/>\n");
    CloseExport();
}

void SvgWriter::OpenStretch(std::size_t /*slot*/) { ResumeExport(Design.SvgFileName); }

void SvgWriter::ResetLine() {
    chain.clear();
    carried.reset();
}

void SvgWriter::Finish() {
    Guarded("SvgEnd", [this] { SvgEnd(); });
}

void SvgWriter::SvgEnd() {
    ResumeExport(Design.SvgFileName);
    CloseGroups();
    for (const bool labels : {true, false}) { // texts of the design lie over the labels
        GuardedWriting("SvgText", [&] { Texts(labels); });
    }
    WriteExport("</svg>\n");
    CloseExport();
    FinishExports();
    ResetLine();
}

// ---- Groups

void SvgWriter::BeginPart(MapPart part, std::string_view title) {
    now.part = part;
    now.partTitle = title;
    ++now.partNumber;
    now.featureNumber = 0;
    feature = 0;
}

void SvgWriter::BeginFeature(std::int16_t featureOfFile, std::string_view title) {
    if (now.featureNumber == 0 || featureOfFile != feature) {
        feature = featureOfFile;
        now.featureTitle = title;
        ++now.featureNumber;
    }
}

void SvgWriter::OpenGroup(std::string_view id, std::uint32_t number, std::string_view title, const Ink* ink) {
    std::string group = "<g" + Attribute("id", std::string(id) + "-" + std::to_string(number));
    if (ink != nullptr) {
        const std::string color = Color(ink->color);
        group += Attribute("fill", ink->filled ? color : "none");
        if (ink->width > 0) {
            group += Attribute("stroke", color) + Attribute("stroke-width", std::to_string(ink->width));
        }
    }
    WriteExport(group + ">\n" + Element("title", title));
}

void SvgWriter::Enter(const Branch& branch, const Ink& ink) {
    const bool samePart = partIsOpen && open.partNumber == branch.partNumber;
    const bool sameFeature =
        featureIsOpen == (branch.featureNumber > 0) && open.featureNumber == branch.featureNumber;
    if (samePart && sameFeature && openInk == ink) {
        return;
    }
    const bool hasFeature = branch.featureNumber > 0;
    CloseFeature();
    if (!samePart || !hasFeature) {
        CloseGroups();
        OpenGroup(IdOf(branch.part), ++partIds[static_cast<std::size_t>(branch.part)], branch.partTitle,
                  hasFeature ? nullptr : &ink);
        partIsOpen = true;
    }
    if (hasFeature) {
        OpenGroup("feature", ++featureIds, branch.featureTitle, &ink);
        featureIsOpen = true;
    }
    open = branch;
    openInk = ink;
}

void SvgWriter::CloseFeature() {
    if (std::exchange(featureIsOpen, false)) {
        WriteExport("</g>\n");
    }
}

void SvgWriter::CloseGroups() {
    CloseFeature();
    if (std::exchange(partIsOpen, false)) {
        WriteExport("</g>\n");
    }
}

// ---- Lines

void SvgWriter::Point() {
    GuardedWriting("SvgWrite", [this] { SvgWrite(); });
}

void SvgWriter::SvgWrite() {
    const double x = (((Design.ProjX - Design.MapXMin) * Design.ScreenScaleX) + Design.ScreenOriginX) /
                     Design.TwipsPerPixelX;
    const double y = (Design.ScreenOriginY - ((Design.ProjY - Design.MapYMin) * Design.ScreenScaleY)) /
                     Design.TwipsPerPixelY;
    // What the picture cannot hold is no part of the map.
    RoundToInt16(x);
    RoundToInt16(y);
    if (Design.CurrentSymbolType == SymbolLine) {
        ChainPoint({RoundToInt32((x + PixelMiddle) * 100.0), RoundToInt32((y + PixelMiddle) * 100.0)});
    } else {
        Symbol(x + PixelMiddle, y + PixelMiddle);
    }
}

void SvgWriter::AppendPlace(Hundredths place) {
    chain += chain.empty() ? 'M' : ' ';
    AppendHundredths(chain, place.x);
    chain += ',';
    AppendHundredths(chain, place.y);
    last = place;
    ++Design.PointCount;
}

void SvgWriter::ChainPoint(Hundredths place) {
    if (OutputNow.LineBreakPending) {
        OutputNow.LineBreakPending = false;
        chain.clear();
        Design.PointCount = 0;
        if (carried) {
            AppendPlace(*std::exchange(carried, std::nullopt));
        }
    }
    if (inChain.partNumber != now.partNumber || inChain.featureNumber != now.featureNumber) {
        inChain = now;
    }
    chainInk = {ColorBits(Design.PenColor), std::max(1, Design.PenWidth), false};
    AppendPlace(place);
    if (Design.PointCount == Design.MaxChainPoints) {
        FlushChain();
        OutputNow.LineBreakPending = true;
        carried = place;
    }
}

void SvgWriter::LineBreak() {
    carried.reset();
    FlushChain();
}

void SvgWriter::FlushChain() {
    if (chain.empty()) {
        return;
    }
    if (Design.PointCount == 1) {
        AppendPlace(last); // a lone point must leave a mark too
    }
    Enter(inChain, chainInk);
    WriteExport("<path d=\"");
    WriteExport(chain);
    WriteExport("\"/>\n");
    chain.clear();
}

// ---- Areas

void SvgWriter::Area(ColorValue color, const PlaneRings& rings) {
    const bool ofPart = now.part == MapPart::Distortion;
    if (ofPart) {
        Enter(now, {ColorBits(color), 0, true});
    } else {
        CloseGroups();
        WriteExport("<g" + Attribute("id", "area-" + std::to_string(++areaIds)) +
                    Attribute("fill", Color(ColorBits(color))) + Attribute("fill-rule", "evenodd") + ">\n" +
                    Element("title", now.part == MapPart::Areas ? now.partTitle : "Area"));
    }
    const auto place = [](const PlanePoint& point) -> Hundredths {
        const double x = (((point.x - Design.MapXMin) * Design.ScreenScaleX) + Design.ScreenOriginX) /
                         Design.TwipsPerPixelX;
        const double y = (Design.ScreenOriginY - ((point.y - Design.MapYMin) * Design.ScreenScaleY)) /
                         Design.TwipsPerPixelY;
        return {RoundToInt32((x + PixelMiddle) * 100.0), RoundToInt32((y + PixelMiddle) * 100.0)};
    };
    WriteExport(ofPart ? R"(<path fill-rule="evenodd" d=")" : R"(<path d=")");
    for (const PlaneRing& ring : rings) {
        std::vector<Hundredths> places;
        std::vector<std::int32_t> counts;
        AppendThinned(ring, place, places, counts);
        std::string outline;
        for (const Hundredths& at : places) {
            outline += outline.empty() ? 'M' : ' ';
            AppendHundredths(outline, at.x);
            outline += ',';
            AppendHundredths(outline, at.y);
        }
        WriteExport(outline.empty() ? outline : outline + "Z");
    }
    WriteExport(ofPart ? "\"/>\n" : "\"/>\n</g>\n");
}

// ---- Symbols

void SvgWriter::Symbol(double x, double y) {
    const std::int16_t type = Design.CurrentSymbolType;
    const bool dot = type == SymbolDot;
    Enter(now,
          {ColorBits(Design.PenColor), dot ? 0 : std::max(1, Design.PenWidth), dot || IsFilledShape(type)});
    const double r = dot ? Design.DotPixels / 2.0 : Divide(OutputNow.SymbolRadius, Design.TwipsPerPixelX);
    switch (type) {
    case SymbolDot:
    case SymbolOpenSquare:
    case SymbolFilledSquare:
        WriteExport("<rect" + Attribute("x", x - r) + Attribute("y", y - r) + Attribute("width", 2.0 * r) +
                    Attribute("height", 2.0 * r) + "/>\n");
        break;
    case SymbolPlus:
        WriteExport(Path({{x - r, y}, {x + r, y}}, "M" + HundredthsText(x) + "," + HundredthsText(y - r) +
                                                       " " + HundredthsText(x) + "," +
                                                       HundredthsText(y + r)));
        break;
    case SymbolCross:
        WriteExport(Path({{x - r, y - r}, {x + r, y + r}},
                         "M" + HundredthsText(x - r) + "," + HundredthsText(y + r) + " " +
                             HundredthsText(x + r) + "," + HundredthsText(y - r)));
        break;
    case SymbolOpenDiamond:
    case SymbolFilledDiamond:
        WriteExport(Path({{x - r, y}, {x, y - r}, {x + r, y}, {x, y + r}}, "z"));
        break;
    case SymbolOpenTriangle:
    case SymbolFilledTriangle:
        WriteExport(Path(
            {{x - r, y + TriangleBase * r}, {x + r, y + TriangleBase * r}, {x, y - TriangleApex * r}}, "z"));
        break;
    case SymbolOpenCircle:
    case SymbolFilledCircle:
        WriteExport("<circle" + Attribute("cx", x) + Attribute("cy", y) + Attribute("r", r) + "/>\n");
        break;
    default:
        break;
    }
}

// ---- Texts

void SvgWriter::Texts(bool labels) {
    const auto belongs = [&](const TextItem& item) {
        return item.TextFromLabel == labels && !item.TextString.empty();
    };
    if (std::none_of(Design.TextItems.begin(), Design.TextItems.end(), belongs)) {
        return;
    }
    OpenGroup(labels ? "labels" : "texts", 1, labels ? "Labels" : "Texts", nullptr);
    for (const TextItem& item : Design.TextItems) {
        if (belongs(item)) {
            Text(item);
        }
    }
    WriteExport("</g>\n");
}

void SvgWriter::Text(const TextItem& item) {
    const TextLook look = LookOf(item);
    const std::string x = HundredthsText(Divide(item.TextX, Design.TwipsPerPixelX));
    const std::string y = HundredthsText(Divide(item.TextY, Design.TwipsPerPixelY));
    std::string text = "<text xml:space=\"preserve\"" + Attribute("x", x) + Attribute("y", y) +
                       Attribute("font-family", XmlText(FontFamily(look.FontName))) +
                       Attribute("font-size", std::to_string(-WindowFont(look).height)) +
                       Attribute("fill", Color(look.FontColour));
    if (look.FontBold) {
        text += Attribute("font-weight", "bold");
    }
    if (look.FontItalic) {
        text += Attribute("font-style", "italic");
    }
    if (look.FontUnderline || look.FontStrikeout) {
        text += Attribute("text-decoration", !look.FontStrikeout   ? "underline"
                                             : !look.FontUnderline ? "line-through"
                                                                   : "underline line-through");
    }
    if (item.TextAngle != 0) {
        text += Attribute("transform", "rotate(" + std::to_string(-item.TextAngle) + " " + x + " " + y + ")");
    }
    WriteExport(text + ">" + XmlText(item.TextString) + "</text>\n");
}

} // namespace quelmont
