#include "qtsurface/text_face.h"

#include "core/text_encoding.h"
#include "qtsurface/gui_application.h"

#include <QByteArray>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QString>
#include <QtEndian>
#include <QTextLayout>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <memory>
#include <string>
#include <tuple>

namespace quelmont {

namespace {

/// The size at which Qt lays out a text. Its lengths are 64ths of a pixel, so the advances of fonts of 2048
/// or 1000 units an em lose nothing that shows.
constexpr int LayoutPixels = 256;

/// The size of a font of height 0, which leaves the choice to the program.
constexpr double DefaultEmPixels = 16.0;

constexpr std::int32_t LeastBoldWeight = 600;

/// Faces and outlines are made anew rather than kept without end.
constexpr std::size_t MostFaces = 64;
constexpr std::size_t MostOutlines = 8192;

QString PlainText(std::string_view utf8) {
    std::u32string characters = Characters(utf8);
    for (char32_t& c : characters) {
        const bool control = c < U' ' || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
        c = control ? U' ' : c;
    }
    // A letter with its marks is one character where there is one: most fonts place marks better there.
    return QString::fromUcs4(characters.data(), static_cast<qsizetype>(characters.size()))
        .normalized(QString::NormalizationForm_C);
}

/// Letters of which many fonts make one character: "ff", "fi", "fl", "fj", "ft".
bool HasLatinLigature(std::string_view text) {
    for (std::size_t at = text.find('f'); at != std::string_view::npos; at = text.find('f', at + 1)) {
        if (at + 1 < text.size() && std::string_view("filjt").find(text[at + 1]) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

/// A number of a table of a font, 0 beyond its end.
int NumberAt(const QByteArray& table, qsizetype offset) {
    return offset + 2 > table.size() ? 0 : qFromBigEndian<qint16>(table.constData() + offset);
}

} // namespace

TextFace& TextFace::Of(const SurfaceFont& font) {
    using Key = std::tuple<std::string, bool, bool>;
    static std::map<Key, std::unique_ptr<TextFace>> faces;
    const Key key{std::string(font.faceName), font.weight >= LeastBoldWeight, font.italic};
    auto found = faces.find(key);
    if (found == faces.end()) {
        if (faces.size() >= MostFaces) {
            faces.clear();
        }
        found = faces.emplace(key, std::make_unique<TextFace>(font)).first;
    }
    return *found->second;
}

TextFace::TextFace(const SurfaceFont& made) {
    NeedGuiApplication();
    font = QFont(QString::fromUtf8(made.faceName.data(), static_cast<qsizetype>(made.faceName.size())));
    font.setPixelSize(LayoutPixels);
    font.setBold(made.weight >= LeastBoldWeight);
    font.setItalic(made.italic);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(static_cast<QFont::StyleStrategy>(QFont::PreferOutline | QFont::PreferMatch));
    const QFontMetricsF metrics(font);
    measures.ascent = metrics.ascent() / LayoutPixels;
    measures.descent = metrics.descent() / LayoutPixels;
    measures.averageWidth = metrics.averageCharWidth() / LayoutPixels;
    MeasureLines();
}

void TextFace::MeasureLines() {
    // The defaults for a font without these numbers.
    measures.underline = 0.1;
    measures.strikeout = -0.28;
    measures.underlineWidth = measures.strikeoutWidth = 0.05;
    // OpenType 1.9, "post" and "OS/2": y grows upward there.
    const QRawFont raw = QRawFont::fromFont(font);
    const double em = raw.unitsPerEm();
    const QByteArray post = raw.fontTable("post");
    const QByteArray os2 = raw.fontTable("OS/2");
    if (em > 0.0 && NumberAt(post, 10) > 0) {
        measures.underline = -NumberAt(post, 8) / em;
        measures.underlineWidth = NumberAt(post, 10) / em;
    }
    if (em > 0.0 && NumberAt(os2, 26) > 0) {
        measures.strikeout = -NumberAt(os2, 28) / em;
        measures.strikeoutWidth = NumberAt(os2, 26) / em;
    }
}

double TextFace::EmPixels(const SurfaceFont& made) const {
    const double height = made.height;
    return height < 0.0 ? -height
           : height > 0.0 && measures.ascent + measures.descent > 0.0
               ? height / (measures.ascent + measures.descent)
               : DefaultEmPixels;
}

QPainterPath TextFace::OutlineOf(const QRawFont& raw, std::uint32_t glyph) {
    if (outlineCount >= MostOutlines) {
        outlines.clear();
        outlineCount = 0;
    }
    auto known =
        std::find_if(outlines.begin(), outlines.end(), [&](const auto& entry) { return entry.first == raw; });
    if (known == outlines.end()) {
        known = outlines.emplace(outlines.end(), raw, Outlines());
    }
    const auto [outline, fresh] = known->second.try_emplace(glyph);
    if (fresh) {
        ++outlineCount;
        const double em = 1.0 / LayoutPixels;
        outline->second = QTransform::fromScale(em, em).map(raw.pathForGlyph(glyph));
        outline->second.setFillRule(Qt::WindingFill); // strokes of a character may lie over each other
    }
    return outline->second;
}

std::optional<QPointF> TextFace::LayOut(QTextLayout& layout, const QFont& inFont, std::string_view utf8) {
    const QString text = PlainText(utf8);
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(QTextOption::NoWrap);
    option.setTextDirection(text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    option.setFlags(QTextOption::IncludeTrailingSpaces);
    option.setUseDesignMetrics(true);
    layout.setText(text);
    layout.setFont(inFont);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    if (line.isValid()) {
        line.setNumColumns(std::numeric_limits<int>::max());
    }
    layout.endLayout();
    return line.isValid() ? std::optional(QPointF(line.x(), line.y() + line.ascent())) : std::nullopt;
}

double TextFace::Write(QPainter& painter, std::string_view utf8) const {
    QTextLayout layout;
    // A page is searched by its letters, which a ligature hides. Letters that stand apart have none: these do
    // by a 64th of a pixel of the layout, the least that counts, and less than shows.
    QFont apart = font;
    if (HasLatinLigature(utf8)) {
        apart.setLetterSpacing(QFont::AbsoluteSpacing, 1.0 / 64.0);
    }
    const std::optional<QPointF> baseline = LayOut(layout, apart, utf8);
    if (!baseline) {
        return 0.0;
    }
    const double em = 1.0 / LayoutPixels;
    painter.save();
    painter.scale(em, em);
    layout.draw(&painter, -*baseline);
    painter.restore();
    return layout.lineAt(0).naturalTextWidth() * em;
}

ShapedText TextFace::Shape(std::string_view utf8) {
    QTextLayout layout;
    const std::optional<QPointF> baseline = LayOut(layout, font, utf8);
    ShapedText shaped;
    if (!baseline) {
        return shaped;
    }
    shaped.width = layout.lineAt(0).naturalTextWidth() / LayoutPixels;
    const QList<QGlyphRun> runs = layout.glyphRuns();
    for (const QGlyphRun& run : runs) {
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> places = run.positions();
        const QRawFont raw = run.rawFont();
        std::vector<PlacedOutline> placed;
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            const QPainterPath outline = OutlineOf(raw, glyphs[i]);
            if (!outline.isEmpty()) {
                placed.push_back({outline, (places[i] - *baseline) / LayoutPixels});
            }
        }
        if (!placed.empty()) {
            shaped.runs.push_back(std::move(placed));
        }
    }
    return shaped;
}

} // namespace quelmont
