#pragma once

namespace quelmont {

/// The world map beside the program.
constexpr const char* DefaultMapTitle = "Qmnt4.map";

/// Brings the program up with the default design: the whole world on the equirectangular
/// projection, with its own world map. Draws nothing.
///
/// Writes  the whole of Design; the window's caption and check marks. Machine() must be complete.
void StartUp();

} // namespace quelmont
