#pragma once

#include "platform/main_window.h"

#include <string>
#include <string_view>

namespace quelmont {

/// What a picture file holds besides the pixels.
struct PictureNotes {
    double pixelsPerMetreX = 0.0, pixelsPerMetreY = 0.0; ///< 0: unknown
    std::string title;                                   ///< UTF-8
    std::string software;                                ///< the program and its version
};

/// Pictures for other programs.
class Pictures {
public:
    virtual ~Pictures() = default;
    /// A picture as the bytes of a PNG file. RunTimeError "Invalid procedure call or argument" for an empty
    /// one, "Out of memory".
    virtual std::string Png(const PixelImage& picture, const PictureNotes& notes) = 0;
    /// Puts a map on the clipboard, where a program takes the form that it likes best: the bytes of a PNG
    /// file and of a drawing in SVG, which may be empty for none.
    virtual void Copy(std::string_view png, std::string_view svg) = 0;
};

} // namespace quelmont
