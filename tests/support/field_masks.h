#pragma once

#include <string_view>

namespace quelmont {

/// Masks of the dialogs' fields (platform/masked_text.h).
constexpr std::string_view LatitudeMask = "%%    %%    %%    ?";
constexpr std::string_view LongitudeMask = "%%%    %%    %%    ?";
constexpr std::string_view ArcMask = "%%%    %%    %%";
constexpr std::string_view MillionMask = "%,%%%,%%%";
constexpr std::string_view TenMillionMask = "%%,%%%,%%%";
constexpr std::string_view ScaleMask = "%.%%%%";

} // namespace quelmont
