#pragma once

namespace quelmont {

/// A writer of one file format: what the fan-out asks of it. A draw begins the file, writes it in
/// stretches, one for the grid and one for each map file, and finishes it.
class FileWriter {
public:
    virtual ~FileWriter() = default;
    /// Begins the file at the first pass of a draw. A writer that shows the box of a failure itself
    /// sets PlotStopReason to "GridDiskError".
    virtual void Header() {}
    /// A stretch of map data begins; the file is open.
    virtual void StartStretch() {}
    /// Takes the point in ProjX, ProjY.
    virtual void Point() = 0;
    /// Ends the current line.
    virtual void LineBreak() = 0;
    /// After the last stretch: texts, the file's end, and the file takes its place. Failures show
    /// their box.
    virtual void Finish() {}
    /// The state of the current line at the start of a draw and after a stop.
    virtual void ResetLine() {}
};

/// The writers by their flags in Design. A writer is put here at start-up; without one its flag
/// does nothing.
struct FileWriters {
    FileWriter* ascii = nullptr;
    FileWriter* cgm = nullptr;
    FileWriter* dxf = nullptr;
    FileWriter* wmf = nullptr;
};
FileWriters& Writers();

/// Hands the point in ProjX, ProjY to the one writer whose flag is set: OutputAscii, OutputCgm,
/// OutputDxf, OutputWmf, the first that is true. A failure shows "Error in ScaleXY".
void ScaleXY();

/// Ends the current line on the file device: OutputCgm, OutputDxf, OutputWmf, OutputAscii, the
/// first that is true. Writes LineBreakPending (not for ASCII) and PointCount. The screen and the
/// printer need no break. A failure shows "Error in PrintLineBrkDisk".
void PrintLineBrkDisk();

/// Writes the header of the file device at the first pass of a draw: OutputCgm, OutputDxf,
/// OutputWmf, the first that is true. A failure shows its box, "Error in PrintFileHeader" when the
/// writer has none, and sets PlotStopReason to "GridDiskError".
void PrintFileHeader();

/// Clears the flags of all writers.
void DisarmWriters();

/// A stretch of map data begins on the file device.
void StartFileStretch();

/// Finishes the file of OutputCgm, OutputDxf or OutputWmf, the first that is true, and clears the
/// flag. ASCII files are finished as each is closed.
void FinishFile();

/// The line state of the file writers at the start of a draw and after a stop.
void ResetLineState();

} // namespace quelmont
