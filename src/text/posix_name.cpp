#include "text/posix_name.h"

#include <algorithm>
#include <array>

#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::u16string_view mapped_characters = u"\\:*?\"<>|";
constexpr char16_t mapped_base = 0xF000;
constexpr char16_t stray_byte_base = 0xDC00;

bool is_mapped(char16_t unit)
{
    return unit >= mapped_base &&
        mapped_characters.find(static_cast<char16_t>(unit - mapped_base)) != std::u16string_view::npos;
}

// Whether a byte stands for itself whatever is around it, as in nearly all names all do.
bool is_plain(char byte)
{
    static constexpr auto plain = [] {
        std::array<bool, 256> table{};
        for (std::size_t code = 0; code < 0x80; ++code)
            table[code] = mapped_characters.find(static_cast<char16_t>(code)) == std::u16string_view::npos;
        return table;
    }();
    return plain[static_cast<unsigned char>(byte)];
}

} // namespace

std::u16string typed_from_bytes(std::string_view bytes)
{
    std::u16string text;
    for (const char16_t unit : from_bytes(bytes)) {
        if (!is_mapped(unit)) {
            text.push_back(unit);
            continue;
        }
        for (const char byte : to_bytes({&unit, 1}))
            text.push_back(static_cast<char16_t>(stray_byte_base + static_cast<unsigned char>(byte)));
    }
    return text;
}

void name_from_bytes(std::string_view bytes, std::u16string& name)
{
    if (std::all_of(bytes.begin(), bytes.end(), is_plain)) {
        name.assign(bytes.begin(), bytes.end());
        return;
    }
    name = typed_from_bytes(bytes);
    for (char16_t& unit : name) {
        if (mapped_characters.find(unit) != std::u16string_view::npos)
            unit = static_cast<char16_t>(mapped_base + unit);
    }
}

std::u16string name_from_bytes(std::string_view bytes)
{
    std::u16string name;
    name_from_bytes(bytes, name);
    return name;
}

std::u16string shown_name(std::u16string_view name)
{
    std::u16string text(name);
    for (char16_t& unit : text) {
        if (is_mapped(unit))
            unit = static_cast<char16_t>(unit - mapped_base);
    }
    return text;
}

std::string bytes_from_name(std::u16string_view name) { return to_bytes(shown_name(name)); }

std::u16string path_from_bytes(std::string_view bytes)
{
    std::u16string path;
    while (true) {
        const std::size_t slash = bytes.find('/');
        path += name_from_bytes(bytes.substr(0, slash));
        if (slash == std::string_view::npos)
            return path;
        path.push_back(u'\\');
        bytes.remove_prefix(slash + 1);
    }
}

std::string bytes_from_path(std::u16string_view path)
{
    std::string bytes;
    while (true) {
        const std::size_t backslash = path.find(u'\\');
        bytes += bytes_from_name(path.substr(0, backslash));
        if (backslash == std::u16string_view::npos)
            return bytes;
        bytes.push_back('/');
        path.remove_prefix(backslash + 1);
    }
}

} // namespace multirename
