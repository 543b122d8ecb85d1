#pragma once

namespace quelmont {

/// Puts the program's writers of files in their places (Writers of output/fan_out.h).
void InstallWriters();

} // namespace quelmont
