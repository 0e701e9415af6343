#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace multirename {

/// Text of at most 260 UTF-16 units, the bound of one part of a new name. What no longer fits is dropped silently, so
/// that the text is always a prefix of what was appended.
class BoundedText {
public:
    static constexpr std::size_t capacity = 260;

    void append(char16_t unit) noexcept
    {
        if (length_ < capacity)
            units_[length_++] = unit;
    }

    void append(std::u16string_view text) noexcept
    {
        text = text.substr(0, capacity - length_);
        std::copy(text.begin(), text.end(), units_.begin() + static_cast<std::ptrdiff_t>(length_));
        length_ += text.size();
    }

    [[nodiscard]] std::u16string_view view() const noexcept { return {units_.data(), length_}; }

private:
    std::array<char16_t, capacity> units_; // filled up to length_ only: made for every text part of every new name
    std::size_t length_ = 0;
};

} // namespace multirename
