#pragma once

#include "platform/pictures.h"

#include <QByteArray>
#include <QImage>

#include <string>

namespace quelmont {

/// Pixels as an image.
QImage ImageOf(const PixelImage& picture);

/// A picture as the bytes of a PNG file, with its resolution, and title and program as texts "Title" and
/// "Software" as far as they are given. RunTimeError "Invalid procedure call or argument" for an empty
/// picture, "Out of memory".
QByteArray EncodePng(const QImage& picture, const PictureNotes& notes = {});

/// Writes a picture as a PNG file. The file appears under its name when it is whole, and an
/// earlier one of that name stays until then. Uses file number 2.
/// RunTimeError "Invalid procedure call or argument" for an empty picture, "Path not found", "Permission
/// denied", "Disk full", "Path/File access error" when the name is that of a folder or a device, and what
/// else a file can fail with.
void SavePng(const QImage& picture, const std::string& path, const PictureNotes& notes = {});

} // namespace quelmont
