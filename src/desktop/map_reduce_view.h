#pragma once

#include "desktop/form_view.h"

namespace quelmont {

/// "Select Map Size": the explanation, the percentage, the two buttons.
class MapReduceView final : public FormView {
public:
    MapReduceView(Form& form, QWidget* parent);
};

} // namespace quelmont
