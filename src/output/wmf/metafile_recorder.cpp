#include "output/wmf/metafile_recorder.h"

#include "core/standard_colors.h"
#include "core/text_encoding.h"
#include "output/little_endian.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <utility>

namespace quelmont {

namespace {

// clang-format off
constexpr std::uint16_t FunctionEnd             = 0x0000;
constexpr std::uint16_t FunctionSetBkMode       = 0x0102;
constexpr std::uint16_t FunctionSetMapMode      = 0x0103;
constexpr std::uint16_t FunctionSetPolyFillMode = 0x0106;
constexpr std::uint16_t FunctionSelectObject    = 0x012D;
constexpr std::uint16_t FunctionSetTextAlign    = 0x012E;
constexpr std::uint16_t FunctionDeleteObject    = 0x01F0;
constexpr std::uint16_t FunctionSetTextColor    = 0x0209;
constexpr std::uint16_t FunctionSetWindowOrg    = 0x020B;
constexpr std::uint16_t FunctionSetWindowExt    = 0x020C;
constexpr std::uint16_t FunctionLineTo          = 0x0213;
constexpr std::uint16_t FunctionMoveTo          = 0x0214;
constexpr std::uint16_t FunctionCreatePen       = 0x02FA;
constexpr std::uint16_t FunctionCreateFont      = 0x02FB;
constexpr std::uint16_t FunctionCreateBrush     = 0x02FC;
constexpr std::uint16_t FunctionPolygon         = 0x0324;
constexpr std::uint16_t FunctionPolyPolygon     = 0x0538;
constexpr std::uint16_t FunctionPolyline        = 0x0325;
constexpr std::uint16_t FunctionEllipse         = 0x0418;
constexpr std::uint16_t FunctionRectangle       = 0x041B;
constexpr std::uint16_t FunctionSetPixel        = 0x041F;
constexpr std::uint16_t FunctionTextOut         = 0x0521;
// clang-format on

/// Of a brush.
constexpr std::uint16_t StyleSolid = 0;
constexpr std::uint16_t StyleNull = 1;

/// Stock objects have handles of their own above this.
constexpr SurfaceHandle StockHandles = 0x80000000U;
constexpr SurfaceHandle StockWhiteBrush = StockHandles + 0;
constexpr SurfaceHandle StockBlackPen = StockHandles + 7;
constexpr SurfaceHandle StockSystemFont = StockHandles + 13;

/// Bytes of a face name, the zero at its end included.
constexpr std::size_t FaceNameBytes = 32;

/// Words of a record before its parameters, and of the metafile's header.
constexpr std::uint32_t RecordHeadWords = 3;
constexpr std::uint32_t HeaderWords = MetafileRecorder::HeaderBytes / 2;

std::uint16_t Low(std::uint32_t value) { return static_cast<std::uint16_t>(value & 0xFFFFU); }
std::uint16_t High(std::uint32_t value) { return static_cast<std::uint16_t>(value >> 16U); }
std::uint16_t Word(std::int32_t value) { return Low(static_cast<std::uint32_t>(value)); }

bool Fits(std::int32_t value) {
    using Limits = std::numeric_limits<std::int16_t>;
    return value >= Limits::min() && value <= Limits::max();
}

/// Bytes as words; a byte that is left over has a zero beside it.
std::vector<std::uint16_t> WordsOf(std::string_view bytes) {
    std::vector<std::uint16_t> words;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto low = static_cast<unsigned char>(bytes[i]);
        const auto high = static_cast<unsigned char>(i + 1 < bytes.size() ? bytes[i + 1] : '\0');
        words.push_back(static_cast<std::uint16_t>(low | high << 8U));
    }
    return words;
}

std::vector<std::uint16_t> FontWords(const SurfaceFont& font) {
    const auto flag = [](bool set) { return set ? '\1' : '\0'; };
    std::string bytes = {flag(font.italic),
                         flag(font.underline),
                         flag(font.strikeout),
                         static_cast<char>(font.charSet),
                         static_cast<char>(font.outPrecision),
                         static_cast<char>(font.clipPrecision),
                         static_cast<char>(font.quality),
                         static_cast<char>(font.pitchAndFamily)};
    std::string face = ToWindows1252(font.faceName).substr(0, FaceNameBytes - 1);
    face.resize(FaceNameBytes);
    bytes += face;
    std::vector<std::uint16_t> words = {Word(font.height), Word(font.width), Word(font.escapement),
                                        Word(font.orientation), Word(font.weight)};
    const std::vector<std::uint16_t> rest = WordsOf(bytes);
    words.insert(words.end(), rest.begin(), rest.end());
    return words;
}

} // namespace

MetafileRecorder::MetafileRecorder()
    : selected{{Kind::Pen, StockBlackPen}, {Kind::Brush, StockWhiteBrush}, {Kind::Font, StockSystemFont}} {}

