#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/name_key.h"

namespace multirename {

/// Whether Windows takes the name for that of a device: CON, NUL, COM1 and their like, in any case, and whatever stands
/// behind a period or spaces in it. A file of such a name can hardly be opened or removed.
[[nodiscard]] inline bool is_device_name(std::u16string_view name)
{
    constexpr std::array<std::u16string_view, 6> devices = {u"CON", u"PRN", u"AUX", u"NUL", u"CONIN$", u"CONOUT$"};
    constexpr std::array<std::u16string_view, 2> ports = {u"COM", u"LPT"};
    constexpr std::u16string_view port_numbers = u"123456789\u00B9\u00B2\u00B3"; // the raised ones are digits there
    constexpr std::size_t port_length = 4;
    std::u16string_view stem = name.substr(0, name.find(u'.'));
    stem = stem.substr(0, stem.find_last_not_of(u' ') + 1);
    const std::u16string key = name_key(stem);
    const std::u16string_view port = std::u16string_view(key).substr(0, port_length - 1);
    return std::ranges::find(devices, key) != devices.end() ||
        (key.size() == port_length && std::ranges::find(ports, port) != ports.end() &&
         port_numbers.find(key.back()) != std::u16string_view::npos);
}

} // namespace multirename
