#include "dialogs/exports/line_width_scale.h"

#include "core/map_design.h"

namespace quelmont {

namespace {

constexpr const char* Explanation =
    "Line width scaling has no effect on the width of lines displayed on the screen.\n\n"
    "Line width scaling affects the width of lines on printed maps; and on maps exported as WMF, CGM, or "
    "DXF files.\n\n"
    "Relative scaling makes the width of lines proportional to the width of the map.  If you double the size "
    "of the printed map, the width of lines on the map also doubles.\n\n"
    "No scaling gives the narrowest possible lines on the exported map.  A line width increment of 1, "
    "corresponds to an increment of 1 pixel on the exported map.";

} // namespace

LineWidthScale::LineWidthScale() : DesignDialog("LineWidthScale", "Line Width Scaling") {
    Add({.name = "Label1", .kind = ControlKind::Label, .text = Explanation});
    Add({.name = "LineWidthFrame", .kind = ControlKind::Frame, .text = "Type of scaling"});
    Add({.name = "LineWidthPixels",
         .kind = ControlKind::Option,
         .text = "&No Scaling",
         .value = Design.LineWidthsScaled ? 0 : 1,
         .frame = "LineWidthFrame"});
    Add({.name = "LineWidthRelative",
         .kind = ControlKind::Option,
         .text = "&Relative Scaling (default)",
         .value = Design.LineWidthsScaled ? 1 : 0,
         .frame = "LineWidthFrame"});
    AddOkAndCancel([this] { OK_Click(); });
}

void LineWidthScale::OK_Click() {
    Design.LineWidthsScaled = At("LineWidthRelative").value != 0;
    CloseAccepted();
}

} // namespace quelmont
