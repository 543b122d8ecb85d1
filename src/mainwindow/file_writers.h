#pragma once

namespace quelmont {

/// Puts the program's writers of files in their places (Writers of output/fan_out.h).
void InstallWriters();

/// Begins the recording of a metafile for WmfFileName; OutputWmf is the caller's.
void ArmMetafile();

} // namespace quelmont
