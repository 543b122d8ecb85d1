#pragma once

namespace quelmont {

/// A writer of one file format: what the fan-out asks of it.
class FileWriter {
public:
    virtual ~FileWriter() = default;
    /// Opens the file's header at the first pass of a draw.
    virtual void Header() = 0;
    /// Takes the point in ProjX, ProjY.
    virtual void Point() = 0;
    /// Ends the current line.
    virtual void LineBreak() = 0;
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
/// OutputWmf, the first that is true. A failure shows "Error in PrintFileHeader" and sets
/// PlotStopReason to "GridDiskError".
void PrintFileHeader();

/// The line state of the file writers at the start of a draw and after a stop.
void ResetLineState();

} // namespace quelmont
