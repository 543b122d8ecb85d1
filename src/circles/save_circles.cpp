#include "circles/save_circles.h"

#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "output/export_file.h"
#include "platform/machine.h"

#include <string>
#include <string_view>

namespace quelmont {

namespace {

constexpr std::string_view Gap = "  ";

/// A number with a place for its sign.
std::string Signed(double value, const std::string& picture) {
    return FormatNumber(value, value < 0.0 ? picture : " " + picture);
}

void WritePoint(bool first, double lat, double lon) {
    std::string line = first ? " 0" : "-1";
    line += Gap;
    line += Signed(lat, "00.0000");
    line += Gap;
    line += Signed(lon, "000.0000");
    WriteExport(line + "\r\n");
}

void WriteGreatCircle() {
    const GreatCircleTable& table = Design.GcTable;
    if (table.Rows.empty()) {
        return;
    }
    for (std::int32_t i = table.GcFirst;; i += table.GcStep) {
        const GreatCirclePoint& row = table.Row(static_cast<std::int16_t>(i));
        WritePoint(i == table.GcFirst, row.GcLat, row.GcLon);
        if (i == table.GcLast) {
            return;
        }
    }
}

void WriteSmallCircles() {
    std::size_t point = 0;
    for (const std::int16_t end : Design.ScTable.ScRingEnd) {
        for (const std::size_t first = point; point < static_cast<std::size_t>(end); ++point) {
            const SmallCirclePoint& place = Design.ScTable.Points[point];
            WritePoint(point == first, place.ScLat, place.ScLon);
        }
    }
}

/// What the two tables differ in.
struct CircleFile {
    const char* routine;
    const char* caption;
    const char* undefinedTitle;
    const char* undefinedText;
    void (*write)();
};

constexpr CircleFile GreatCircleFile = {
    "GcSave", "Quelmont: printing Great Circle", "Great Circle Not Defined",
    "You have not defined the endpoints of the great circle.\n"
    "To define the endpoints, press OK, then select the Great Circle option from the Design Map menu.",
    WriteGreatCircle};

constexpr CircleFile SmallCircleFile = {
    "ScSave", "Quelmont: printing Small Circle", "Small Circle Not Defined",
    "You have not defined the center of the small circle.\n"
    "To define the center, press OK, then select the Small Circle option from the Design Map menu.",
    WriteSmallCircles};

void Save(const CircleFile& file, bool defined, const std::string& name) {
    if (!defined) {
        Machine().boxes->Ask(file.undefinedTitle, file.undefinedText, BoxButtons::Ok, BoxIcon::Exclamation);
        return;
    }
    MainWindow& window = *Machine().window;
    const std::string caption = window.Caption();
    window.SetCaption(file.caption);
    Guarded(file.routine, [&] {
        BeginExport(name);
        file.write();
        CloseExport();
        FinishExports();
    });
    DropExports(); // what is whole has taken its place
    window.SetCaption(caption);
}

} // namespace

void GcSave() {
    Save(GreatCircleFile, Design.GcDefined, Design.GcFileName);
    Design.OutputGc = false;
}

void ScSave() {
    Save(SmallCircleFile, Design.ScDefined, Design.ScFileName);
    Design.OutputSc = false;
}

} // namespace quelmont