void MetafileRecorder::RecordWords(std::uint16_t function, const std::vector<std::uint16_t>& words) {
    const auto length = RecordHeadWords + static_cast<std::uint32_t>(words.size());
    AppendLong(records, length);
    AppendWord(records, function);
    for (const std::uint16_t word : words) {
        AppendWord(records, word);
    }
    largestRecord = std::max(largestRecord, length);
    recordedWords += length;
}

void MetafileRecorder::Record(std::uint16_t function, std::initializer_list<std::int32_t> words) {
    std::vector<std::uint16_t> parameters;
    std::transform(words.begin(), words.end(), std::back_inserter(parameters), Word);
    RecordWords(function, parameters);
}

bool MetafileRecorder::SetMapMode(int mode) {
    Record(FunctionSetMapMode, {mode});
    return true;
}

bool MetafileRecorder::SetWindowOrgEx(std::int32_t x, std::int32_t y) {
    if (!Fits(x) || !Fits(y)) {
        return false;
    }
    Record(FunctionSetWindowOrg, {y, x});
    return true;
}

bool MetafileRecorder::SetWindowExtEx(std::int32_t x, std::int32_t y) {
    if (!Fits(x) || !Fits(y)) {
        return false;
    }
    Record(FunctionSetWindowExt, {y, x});
    return true;
}

bool MetafileRecorder::SetBkMode(int mode) {
    Record(FunctionSetBkMode, {mode});
    return true;
}

void MetafileRecorder::MoveToEx(std::int32_t x, std::int32_t y) {
    if (Fits(x) && Fits(y)) {
        Record(FunctionMoveTo, {y, x});
    }
}

void MetafileRecorder::LineTo(std::int32_t x, std::int32_t y) {
    if (Fits(x) && Fits(y)) {
        Record(FunctionLineTo, {y, x});
    }
}

bool MetafileRecorder::RecordPoints(std::uint16_t function, std::span<const SurfacePoint> points) {
    if (points.size() > static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max()) ||
        std::any_of(points.begin(), points.end(),
                    [](const SurfacePoint& point) { return !Fits(point.x) || !Fits(point.y); })) {
        return false;
    }
    std::vector<std::uint16_t> words = {static_cast<std::uint16_t>(points.size())};
    for (const SurfacePoint& point : points) {
        words.push_back(Word(point.x));
        words.push_back(Word(point.y));
    }
    RecordWords(function, words);
    return true;
}

bool MetafileRecorder::Polyline(std::span<const SurfacePoint> points) {
    return RecordPoints(FunctionPolyline, points);
}

bool MetafileRecorder::Polygon(std::span<const SurfacePoint> points) {
    return RecordPoints(FunctionPolygon, points);
}

bool MetafileRecorder::PolyPolygon(std::span<const SurfacePoint> points,
                                   std::span<const std::int32_t> counts) {
    constexpr auto most = static_cast<std::size_t>(std::numeric_limits<std::int16_t>::max());
    if (points.size() > most || counts.size() > most ||
        std::any_of(points.begin(), points.end(),
                    [](const SurfacePoint& point) { return !Fits(point.x) || !Fits(point.y); })) {
        return false;
    }
    std::vector<std::uint16_t> words = {static_cast<std::uint16_t>(counts.size())};
    std::transform(counts.begin(), counts.end(), std::back_inserter(words), Word);
    for (const SurfacePoint& point : points) {
        words.push_back(Word(point.x));
        words.push_back(Word(point.y));
    }
    RecordWords(FunctionPolyPolygon, words);
    return true;
}

bool MetafileRecorder::RecordBox(std::uint16_t function, std::int32_t left, std::int32_t top,
                                 std::int32_t right, std::int32_t bottom) {
    if (!Fits(left) || !Fits(top) || !Fits(right) || !Fits(bottom)) {
        return false;
    }
    Record(function, {bottom, right, top, left});
    return true;
}

bool MetafileRecorder::Rectangle(std::int32_t left, std::int32_t top, std::int32_t right,
                                 std::int32_t bottom) {
    return RecordBox(FunctionRectangle, left, top, right, bottom);
}

bool MetafileRecorder::Ellipse(std::int32_t left, std::int32_t top, std::int32_t right, std::int32_t bottom) {
    return RecordBox(FunctionEllipse, left, top, right, bottom);
}

void MetafileRecorder::SetPixel(std::int32_t x, std::int32_t y, std::uint32_t color) {
    if (Fits(x) && Fits(y)) {
        RecordWords(FunctionSetPixel, {Low(ColorBits(color)), High(ColorBits(color)), Word(y), Word(x)});
    }
}

std::uint16_t MetafileRecorder::TakeSlot() {
    const auto slot =
        static_cast<std::size_t>(std::find(takenSlots.begin(), takenSlots.end(), false) - takenSlots.begin());
    if (slot == takenSlots.size()) {
        takenSlots.push_back(true);
    } else {
        takenSlots[slot] = true;
    }
    return static_cast<std::uint16_t>(slot);
}

SurfaceHandle MetafileRecorder::CreateObject(std::uint16_t function, const std::vector<std::uint16_t>& words,
                                             Kind kind) {
    RecordWords(function, words);
    const SurfaceHandle handle = nextHandle++;
    objects[handle] = {TakeSlot(), kind};
    return handle;
}

