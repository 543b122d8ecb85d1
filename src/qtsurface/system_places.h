#pragma once

#include "platform/system.h"

/// Parts of the machine that are the same with and without a window.

namespace quelmont {

class SystemPlaces : public Places {
public:
    /// Where the executable really lies; empty when the system does not tell.
    std::string ProgramFolder() const override;
    /// "quelmont/" in the user's configuration folder; empty without a home.
    std::string SettingsFolder() const override;
    std::string Version() const override { return ProgramVersion; }
};

/// Local time, to the microsecond. Beep does nothing.
class SystemClock : public Clock {
public:
    double SecondsSinceMidnight() const override;
    void Beep() override {}
};

} // namespace quelmont
