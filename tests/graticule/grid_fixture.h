#pragma once

#include "output/fan_out.h"
#include "support/fresh_program.h"

#include <cstdint>
#include <vector>

namespace quelmont {

/// A point as it came to the file writer: projected, and as it was before.
struct WrittenPoint {
    double x = 0.0, y = 0.0;
    double lat = 0.0, lon = 0.0;
};

/// A writer that keeps the lines that it gets, exactly. It takes the metafile's place, which opens
/// no file number. Symbols that stand alone make a line each.
class LineRecorder : public FileWriter {
public:
    LineRecorder() { Writers().wmf = this; }
    ~LineRecorder() override { Writers().wmf = nullptr; }
    LineRecorder(const LineRecorder&) = delete;
    LineRecorder& operator=(const LineRecorder&) = delete;

    void Header() override { ++headers; }
    /// In the place of the writer of text files it opens those files.
    void OpenStretch(std::size_t slot) override;
    void Point() override;
    void LineBreak() override;
    void Forget();

    int headers = 0;
    int breaks = 0;
    std::vector<std::vector<WrittenPoint>> lines;
    std::vector<WrittenPoint> dots;

private:
    bool open = false;
};

/// Gives the design of a projection its numbers as the dialogs do: CalcGraticule or CalcUtmZone and
/// CalcUtmGrid, ParamStdParallel, ParamSelect, ScaleScreen; for the first pass of a draw.
void PrepareDesign();

/// A program about to plot the grid of a design.
class GridTest : public FreshProgramTest {
protected:
    GridTest();
    ~GridTest() override;

    /// The default design of a projection with a grid type.
    void Start(std::int16_t projNum, std::int16_t gridTypeCode = 3);
    /// Plots a prepared design with the recorder armed.
    void PlotRecorded();

    RecordingSurface& surface = machine.window.surface;
    LineRecorder recorder;
};

} // namespace quelmont
