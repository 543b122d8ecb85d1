#include "output/fan_out.h"

#include "core/run_time_error.h"
#include "output/output_state.h"
#include "output_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class NotedWriter : public FileWriter {
public:
    NotedWriter(std::vector<std::string>& notes_, std::string name_)
        : notes(notes_), name(std::move(name_)) {}
    void Header() override { Note(" header"); }
    void Point() override { Note(" point"); }
    void LineBreak() override { Note(" break"); }
    int error = 0; ///< what every call ends with

private:
    void Note(const char* what) {
        notes.push_back(name + what);
        if (error != 0) {
            throw RunTimeError(error);
        }
    }
    std::vector<std::string>& notes;
    std::string name;
};

class FanOut : public OutputTest {
protected:
    FanOut() {
        Writers() = {&ascii, &cgm, &dxf, &wmf, &svg};
        Design.LobeFirst = true;
        Design.PointCount = 7;
    }
    std::vector<std::string> notes;
    NotedWriter ascii{notes, "ascii"}, cgm{notes, "cgm"}, dxf{notes, "dxf"}, wmf{notes, "wmf"},
        svg{notes, "svg"};
};

TEST_F(FanOut, WithoutAFlagNothingIsWritten) {
    ScaleXY();
    PrintLineBrkDisk();
    PrintFileHeader();
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_EQ(Design.PointCount, 7);
    EXPECT_FALSE(OutputNow.LineBreakPending);
}

TEST_F(FanOut, PointAndBreakGoToTheFirstFlagInOrder) {
    for (bool MapDesign::*flag : {&MapDesign::OutputSvg, &MapDesign::OutputWmf, &MapDesign::OutputDxf,
                                  &MapDesign::OutputCgm, &MapDesign::OutputAscii}) {
        Design.*flag = true;
        ScaleXY();
        PrintLineBrkDisk();
    }
    EXPECT_THAT(notes, ElementsAre("svg point", "svg break", "wmf point", "wmf break", "dxf point",
                                   "dxf break", "cgm point", "cgm break", "ascii point", "ascii break"));
}

TEST_F(FanOut, OneFlagIsOneWriterForAllThatIsAsked) {
    const std::vector<std::pair<bool MapDesign::*, FileWriter*>> writers = {
        {&MapDesign::OutputAscii, &ascii}, {&MapDesign::OutputCgm, &cgm}, {&MapDesign::OutputDxf, &dxf},
        {&MapDesign::OutputWmf, &wmf},     {&MapDesign::OutputSvg, &svg},
    };
    EXPECT_EQ(ArmedWriter(), nullptr);
    for (const auto& [flag, writer] : writers) {
        Design.*flag = true;
        EXPECT_EQ(ArmedWriter(), writer);
        Design.*flag = false;
    }
}

TEST_F(FanOut, LineBreakEmptiesTheChain) {
    Design.OutputDxf = true;
    PrintLineBrkDisk();
    EXPECT_EQ(Design.PointCount, 0);
    EXPECT_TRUE(OutputNow.LineBreakPending);
}

TEST_F(FanOut, LineBreakOfAsciiIsNotPending) {
    Design.OutputAscii = true;
    PrintLineBrkDisk();
    EXPECT_EQ(Design.PointCount, 0);
    EXPECT_FALSE(OutputNow.LineBreakPending);
}

TEST_F(FanOut, HeaderIsWrittenAtTheFirstPassOnly) {
    Design.OutputCgm = true;
    PrintFileHeader();
    Design.LobeFirst = false;
    PrintFileHeader();
    EXPECT_THAT(notes, ElementsAre("cgm header"));
}

TEST_F(FanOut, HeaderThatFailsStopsTheDraw) {
    Design.OutputDxf = true;
    dxf.error = ErrorDiskFull;
    PrintFileHeader();
    EXPECT_EQ(Design.PlotStopReason, StopReason::GridDiskError);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in PrintFileHeader", "Error: Disk full"}));
}

TEST_F(FanOut, PointAndBreakThatFailShowTheirRoutine) {
    Design.OutputDxf = true;
    dxf.error = ErrorOverflow;
    ScaleXY();
    PrintLineBrkDisk();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in ScaleXY", "Error: Overflow"},
                                                 AskedBox{"Error in PrintLineBrkDisk", "Error: Overflow"}));
    EXPECT_EQ(Design.PointCount, 7) << "the chain is still open";
}

TEST_F(FanOut, FlagWithoutAWriterDoesNothing) {
    Writers() = {};
    Design.OutputCgm = true;
    ScaleXY();
    PrintLineBrkDisk();
    PrintFileHeader();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(FanOut, ResetOpensANewChain) {
    ResetLineState();
    EXPECT_EQ(Design.PointCount, 0);
    EXPECT_TRUE(OutputNow.LineBreakPending);
}

} // namespace
} // namespace quelmont
