#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "transforms/case_style.h"

namespace multirename {

enum class NamePartKind : std::uint32_t { Text = 0, Number = 1, Wild = 2 };

/// What is done with the leading zeros of a number. The numbers are stored in the user's settings.
enum class LeadingZerosMode : std::uint32_t { Unchanged = 0, FixedDigits = 1, RemoveZeros = 2 };

/// One part of a pattern: what it takes from an old name, and what it puts into the new one. Which fields count depends
/// on the kind.
struct NamePart {
    NamePartKind kind = NamePartKind::Text;

    // Text
    std::u16string matchText; ///< what stands at this place in every old name
    std::u16string text; ///< what new names get, with tags
    bool keepMatched = false; ///< new names get what was matched in place of `text`
    bool invalid = false; ///< `text` holds something that no name may hold

    // Wild: the most characters that truncation leaves. Number: the digits of LeadingZerosMode::FixedDigits.
    std::int32_t length = 0;

    // Wild
    bool mustStartWithDot = false; ///< takes nothing but an extension
    std::int32_t minLength = 0;
    bool fixedLength = false; ///< takes minLength characters, no more
    bool truncate = false;
    std::u16string findText; ///< empty: nothing is replaced
    std::u16string replaceText;
    CaseStyle caseStyle = CaseStyle::Unchanged;

    // Number
    bool clearText = false; ///< new names get nothing
    LeadingZerosMode leadingZeros = LeadingZerosMode::Unchanged;
    bool renumber = false;
    std::int64_t startNumber = -1; ///< what `baseNumber` becomes; negative: not set
    std::int64_t baseNumber = 0; ///< the smallest number that this part takes from the listed old names

    /// What `baseNumber` becomes when the part is renumbered: itself while no start number is set.
    [[nodiscard]] std::int64_t renumbered_base() const noexcept { return startNumber < 0 ? baseNumber : startNumber; }

    [[nodiscard]] static NamePart make_text(std::u16string_view text);
    /// The text part that stands where a pattern has no text: it gives back what it took, that is nothing.
    [[nodiscard]] static NamePart make_empty_text();
    [[nodiscard]] static NamePart make_number();
    [[nodiscard]] static NamePart make_wild();

    /// Sets what new names get at this place and whether that is valid.
    void setText(std::u16string_view new_text);
};

/// Whether a text part may hold this: nothing that file names may not hold, and every "<" the start of a well-formed
/// tag. An empty text may stand anywhere.
[[nodiscard]] bool isValidPartText(std::u16string_view text);

} // namespace multirename
