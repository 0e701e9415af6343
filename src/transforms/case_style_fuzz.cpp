// A line whose first character chooses the style, then text.

#include "transforms/case_style.h"

#include "fuzz_input.h"

namespace multirename {

namespace {

bool is_ascii_letter_or_digit(char16_t unit)
{
    return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

} // namespace

void check_input(FuzzInput input)
{
    const auto style = static_cast<CaseStyle>(input.next_choice(16));
    const std::u16string text = input.rest_text();
    std::u16string kept;
    for (const char16_t unit : text) {
        if (unit >= 0x80 || is_ascii_letter_or_digit(unit))
            kept += unit;
    }
    std::u16string joined;
    for (const std::u16string& word : SplitIntoWords(text)) {
        require(!word.empty(), "No word is empty.");
        require(CapitalizeWord(word).size() == word.size(), "A capital letter takes no more room.");
        joined += word;
    }
    require(joined == kept, "The words hold every character but the separators, in their order.");

    const std::u16string styled = ApplyCaseStyle(style, text);
    require(ToUpper(text).size() == text.size() && ToLower(text).size() == text.size(), "Case changes no length.");
    require(ToUpper(ToUpper(text)) == ToUpper(text), "Upper case stays upper case.");
    if (style == CaseStyle::Unchanged || static_cast<std::uint32_t>(style) >= case_style_labels.size())
        require(styled == text, "A style that is none changes nothing.");
    if (style == CaseStyle::Upper)
        require(styled == ToUpper(text), "Upper case is upper case.");
    if (style == CaseStyle::Lower)
        require(styled == ToLower(text), "Lower case is lower case.");
    if (style >= CaseStyle::Camel && style <= CaseStyle::KebabUpper)
        require(styled.size() <= text.size() * 2, "Words get no more than one separator each.");
}

} // namespace multirename
