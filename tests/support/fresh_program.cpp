#include "support/fresh_program.h"

#include "core/core_state.h"

#include <vector>

namespace quelmont {

namespace {

std::vector<void (*)()>& Resets() {
    static std::vector<void (*)()> resets;
    return resets;
}

void ResetRooms() {
    // The upper rooms first: what they hold may lean on what lies below.
    for (void (*reset)() : Resets()) {
        reset();
    }
    ResetCore();
}

} // namespace

FreshProgram::FreshProgram() { ResetRooms(); }
FreshProgram::~FreshProgram() { ResetRooms(); }

FreshRoom::FreshRoom(void (*reset)()) { Resets().push_back(reset); }

} // namespace quelmont
