#pragma once

#include "output/fan_out.h"
#include "output/wmf/metafile_recorder.h"
#include "platform/draw_surface.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quelmont {

/// Writes a map as a Windows metafile with a placeable header, in logical units, y upward. The map is
/// recorded in memory; the file is written at the end.
///
/// A surface operation that fails shows its box under "Windows API Error" and the draw goes on.
class WmfWriter final : public FileWriter {
public:
    /// Begins a recording for WmfFileName: the map fills the window of logical units. Boxes of
    /// failures name mnuInput_Click, which arms the export.
    void Arm();

    void Header() override;
    void Point() override;
    void LineBreak() override;
    void Finish() override;
    void ResetLine() override;

private:
    struct Symbol {
        SurfacePoint centre;
        std::int32_t left, right, low, high, base, apex;
    };

    void WmfWrite();
    void ChainPoint(SurfacePoint point);
    void FlushChain();
    void DrawWmfSymbol(const Symbol& symbol);
    void Shape(const Symbol& symbol);
    void SaveMetafileToDisk();

    std::unique_ptr<MetafileRecorder> WmfSurface; ///< being recorded
    std::vector<SurfacePoint> WmfPoints;          ///< of the open chain
    std::uint32_t WmfPenColor = 0;
    std::int32_t WmfPenWidth = 1;
    SurfaceHandle WmfPen = 0;
    SurfaceHandle WmfBrush = 0;
    bool carried = false; ///< a full chain's last vertex opens the next one
    SurfacePoint last;
};

} // namespace quelmont
