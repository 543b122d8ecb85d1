#pragma once

#include "platform/system.h"

/// Parts of the machine that are the same with and without a window.

namespace quelmont {

class SystemPlaces : public Places {
public:
    SystemPlaces();

    /// Where the executable really lay when this was made, also after an upgrade has put another one there;
    /// empty when the system does not tell.
    std::string ProgramFolder() const override { return programFolder; }
    /// "quelmont/" in the user's configuration folder; empty without a home.
    std::string SettingsFolder() const override;
    std::string Version() const override { return ProgramVersion; }

private:
    std::string programFolder;
};

/// Local time, to the microsecond. Beep does nothing.
class SystemClock : public Clock {
public:
    double SecondsSinceMidnight() const override;
    void Beep() override {}
};

} // namespace quelmont
