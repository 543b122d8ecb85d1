#pragma once

#include "platform/form.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quelmont {

/// A dialog of the program in one of its states.
struct CataloguedDialog {
    std::string name; ///< as a file name
    std::function<std::unique_ptr<Form>()> make;
};

/// Every dialog of the program. Making one prepares the started design for it.
const std::vector<CataloguedDialog>& DialogCatalogue();

} // namespace quelmont
