#pragma once

#include <ctime>
#include <optional>
#include <string>

#include "platform/file_time.h"

namespace multirename {

/// The moment by the clock on the wall here, under the system's present time-zone rules. Nothing when the moment is
/// too far off for the system to convert.
[[nodiscard]] std::optional<std::tm> local_time(FileTime moment);

/// `time` in a format of the C runtime's strftime, month and day names in the process's locale. In it "#" after "%"
/// drops leading zeros ("%#d"), and bytes that belong to no code are taken as the units U+0000 to U+00FF. At most 100
/// characters come out.
[[nodiscard]] std::u16string format_time(const std::tm& time, const std::string& format);

} // namespace multirename
