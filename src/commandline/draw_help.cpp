#include "commandline/draw_help.h"

#include "projection/projection_table.h"
#include "projection/utm.h"

namespace quelmont {

namespace {

constexpr const char* Notes =
    R"(An angle A is 40N, 122:26:00W, 22:30, or decimal degrees such as -37.5 (south and
west are negative). What is not given stands as the dialogs of the window propose
it: bounds and grid for the projection, standard parallels for the bounds.

A map file that ends in .prn is a text of one's own, a point on each line:
  flag, latitude, longitude, and perhaps a label in double quotes
The flag is -1 where a line begins and 0 where it goes on. Decimal degrees, south and
west negative; commas or blanks between them:
  -1  46.20   6.15  "Geneva"
   0  46.52   6.63
   0  46.46   6.84
  -1 -33.86 151.21  "Sydney"

A map design holds all of a map: what the window's "Save Map Design" and --save-design
write, and what "Recall Map Design" and --design read. Options beside --design change
what they name; those of a map file without --map change every map file of the design.

Examples:
  quelmont-draw world.png
      The whole world on the equirectangular projection.
  quelmont-draw --projection mercator --north 48N --south 30N --west 7W --east 37E \
      --lat-grid 6 --lon-grid 4 --window 1600x1000 --text "Mare Nostrum" --at 45%,68% \
      --text-size 24 --italic --rotate 10 mediterranean.png
      A region, on a larger picture, with a name on it.
  quelmont-draw --projection orthographic --central-lat 20S --central-lon 60W \
      --map rivers.map --feature-color 0000FF --map towns.prn --symbol 12 \
      --label-font "DejaVu Serif" --label-size 12 america.png
      A globe, with map files and styles of one's own, and the names of the towns.
  quelmont-draw --projection "azimuthal equidistant" --central-lat 37:47N \
      --central-lon 122:26W --great-circle 37:47N,122:26W,29:20N,47:59E \
      --small-circle 37:47N,122:26W,90 --circles 9 --small-circle-width 1 route.png
      The shortest way between two places, and rings of equal distance.
  quelmont-draw --design trip.cnf --background E0F0FF trip.png
      A design made in the window, on another background.

  quelmont-draw --projection robinson --landscape --paper A3 --map-width 38cm world.pdf
      A page to print, or to send.

Exit status: 0 done; 1 the design was refused, or a map file, the picture or a table
failed, as the messages tell; 2 the command line is wrong, or its circles were refused.)";

} // namespace

std::string HelpBelowOptions() {
    std::string text = "Projections, by number or name; the first words of a name will do:\n";
    for (const ProjectionEntry& entry : Projections) {
        const std::string number = std::to_string(entry.ProjNum);
        text += std::string(4 - number.size(), ' ') + number + "  " + std::string(entry.ProjName) + "\n";
    }
    text += "\nSpheroids:\n";
    for (const Spheroid& spheroid : Spheroids) {
        text += "  " + std::string(spheroid.name) + "\n";
    }
    return text + "\n" + Notes;
}

} // namespace quelmont
