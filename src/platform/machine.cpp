#include "platform/machine.h"

namespace quelmont {

MachineInterfaces& Machine() {
    static MachineInterfaces machine;
    return machine;
}

} // namespace quelmont
