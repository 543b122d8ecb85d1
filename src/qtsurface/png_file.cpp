#include "qtsurface/png_file.h"

#include "core/file_numbers.h"
#include "core/replaced_file.h"
#include "core/rounding.h"
#include "core/text_encoding.h"

#include <QBuffer>
#include <QByteArray>
#include <QList>
#include <QString>

#include <algorithm>
#include <cstdint>
#include <span>
#include <unordered_map>

namespace quelmont {

namespace {

/// The picture with a byte per pixel, or as it is when it has more than 256 colours. A map seldom has
/// more than a dozen, and compressing is most of the work of writing it.
QImage Paletted(const QImage& image) {
    constexpr std::size_t mostColors = 256;
    QImage paletted(image.size(), QImage::Format_Indexed8);
    QList<QRgb> colors;
    std::unordered_map<QRgb, uchar> numbers;
    QRgb color = 0; // no pixel is transparent
    uchar number = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const from = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        uchar* const to = paletted.scanLine(y);
        for (int x = 0; x < image.width(); ++x) {
            if (from[x] != color) {
                color = from[x];
                const auto [entry, fresh] = numbers.try_emplace(color, static_cast<uchar>(numbers.size()));
                if (numbers.size() > mostColors) {
                    return image;
                }
                if (fresh) {
                    colors.append(color);
                }
                number = entry->second;
            }
            to[x] = number;
        }
    }
    paletted.setColorTable(colors);
    return paletted;
}

void AddText(QImage& image, const char* key, const std::string& text) {
    if (!text.empty()) {
        image.setText(QString::fromLatin1(key), QString::fromStdString(TextOnOneLine(text)));
    }
}

void WriteAll(const std::string& name, const QByteArray& bytes) {
    OpenFile(OutputFileNumber, name, OpenMode::Output);
    try {
        WriteFile(OutputFileNumber,
                  std::as_bytes(std::span(bytes.constData(), static_cast<std::size_t>(bytes.size()))));
    } catch (const RunTimeError&) {
        try {
            CloseFile(OutputFileNumber);
        } catch (const RunTimeError&) {
            // The first failure is the one to report.
        }
        throw;
    }
    CloseFile(OutputFileNumber);
}

} // namespace

QImage ImageOf(const PixelImage& picture) {
    QImage image(picture.width, picture.height, QImage::Format_RGB32);
    auto from = picture.pixels.begin();
    for (int y = 0; y < image.height(); ++y) {
        auto* const to = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(from, from + image.width(), to, [](std::uint32_t pixel) {
            return qRgb(static_cast<int>(pixel & 0xFFU), static_cast<int>(pixel >> 8U & 0xFFU),
                        static_cast<int>(pixel >> 16U & 0xFFU));
        });
        from += image.width();
    }
    return image;
}

QByteArray EncodePng(const QImage& picture, const PictureNotes& notes) {
    // 0 is the smallest file, 100 no compression. Lower values double the time and save one byte in ten.
    constexpr int ofPalette = 50;
    constexpr int ofShades = 85;
    if (picture.isNull()) {
        throw RunTimeError(ErrorInvalidCall);
    }
    QImage image = Paletted(picture);
    if (notes.pixelsPerMetreX > 0.0 && notes.pixelsPerMetreY > 0.0) {
        image.setDotsPerMeterX(RoundToInt32(notes.pixelsPerMetreX));
        image.setDotsPerMeterY(RoundToInt32(notes.pixelsPerMetreY));
    }
    AddText(image, "Title", notes.title);
    AddText(image, "Software", notes.software);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG", image.colorCount() > 0 ? ofPalette : ofShades)) {
        throw RunTimeError(ErrorOutOfMemory);
    }
    return bytes;
}

void SavePng(const QImage& picture, const std::string& path, const PictureNotes& notes) {
    const QByteArray bytes = EncodePng(picture, notes);
    const std::string target = ReplacedFileName(path);
    TemporaryFile file(target);
    WriteAll(file.Name(), bytes);
    file.MoveTo(target);
}

} // namespace quelmont
