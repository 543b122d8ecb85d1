#include "desktop/desktop_pictures.h"

#include "qtsurface/png_file.h"

#include <QByteArray>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace quelmont {

namespace {

QByteArray Bytes(std::string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

} // namespace

std::string DesktopPictures::Png(const PixelImage& picture, const PictureNotes& notes) {
    return EncodePng(ImageOf(picture), notes).toStdString();
}

void DesktopPictures::Copy(std::string_view png, std::string_view svg) {
    auto* map = new QMimeData; // the clipboard's own
    map->setData(QStringLiteral("image/png"), Bytes(png));
    if (!svg.empty()) {
        map->setData(QStringLiteral("image/svg+xml"), Bytes(svg));
    }
    QGuiApplication::clipboard()->setMimeData(map);
}

} // namespace quelmont
