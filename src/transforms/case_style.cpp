#include "transforms/case_style.h"

#include <algorithm>
#include <cwctype>
#include <unordered_set>
#include <utility>

namespace multirename {

namespace {

bool is_alphabetic(char16_t unit) { return std::iswalpha(unit) != 0; }
bool is_lower(char16_t unit) { return std::iswlower(unit) != 0; }
bool is_upper(char16_t unit) { return std::iswupper(unit) != 0; }
bool is_runtime_digit(char16_t unit) { return std::iswdigit(unit) != 0; }

// One unit stays one unit, also where the runtime's tables lead out of the 16-bit range.
char16_t one_unit(char32_t mapped, char16_t unit) { return mapped <= 0xFFFF ? static_cast<char16_t>(mapped) : unit; }
char16_t to_upper(char16_t unit) { return one_unit(std::towupper(unit), unit); }
char16_t to_lower(char16_t unit) { return one_unit(std::towlower(unit), unit); }

bool is_separator(char16_t unit) { return unit < 128 && std::iswalnum(unit) == 0; }

// Whether a word begins at `index`, the unit before which belongs to a word.
bool begins_word(std::u16string_view text, std::size_t index)
{
    const char16_t previous = text[index - 1];
    const char16_t unit = text[index];
    if (is_lower(previous) && is_upper(unit))
        return true;
    if (is_upper(previous) && is_upper(unit))
        return index + 1 < text.size() && is_lower(text[index + 1]);
    return is_runtime_digit(previous) && !is_runtime_digit(unit);
}

bool is_small_word(const std::u16string& lower_case_word)
{
    static const std::unordered_set<std::u16string> small_words = {
        u"a",  u"an", u"the", u"and", u"but", u"or", u"nor", u"for", u"yet", u"so",  u"at",
        u"by", u"in", u"of",  u"on",  u"to",  u"up", u"as",  u"if",  u"off", u"per", u"via",
    };
    return small_words.contains(lower_case_word);
}

std::u16string title_case(std::u16string_view text)
{
    std::u16string result;
    const auto end_of_last_word = std::find_if(text.rbegin(), text.rend(), is_alphabetic).base();
    bool first_word = true;
    for (auto unit = text.begin(); unit != text.end();) {
        if (!is_alphabetic(*unit)) {
            result.push_back(*unit++);
            continue;
        }
        const auto end = std::find_if_not(unit, text.end(), is_alphabetic);
        const std::u16string_view word(unit, end);
        const bool last_word = end == end_of_last_word;
        const std::u16string lower = ToLower(word);
        result += !first_word && !last_word && is_small_word(lower) ? lower : CapitalizeWord(word);
        first_word = false;
        unit = end;
    }
    return result;
}

std::u16string sentence_case(std::u16string_view text)
{
    std::u16string result;
    bool capital_due = true;
    for (const char16_t unit : text) {
        if (!is_alphabetic(unit)) {
            capital_due = capital_due || unit == u'.' || unit == u'!' || unit == u'?';
            result.push_back(unit);
            continue;
        }
        result.push_back(capital_due ? to_upper(unit) : to_lower(unit));
        capital_due = false;
    }
    return result;
}

template <class MapWord>
std::u16string join_words(std::u16string_view text, std::u16string_view separator, MapWord map_word)
{
    std::u16string result;
    bool first = true;
    for (const std::u16string& word : SplitIntoWords(text)) {
        if (!first)
            result += separator;
        result += map_word(word);
        first = false;
    }
    return result;
}

std::u16string camel_case(std::u16string_view text)
{
    bool first = true;
    return join_words(text, u"", [&first](const std::u16string& word) {
        return std::exchange(first, false) ? ToLower(word) : CapitalizeWord(word);
    });
}

} // namespace

std::u16string ApplyCaseStyle(CaseStyle style, std::u16string_view text)
{
    switch (style) {
    case CaseStyle::Unchanged: break;
    case CaseStyle::Upper: return ToUpper(text);
    case CaseStyle::Lower: return ToLower(text);
    case CaseStyle::Title: return title_case(text);
    case CaseStyle::Sentence: return sentence_case(text);
    case CaseStyle::Camel: return camel_case(text);
    case CaseStyle::Pascal: return join_words(text, u"", CapitalizeWord);
    case CaseStyle::Snake: return join_words(text, u"_", ToLower);
    case CaseStyle::SnakeUpper: return join_words(text, u"_", ToUpper);
    case CaseStyle::Kebab: return join_words(text, u"-", ToLower);
    case CaseStyle::KebabUpper: return join_words(text, u"-", ToUpper);
    }
    return std::u16string(text);
}

std::vector<std::u16string> SplitIntoWords(std::u16string_view text)
{
    std::vector<std::u16string> words;
    std::u16string word;
    const auto finish_word = [&] {
        if (!word.empty())
            words.push_back(std::exchange(word, {}));
    };
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (is_separator(text[i])) {
            finish_word();
            continue;
        }
        if (!word.empty() && begins_word(text, i))
            finish_word();
        word.push_back(text[i]);
    }
    finish_word();
    return words;
}

std::u16string CapitalizeWord(std::u16string_view word)
{
    std::u16string result;
    bool first_letter_due = true;
    for (const char16_t unit : word) {
        const bool is_first_letter = first_letter_due && is_alphabetic(unit);
        result.push_back(is_first_letter ? to_upper(unit) : to_lower(unit));
        first_letter_due = first_letter_due && !is_first_letter;
    }
    return result;
}

std::u16string ToUpper(std::u16string_view text)
{
    std::u16string result(text);
    std::transform(result.begin(), result.end(), result.begin(), to_upper);
    return result;
}

std::u16string ToLower(std::u16string_view text)
{
    std::u16string result(text);
    std::transform(result.begin(), result.end(), result.begin(), to_lower);
    return result;
}

} // namespace multirename
