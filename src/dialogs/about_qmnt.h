#pragma once

#include "platform/form.h"

namespace quelmont {

/// The about box: name, version, licence, and where the world map comes from.
class AboutQMNT : public Form {
public:
    AboutQMNT();
};

} // namespace quelmont
