#pragma once

#include "platform/printers.h"

#include <memory>
#include <string_view>

namespace quelmont {

/// Pages as a PDF file, as Printers::Pdf gives them: 1200 dots an inch, or as many as keep the paper below
/// 32 000 dots, and a paper of whole points of 1/72 inch. nullptr for a paper without a size, or with one
/// that no PDF has: 1/72 to 200 inches.
///
/// A job's file is written beside its target, and takes its place in EndDoc. StartDoc fails where no file of
/// that name can be written; EndPage and EndDoc where it could not be written whole. The same pages make the
/// same file, on another day too. Memory does not grow with what is on a page.
std::unique_ptr<Printer> MakePdfPrinter(double paperWidth, double paperHeight, std::string_view fileName);

} // namespace quelmont
