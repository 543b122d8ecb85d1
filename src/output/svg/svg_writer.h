#pragma once

#include "output/fan_out.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

struct TextItem;

/// Writes a map as a drawing in SVG 1.1, in pixels of the window's picture with two decimals, y downward: the
/// middle of a pixel lies half a pixel from its edges. Lines are paths, symbols and texts elements of their
/// own. The grid, each map file, each feature of it, circles, labels and texts are groups with a title and a
/// number; a group of a feature begins when the feature changes, so that one feature may have several.
///
/// The file refers to nothing outside of it and runs nothing. What it writes is held for one path at a time.
class SvgWriter final : public FileWriter {
public:
    /// Reads   SvgFileName, MapTitle, MapDescription, VersionText, BackColor, the size of the drawing area.
    /// Writes  OutputFileName.
    void Header() override;
    void OpenStretch(std::size_t slot) override;
    void BeginPart(MapPart part, std::string_view title) override;
    void BeginFeature(std::int16_t feature, std::string_view title) override;
    /// Reads   ProjX, ProjY, the fit to the screen, CurrentSymbolType, PenColor, PenWidth, DotPixels, the
    ///         symbol's radius. A place beyond sixteen bits costs the export.
    void Point() override;
    void LineBreak() override;
    bool TakesAreas() const override { return true; }
    void Area(ColorValue color, const PlaneRings& rings) override;
    void Finish() override;
    void ResetLine() override;

private:
    /// Of a pixel.
    struct Hundredths {
        std::int32_t x = 0, y = 0;
    };
    /// Where an element belongs; the numbers count the parts and features that have begun.
    struct Branch {
        MapPart part = MapPart::Grid;
        std::uint32_t partNumber = 0;
        std::uint32_t featureNumber = 0; ///< 0 in a part without features
        std::string partTitle = {}, featureTitle = {};
    };
    /// What the elements of a group have in common.
    struct Ink {
        ColorValue color = 0;
        std::int32_t width = 0; ///< of lines and outlines, pixels; 0 when there are none
        bool filled = false;
        bool operator==(const Ink&) const = default;
    };

    void SvgWrite();
    void ChainPoint(Hundredths place);
    void AppendPlace(Hundredths place);
    void FlushChain();
    void Symbol(double x, double y);
    /// Opens the group of a branch and an ink, unless it is open.
    void Enter(const Branch& branch, const Ink& ink);
    void OpenGroup(std::string_view id, std::uint32_t number, std::string_view title, const Ink* ink);
    void CloseFeature();
    void CloseGroups();
    void Texts(bool labels);
    static void Text(const TextItem& item);
    void SvgEnd();

    Branch now;                        ///< of what comes
    std::int16_t feature = 0;          ///< the feature of it
    Branch inChain;                    ///< of the open path, as of its last point
    Ink chainInk;                      ///< the same
    std::string chain;                 ///< places of the open path
    std::optional<Hundredths> carried; ///< a full path's last place, which opens the next one
    Hundredths last;

    Branch open; ///< whose groups are open
    Ink openInk;
    bool partIsOpen = false, featureIsOpen = false;
    std::array<std::uint32_t, MapPartCount> partIds = {}; ///< the last number of each kind of part
    std::uint32_t featureIds = 0;
    std::uint32_t areaIds = 0;
};

} // namespace quelmont
