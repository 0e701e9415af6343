#include "text/posix_name.h"

#include <algorithm>
#include <cstdint>

#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::u16string_view mapped_characters = u"\\:*?\"<>|";
constexpr char16_t mapped_base = 0xF000;

// One bit for each character of ASCII that is moved aside. Most names hold none and nothing beyond ASCII, and there are
// many of them, so that they are looked through without a search for each character.
struct MappedBits {
    std::uint64_t low = 0;
    std::uint64_t high = 0;
};
constexpr MappedBits mapped_bits = [] {
    MappedBits bits;
    for (const char16_t unit : mapped_characters)
        (unit < 64 ? bits.low : bits.high) |= std::uint64_t{1} << (unit % 64U);
    return bits;
}();

bool is_to_be_mapped(char16_t unit)
{
    return unit < 0x80 && ((unit < 64 ? mapped_bits.low : mapped_bits.high) >> (unit % 64U) & 1U) != 0;
}

bool is_mapped(char16_t unit)
{
    return unit >= mapped_base && is_to_be_mapped(static_cast<char16_t>(unit - mapped_base));
}

bool is_plain(char16_t unit) { return unit < 0x80 && !is_to_be_mapped(unit); }
bool is_plain_byte(char byte) { return is_plain(static_cast<unsigned char>(byte)); }

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
            text.push_back(unit_for_byte(byte));
    }
    return text;
}

void name_from_bytes(std::string_view bytes, std::u16string& name)
{
    if (std::ranges::all_of(bytes, is_plain_byte)) {
        name.assign(bytes.begin(), bytes.end());
        return;
    }
    name = typed_from_bytes(bytes);
    for (char16_t& unit : name) {
        if (is_to_be_mapped(unit))
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

void bytes_from_name(std::u16string_view name, std::string& bytes)
{
    bytes.resize(name.size());
    char* next = bytes.data();
    char16_t all_bits = 0;
    for (const char16_t unit : name) {
        all_bits = static_cast<char16_t>(all_bits | unit);
        *next++ = static_cast<char>(unit);
    }
    if (all_bits >= 0x80)
        bytes = bytes_from_name(name);
}

bool is_plain_name(std::u16string_view name) noexcept { return std::ranges::all_of(name, is_plain); }

bool is_same_from_bytes(std::u16string_view name)
{
    if (std::ranges::none_of(name, is_half))
        return std::ranges::none_of(name, is_to_be_mapped);
    return name_from_bytes(bytes_from_name(name)) == name;
}

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
