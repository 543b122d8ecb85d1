#include "areas/file_areas.h"

#include "core/coordinates.h"
#include "core/map_design.h"
#include "support/failing_file.h"
#include "support/fresh_program.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace quelmont {
namespace {

/// A square of so many degrees as a file of degrees.
std::string Square(int degrees) {
    const std::string side = std::to_string(degrees);
    return "1,0,0\n0,0," + side + "\n0," + side + "," + side + "\n0," + side + ",0\n0,0,0\n";
}

class AreasKept : public FreshProgramTest {
protected:
    AreasKept() {
        KeptMapAreas() = &kept;
        Put(Square(10), 1);
        file.MapFileName = "square.prn";
        file.Features[1].Shown = true;
    }
    ~AreasKept() override { KeptMapAreas() = nullptr; }

    void Put(const std::string& contents, std::int64_t second) {
        files.Put("square.prn", contents);
        FileStamp stamp;
        stamp.bytes = static_cast<std::int64_t>(contents.size());
        stamp.written = second;
        files.Stamp("square.prn", stamp);
    }
    static std::int32_t North(const FileAreas& areas) { return areas.lines.at(0).north; }

    FailingFiles files;
    KeptAreas kept;
    InputFileEntry file;
    LineDetail detail;
};

TEST_F(AreasKept, AreThereWithoutReadingTheFileAgain) {
    const auto first = AreasOfFile(file, detail);
    ASSERT_EQ(first->lines.size(), 1U);
    ASSERT_EQ(first->nested.size(), 1U);
    const std::int64_t read = files.bytesRead;
    EXPECT_EQ(AreasOfFile(file, detail), first);
    EXPECT_EQ(files.bytesRead, read);
    EXPECT_FALSE(IsFileOpen(InputFileNumber));
}

TEST_F(AreasKept, ChangedFileHasItsNewAreas) {
    AreasOfFile(file, detail);
    Put(Square(20), 2);
    EXPECT_EQ(North(*AreasOfFile(file, detail)), 20 * SecPerDegree);
}

TEST_F(AreasKept, FileWithoutAStampIsReadEachTime) {
    files.Stamp("square.prn", std::nullopt);
    AreasOfFile(file, detail);
    files.Put("square.prn", Square(20));
    EXPECT_EQ(North(*AreasOfFile(file, detail)), 20 * SecPerDegree);
}

TEST_F(AreasKept, OtherDetailAndOtherFeaturesAreOtherAreas) {
    const auto first = AreasOfFile(file, detail);
    LineDetail coarse = detail;
    coarse.least = 60;
    EXPECT_NE(AreasOfFile(file, coarse), first);
    file.Features[2].Shown = true;
    EXPECT_NE(AreasOfFile(file, detail), first);
    file.Features[2].Shown = false;
    EXPECT_EQ(AreasOfFile(file, detail), first);
}

TEST_F(AreasKept, FileThatIsNotDrawnByLinesHasNone) {
    AreasOfFile(file, detail);
    file.MapFileType = SymbolDot;
    EXPECT_TRUE(AreasOfFile(file, detail)->lines.empty());
    file.MapFileType = SymbolLine;
    file.Features[1].Shown = false;
    EXPECT_TRUE(AreasOfFile(file, detail)->lines.empty());
}

TEST_F(AreasKept, FileThatIsGoneIsAnError) {
    AreasOfFile(file, detail);
    files.FailOpening(ErrorFileNotFound);
    EXPECT_EQ(ErrorOf([&] { AreasOfFile(file, detail); }), ErrorFileNotFound);
}

} // namespace
} // namespace quelmont
