#pragma once

namespace quelmont {

/// The page of the help about the dialogs of the list of map files.
constexpr int HelpPageOfMapFiles = 170;

} // namespace quelmont
