#pragma once

#include "output/fan_out.h"
#include "output/logical_point.h"

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace quelmont {

/// Writes a map as a DXF file (release 12) in logical units: groups of a code in three columns and a
/// value, a line each. Lines are polylines with their width, filled shapes solids or thick arcs.
///
/// Each routine shows the message box of its own failure and ends; the draw goes on.
class DxfWriter final : public FileWriter {
public:
    void Header() override;
    void OpenStretch(std::size_t slot) override;
    void StartStretch() override;
    void BeginPart(MapPart part, std::string_view title) override;
    void Point() override;
    void LineBreak() override;
    /// As solids, triangles or trapezoids, on a layer that is named by the title of their part.
    bool TakesAreas() const override { return true; }
    void Area(ColorValue color, const PlaneRings& rings) override;
    void Finish() override;
    void ResetLine() override;

private:
    struct Place {
        double x, y;
    };

    static void DxfHeader();
    void DxfWrite();
    void DxfPolylineTerminate();
    void DxfEnd();
    static void DxfText(std::size_t item);

    void Chain();
    void Symbol();
    static void StartEntity(std::string_view name, const std::string& colour, std::string_view layer = "0");
    static void PolylineHead(double width, bool closed);
    void Vertex(Place place);
    static void SequenceEnd();
    void Stroke(Place from, Place to, double width);
    void Ring(std::initializer_list<Place> corners, double width);
    static void Solid(std::initializer_list<Place> corners);
    void Disk(double left, double right, double y, double width);
    void Circle(LogicalPoint centre, int middle, double width);

    std::int64_t DxfSeqEndPos = 0; ///< length of the file before the last sequence end
    bool PolylineMark = false;     ///< a stretch of lines has begun and has no vertex yet
    std::optional<Place> carried;  ///< a full chain's last vertex, which opens the next one
    Place last = {0.0, 0.0};
    std::string vertexText; ///< kept for its memory
    std::string areaLayer = "0";
};

} // namespace quelmont
