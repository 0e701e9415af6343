#include "win32/launcher/list_file.h"

#include <algorithm>

#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// A stray byte comes as the second half of a surrogate pair that has no first half; well-formed text never has one.
bool has_stray_byte(std::u16string_view text)
{
    char16_t previous = 0;
    for (const char16_t unit : text) {
        const bool is_second_half = unit >= 0xDC00 && unit <= 0xDFFF;
        const bool follows_first_half = previous >= 0xD800 && previous <= 0xDBFF;
        if (is_second_half && !follows_first_half)
            return true;
        previous = unit;
    }
    return false;
}

// Takes the first line off the front; gives it without its end.
std::string_view take_line(std::string_view& bytes)
{
    const std::size_t end = std::min(bytes.find('\n'), bytes.size());
    std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(std::min(end + 1, bytes.size()));
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

} // namespace

std::variant<std::vector<std::u16string>, NotUtf8> listed_paths(std::string_view bytes)
{
    if (bytes.starts_with(byte_order_mark))
        bytes.remove_prefix(byte_order_mark.size());
    std::vector<std::u16string> paths;
    for (std::size_t number = 1; !bytes.empty(); ++number) {
        std::u16string path = from_bytes(take_line(bytes));
        if (has_stray_byte(path) || path.find(u'\0') != std::u16string::npos)
            return NotUtf8{number};
        if (path.find_first_not_of(u" \t") != std::u16string::npos)
            paths.push_back(std::move(path));
    }
    return paths;
}

} // namespace multirename
