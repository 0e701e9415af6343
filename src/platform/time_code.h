#pragma once

#include <ctime>
#include <string>

namespace multirename {

/// What strftime writes for the one code letter, in the process's locale; `without_zeros` drops leading zeros. Nothing
/// when that is more than 100 characters.
[[nodiscard]] std::u16string time_code_text(const std::tm& time, char code, bool without_zeros);

} // namespace multirename
