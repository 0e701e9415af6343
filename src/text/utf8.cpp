#include "text/utf8.h"

#include <algorithm>
#include <cstdint>

#include "text/surrogates.h"

namespace multirename {

namespace {

struct Decoded {
    char32_t code_point = 0;
    std::size_t length = 0; // 0: no well-formed sequence starts here
};

Decoded decode_one(std::string_view bytes)
{
    const auto lead = static_cast<std::uint8_t>(bytes[0]);
    if (lead < 0x80)
        return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length)
        return {};
    char32_t code_point = lead & (0x7FU >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<std::uint8_t>(bytes[i]);
        if ((next & 0xC0U) != 0x80)
            return {};
        code_point = code_point << 6 | (next & 0x3FU);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code_point >= 0xD800 && code_point <= 0xDFFF;
    if (code_point < smallest[length] || code_point > 0x10FFFF || surrogate)
        return {};
    return {code_point, length};
}

void append_utf8(std::string& bytes, char32_t code_point)
{
    const auto append = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (code_point < 0x80) {
        append(code_point);
    } else if (code_point < 0x800) {
        append(0xC0 | code_point >> 6);
        append(0x80 | (code_point & 0x3F));
    } else if (code_point < 0x10000) {
        append(0xE0 | code_point >> 12);
        append(0x80 | (code_point >> 6 & 0x3F));
        append(0x80 | (code_point & 0x3F));
    } else {
        append(0xF0 | code_point >> 18);
        append(0x80 | (code_point >> 12 & 0x3F));
        append(0x80 | (code_point >> 6 & 0x3F));
        append(0x80 | (code_point & 0x3F));
    }
}

} // namespace

std::u16string from_bytes(std::string_view bytes)
{
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const Decoded decoded = decode_one(bytes);
        if (decoded.length == 0) {
            text.push_back(unit_for_byte(bytes[0]));
            bytes.remove_prefix(1);
            continue;
        }
        if (decoded.code_point < 0x10000) {
            text.push_back(static_cast<char16_t>(decoded.code_point));
        } else {
            text.push_back(static_cast<char16_t>(0xD7C0 + (decoded.code_point >> 10)));
            text.push_back(static_cast<char16_t>(0xDC00 | (decoded.code_point & 0x3FF)));
        }
        bytes.remove_prefix(decoded.length);
    }
    return text;
}

std::string to_bytes(std::u16string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i];
        if (is_pair_at(text, i)) {
            append_utf8(bytes, joined_halves(unit, text[++i]));
        } else if (stands_for_byte(unit)) {
            bytes.push_back(byte_of_unit(unit));
        } else if (is_half(unit)) {
            append_utf8(bytes, 0xFFFD);
        } else {
            append_utf8(bytes, unit);
        }
    }
    return bytes;
}

// Without a way out of the loop the compiler looks at many units at a time.
bool is_printable_ascii(std::u16string_view text) noexcept
{
    unsigned others = 0;
    for (const char16_t unit : text)
        others |= unit < 0x20U || unit > 0x7EU ? 1U : 0U;
    return others == 0;
}

bool append_printable_ascii(std::string& bytes, std::u16string_view text)
{
    if (!is_printable_ascii(text))
        return false;
    const std::size_t start = bytes.size();
    bytes.resize(start + text.size());
    std::ranges::transform(text, bytes.data() + start, [](char16_t unit) { return static_cast<char>(unit); });
    return true;
}

} // namespace multirename
