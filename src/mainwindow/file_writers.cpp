#include "mainwindow/file_writers.h"

#include "output/ascii/ascii_writer.h"
#include "output/cgm/cgm_writer.h"
#include "output/dxf/dxf_writer.h"
#include "output/wmf/wmf_writer.h"

namespace quelmont {

namespace {

struct ProgramWriters {
    AsciiWriter ascii;
    CgmWriter cgm;
    DxfWriter dxf;
    WmfWriter wmf;
};

ProgramWriters writers;

} // namespace

void InstallWriters() {
    writers = ProgramWriters{};
    Writers() = {&writers.ascii, &writers.cgm, &writers.dxf, &writers.wmf};
}

} // namespace quelmont
