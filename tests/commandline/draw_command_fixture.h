#pragma once

#include "commandline/draw_command.h"
#include "core/core_state.h"
#include "core/file_numbers.h"
#include "support/fresh_program.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace quelmont {

/// What a run of quelmont-draw left.
struct Outcome {
    int code = -1;
    std::string output;
    std::string errors;
};

/// Runs quelmont-draw in this process, its files in a folder of their own.
class DrawCommandTest : public FreshProgramTest {
protected:
    static Outcome Run(const std::vector<std::string>& arguments) {
        ResetCore();
        return RunOn(arguments);
    }
    /// On the design as it is.
    static Outcome RunOn(const std::vector<std::string>& arguments) {
        std::ostringstream output;
        std::ostringstream errors;
        const int code = DrawCommand(arguments, output, errors);
        EXPECT_FALSE(IsFileOpen(InputFileNumber));
        EXPECT_FALSE(IsFileOpen(OutputFileNumber));
        return {code, output.str(), errors.str()};
    }

    /// The default map, which lies beside the program.
    static std::string World() {
        return std::filesystem::canonical("/proc/self/exe").parent_path() / "Qmnt4.map";
    }

    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    TemporaryFolder folder;
};

} // namespace quelmont
