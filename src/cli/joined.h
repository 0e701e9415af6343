#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>

namespace multirename {

/// The words in one text with a separator between each two, `last_separator` between the last two of them: "a, b and
/// c".
template <class Words>
[[nodiscard]] std::string joined(const Words& words, std::string_view separator, std::string_view last_separator)
{
    std::string text;
    std::size_t left = std::size(words);
    for (const auto& word : words) {
        text.append(word);
        if (--left > 0)
            text.append(left == 1 ? last_separator : separator);
    }
    return text;
}

/// The same with one separator throughout.
template <class Words>
[[nodiscard]] std::string joined(const Words& words, std::string_view separator)
{
    return joined(words, separator, separator);
}

} // namespace multirename
