#pragma once

#include "platform/pictures.h"

namespace quelmont {

/// Pictures on a desktop, whose clipboard takes them. Needs a QApplication.
class DesktopPictures final : public Pictures {
public:
    std::string Png(const PixelImage& picture, const PictureNotes& notes) override;
    void Copy(std::string_view png, std::string_view svg) override;
};

} // namespace quelmont
