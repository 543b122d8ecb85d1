#include "mainwindow/map_picture.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "output/bmp/bmp_file.h"
#include "output/export_file.h"
#include "platform/machine.h"
#include "reports/map_description.h"

#include <string>

namespace quelmont {

namespace {

constexpr double TwipsPerInch = 1440.0;
constexpr double MetresPerInch = 0.0254;

double PixelsPerMetre(float twipsPerPixel) { return Divide(TwipsPerInch, twipsPerPixel) / MetresPerInch; }

} // namespace

PictureNotes NotesOfMap() {
    return {.pixelsPerMetreX = PixelsPerMetre(Design.TwipsPerPixelX),
            .pixelsPerMetreY = PixelsPerMetre(Design.TwipsPerPixelY),
            .title = MapTitleText(),
            .software = "Quelmont " + Design.VersionText};
}

void PngSave() {
    Guarded("PngSave", [] {
        BitmapCapture capture;
        if (CaptureBmp(capture)) {
            const std::string png = Machine().pictures->Png(capture.pixels, NotesOfMap());
            BeginExport(Design.PngFileName);
            WriteExport(png);
            CloseExport();
            FinishExports();
        }
    });
    DropExports();
}

} // namespace quelmont
