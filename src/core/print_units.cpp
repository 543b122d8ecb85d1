#include "core/print_units.h"

#include "core/checked_math.h"
#include "core/map_design.h"

namespace quelmont {

void ChangePrintUnit(std::int32_t twips) {
    const std::int32_t before = Design.PrintUnitTwips;
    if (twips == before) {
        return;
    }
    for (float* const length :
         {&Design.PrintLeft, &Design.PrintTop, &Design.PrintWidth, &Design.PrintHeight, &Design.ReportLeft,
          &Design.ReportRight, &Design.ReportTop, &Design.ReportBottom}) {
        *length = static_cast<float>(Divide(static_cast<double>(*length) * before, twips));
    }
    Design.PrintUnitTwips = twips;
}

} // namespace quelmont
