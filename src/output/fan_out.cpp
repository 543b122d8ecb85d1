#include "output/fan_out.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "output/export_file.h"
#include "output/output_state.h"

namespace quelmont {

FileWriters& Writers() { return OutputNow.writers; }

Export ArmedExport() {
    return Design.OutputAscii ? Export::Ascii
           : Design.OutputCgm ? Export::Cgm
           : Design.OutputDxf ? Export::Dxf
           : Design.OutputWmf ? Export::Wmf
           : Design.OutputSvg ? Export::Svg
                              : Export::None;
}

FileWriter* ArmedWriter() {
    const FileWriters& writers = Writers();
    switch (ArmedExport()) {
    case Export::Ascii:
        return writers.ascii;
    case Export::Cgm:
        return writers.cgm;
    case Export::Dxf:
        return writers.dxf;
    case Export::Wmf:
        return writers.wmf;
    case Export::Svg:
        return writers.svg;
    case Export::None:
        break;
    }
    return nullptr;
}

void ScaleXY() {
    if (FileWriter* writer = ArmedWriter()) {
        GuardedWriting("ScaleXY", [&] { writer->Point(); });
    }
}

void PrintLineBrkDisk() {
    if (FileWriter* writer = ArmedWriter()) {
        GuardedWriting("PrintLineBrkDisk", [&] {
            writer->LineBreak();
            if (ArmedExport() != Export::Ascii) {
                OutputNow.LineBreakPending = true;
            }
            Design.PointCount = 0;
        });
    }
}

void PrintFileHeader() {
    FileWriter* writer = ArmedWriter();
    if (writer == nullptr || !Design.LobeFirst) {
        return;
    }
    if (!Guarded("PrintFileHeader", [&] { writer->Header(); })) {
        Design.PlotStopReason = StopReason::GridDiskError;
    }
}

void StartFileStretch() {
    if (FileWriter* writer = ArmedWriter()) {
        writer->StartStretch();
    }
}

void StartCircles(ColorValue color) {
    if (FileWriter* writer = ArmedWriter()) {
        writer->StartCircles(color);
    }
}

void BeginFilePart(MapPart part, std::string_view title) {
    if (FileWriter* writer = ArmedWriter()) {
        writer->BeginPart(part, title);
    }
}

void BeginFileFeature(std::int16_t feature, std::string_view title) {
    if (FileWriter* writer = ArmedWriter()) {
        writer->BeginFeature(feature, title);
    }
}

void FinishFile() {
    if (FileWriter* writer = ArmedWriter()) {
        writer->Finish();
        OutputNow.LineBreakPending = true;
    }
    Design.OutputCgm = false;
    Design.OutputDxf = false;
    Design.OutputWmf = false;
    Design.OutputSvg = false;
}

void DisarmWriters() {
    Design.OutputAscii = false;
    Design.OutputCgm = false;
    Design.OutputDxf = false;
    Design.OutputWmf = false;
    Design.OutputSvg = false;
}

void ResetLineState() {
    OutputNow.LineBreakPending = true;
    Design.PointCount = 0;
    const FileWriters& writers = Writers();
    for (FileWriter* writer : {writers.ascii, writers.cgm, writers.dxf, writers.wmf, writers.svg}) {
        if (writer != nullptr) {
            writer->ResetLine();
        }
    }
}

} // namespace quelmont
