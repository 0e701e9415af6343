#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// Every text over the alphabet of at most `longest` units, the empty one first and shorter ones before longer ones.
[[nodiscard]] inline std::vector<std::u16string> all_texts(std::u16string_view alphabet, std::size_t longest)
{
    std::vector<std::u16string> texts = {u""};
    for (std::size_t done = 0; texts[done].size() < longest; ++done) {
        for (const char16_t unit : alphabet)
            texts.push_back(texts[done] + unit);
    }
    return texts;
}

} // namespace multirename
