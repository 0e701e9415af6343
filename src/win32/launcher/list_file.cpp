#include "win32/launcher/list_file.h"

#include <algorithm>

#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

// Stray bytes come as halves of surrogate pairs that stand alone; well-formed text has none.
bool has_stray_byte(std::u16string_view text) { return find_lone_half(text) != std::u16string_view::npos; }

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
