#include "output/logical_point.h"

#include "export_fixture.h"
#include "support/run_time_errors.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

class LogicalPoints : public ExportTest {
protected:
    static void Expect(double projX, double projY, int x, int y) {
        Design.ProjX = projX;
        Design.ProjY = projY;
        const LogicalPoint point = LogicalPointOfCell();
        EXPECT_EQ(point.x, x);
        EXPECT_EQ(point.y, y);
    }
};

TEST_F(LogicalPoints, CountFromTheLowerLeftCorner) {
    Design.MapXMin = -2.0;
    Design.MapYMin = 1.0;
    Design.LogicalScale = 1000.0;
    Design.LogicalOriginX = 40;
    Design.LogicalOriginY = -7;
    Expect(-2.0, 1.0, 40, -7);
    Expect(1.5, 3.25, 3540, 2243);
}

TEST_F(LogicalPoints, TiesGoToTheEvenNeighbour) {
    Expect(0.5, 1.5, 0, 2);
    Expect(2.5, -0.5, 2, 0);
}

TEST_F(LogicalPoints, FitSixteenBitsOrOverflow) {
    Expect(32767.4, -32768.0, 32767, -32768);
    Design.ProjX = 32768.0;
    EXPECT_EQ(ErrorOf([] { LogicalPointOfCell(); }), ErrorOverflow);
    Design.ProjX = 0.0;
    Design.ProjY = -32769.0;
    EXPECT_EQ(ErrorOf([] { LogicalPointOfCell(); }), ErrorOverflow);
}

TEST_F(LogicalPoints, LineWidthIsAShareOfTheDrawingOrThePens) {
    Design.TwipsPerPixelY = 15.0F;
    Design.ClientWidth = 64000; // two twips a unit
    Design.PenWidth = 3;
    EXPECT_EQ(FileLineWidth(), 22.5);
    Design.LineWidthsScaled = false;
    EXPECT_EQ(FileLineWidth(), 3.0);
}

TEST_F(LogicalPoints, WindowWithoutAWidthHasNoLineWidth) {
    Design.ClientWidth = 0;
    EXPECT_EQ(ErrorOf([] { FileLineWidth(); }), ErrorDivisionByZero);
}

} // namespace
} // namespace quelmont
