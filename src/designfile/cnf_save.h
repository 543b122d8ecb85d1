#pragma once

#include <string>

namespace quelmont {

/// The design as the text of a map design file, with the window as it is now. On the interrupted map, whose
/// numbers are those of the lobe drawn last, it tells the whole map's.
///
/// RunTimeError "Invalid procedure call or argument" for a text with a line end, NUL or Ctrl-Z, "Overflow"
/// for a number beyond the type that it has in the file.
std::string DesignFileText();

/// The same for comparing: without the screen, the window and the fit to it. RunTimeErrors as above.
std::string ComparableDesignText();

/// The same without the names of files.
std::string DesignTextWithoutNames();

/// The same without what a picture of the map in the window does not show, or shows without another draw:
/// text items, labels, pages, reports, file names. RunTimeErrors as above.
std::string DrawnDesignText();

/// Writes a text beside its target and puts it in its place when it is whole. Uses file number 2.
/// RunTimeError as OpenFile, WriteFile, TemporaryFile::MoveTo; an earlier file then stays as it is.
void WriteDesignFile(const std::string& name, const std::string& text);

/// Saves the design as the file CnfFileName. A failure, and a map file whose name is no UTF-8, shows a
/// message box under "Error in CnfSave" and leaves an earlier file as it is. Returns false then.
bool CnfSave();

} // namespace quelmont
