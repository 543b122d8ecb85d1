#include "core/error_box.h"

#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

AskedBox Box(const std::string& title, const std::string& text) {
    return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
}

class ErrorBoxes : public FreshProgramTest {};

TEST_F(ErrorBoxes, NameTheRoutineAndTheError) {
    ShowErrorBox("PlotGrid", RunTimeError(ErrorDivisionByZero));
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Box("Error in PlotGrid", "Error: Division by zero")));
}

TEST_F(ErrorBoxes, NameTheOperationOfTheSystem) {
    ShowApiErrorBox("Polyline(1) error in PrintToScreen");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Box("Windows API Error", "Polyline(1) error in PrintToScreen")));
}

TEST_F(ErrorBoxes, GuardEndsTheRoutineAndShowsItsBox) {
    bool reached = false;
    EXPECT_FALSE(Guarded("ScaleScreen", [&] {
        throw RunTimeError(ErrorOverflow);
        reached = true;
    }));
    EXPECT_FALSE(reached);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Box("Error in ScaleScreen", "Error: Overflow")));
}

TEST_F(ErrorBoxes, GuardIsSilentWhenAllGoesWell) {
    EXPECT_TRUE(Guarded("ScaleScreen", [] {}));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(ErrorBoxes, OutsideADrawEachIsShown) {
    ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
    ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
    EXPECT_EQ(machine.boxes.asked.size(), 2U);
}

TEST_F(ErrorBoxes, InADrawEachIsShownOnceAndRepeatsAreCounted) {
    BeginDrawBoxes();
    for (int i = 0; i < 4; ++i) {
        ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
        ShowErrorBox("ScaleXY", RunTimeError(ErrorDivisionByZero));
        ShowErrorBox("ProjectSelect", RunTimeError(ErrorOverflow));
    }
    ShowApiErrorBox("LineTo(1) error in PrintToScreen");
    ShowApiErrorBox("LineTo(1) error in PrintToScreen");
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(Box("Error in ScaleXY", "Error: Overflow"),
                            Box("Error in ScaleXY", "Error: Division by zero"),
                            Box("Error in ProjectSelect", "Error: Overflow"),
                            Box("Windows API Error", "LineTo(1) error in PrintToScreen")));
    EndDrawBoxes();
    // Three boxes three times more, and one once.
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Box("Errors while drawing",
                                "The messages shown while this map was drawn occurred 10 more times.")));
}

TEST_F(ErrorBoxes, DrawWithoutRepeatsEndsWithoutABox) {
    BeginDrawBoxes();
    ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
    EndDrawBoxes();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(Box("Error in ScaleXY", "Error: Overflow")));
}

TEST_F(ErrorBoxes, OneRepeatIsSaidInTheSingular) {
    BeginDrawBoxes();
    ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
    ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
    EndDrawBoxes();
    EXPECT_EQ(machine.boxes.asked.back().text,
              "The messages shown while this map was drawn occurred 1 more time.");
}

TEST_F(ErrorBoxes, NextDrawShowsThemAgain) {
    for (int draw = 0; draw < 2; ++draw) {
        BeginDrawBoxes();
        ShowErrorBox("ScaleXY", RunTimeError(ErrorOverflow));
        EndDrawBoxes();
    }
    EXPECT_EQ(machine.boxes.asked.size(), 2U);
}

} // namespace
} // namespace quelmont
