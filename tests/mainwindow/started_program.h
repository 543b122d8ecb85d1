#pragma once

#include "core/map_design.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// A program that has just come up, with its world map in memory: one coastline that crosses the
/// world, and as many repeats of it as a test asks for.
class StartedProgram : public FreshProgramTest {
protected:
    StartedProgram();

    /// Puts a world map of so many records under the name of the default one.
    void PutMap(int records);
    /// What a draw has to leave as it was.
    void ExpectIdle(const std::string& caption = "Quelmont: Equirectangular projection");

    FailingFiles files;
    ScriptedWindow& window = machine.window;
    RecordingSurface& surface = machine.window.surface;
    int objectsBefore = 0; ///< pens and brushes of the surface before any draw
};

/// Accepts a projection with the bounds that its dialog would propose.
void AcceptProjection(std::int16_t projNum);

/// Titles and texts of boxes, "title: text" each.
std::vector<std::string> Told(const std::vector<AskedBox>& boxes);

} // namespace quelmont