SurfaceHandle MetafileRecorder::CreatePen(int style, std::int32_t width, std::uint32_t color) {
    if (!Fits(width)) {
        return 0;
    }
    const ColorValue bits = ColorBits(color);
    return CreateObject(FunctionCreatePen,
                        {static_cast<std::uint16_t>(style), Word(width), 0, Low(bits), High(bits)},
                        Kind::Pen);
}

SurfaceHandle MetafileRecorder::CreateSolidBrush(std::uint32_t color) {
    const ColorValue bits = ColorBits(color);
    return CreateObject(FunctionCreateBrush, {StyleSolid, Low(bits), High(bits), 0}, Kind::Brush);
}

SurfaceHandle MetafileRecorder::CreateFontIndirectA(const SurfaceFont& font) {
    if (!Fits(font.height) || !Fits(font.width) || !Fits(font.escapement) || !Fits(font.orientation)) {
        return 0;
    }
    return CreateObject(FunctionCreateFont, FontWords(font), Kind::Font);
}

SurfaceHandle MetafileRecorder::GetStockObject(int number) {
    return number == StockNullBrush ? StockHandles + StockNullBrush : 0;
}

std::uint16_t MetafileRecorder::SlotOfStock(SurfaceHandle object) {
    const auto found = stockSlots.find(object);
    if (found != stockSlots.end()) {
        return found->second;
    }
    if (object == StockBlackPen) {
        RecordWords(FunctionCreatePen, {PenStyleSolid, 0, 0, 0, 0});
    } else if (object == StockSystemFont) {
        RecordWords(FunctionCreateFont,
                    FontWords({.height = 16, .width = 7, .weight = 700, .faceName = "System"}));
    } else if (object == StockWhiteBrush) {
        RecordWords(FunctionCreateBrush, {StyleSolid, Low(ColorMask), High(ColorMask), 0});
    } else {
        RecordWords(FunctionCreateBrush, {StyleNull, 0, 0, 0});
    }
    return stockSlots[object] = TakeSlot();
}

SurfaceHandle MetafileRecorder::SelectObject(SurfaceHandle object) {
    const auto found = objects.find(object);
    if (found == objects.end() && object < StockHandles) {
        return 0;
    }
    const Kind kind = found != objects.end()      ? found->second.kind
                      : object == StockBlackPen   ? Kind::Pen
                      : object == StockSystemFont ? Kind::Font
                                                  : Kind::Brush;
    const std::uint16_t slot = found != objects.end() ? found->second.slot : SlotOfStock(object);
    RecordWords(FunctionSelectObject, {slot});
    return std::exchange(selected[kind], object);
}

bool MetafileRecorder::DeleteObject(SurfaceHandle object) {
    const auto found = objects.find(object);
    if (found == objects.end() || selected[found->second.kind] == object) {
        return false;
    }
    RecordWords(FunctionDeleteObject, {found->second.slot});
    takenSlots[found->second.slot] = false;
    objects.erase(found);
    return true;
}

int MetafileRecorder::SetPolyFillMode(int mode) {
    Record(FunctionSetPolyFillMode, {mode});
    return std::exchange(fillMode, mode);
}

bool MetafileRecorder::SetTextAlign(int mode) {
    if (mode != AlignTop && mode != AlignBaseline) {
        return false;
    }
    Record(FunctionSetTextAlign, {mode});
    return true;
}

std::uint32_t MetafileRecorder::SetTextColor(std::uint32_t color) {
    const ColorValue bits = ColorBits(color);
    RecordWords(FunctionSetTextColor, {Low(bits), High(bits)});
    return std::exchange(textColor, bits);
}

bool MetafileRecorder::TextOutA(std::int32_t x, std::int32_t y, std::string_view utf8) {
    const std::string text = ToWindows1252(utf8);
    if (!Fits(x) || !Fits(y) || text.size() > MostTextCharacters) {
        return false;
    }
    std::vector<std::uint16_t> words = WordsOf(text);
    words.insert(words.begin(), static_cast<std::uint16_t>(text.size()));
    words.push_back(Word(y));
    words.push_back(Word(x));
    RecordWords(FunctionTextOut, words);
    return true;
}

std::string MetafileRecorder::Header() const {
    constexpr std::uint16_t inMemory = 1;
    constexpr std::uint16_t version = 0x0300;
    const std::uint32_t words = HeaderWords + recordedWords;
    std::string header;
    AppendWord(header, inMemory);
    AppendWord(header, static_cast<std::uint16_t>(HeaderWords));
    AppendWord(header, version);
    AppendLong(header, words);
    AppendWord(header, static_cast<std::uint16_t>(takenSlots.size()));
    AppendLong(header, largestRecord);
    AppendWord(header, 0);
    return header;
}

void MetafileRecorder::RecordEnd() { RecordWords(FunctionEnd, {}); }

} // namespace quelmont
