#include "text/wtf8.h"

#include "text/surrogates.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::size_t half_length = 3; // bytes
constexpr std::size_t none = std::u16string_view::npos;

void append_half(std::string& bytes, char16_t half)
{
    bytes.push_back(static_cast<char>(0xED));
    bytes.push_back(static_cast<char>(0x80U | (half >> 6U & 0x3FU)));
    bytes.push_back(static_cast<char>(0x80U | (half & 0x3FU)));
}

bool starts_with_half(std::string_view bytes)
{
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return bytes.size() >= half_length && byte(0) == 0xED && byte(1) >= 0xA0 && byte(1) <= 0xBF &&
        (byte(2) & 0xC0U) == 0x80;
}

} // namespace

std::string to_wtf8(std::u16string_view text)
{
    std::string bytes;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t half = find_lone_half(text, start);
        bytes += to_bytes(text.substr(start, half - start));
        if (half == none)
            break;
        append_half(bytes, text[half]);
        start = half + 1;
    }
    return bytes;
}

std::u16string from_wtf8(std::string_view bytes)
{
    std::u16string text = from_bytes(bytes);
    // A half was no UTF-8, so each of its bytes has become a unit of its own, as any stray byte has.
    std::u16string result;
    for (std::size_t i = find_lone_half(text, 0), copied = 0;; i = find_lone_half(text, copied)) {
        result += std::u16string_view(text).substr(copied, i - copied);
        if (i == none)
            return result;
        const std::string stray = to_bytes(std::u16string_view(text).substr(i, half_length));
        if (starts_with_half(stray)) {
            const auto second = static_cast<unsigned char>(stray[1]);
            const auto third = static_cast<unsigned char>(stray[2]);
            result.push_back(static_cast<char16_t>(0xD000U | (second & 0x3FU) << 6U | (third & 0x3FU)));
            copied = i + half_length;
        } else {
            result.push_back(0xFFFD);
            copied = i + 1;
        }
    }
}

} // namespace multirename
