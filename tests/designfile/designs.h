#pragma once

#include "mainwindow/started_program.h"
#include "support/temporary_folder.h"

#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <vector>

namespace quelmont {

/// A started program in a window smaller than its screen, its files those of the system.
class DesignFiles : public StartedProgram {
protected:
    DesignFiles();

    /// Saves the design and gives the bytes of the file; the test fails on any message box.
    std::string Saved();
    /// Puts bytes into a file and recalls it.
    bool Recalled(std::string_view bytes);
    /// What a draw paints.
    std::string Drawn();
    /// A program that has just been started, in the same window.
    void StartAgain();

    TemporaryFolder folder;
    const std::string name = folder / "map.cnf";
};

/// Puts a design into the program that its dialogs would accept: any projection, random bounds, styles,
/// map files, texts and circles. No text in it has a comma, or a blank at its end.
void MakeRandomDesign(std::mt19937& random);

/// A text item of ten points at the corner of the window.
TextItem TextOf(const std::string& text);

/// The lines of a file, without their ends.
std::vector<std::string> LinesOf(const std::string& text);
/// The lines joined again.
std::string Joined(const std::vector<std::string>& lines);

/// Where the records of a file begin, by number; for a record per map file or text item the first one.
std::map<int, std::size_t> RecordPlaces(const std::vector<std::string>& lines);

} // namespace quelmont
