#pragma once

#include "core/map_design.h"

#include <utility>

namespace quelmont {

/// Puts the whole design back as it was when it was made: whoever works something out on another one.
class DesignPutBack {
public:
    DesignPutBack() = default;
    ~DesignPutBack() { std::swap(Design, before); }
    DesignPutBack(const DesignPutBack&) = delete;
    DesignPutBack& operator=(const DesignPutBack&) = delete;

private:
    MapDesign before = Design;
};

} // namespace quelmont
