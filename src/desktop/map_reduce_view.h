#pragma once

#include "desktop/form_view.h"

namespace quelmont {

/// "Select Map Size": the explanation, the percentage, the two buttons.
class MapReduceView final : public FormView {
public:
    MapReduceView(Form& shown, QWidget* parent);
};

} // namespace quelmont
