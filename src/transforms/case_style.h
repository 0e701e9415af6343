#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// The numbers are those of the items in the dialog's list.
enum class CaseStyle : std::uint32_t {
    Unchanged = 0,
    Upper = 1,
    Lower = 2,
    Title = 3,
    Sentence = 4,
    Camel = 5,
    Pascal = 6,
    Snake = 7,
    SnakeUpper = 8,
    Kebab = 9,
    KebabUpper = 10,
};

struct CaseStyleLabel {
    CaseStyle style;
    std::u16string_view label;
};

/// All styles with the labels that users see, in the order of their values.
inline constexpr std::array<CaseStyleLabel, 11> case_style_labels = {{
    {CaseStyle::Unchanged, u"Unchanged"},
    {CaseStyle::Upper, u"UPPER CASE"},
    {CaseStyle::Lower, u"lower case"},
    {CaseStyle::Title, u"Title Case"},
    {CaseStyle::Sentence, u"Sentence case"},
    {CaseStyle::Camel, u"camelCase"},
    {CaseStyle::Pascal, u"PascalCase"},
    {CaseStyle::Snake, u"snake_case"},
    {CaseStyle::SnakeUpper, u"SNAKE_CASE_UPPER"},
    {CaseStyle::Kebab, u"kebab-case"},
    {CaseStyle::KebabUpper, u"KEBAB-CASE-UPPER"},
}};

/// `text` in the given style; a value that is no style leaves it unchanged. Letters, digits and cases are those of the
/// C runtime under the process's locale, one UTF-16 unit at a time.
[[nodiscard]] std::u16string ApplyCaseStyle(CaseStyle style, std::u16string_view text);

/// The words of `text` in order, none empty. ASCII characters that are neither letters nor digits separate words and
/// are dropped; other characters never do. A word also ends between a lower-case and an upper-case letter, before the
/// last capital of a run of capitals that a lower-case letter follows, and after a digit that no digit follows; yet not
/// between a letter and a digit.
[[nodiscard]] std::vector<std::u16string> SplitIntoWords(std::u16string_view text);

/// The word with its first letter in upper case and everything else in lower case.
[[nodiscard]] std::u16string CapitalizeWord(std::u16string_view word);

/// The text with every unit in upper or in lower case; its length never changes.
[[nodiscard]] std::u16string ToUpper(std::u16string_view text);
[[nodiscard]] std::u16string ToLower(std::u16string_view text);

} // namespace multirename
