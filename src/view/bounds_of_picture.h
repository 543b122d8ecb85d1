#pragma once

#include "core/map_design.h"
#include "mainwindow/drawn_picture.h"

#include <utility>

namespace quelmont {

/// The bounds that a picture was drawn with, in the place of those of the design as long as it lives.
class BoundsOfPicture {
public:
    explicit BoundsOfPicture(DrawnPicture& picture_) : picture(picture_) { Exchange(); }
    ~BoundsOfPicture() { Exchange(); }
    BoundsOfPicture(const BoundsOfPicture&) = delete;
    BoundsOfPicture& operator=(const BoundsOfPicture&) = delete;

private:
    void Exchange() noexcept {
        std::swap(static_cast<DesignBounds&>(Design), picture.bounds);
        std::swap(Design.ProjNum, picture.projNum);
    }

    DrawnPicture& picture;
};

} // namespace quelmont
