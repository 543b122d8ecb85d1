#pragma once

#include "platform/fonts.h"

#include <QFont>
#include <QPainterPath>
#include <QPointF>
#include <QRawFont>

#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

class QPainter;
class QTextLayout;

namespace quelmont {

/// A character's outline on the baseline of a text.
struct PlacedOutline {
    QPainterPath outline; ///< about its own origin
    QPointF place;        ///< of that origin
};

/// A text laid out along a baseline that begins at (0, 0). Lengths in em, y downward.
struct ShapedText {
    std::vector<std::vector<PlacedOutline>> runs; ///< outlines of one font each
    double width = 0.0;                           ///< blanks at its ends included
};

/// A family of fonts in one style, with the fonts that stand in for characters it lacks. A family that
/// the machine does not have is one that stands in for it.
///
/// Characters are outlines without hints for any grid of pixels, and advance by what the font's designer
/// gave them: a text is the same at every size and angle, whatever smoothing the machine has been set to.
/// Lengths in em, the height of characters that a font is made with.
class TextFace {
public:
    /// The face of a font. It stays until the next call.
    static TextFace& Of(const SurfaceFont& font);

    explicit TextFace(const SurfaceFont& made);

    struct Measures {
        double ascent = 0.0, descent = 0.0;           ///< of the cell
        double averageWidth = 0.0;                    ///< of a character
        double underline = 0.0, underlineWidth = 0.0; ///< upper edge and thickness of a line under a text
        double strikeout = 0.0,
               strikeoutWidth = 0.0; ///< of a line through it; edges from the baseline downward
    };
    const Measures& InEm() const { return measures; }
    /// Pixels of an em of a font of this face, by its height.
    double EmPixels(const SurfaceFont& made) const;

    /// A text in UTF-8 as it is read: joined, combined, each stretch in its own direction. Control
    /// characters and line ends are blanks.
    ShapedText Shape(std::string_view utf8);
    /// Lets a painter write the same text as characters of fonts, not as outlines, along the baseline that
    /// begins at (0, 0). Its transformation is from em. Gives the text's width in em.
    double Write(QPainter& painter, std::string_view utf8) const;

private:
    using Outlines = std::unordered_map<std::uint32_t, QPainterPath>;

    /// A text on one line of a layout in a font; where its baseline begins there, in pixels of the layout.
    /// Nothing for what has no line.
    static std::optional<QPointF> LayOut(QTextLayout& layout, const QFont& inFont, std::string_view utf8);
    void MeasureLines();
    QPainterPath OutlineOf(const QRawFont& raw, std::uint32_t glyph);

    QFont font;
    Measures measures;
    std::vector<std::pair<QRawFont, Outlines>> outlines; ///< made so far
    std::size_t outlineCount = 0;
};

} // namespace quelmont
