#pragma once

#include <string>
#include <string_view>
#include <vector>

/// A file mapped and cut into the lines of whole records, three a record. The mapping is kept.
[[nodiscard]] std::vector<std::string_view> fCortarDesnudo(const std::string &strRuta);
