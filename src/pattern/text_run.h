#pragma once

#include <cstddef>
#include <string_view>

#include "pattern/common_char_table.h"
#include "pattern/run_bounds.h"
#include "pattern/sliced_names.h"

namespace multirename {

/// The search for the longest run of common characters that all texts hold, the first such of the reference. It guesses
/// from some texts; who reads them all says where a guess is wrong. A guess that stands in all texts is the answer.
class TextRunSearch {
public:
    /// The reference is one of the texts. All that is given must outlive this.
    TextRunSearch(const SlicedNames& texts, std::size_t reference, const CommonCharTable& table);

    /// A run of the reference, empty when no run is left.
    [[nodiscard]] std::u16string_view guess() const;
    /// The present guess stands in the texts before this one and not in it.
    void reject(std::size_t text);

private:
    // True when the highest bound is lower now.
    bool lower_bounds(std::size_t text);

    const SlicedNames& texts_;
    const CommonCharTable& table_;
    std::u16string_view reference_;
    RunBounds bounds_;
    BoundingBudget budget_;
    RunBounds::Classes classes_; // of the text that is being read
};

} // namespace multirename
