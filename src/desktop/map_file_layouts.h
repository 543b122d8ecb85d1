#pragma once

/// How the controls of the dialogs for the list of map files and for the ASCII export are arranged.

namespace quelmont {

class FormView;

void LayOutFileList(FormView& view);
void LayOutFileParameters(FormView& view);
void LayOutSymbolSize(FormView& view);
void LayOutAsciiOutputs(FormView& view);

} // namespace quelmont
