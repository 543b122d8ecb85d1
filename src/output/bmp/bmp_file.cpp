#include "output/bmp/bmp_file.h"

#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "output/export_file.h"
#include "output/little_endian.h"
#include "platform/machine.h"

#include <algorithm>

namespace quelmont {

namespace {

constexpr int BitsPerPixel = 24;
constexpr std::int32_t StripeBytes = 16384;
constexpr std::uint16_t Signature = 0x4D42; // "BM"
constexpr std::uint32_t HeaderBytes = 0x36;
constexpr std::uint32_t InfoHeaderBytes = 0x28;

std::string Header(std::int32_t width, std::int32_t height) {
    const auto imageBytes =
        static_cast<std::uint32_t>(BmpStride(BitsPerPixel, width)) * static_cast<std::uint32_t>(height);
    std::string header;
    AppendWord(header, Signature);
    AppendLong(header, imageBytes + HeaderBytes);
    AppendLong(header, 0);
    AppendLong(header, HeaderBytes);
    AppendLong(header, InfoHeaderBytes);
    AppendLong(header, static_cast<std::uint32_t>(width));
    AppendLong(header, static_cast<std::uint32_t>(height));
    AppendWord(header, 1); // plane
    AppendWord(header, BitsPerPixel);
    AppendLong(header, 0); // not compressed
    AppendLong(header, imageBytes);
    header.resize(HeaderBytes, '\0'); // resolution and colour counts stay 0
    return header;
}

/// Blue, green, red of each pixel of a row, counted from the top, with its padding.
void AppendRow(std::string& stripe, const PixelImage& image, std::int32_t row) {
    const std::size_t begin = stripe.size();
    const std::uint32_t* pixel = image.pixels.data() + static_cast<std::ptrdiff_t>(row) * image.width;
    for (std::int32_t column = 0; column < image.width; ++column, ++pixel) {
        stripe += static_cast<char>(*pixel >> 16U & 0xFFU);
        stripe += static_cast<char>(*pixel >> 8U & 0xFFU);
        stripe += static_cast<char>(*pixel & 0xFFU);
    }
    stripe.resize(begin + static_cast<std::size_t>(BmpStride(BitsPerPixel, image.width)), '\0');
}

bool IsEmpty(const PixelImage& image) { return image.width < 1 || image.height < 1; }

/// The drawing area before anything was drawn there.
PixelImage BlankArea() {
    const MainWindow& window = *Machine().window;
    PixelImage image;
    image.width = RoundToInt32(Divide(window.ScaleWidth(), Design.TwipsPerPixelX));
    image.height = RoundToInt32(Divide(window.ScaleHeight(), Design.TwipsPerPixelY));
    image.pixels.assign(static_cast<std::size_t>(std::max(image.width, 0)) *
                            static_cast<std::size_t>(std::max(image.height, 0)),
                        ColorBits(Design.BackColor));
    return image;
}

} // namespace

std::int32_t BmpStride(int bits, std::int32_t width) { return (bits * width + 31) / 32 * 4; }

std::int32_t BmpStripeRows(std::int32_t stride) { return std::max(1, StripeBytes / stride); }

bool CaptureBmp(BitmapCapture& capture) {
    capture.pixels = Machine().window->CopyPixels();
    if (IsEmpty(capture.pixels)) {
        capture.pixels = BlankArea();
    }
    if (IsEmpty(capture.pixels)) {
        ShowApiErrorBox("BITMAP_CaptureBmp - Capture Failed");
        return false;
    }
    return true;
}

void SaveBmp(const std::string& name, const BitmapCapture& capture) {
    const PixelImage& image = capture.pixels;
    if (IsEmpty(image)) {
        ShowApiErrorBox("BITMAP_SaveBmp - No Bitmap");
        return;
    }
    BeginExport(name);
    WriteExport(Header(image.width, image.height));
    const std::int32_t rows = BmpStripeRows(BmpStride(BitsPerPixel, image.width));
    std::string stripe;
    for (std::int32_t below = 0; below < image.height; below += rows) {
        stripe.clear();
        for (std::int32_t row = below; row < std::min(below + rows, image.height); ++row) {
            AppendRow(stripe, image, image.height - 1 - row);
        }
        WriteExport(stripe);
    }
    CloseExport();
    FinishExports();
}

void BmpSave() {
    Guarded("BmpSave", [] {
        BitmapCapture capture;
        if (CaptureBmp(capture)) {
            SaveBmp(Design.BmpFileName, capture);
        }
    });
    DropExports();
}

} // namespace quelmont
