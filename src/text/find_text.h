#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace multirename {

namespace find_text_details {

template <class Word>
Word word_at(const char16_t* units) noexcept
{
    Word word{};
    std::memcpy(&word, units, sizeof word);
    return word;
}

// Compares the first units of the wanted text as one word; it is at least that long.
template <class Word>
std::size_t find_by_word(std::u16string_view wanted, std::u16string_view text, std::size_t from) noexcept
{
    constexpr std::size_t units = sizeof(Word) / sizeof(char16_t);
    if (text.size() < wanted.size() || text.size() - wanted.size() < from)
        return std::u16string_view::npos;
    const Word first = word_at<Word>(wanted.data());
    const std::u16string_view rest = wanted.substr(units);
    const char16_t* const last = text.data() + (text.size() - wanted.size());
    for (const char16_t* at = text.data() + from; at <= last; ++at) {
        if (word_at<Word>(at) == first && std::equal(rest.begin(), rest.end(), at + units))
            return static_cast<std::size_t>(at - text.data());
    }
    return std::u16string_view::npos;
}

} // namespace find_text_details

/// Where `wanted`, which is not empty, first stands in the text from `from` on; npos when it does not. Quicker than the
/// library's search for the short texts that names are made of.
[[nodiscard]] inline std::size_t find_text(std::u16string_view wanted, std::u16string_view text,
                                           std::size_t from = 0) noexcept
{
    if (wanted.size() >= 4)
        return find_text_details::find_by_word<std::uint64_t>(wanted, text, from);
    if (wanted.size() >= 2)
        return find_text_details::find_by_word<std::uint32_t>(wanted, text, from);
    return find_text_details::find_by_word<std::uint16_t>(wanted, text, from);
}

} // namespace multirename
