#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "mapfiles/feature_rows.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int BytesPerRecord = 6;

/// Draws from files on the disk, which are read in blocks of 262144 bytes.
class DrawProgress : public StartedProgram {
protected:
    DrawProgress() {
        SetFileDeviceMaker(nullptr);
        Design.InputFiles.clear();
        Design.MapFileCount = 0;
    }

    /// Adds a minute-grid file of so many points to the list, all of them one point near the equator.
    void AddMap(const std::string& title, int records) {
        const std::string name = folder / title;
        std::string bytes;
        for (int i = 0; i < records; ++i) {
            bytes += std::string(BytesPerRecord, '\x01');
        }
        WriteWholeFile(name, bytes);
        Design.InputFiles.push_back(NewMapFileEntry(name));
        ++Design.MapFileCount;
    }

    /// The shares that were shown in a draw, repeats left out.
    std::vector<std::optional<double>> SharesOfDraw() {
        window.progresses.clear();
        MapDraw();
        std::vector<std::optional<double>> shares = window.progresses;
        shares.erase(std::unique(shares.begin(), shares.end()), shares.end());
        return shares;
    }

    TemporaryFolder folder;
};

TEST_F(DrawProgress, CountsTheBytesOfAllFilesTogether) {
    AddMap("one.map", 100000);
    AddMap("two.map", 50000);
    // Four bytes of the first block belong to a point that goes on in the second, which has room for 262140
    // more.
    EXPECT_THAT(SharesOfDraw(), ElementsAre(0.0, 262144.0 / 900000, 524284.0 / 900000, 600000.0 / 900000,
                                            862144.0 / 900000, 1.0, std::nullopt));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DrawProgress, LobesAreOneWork) {
    AddMap("one.map", 10000);
    AcceptProjection(ProjInterruptedMollweide); // of six lobes
    const auto shares = SharesOfDraw();
    ASSERT_EQ(shares.size(), 8U);
    for (int lobe = 0; lobe <= 6; ++lobe) {
        EXPECT_DOUBLE_EQ(shares[static_cast<std::size_t>(lobe)].value(), lobe / 6.0);
    }
    EXPECT_EQ(shares.back(), std::nullopt);
}

TEST_F(DrawProgress, FileThatIsNotThereCountsNothing) {
    AddMap("one.map", 10000);
    Design.InputFiles.push_back(NewMapFileEntry(folder / "gone.map"));
    ++Design.MapFileCount;
    EXPECT_THAT(SharesOfDraw(), ElementsAre(0.0, 1.0, std::nullopt));
    EXPECT_EQ(machine.boxes.asked.size(), 1U);
}

TEST_F(DrawProgress, DrawWithoutMapFilesHasNone) { EXPECT_THAT(SharesOfDraw(), ElementsAre(std::nullopt)); }

TEST_F(DrawProgress, EndsWithAStoppedDraw) {
    AddMap("one.map", 100000);
    machine.pump.At(30, [] { EscapeKey(); });
    const auto shares = SharesOfDraw();
    EXPECT_LT(shares.at(shares.size() - 2).value(), 1.0);
    EXPECT_EQ(window.progress, std::nullopt);
    EXPECT_EQ(window.statusText, "");
}

TEST_F(DrawProgress, StatusLineTellsWhatIsDrawn) {
    AddMap("one.map", 10);
    AddMap("two.map", 10);
    window.statusTexts.clear();
    MapDraw();
    EXPECT_THAT(window.statusTexts,
                ElementsAre("Drawing the grid", "Drawing one.map", "Drawing two.map", ""));
}

} // namespace
} // namespace quelmont
