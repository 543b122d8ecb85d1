#pragma once

#include "commandline/design_options.h"
#include "commandline/draw_options.h"
#include "commandline/export_output.h"
#include "core/core_state.h"
#include "core/error_box.h"
#include "core/file_numbers.h"
#include "core/map_design.h"
#include "exports/drawn_lines.h"
#include "exports/same_map.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/start_up.h"
#include "output/export_file.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quelmont {

using Arguments = std::vector<std::string>;

/// Whole draws in a window whose pixels are as fine as logical units, so that what the window was asked to
/// draw is a measure for what a file holds.
class WholeDraw : public FreshProgramTest {
protected:
    WholeDraw() {
        machine.screen.twipsPerPixelX = 1.0F;
        machine.screen.twipsPerPixelY = 1.0F;
        machine.screen.fullScreenX = 32000;
        machine.screen.fullScreenY = 23100;
        machine.window.scaleWidth = 32000.0;
        machine.window.scaleHeight = 23100.0;
        machine.places.programFolder = QUELMONT_PROGRAMS "/";
    }

    /// Everything before the draw, as quelmont-draw does it.
    void Prepare(const Arguments& arguments, const std::string& output) {
        ASSERT_EQ(Armed(arguments, output), "");
    }

    /// The same; why the export cannot be.
    std::string Armed(Arguments arguments, const std::string& output) {
        ResetCore();
        ResetDrawBoxes();
        machine.window.surface = RecordingSurface();
        arguments.push_back(output);
        const auto options = ReadDrawOptions(arguments, "3.00");
        if (!std::holds_alternative<DrawOptions>(options)) {
            return "wrong usage";
        }
        StartUp();
        const auto& read = std::get<DrawOptions>(options);
        return ApplyCircles(read) && ApplyOptions(read) ? ArmExport(output) : "refused";
    }

    /// Draws to a file of that ending; what the window was asked to draw is in Screen().
    void Draw(const Arguments& arguments, const std::string& ending) {
        Prepare(arguments, folder / ("map." + ending));
        MapDraw();
        EXPECT_THAT(machine.boxes.Taken(), testing::IsEmpty());
        EXPECT_FALSE(IsFileOpen(InputFileNumber));
        EXPECT_FALSE(IsFileOpen(OutputFileNumber));
        EXPECT_FALSE(Design.OutputCgm || Design.OutputDxf || Design.OutputWmf || Design.OutputSvg ||
                     Design.OutputAscii);
    }
    /// All that the window was asked to do, with the same pens and brushes. (Printing what differs would take
    /// longer than the draws.)
    void ExpectPicture(const std::vector<SurfaceCall>& picture) {
        EXPECT_TRUE(machine.window.surface.Calls() == picture) << "an export changes the picture";
    }
    /// The same map in each format with a writer of lines and symbols, and no other picture than without an
    /// export. Returns what the window shows.
    DrawnMap ExpectSameInEachFormat(const Arguments& arguments, const std::string& what = "") {
        Draw(arguments, "png");
        const std::vector<SurfaceCall> picture = machine.window.surface.Calls();
        const DrawnMap screen = Screen();
        const std::pair<const char*, DrawnMap (*)(std::string_view)> formats[] = {
            {"cgm", MapOfCgm}, {"dxf", MapOfDxf}, {"wmf", MapOfWmf}, {"svg", MapOfSvg}};
        for (const auto& [ending, map] : formats) {
            Draw(arguments, ending);
            ExpectPicture(picture);
            EXPECT_EQ(Difference(map(File("map." + std::string(ending))), screen), "") << what << ending;
        }
        return screen;
    }
    DrawnMap Screen() { return MapOfSurface(machine.window.surface); }
    std::string File(const std::string& name) const { return ReadWholeFile(folder / name); }

    std::vector<std::string> Files() const { return folder.Names(); }

    TemporaryFolder folder;
};

} // namespace quelmont
