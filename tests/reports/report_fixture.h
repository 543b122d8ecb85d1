#pragma once

#include "reports/report.h"
#include "support/fresh_program.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// A program with a design that a report can tell of.
class ReportTest : public FreshProgramTest {
protected:
    ReportTest();

    /// The whole world on a projection, or its default zone; azimuthal maps about their centre with a range
    /// in degrees.
    static void Start(std::int16_t projNum, int range = 60);
    /// Makes numbers of the texts anew.
    static void Prepare();
    static void SetBounds(const char* north, const char* south, const char* latGrid);

    /// Samples one point into row 1.
    static void SampleAt(double lat, double lon);
    /// Row 1 as numbers.
    struct Scales {
        double h = 0.0, k = 0.0, area = 0.0;
    };
    static Scales Sampled();
    static std::array<std::string, 3> SampledTexts();
};

/// Rows of the section with that title.
std::vector<ReportRow> RowsOf(const Report& report, const std::string& title);
/// The titles of a report in their order.
std::vector<std::string> TitlesOf(const Report& report);

} // namespace quelmont
