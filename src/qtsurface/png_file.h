#pragma once

#include <QImage>

#include <string>

namespace quelmont {

/// Writes a picture as a PNG file. The file appears under its name when it is whole, and an
/// earlier one of that name stays until then. Uses file number 2.
/// RunTimeError "Invalid procedure call or argument" for an empty picture, "Path not found", "Permission
/// denied", "Disk full", "Path/File access error" when the name is that of a folder or a device, and what
/// else a file can fail with.
void SavePng(const QImage& picture, const std::string& path);

} // namespace quelmont
