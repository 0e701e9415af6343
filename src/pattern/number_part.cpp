#include "pattern/number_part.h"

#include <algorithm>

#include "pattern/match_name.h"
#include "text/decimal.h"

namespace multirename {

namespace {

// The number without its leading zeros, of which at most `most` go.
std::u16string_view without_zeros(std::u16string_view number, std::size_t most)
{
    const std::size_t zeros = std::min(number.find_first_not_of(u'0'), number.size());
    return number.substr(std::min(zeros, most));
}

void append_with_width(std::u16string& name, std::u16string_view number, std::int64_t wanted)
{
    const auto width = static_cast<std::size_t>(std::max<std::int64_t>(wanted, 1));
    if (number.size() < width)
        name.append(width - number.size(), u'0').append(number);
    else
        name += without_zeros(number, number.size() - width);
}

std::int64_t renumbered(const NamePart& part, std::u16string_view digits)
{
    const std::int64_t offset = saturating_subtract(read_decimal(digits), part.baseNumber);
    const std::int64_t number = saturating_add(offset, part.renumbered_base());
    return std::max<std::int64_t>(number, 0);
}

bool has_numbers(const NamePattern& pattern)
{
    return std::ranges::count(pattern.parts, NamePartKind::Number, &NamePart::kind) > 0;
}

// Looks at what the pattern's number parts take from one name after the other.
class SmallestNumberFinder {
public:
    explicit SmallestNumberFinder(const NamePattern& pattern) : matcher_(pattern.parts) { }

    void add(std::u16string_view described_name)
    {
        const NameMatch& match = matcher_.match(described_name);
        smallest_.all_names_fit = smallest_.all_names_fit && match.matched;
        std::size_t slot = 0;
        for (const PartCapture& capture : match.captures) {
            if (capture.part->kind != NamePartKind::Number)
                continue;
            const std::int64_t number = read_decimal(capture.text);
            if (slot == smallest_.numbers.size())
                smallest_.numbers.push_back(number);
            smallest_.numbers[slot] = std::min(smallest_.numbers[slot], number);
            ++slot;
        }
    }

    [[nodiscard]] const SmallestNumbers& smallest() const { return smallest_; }

private:
    NameMatcher matcher_;
    SmallestNumbers smallest_;
};

} // namespace

void append_number(std::u16string& name, const NamePart& part, std::u16string_view digits)
{
    if (part.clearText)
        return;
    DecimalDigits written;
    const std::u16string_view number = part.renumber ? written.write(renumbered(part, digits)) : digits;
    if (part.leadingZeros == LeadingZerosMode::FixedDigits) {
        append_with_width(name, number, part.length);
    } else if (part.leadingZeros == LeadingZerosMode::RemoveZeros) {
        const std::u16string_view significant = without_zeros(number, number.size());
        name += significant.empty() ? u"0" : significant;
    } else if (part.renumber && digits.starts_with(u'0')) {
        append_with_width(name, number, static_cast<std::int64_t>(digits.size()));
    } else {
        name += number;
    }
}

std::u16string formatNumberPart(const NamePart& part, std::u16string_view digits)
{
    std::u16string number;
    append_number(number, part, digits);
    return number;
}

SmallestNumbers smallest_numbers(std::span<const std::u16string_view> described_names, const NamePattern& pattern)
{
    if (!has_numbers(pattern))
        return {};
    SmallestNumberFinder finder(pattern);
    for (const std::u16string_view name : described_names)
        finder.add(name);
    return finder.smallest();
}

bool set_base_numbers(NamePattern& pattern, const SmallestNumbers& smallest)
{
    bool changed = false;
    auto next = smallest.numbers.begin();
    for (NamePart& part : pattern.parts) {
        if (part.kind != NamePartKind::Number || next == smallest.numbers.end())
            continue;
        changed = changed || part.baseNumber != *next;
        part.baseNumber = *next++;
    }
    return changed;
}

bool computeBaseNumbers(const FileSet& files, NamePattern& pattern)
{
    if (!has_numbers(pattern))
        return false;
    SmallestNumberFinder finder(pattern);
    files.for_each_entry([&](const Filename& entry) {
        if (!entry.not_listed)
            finder.add(described_name(pattern, entry.name));
    });
    return set_base_numbers(pattern, finder.smallest());
}

} // namespace multirename
