#pragma once

#include "platform/machine.h"

namespace quelmont {

/// Suppresses message boxes as long as it lives: each is answered like one that was closed.
class UnseenBoxes final : public Boxes {
public:
    UnseenBoxes() { Machine().boxes = this; }
    ~UnseenBoxes() override { Machine().boxes = before; }
    UnseenBoxes(const UnseenBoxes&) = delete;
    UnseenBoxes& operator=(const UnseenBoxes&) = delete;

    BoxAnswer Ask(std::string_view /*title*/, std::string_view /*text*/, BoxButtons buttons,
                  BoxIcon /*icon*/) override {
        any = true;
        return AnswerOfClosed(buttons);
    }
    /// Whether there was one.
    bool Any() const { return any; }

private:
    Boxes* before = Machine().boxes;
    bool any = false;
};

} // namespace quelmont
