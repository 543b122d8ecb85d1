#pragma once

#include "core/standard_colors.h"
#include "output/cgm/cgm_words.h"
#include "output/fan_out.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace quelmont {

/// Writes a map as a binary Computer Graphics Metafile (ISO/IEC 8632-3) in logical units, y upward.
///
/// Elements go to the file as points arrive. A polyline stands in the long form, and its length is
/// written over when it ends.
///
/// Each routine shows the message box of its own failure and ends; the draw goes on.
class CgmWriter final : public FileWriter {
public:
    void Header() override;
    void OpenStretch(std::size_t slot) override;
    void StartStretch() override;
    void StartCircles(ColorValue color) override;
    void Point() override;
    void LineBreak() override;
    bool TakesAreas() const override { return true; }
    void Area(ColorValue color, const PlaneRings& rings) override;
    void Finish() override;
    void ResetLine() override;

private:
    /// Of a symbol's centre, in thousandths of its half size.
    struct Offset {
        std::int16_t x, y;
    };

    void CgmHeader();
    void CgmStartNewBoundaryFile();
    static void CgmLineColor(ColorValue color);
    void CgmWrite();
    void CgmPoly(const CgmWords& vertex);
    static std::optional<CgmWords> CgmVertices(std::initializer_list<Offset> offsets);
    static void CgmShort(const CgmWords& elements);
    static void CgmString(std::uint16_t header, std::string_view text, const CgmWords* place = nullptr);
    static void CgmText(std::size_t item);
    void CgmEnd();

    void WriteHeaderElements();
    void Interior(int style);
    static void LineStyle();
    void EdgeAndFillStyle();
    void ClosedShape(std::uint16_t header, std::initializer_list<Offset> corners);
    static void TwoStrokes(std::initializer_list<Offset> first, std::initializer_list<Offset> second);
    void Circle();
    void OpenChain();
    static void WriteVertex(const CgmWords& vertex);
    void PatchLength();

    std::optional<std::int64_t> CgmLengthPos; ///< offset of the open polyline's length
    int interior = 0;                         ///< interior style last written to the file
    std::optional<CgmWords> carried;          ///< a full chain's last vertex, which opens the next one
};

} // namespace quelmont
