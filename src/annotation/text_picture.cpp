#include "annotation/text_picture.h"

#include "annotation/label_print.h"
#include "core/map_design.h"
#include "output/draw_target.h"
#include "output/map_surround.h"
#include "output/print_text.h"
#include "platform/machine.h"

namespace quelmont {

namespace {

/// The text in hand, which comes back at the end.
class TextInHand {
public:
    TextInHand() = default;
    ~TextInHand() {
        Design.CurrentText = text;
        Design.CurrentTextAngle = angle;
        Design.CurrentLook = look;
        Design.CurrentX = x;
        Design.CurrentY = y;
    }
    TextInHand(const TextInHand&) = delete;
    TextInHand& operator=(const TextInHand&) = delete;

private:
    std::string text = Design.CurrentText;
    std::string angle = Design.CurrentTextAngle;
    TextLook look = Design.CurrentLook;
    std::int32_t x = Design.CurrentX, y = Design.CurrentY;
};

} // namespace

void ShowTexts() {
    const TextInHand kept;
    Machine().window->PutBackPicture();
    SelectDevice();
    DrawLabels(0, false);
    if (Surround() != nullptr) {
        Surround()->DrawTextsAgain();
    }
    PrintText();
    Machine().window->Refresh();
}

} // namespace quelmont
