#pragma once

#include "designfile/window_fit.h"

#include <optional>
#include <string>

namespace quelmont {

/// Bytes that a map design file has at most.
constexpr std::size_t LargestDesignFile = std::size_t{64} * 1024 * 1024;

/// Recalls the design that the file CnfFileName holds, and fits it to the present screen: the window, the
/// texts, the size of the map. The caption becomes the projection's; CnfFileName stays the name opened.
///
/// Files of version 3.00 and later are read by the table of records, those from 2.00 on by its older form;
/// what is older than that is tried as 2.00 and stored as a whole or not at all. The text is UTF-8, with or
/// without a byte order mark, else Windows-1252; its lines may end in any way.
/// A failure shows "Error in CnfRead"; what was read before it stays in the design. Returns false then.
/// Uses file number 1.
bool CnfRead();

/// The same of a file by its name, except that CnfFileName becomes the one in the file.
bool ReadDesignFile(const std::string& name);

/// The drawing area for which a map design file was saved; nothing where that cannot be read. Shows no
/// message box and changes no design.
std::optional<AreaPixels> AreaOfDesignFile(const std::string& name);

} // namespace quelmont
