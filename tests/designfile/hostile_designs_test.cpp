#include "designfile/cnf_read.h"

#include "core/run_time_error.h"
#include "designfile/cnf_save.h"
#include "designfile/designs.h"
#include "graticule/plot_grid.h"
#include "mainwindow/map_draw.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// Files that nobody saved. Whatever becomes of a recall, the design can be drawn afterwards.
class HostileDesigns : public DesignFiles {
protected:
    HostileDesigns() {
        Design.TextItems.assign(1, TextOf("Oslo"));
        Design.InputFiles.clear();
        Design.MapFileCount = 0;
    }

    /// A grid of more points than these is left to those who ask for it.
    static bool IsSmallGrid() {
        try {
            return GridPointEstimate() < 20000.0;
        } catch (const RunTimeError&) {
            return true;
        }
    }

    void Draw() {
        if (Design.BoundsProjNum != Design.ProjNum) {
            // A user is shown the dialogs of the bounds; here nobody answers them.
            return;
        }
        if (IsSmallGrid()) {
            MapDraw();
        }
        surface.Forget();
        machine.boxes.Taken();
    }

    void RecallAndDraw(std::string_view bytes) {
        Recalled(bytes);
        machine.boxes.Taken();
        Draw();
    }
};

TEST_F(HostileDesigns, FileCutAtEachByteIsReadUpToThere) {
    const std::string file = Saved();
    for (std::size_t size = 0; size < file.size(); size += size < 200 ? 1 : 3) {
        const bool done = Recalled(file.substr(0, size));
        const std::vector<std::string> told = Told(machine.boxes.Taken());
        EXPECT_EQ(done, told.empty()) << size;
        EXPECT_FALSE(done && size < file.size() - 6) << size << ": only the last number can be shorter";
        Draw();
    }
}

TEST_F(HostileDesigns, EachNumberReplacedIsReadOrRefused) {
    const std::vector<std::string> lines = LinesOf(Saved());
    for (const std::string value :
         {"", "text", "-1", "0", "32768", "2147483648", "1E308", "NaN", "infinity"}) {
        for (std::size_t i = 1; i < lines.size(); ++i) {
            // Each run of digits, signs and points of the line.
            const std::string& line = lines[i];
            std::size_t from = 0;
            for (int number = 0; number < 12; ++number) {
                from = line.find_first_of("-.0123456789", from);
                if (from == std::string::npos) {
                    break;
                }
                const std::size_t to = std::min(line.find_first_not_of("-.0123456789E+", from), line.size());
                std::vector<std::string> hostile = lines;
                hostile[i] = line.substr(0, from) + value + line.substr(to);
                RecallAndDraw(Joined(hostile));
                from = to;
            }
        }
    }
}

TEST_F(HostileDesigns, EachLineOfTenMegabytesIsReadOrRefused) {
    const std::vector<std::string> lines = LinesOf(Saved());
    const auto places = RecordPlaces(lines);
    for (const int number : {1, 2, 3, 4, 13, 18, 20, 24, 25, 26, 34, 54}) {
        for (const char filling : {' ', ',', '9', 'x', '"'}) {
            std::vector<std::string> hostile = lines;
            hostile[places.at(number)] += std::string(10'000'000, filling);
            RecallAndDraw(Joined(hostile));
        }
    }
}

TEST_F(HostileDesigns, NulAndOtherBytesAreReadOrRefused) {
    const std::string file = Saved();
    std::mt19937 random(3);
    for (int i = 0; i < 2000; ++i) {
        std::string hostile = file;
        for (int k = std::uniform_int_distribution<int>(1, 4)(random); k > 0; --k) {
            hostile[std::uniform_int_distribution<std::size_t>(0, file.size() - 1)(random)] =
                static_cast<char>(std::uniform_int_distribution<int>(0, 255)(random));
        }
        RecallAndDraw(hostile);
    }
}

TEST_F(HostileDesigns, TextWithNulIsRefused) {
    std::string file = Saved();
    file[file.find("Oslo")] = '\0';
    EXPECT_FALSE(Recalled(file));
    EXPECT_THAT(Design.TextItems, IsEmpty());
    machine.boxes.Taken();
}

TEST_F(HostileDesigns, LinesThatAreExchangedAreReadOrRefused) {
    const std::vector<std::string> lines = LinesOf(Saved());
    std::mt19937 random(5);
    std::uniform_int_distribution<std::size_t> line(1, lines.size() - 1);
    for (int i = 0; i < 1500; ++i) {
        std::vector<std::string> hostile = lines;
        std::swap(hostile[line(random)], hostile[line(random)]);
        RecallAndDraw(Joined(hostile));
    }
}

} // namespace
} // namespace quelmont
