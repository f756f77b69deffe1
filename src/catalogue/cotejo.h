#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

/// Ranks of names in Spanish alphabetical order without regard to case; names that only differ in
/// case or not at all for the alphabet follow each other by code points. Equal bytes, equal rank.
[[nodiscard]] std::vector<std::uint32_t>
fRangosEspanol(const std::vector<std::string_view> &lstTextos);
