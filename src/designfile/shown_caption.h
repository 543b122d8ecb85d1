#pragma once

#include "platform/machine.h"

#include <string>
#include <string_view>

namespace quelmont {

/// A caption that the main window has for a while; the one before comes back at the end.
class ShownCaption {
public:
    explicit ShownCaption(std::string_view caption) : before(Machine().window->Caption()) {
        Machine().window->SetCaption(caption);
    }
    ~ShownCaption() { Machine().window->SetCaption(before); }
    ShownCaption(const ShownCaption&) = delete;
    ShownCaption& operator=(const ShownCaption&) = delete;

private:
    std::string before;
};

} // namespace quelmont
