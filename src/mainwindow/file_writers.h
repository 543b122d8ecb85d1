#pragma once

namespace quelmont {

/// Puts the program's writers of files in their places (Writers of output/fan_out.h), and what stands about
/// its maps (Surround of output/map_surround.h).
void InstallWriters();

} // namespace quelmont
