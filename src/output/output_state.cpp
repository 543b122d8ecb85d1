#include "output/output_state.h"

#include "output/export_file.h"

namespace quelmont {

OutputState OutputNow;

void ResetOutput() {
    DropExports();
    OutputNow = OutputState{};
}

} // namespace quelmont
