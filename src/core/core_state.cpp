#include "core/core_state.h"

#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"

namespace quelmont {

void ResetCore() {
    Design = MapDesign{};
    ResetDrawBoxes();
    for (const int number : {InputFileNumber, OutputFileNumber}) {
        try {
            CloseFile(number);
        } catch (const RunTimeError&) {
            // The number is free all the same.
        }
    }
    SetFileDeviceMaker(nullptr);
}

} // namespace quelmont
