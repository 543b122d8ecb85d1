#include "output/ascii/ascii_writer.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "output/export_file.h"

namespace quelmont {

namespace {

constexpr double LiftedPen = 5.0;

} // namespace

void AsciiWriter::Point() {
    ++Design.PointCount;
    WriteExport(FormatNumber((Design.ProjX - Design.MapXMin) * Design.AsciiScale, "0.0000000  ") +
                FormatNumber((Design.ProjY - Design.MapYMin) * Design.AsciiScale, "00.0000000") + "\r\n");
}

void AsciiWriter::LineBreak() {
    Design.ProjX = Divide(LiftedPen, Design.AsciiScale) + Design.MapXMin;
    Design.ProjY = Divide(LiftedPen, Design.AsciiScale) + Design.MapYMin;
    ScaleXY();
}

} // namespace quelmont
