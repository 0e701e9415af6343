#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "pattern/sliced_names.h"

namespace multirename {

/// Which characters occur in every text. Once a text of characters below 256 alone has been met, only those are judged:
/// higher ones that all texts before it hold count as common from there on, and matching has to find out that they are
/// not.
class CommonCharTable {
public:
    /// Reads each text about once, and stops at the first one after which nothing can be common any more.
    CommonCharTable(const SlicedNames& texts, bool number_mode);

    /// True when no character is common, among those below 256 once there was a text without others.
    [[nodiscard]] bool is_empty() const noexcept { return is_empty_; }
    /// Numbers are recognised and every text has one. Then all digits count as common.
    [[nodiscard]] bool digits_common() const noexcept { return digits_common_; }

    [[nodiscard]] bool operator[](char16_t unit) const noexcept { return class_of_[unit] != 0; }

    /// A number below 64: 0 for a character that is not common, and otherwise one that few others share, if any. With
    /// digits common they are one class, which the number mark has too.
    [[nodiscard]] std::uint8_t class_of(char16_t unit) const noexcept { return class_of_[unit]; }

    /// True when it is known without looking that each of some texts, parts of those that this was made of, holds the
    /// run. `held_classes` has a bit for each class of which all of them hold a character.
    [[nodiscard]] bool is_known_in_all(std::u16string_view run, std::uint64_t held_classes) const noexcept;

private:
    using Candidates = std::vector<char16_t>;

    [[nodiscard]] Candidates surviving(const SlicedNames& texts, std::u16string_view candidates, bool number_mode);
    void classify(const Candidates& common, bool are_high_ones_common);

    bool is_empty_ = true;
    bool digits_common_ = false;
    bool classes_are_shared_ = false; // there are more common characters than classes for them
    std::vector<std::uint8_t> class_of_; // for each character
};

} // namespace multirename
