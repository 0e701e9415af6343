#pragma once

#include <array>

namespace multirename {

/// For each UTF-16 unit its upper case.
using UpperCaseTable = std::array<char16_t, 0x10000>;

/// The table as the system has it; see `name_key`.
[[nodiscard]] UpperCaseTable make_upper_case_table();

} // namespace multirename
