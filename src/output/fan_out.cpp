#include "output/fan_out.h"

#include "core/error_box.h"
#include "core/map_design.h"

namespace quelmont {

FileWriters& Writers() {
    static FileWriters writers;
    return writers;
}

namespace {

/// The first chain writer whose flag is set, in the order of a line break and of a header.
FileWriter* WriterOfChain() {
    const FileWriters& writers = Writers();
    return Design.OutputCgm   ? writers.cgm
           : Design.OutputDxf ? writers.dxf
           : Design.OutputWmf ? writers.wmf
                              : nullptr;
}

/// The first writer whose flag is set, in the order of a point.
FileWriter* WriterOfPoint() { return Design.OutputAscii ? Writers().ascii : WriterOfChain(); }

} // namespace

void ScaleXY() {
    if (FileWriter* writer = WriterOfPoint()) {
        Guarded("ScaleXY", [&] { writer->Point(); });
    }
}

void PrintLineBrkDisk() {
    Guarded("PrintLineBrkDisk", [] {
        if (FileWriter* writer = WriterOfChain()) {
            writer->LineBreak();
            Design.LineBreakPending = true;
            Design.PointCount = 0;
        } else if (Design.OutputAscii && Writers().ascii != nullptr) {
            Writers().ascii->LineBreak();
            Design.PointCount = 0;
        }
    });
}

void PrintFileHeader() {
    FileWriter* writer = WriterOfChain();
    if (writer == nullptr || !Design.LobeFirst) {
        return;
    }
    if (!Guarded("PrintFileHeader", [&] { writer->Header(); })) {
        Design.PlotStopReason = "GridDiskError";
    }
}

void StartFileStretch() {
    if (FileWriter* writer = WriterOfChain()) {
        writer->StartStretch();
    }
}

void FinishFile() {
    if (FileWriter* writer = WriterOfChain()) {
        writer->Finish();
        Design.LineBreakPending = true;
    }
    Design.OutputCgm = false;
    Design.OutputDxf = false;
    Design.OutputWmf = false;
}

void DisarmWriters() {
    Design.OutputAscii = false;
    Design.OutputCgm = false;
    Design.OutputDxf = false;
    Design.OutputWmf = false;
}

void ResetLineState() {
    Design.LineBreakPending = true;
    Design.PointCount = 0;
    for (FileWriter* writer : {Writers().ascii, Writers().cgm, Writers().dxf, Writers().wmf}) {
        if (writer != nullptr) {
            writer->ResetLine();
        }
    }
}

} // namespace quelmont
