#include "mapinput/line_choice.h"

namespace quelmont {

LineChoice*& ChosenLines() {
    static LineChoice* lines = nullptr;
    return lines;
}

} // namespace quelmont
