#include "platform/place_picker.h"

namespace quelmont {

PlacePicker*& Picker() {
    static PlacePicker* picker = nullptr;
    return picker;
}

} // namespace quelmont
