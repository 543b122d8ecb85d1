#pragma once

#include "core/run_time_error.h"
#include "output/fan_out.h"
#include "output/wmf/metafile_recorder.h"
#include "platform/draw_surface.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace quelmont {

/// Writes a map as a Windows metafile with a placeable header, in logical units, y upward. The records
/// go to the file by the block, whatever their number; the headers, which depend on all records, come at
/// the end.
///
/// A surface operation that fails shows its message box under "Windows API Error" and the draw goes on.
class WmfWriter final : public FileWriter {
public:
    /// Begins a recording for WmfFileName: the map fills the window of logical units. Message boxes of
    /// failures name mnuInput_Click, the command.
    void Header() override;
    /// RunTimeError "File not found" without a recording.
    void OpenStretch(std::size_t slot) override;
    void Point() override;
    void LineBreak() override;
    bool TakesAreas() const override { return true; }
    void Area(ColorValue color, const PlaneRings& rings) override;
    void Finish() override;
    void ResetLine() override;

private:
    struct Symbol {
        SurfacePoint centre;
        std::int32_t left, right, low, high, base, apex;
    };

    MetafileRecorder& WmfSurface();
    void WmfWrite();
    void ChainPoint(SurfacePoint point);
    void FlushChain();
    /// The texts of the design, over everything.
    void RecordText();
    void DrawWmfSymbol(const Symbol& symbol);
    void Shape(const Symbol& symbol);
    void SaveBlock();
    void SaveRecords();
    void CloseRecords();
    void SaveMetafileToDisk();

    std::optional<MetafileRecorder> recording;
    std::optional<RunTimeError> beginningFailed; ///< the file could not be made
    bool begun = false;                          ///< it was made, or could not be
    bool written = true;                         ///< all that was recorded
    std::vector<SurfacePoint> WmfPoints;         ///< of the open chain
    std::uint32_t WmfPenColor = 0;
    std::int32_t WmfPenWidth = 1;
    SurfaceHandle WmfPen = 0;
    SurfaceHandle WmfBrush = 0;
    std::optional<SurfacePoint> carried; ///< a full chain's last vertex, which opens the next one
};

} // namespace quelmont
