#include "output/ascii/ascii_writer.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "output/export_file.h"

namespace quelmont {

namespace {

constexpr double LiftedPen = 5.0;
constexpr int Decimals = 7;

} // namespace

void AsciiWriter::OpenStretch(std::size_t slot) {
    if (slot < 1 || slot > Design.AsciiFileName.size()) {
        throw RunTimeError(ErrorSubscript);
    }
    Design.OutputFileName = Design.AsciiFileName[slot - 1];
    if (ExportBegun(Design.OutputFileName)) {
        ResumeExport(Design.OutputFileName);
    } else {
        BeginExport(Design.OutputFileName);
    }
}

void AsciiWriter::Finish() { FinishExports(); }

void AsciiWriter::Point() {
    ++Design.PointCount;
    line.clear();
    AppendFixed(line, (Design.ProjX - Design.MapXMin) * Design.AsciiScale, 1, Decimals);
    line += "  ";
    AppendFixed(line, (Design.ProjY - Design.MapYMin) * Design.AsciiScale, 2, Decimals);
    line += "\r\n";
    WriteExport(line);
}

void AsciiWriter::LineBreak() {
    Design.ProjX = Divide(LiftedPen, Design.AsciiScale) + Design.MapXMin;
    Design.ProjY = Divide(LiftedPen, Design.AsciiScale) + Design.MapYMin;
    ScaleXY();
}

} // namespace quelmont
