#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace multirename {

/// Says that a list file is not UTF-8 text.
struct NotUtf8 {
    std::size_t line; ///< the first that is not, counted from 1
    bool operator==(const NotUtf8&) const = default;
};

/// The paths in a list file, in their order: one a line, lines ended by LF or CRLF, the last one perhaps by nothing.
/// A byte order mark in front belongs to no path, and lines that hold nothing but spaces and tabs are passed over.
/// Bytes that are not UTF-8, or zero, which no path contains, are the mistake of whoever wrote the file.
[[nodiscard]] std::variant<std::vector<std::u16string>, NotUtf8> listed_paths(std::string_view bytes);

} // namespace multirename
