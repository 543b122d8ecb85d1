#include "label_fixture.h"

#include "core/constant_defs.h"
#include "core/coordinates.h"
#include "output/draw_target.h"
#include "output/scale_screen.h"

namespace quelmont {

LabelTest::LabelTest() {
    ConstantDefs();
    Design.ProjNum = ProjEquirectangular;
    Design.CosStdPar = 1.0;
    Design.MapXMax = 191.85 * DegToRad;
    Design.MapYMax = 138.45 * DegToRad;
    ScaleScreen();
    SelectDevice();
    AddFile();
}

InputFileEntry& LabelTest::AddFile(std::int16_t symbolType) {
    InputFileEntry& file = Design.InputFiles.emplace_back();
    file.MapFileType = symbolType;
    file.Features[1].SymbolSize = 45;
    file.Features[1].BorderWidth = 15;
    return file;
}

MapLabel& LabelTest::AddLabel(const std::string& text, double lat, double lon, std::int16_t file) {
    MapLabel& label = Design.MapLabels.emplace_back();
    label.LabelText = text;
    label.LabelLat = lat;
    label.LabelLon = lon;
    label.LabelFont = "Times";
    label.LabelSize = 12;
    label.LabelSymbolIndex = file;
    return label;
}

} // namespace quelmont
