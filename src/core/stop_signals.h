#pragma once

namespace quelmont {

/// While one exists, a signal to end the process (interrupt, terminate, hang up) is remembered, so that
/// work can stop where it leaves nothing behind. A second signal ends the process at once. Signals that
/// were to be ignored, by nohup say, stay so; a handler that was there is called too, and comes back at
/// the end. There is one at a time.
class StopSignals {
public:
    StopSignals();
    ~StopSignals();
    StopSignals(const StopSignals&) = delete;
    StopSignals& operator=(const StopSignals&) = delete;

    /// Whether such a signal has come since the last object was made.
    static bool Came();
};

/// A file that outgrows the process's limit, and a pipe whose reader is gone, fail their write as a full
/// disk does, and do not end the process. For the start of a program.
void TakeFailedWritesAsErrors();

} // namespace quelmont
