#pragma once

#include "core/standard_colors.h"
#include "output/area_rings.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quelmont {

/// The parts of a map, which a file with groups keeps apart.
enum class MapPart : std::uint8_t { Grid, MapFile, SmallCircles, GreatCircle, Frame, Distortion, Areas };
constexpr std::size_t MapPartCount = 7;

/// Titles of MapPart::Areas.
constexpr std::string_view LandTitle = "Land";
constexpr std::string_view LakesTitle = "Lakes";
constexpr std::string_view SeaTitle = "Sea";

/// A writer of one file format: what the fan-out asks of it. A draw begins the file, writes it in
/// stretches, one for the grid and one for each map file, and finishes it.
class FileWriter {
public:
    virtual ~FileWriter() = default;
    /// Begins the file at the first pass of a draw. A writer that shows the message box of a failure itself
    /// sets PlotStopReason to StopReason::GridDiskError.
    virtual void Header() {}
    /// Opens the file for a stretch; slot counts the names in AsciiFileName from 1. RunTimeError as
    /// ResumeExport.
    virtual void OpenStretch(std::size_t /*slot*/) {}
    /// A stretch of map data begins; the file is open.
    virtual void StartStretch() {}
    /// Circles of a colour begin; the file is open.
    virtual void StartCircles(ColorValue /*color*/) { StartStretch(); }
    /// What comes is another part of the map; the title is for people.
    virtual void BeginPart(MapPart /*part*/, std::string_view /*title*/) {}
    /// What comes of a map file is this feature of it, a row of the file's styles. It may be the one before.
    virtual void BeginFeature(std::int16_t /*feature*/, std::string_view /*title*/) {}
    /// Takes the point in ProjX, ProjY.
    virtual void Point() = 0;
    /// Ends the current line.
    virtual void LineBreak() = 0;
    /// Whether Area does something; there is no need to find areas for a writer that takes none.
    virtual bool TakesAreas() const { return false; }
    /// Fills what lies inside an odd number of the rings, which are in projection units; the file is open for
    /// the stretch of the grid. Areas of MapPart::Distortion belong to the part and the feature that began
    /// last, others to no part.
    virtual void Area(ColorValue /*color*/, const PlaneRings& /*rings*/) {}
    /// After the last stretch: texts, the file's end, and the file takes its place. A writer whose
    /// routines have names shows the message boxes of their failures.
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
    FileWriter* svg = nullptr;
};
FileWriters& Writers();

/// What a draw is exported to.
enum class Export { None, Ascii, Cgm, Dxf, Wmf, Svg };

/// The armed export: of OutputAscii, OutputCgm, OutputDxf, OutputWmf, OutputSvg the first that is true.
Export ArmedExport();

/// The writer of the armed export; nullptr without one.
FileWriter* ArmedWriter();

/// Hands the point in ProjX, ProjY to the armed writer. A failure shows "Error in ScaleXY".
void ScaleXY();

/// Ends the current line of the armed writer. Writes LineBreakPending (not for ASCII) and PointCount. The
/// screen and the printer need no break. A failure shows "Error in PrintLineBrkDisk".
void PrintLineBrkDisk();

/// Writes the header of the armed writer at the first pass of a draw. A failure shows its message box, "Error
/// in PrintFileHeader" when the writer has none, and sets PlotStopReason to StopReason::GridDiskError.
void PrintFileHeader();

/// Clears the flags of all writers.
void DisarmWriters();

/// A stretch of map data begins in the armed writer's file.
void StartFileStretch();

/// The same of the lines of circles, and their colour.
void StartCircles(ColorValue color);

/// Tells the armed writer which part of the map, and which feature of a map file, comes next.
void BeginFilePart(MapPart part, std::string_view title);
void BeginFileFeature(std::int16_t feature, std::string_view title);

/// Finishes the files of the armed writer and disarms it, but for ASCII, which stays armed to the end of
/// the draw. RunTimeError as FinishExports, from ASCII alone.
void FinishFile();

/// The line state of the file writers at the start of a draw and after a stop.
void ResetLineState();

} // namespace quelmont
