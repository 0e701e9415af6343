#include "platform/native_text.h"

#include "text/wtf8.h"

namespace multirename {

std::u16string name_from_native(std::string_view bytes) { return from_wtf8(bytes); }
std::string native_from_name(std::u16string_view name) { return to_wtf8(name); }
void native_from_name(std::u16string_view name, std::string& bytes) { bytes = to_wtf8(name); }

bool is_native_name(std::string_view bytes) noexcept
{
    using namespace std::string_view_literals;
    // Behind a colon a name would be that of a stream of the file.
    return !bytes.empty() && bytes != "." && bytes != ".." && bytes.find_first_of("\\/:\0"sv) == std::string_view::npos;
}

std::u16string path_from_native(std::string_view bytes) { return from_wtf8(bytes); }
std::string native_from_path(std::u16string_view path) { return to_wtf8(path); }
std::u16string typed_from_native(std::string_view bytes) { return from_wtf8(bytes); }
std::string_view line_of_text_file(std::string_view line, bool is_first) noexcept
{
    constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
    if (is_first && line.starts_with(byte_order_mark))
        line.remove_prefix(byte_order_mark.size());
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return line;
}

std::u16string shown_native_name(std::u16string_view name) { return std::u16string(name); }

std::u16string shown_native_path(std::u16string_view path) { return std::u16string(path); }

bool can_be_written(std::u16string_view, std::u16string_view, std::u16string_view) { return true; }

} // namespace multirename
