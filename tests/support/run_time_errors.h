#pragma once

#include "core/run_time_error.h"

#include <utility>

namespace quelmont {

/// The number of the run-time error that a body ends with, 0 when it ends well.
template <typename Body>
int ErrorOf(Body&& body) {
    try {
        std::forward<Body>(body)();
        return 0;
    } catch (const RunTimeError& error) {
        return error.Number();
    }
}

} // namespace quelmont
