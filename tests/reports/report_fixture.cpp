#include "reports/report_fixture.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "graticule/calc_graticule.h"
#include "graticule/utm_grid.h"
#include "output/scale_screen.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/projection_table.h"
#include "projection/utm.h"
#include "reports/dist_err_select.h"
#include "reports/reports_state.h"

namespace quelmont {

ReportTest::ReportTest() {
    ConstantDefs();
    ConstantGrid();
}

void ReportTest::Prepare() {
    if (Design.ProjNum == ProjUtm) {
        CalcUtmZone();
        CalcUtmGrid();
    } else {
        CalcGraticule();
        ParamStdParallel();
    }
    ParamSelect();
    ScaleScreen();
}

void ReportTest::Start(std::int16_t projNum, int range) {
    Design.ProjNum = projNum;
    Design.ProjName = PropertiesOf(projNum).ProjName;
    if (projNum == ProjMercator) {
        Design.GridText[GridTextNorth] = "80    00    00    N";
        Design.GridText[GridTextSouth] = "80    00    00    S";
        Design.GridText[GridTextLatSpacing] = "020    00    00";
    }
    Design.GridText[GridTextRange] = FormatNumber(range, "000") + "    00    00";
    Prepare();
}

void ReportTest::SetBounds(const char* north, const char* south, const char* latGrid) {
    Design.GridText[GridTextNorth] = north;
    Design.GridText[GridTextSouth] = south;
    Design.GridText[GridTextLatSpacing] = latGrid;
    Prepare();
}

void ReportTest::SampleAt(double lat, double lon) {
    ReportsNow.ScaleErrLat = lat;
    ReportsNow.ScaleErrLon = lon;
    ReportsNow.ScaleErrIndex = 1;
    EXPECT_TRUE(DistErrSelect());
}

ReportTest::Scales ReportTest::Sampled() {
    return {ValueOf(ReportsNow.ScaleErrMeridian[1]), ValueOf(ReportsNow.ScaleErrParallel[1]),
            ValueOf(ReportsNow.ScaleErrArea[1])};
}

std::array<std::string, 3> ReportTest::SampledTexts() {
    return {ReportsNow.ScaleErrMeridian[1], ReportsNow.ScaleErrParallel[1], ReportsNow.ScaleErrArea[1]};
}

std::vector<ReportRow> RowsOf(const Report& report, const std::string& title) {
    std::vector<ReportRow> rows;
    for (const ReportSection& section : report.sections) {
        if (section.title == title) {
            for (const ReportBlock& block : section.blocks) {
                rows.insert(rows.end(), block.rows.begin(), block.rows.end());
            }
        }
    }
    return rows;
}

std::vector<std::string> TitlesOf(const Report& report) {
    std::vector<std::string> titles;
    for (const ReportSection& section : report.sections) {
        titles.push_back(section.title);
    }
    return titles;
}

} // namespace quelmont
