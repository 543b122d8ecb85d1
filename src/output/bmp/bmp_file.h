#pragma once

#include "platform/main_window.h"

#include <cstdint>
#include <string>

namespace quelmont {

/// A copy of the pixels of the window, to be saved.
struct BitmapCapture {
    PixelImage pixels;
};

/// Bytes of a row of pixels: whole bytes, rounded up to four.
std::int32_t BmpStride(int bits, std::int32_t width);

/// Rows that are written at once: as many as fit 16384 bytes, one at least.
std::int32_t BmpStripeRows(std::int32_t stride);

/// Copies the drawing area, which is blank before the first draw. False, and the message box
/// "BITMAP_CaptureBmp - Capture Failed", when it has no size.
bool CaptureBmp(BitmapCapture& capture);

/// Writes a capture as a bitmap file of 24 bits a pixel, rows from the bottom up. A capture without
/// pixels shows "BITMAP_SaveBmp - No Bitmap". RunTimeError as BeginExport and WriteExport.
void SaveBmp(const std::string& name, const BitmapCapture& capture);

/// Saves the drawing area to BmpFileName. A failure shows "Error in BmpSave"; an earlier file stays
/// then.
void BmpSave();

} // namespace quelmont
