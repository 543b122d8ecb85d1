#include "dialogs/design_dialog.h"

#include "core/map_design.h"
#include "core/run_time_error.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A dialog whose OK fails as often as it is told to.
class Failing : public DesignDialog {
public:
    explicit Failing(int failures_) : DesignDialog("Failing", "Failing"), failures(failures_) {
        AddOkAndCancel([this] {
            if (failures-- > 0) {
                throw RunTimeError(ErrorOverflow);
            }
            CloseAccepted();
        });
    }

private:
    int failures;
};

using DesignDialogs = FreshProgramTest;

TEST_F(DesignDialogs, FailureOfAHandlerShowsItsBoxAndTheDialogStays) {
    Failing form(1);
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in Failing", "Error: Overflow", BoxButtons::Ok,
                                     BoxIcon::Exclamation, BoxAnswer::Ok}));
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(DesignDialogs, TellHowTheyWereLeft) {
    Failing accepted(0);
    Design.DialogCancelled = true;
    accepted.Press("OK");
    EXPECT_FALSE(Design.DialogCancelled);
    Failing cancelled(0);
    cancelled.Press("Cancel");
    EXPECT_TRUE(cancelled.Closed());
    EXPECT_TRUE(Design.DialogCancelled);
}

} // namespace
} // namespace quelmont
