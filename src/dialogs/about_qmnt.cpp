#include "dialogs/about_qmnt.h"

#include "core/map_design.h"

namespace quelmont {

namespace {

constexpr const char* Purpose = "Draws outline maps on seventeen projections.";
constexpr const char* Licence = "Copyright \u00A9 2026 the Quelmont developers.  Free software under the MIT "
                                "licence, without any warranty.";
constexpr const char* WorldMap = "The world map \"Qmnt4.map\" was made from Natural Earth data, scale 1:10 "
                                 "million, which are in the public domain (www.naturalearthdata.com).";

} // namespace

AboutQMNT::AboutQMNT() : Form("AboutQMNT", "About Quelmont") {
    Add({.name = "Title", .kind = ControlKind::Label, .text = "Quelmont"});
    Add({.name = "Version", .kind = ControlKind::Label, .text = "Version " + Design.VersionText});
    Add({.name = "Purpose", .kind = ControlKind::Label, .text = Purpose});
    Add({.name = "Licence", .kind = ControlKind::Label, .text = Licence});
    Add({.name = "WorldMap", .kind = ControlKind::Label, .text = WorldMap});
    Add({.name = "OK", .kind = ControlKind::Button, .text = "&OK"});
    On("OK", ControlEvent::Click, [this] { Close(); });
    SetDefaultButton("OK");
    SetCancelButton("OK");
}

} // namespace quelmont
