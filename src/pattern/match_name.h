#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "pattern/name_pattern.h"

namespace multirename {

/// What one part took from an old name. Refers into both.
struct PartCapture {
    const NamePart* part = nullptr;
    std::u16string_view text;
};

/// What the parts took from an old name.
struct NameMatch {
    std::u16string_view text; ///< all that was matched against
    bool matched = false;
    /// One for each part when the name matched; otherwise those of the parts before the one that failed, and at most
    /// those before the first wild part.
    std::vector<PartCapture> captures;
};

/// Matches one name after the other against the parts of a pattern, using its memory again for each.
class NameMatcher {
public:
    /// The parts must outlive the matcher and stay as they are.
    explicit NameMatcher(const std::vector<NamePart>& parts);

    /// Matches the whole of `text`: text parts exactly, number parts by the longest run of digits (at most 260), wild
    /// parts by the shortest text that lets the rest match. The result lasts until the next call, and as long as
    /// `text`. O(text of the parts × text) at worst, however many wild parts there are.
    const NameMatch& match(std::u16string_view text);

private:
    static constexpr std::size_t unknown = SIZE_MAX;

    // What matching needs of a part: parts themselves are too large to have many of them at hand.
    struct Step {
        const NamePart* part = nullptr;
        NamePartKind kind = NamePartKind::Text;
        bool can_take_more = false; // a wild part; others take what they take
        bool must_start_with_dot = false;
        std::size_t shortest = 0; // of a wild part
        std::u16string_view text; // of a text part
        std::size_t length_behind = unknown; // of all parts behind it, where these are texts alone
    };
    struct OpenWild {
        std::size_t part = 0;
        std::size_t start = 0;
        std::size_t end = 0;
    };

    bool match_onwards();
    bool lengthen_last_wild();
    [[nodiscard]] std::size_t end_of(std::size_t part, std::size_t place);
    [[nodiscard]] std::size_t end_of_wild(std::size_t part, std::size_t place);
    [[nodiscard]] std::size_t first_end_worth_trying(std::size_t part, std::size_t place) const;

    std::vector<Step> steps_;
    std::u16string_view text_;
    std::size_t part_ = 0;
    std::size_t place_ = 0;
    std::size_t first_wild_ = 0; // that something was taken for; behind the parts when there is none
    OpenWild last_wild_; // that could take more; behind the parts when there is none
    NameMatch match_; // its captures count for the parts before part_
};

/// Matches the same names in the same order again and again. Each is matched once; from then on the lengths that the
/// wild and number parts took are known, a byte for each part that is no text.
class RememberedMatches {
public:
    /// The parts must outlive it, and what they match must stay as it is.
    explicit RememberedMatches(const std::vector<NamePart>& parts);

    /// Begins with the first name again.
    void start_round() noexcept { next_ = 0; }

    /// The match of the next name, which has to be the one that stood at this place in the rounds before. It lasts
    /// until the next call, and as long as `text`.
    const NameMatch& next(std::u16string_view text);

private:
    void remember(const NameMatch& match, std::size_t text_length);

    NameMatcher matcher_;
    std::size_t bytes_per_name_ = 1;
    std::vector<std::uint8_t> lengths_; // for each name whether they are known, then those of the parts
    std::size_t next_ = 0; // in lengths_
    NameMatch match_;
};

/// Matches one name as `NameMatcher` does.
[[nodiscard]] NameMatch matchName(std::u16string_view text, const std::vector<NamePart>& parts);

/// What the pattern describes of a name: all but the extension, unless the pattern includes that.
[[nodiscard]] std::u16string_view described_name(const NamePattern& pattern, std::u16string_view name) noexcept;

} // namespace multirename
