#pragma once

#include "core/standard_colors.h"
#include "output/fan_out.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// Writes a map as a binary Computer Graphics Metafile (ISO/IEC 8632-3) in logical units, y upward.
///
/// Elements go to the file as points arrive. An element is built in CgmBuffer, a byte to an entry; a
/// polyline stands in the long form, and its length is written over when it ends. An element header
/// is one word: class in bits 15 to 12, id in bits 11 to 5, length of the parameters in bits 4 to 0,
/// where 31 means that a word with the length follows.
///
/// Each routine shows the box of its own failure and ends; the draw goes on.
class CgmWriter final : public FileWriter {
public:
    void Header() override;
    void OpenStretch(std::size_t slot) override;
    void StartStretch() override;
    void Point() override;
    void LineBreak() override;
    void Finish() override;
    void ResetLine() override;

    /// The colour of the circles that are shown, before their lines.
    void CgmLineColor(ColorValue color);

private:
    using Vertex = std::array<char, 4>;
    static constexpr std::size_t EntryCount = 25;

    void CgmHeader();
    void CgmStartNewBoundaryFile();
    void CgmWrite();
    void CgmPoly();
    bool CgmVertices(int start, int count, int stride);
    void CgmColors(ColorValue color);
    void ColourElement(std::uint16_t header, ColorValue color);
    void CgmShort();
    void CgmString(std::string_view text);
    void CgmText(std::size_t item);
    void CgmEnd();

    void Write(std::string_view bytes);
    void Set(std::size_t entry, std::uint16_t word);
    void Element(std::uint16_t header, std::initializer_list<int> parameters);
    void Interior(int style);
    void LineStyle();
    void EdgeAndFillStyle();
    void ClosedShape(std::uint16_t header, std::initializer_list<int> offsets);
    void TwoStrokes(std::initializer_list<int> first, std::initializer_list<int> second);
    void Circle();
    void OpenChain();
    void WriteVertex(const Vertex& vertex);
    void PatchLength();
    void WriteHeaderElements();

    std::array<std::uint16_t, EntryCount> CgmBuffer = {};
    /// Vertex offsets in thousandths of a half size: x, then y from entry 5 on.
    std::array<std::int16_t, 10> CgmOffset = {};
    std::int16_t CgmByteCount = 0; ///< bytes of CgmBuffer to be written; -1 for a TEXT element
    std::int64_t CgmWritePos = 1;  ///< next position in the file, from 1
    std::int64_t CgmLengthPos = 0; ///< position of the open polyline's length, 0 when none is open
    int interior = 0;              ///< style of shapes that the file has last been told
    std::optional<Vertex> carried; ///< a full chain's last vertex, which opens the next one
};

} // namespace quelmont
