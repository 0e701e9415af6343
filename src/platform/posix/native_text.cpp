#include "platform/native_text.h"

#include "text/posix_name.h"
#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

namespace {

// The lone second halves: stray bytes, as a text that was read holds them, or what is left of a pair.
std::u16string lone_second_halves(std::u16string_view text)
{
    std::u16string halves;
    for (std::size_t i = 0; (i = find_lone_half(text, i)) != std::u16string_view::npos; ++i) {
        if (is_second_half(text[i]))
            halves.push_back(text[i]);
    }
    return halves;
}

} // namespace

std::u16string name_from_native(std::string_view bytes) { return name_from_bytes(bytes); }
std::string native_from_name(std::u16string_view name) { return bytes_from_name(name); }
void native_from_name(std::u16string_view name, std::string& bytes) { bytes_from_name(name, bytes); }

bool is_native_name(std::string_view bytes) noexcept
{
    using namespace std::string_view_literals;
    return !bytes.empty() && bytes != "." && bytes != ".." && bytes.find_first_of("/\0"sv) == std::string_view::npos;
}

std::u16string path_from_native(std::string_view bytes) { return path_from_bytes(bytes); }
std::string native_from_path(std::u16string_view path) { return bytes_from_path(path); }
std::u16string typed_from_native(std::string_view bytes) { return typed_from_bytes(bytes); }
std::string_view line_of_text_file(std::string_view line, bool) noexcept { return line; }
std::u16string shown_native_name(std::u16string_view name) { return shown_name(name); }

std::u16string shown_native_path(std::u16string_view path) { return from_bytes(bytes_from_path(path)); }

bool can_be_written(std::u16string_view new_name, std::u16string_view old_name, std::u16string_view typed)
{
    if (is_plain_name(new_name))
        return true;
    if (!is_same_from_bytes(new_name))
        return false;
    if (find_lone_half(new_name) == std::u16string_view::npos)
        return true;
    // What is left of a pair may look like a stray byte; only bytes that were stray before may stay so.
    const std::u16string stray = lone_second_halves(new_name);
    const std::u16string known = lone_second_halves(old_name) + lone_second_halves(typed);
    return stray.find_first_not_of(known) == std::u16string::npos;
}

} // namespace multirename
