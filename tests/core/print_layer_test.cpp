#include "core/print_layer.h"

#include "core/file_numbers.h"
#include "support/failing_file.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class PrintLayer : public testing::Test {
protected:
    PrintLayer() { OpenFile(OutputFileNumber, "out", OpenMode::Output); }

    std::string Printed() const { return files.Contents("out").value_or("no file"); }

    FailingFiles files;
};

TEST_F(PrintLayer, TextStandsAsItIs) {
    PrintLine("Quelmont");
    PrintLine(std::string("a \"quoted\" text"));
    EXPECT_EQ(Printed(), "Quelmont\r\na \"quoted\" text\r\n");
}

TEST_F(PrintLayer, NumberHasABlankOnEitherSide) {
    PrintLine(std::int32_t{17}, std::int32_t{-3}, std::int32_t{0});
    PrintLine(1.5, -0.25, 7.5F, std::int16_t{-32768});
    EXPECT_EQ(Printed(), " 17 -3  0 \r\n 1.5 -.25  7.5 -32768 \r\n");
}

TEST_F(PrintLayer, FlagIsMinusOneOrZero) {
    PrintLine(true, false);
    EXPECT_EQ(Printed(), "-1  0 \r\n");
}

TEST_F(PrintLayer, LiteralCommaIsAText) {
    PrintLine("world.map", ",", std::int16_t{1}, ",", "Arial");
    EXPECT_EQ(Printed(), "world.map, 1 ,Arial\r\n");
}

TEST_F(PrintLayer, OpenLineGoesOn) {
    Print("0.5000000  ");
    PrintLine("00.2500000");
    EXPECT_EQ(Printed(), "0.5000000  00.2500000\r\n");
}

TEST_F(PrintLayer, LineMayBeEmpty) {
    PrintLine();
    EXPECT_EQ(Printed(), "\r\n");
}

TEST_F(PrintLayer, ZonesBeginAtEveryFourteenthColumn) {
    PrintLine(std::int32_t{100}, NextZone{}, std::int32_t{2});
    PrintLine("fourteen chars", NextZone{}, "x");
    //         12345678901234567890123456789
    EXPECT_EQ(Printed(), " 100           2 \r\nfourteen chars              x\r\n");
}

TEST_F(PrintLayer, FailureOfTheFileComesThrough) {
    files.FailWritingAfter(3, ErrorDiskFull);
    EXPECT_EQ(ErrorOf([] { PrintLine("abcdef"); }), ErrorDiskFull);
    CloseFile(OutputFileNumber);
    EXPECT_EQ(ErrorOf([] { PrintLine("abcdef"); }), ErrorBadFileNumber);
}

} // namespace
} // namespace quelmont
