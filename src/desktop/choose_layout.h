#pragma once

/// How the controls of the dialog that helps to choose a projection are arranged.

namespace quelmont {

class FormView;

void LayOutChooseProjection(FormView& view);

} // namespace quelmont
