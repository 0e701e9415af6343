#include "pattern/number_part.h"

#include <algorithm>
#include <vector>

#include "pattern/match_name.h"
#include "text/decimal.h"

namespace multirename {

namespace {

// Removes at most `most` leading zeros.
void strip_zeros(std::u16string& number, std::size_t most)
{
    const std::size_t zeros = std::min(number.find_first_not_of(u'0'), number.size());
    number.erase(0, std::min(zeros, most));
}

void set_width(std::u16string& number, std::int64_t wanted)
{
    const auto width = static_cast<std::size_t>(std::max<std::int64_t>(wanted, 1));
    if (number.size() < width)
        number.insert(0, width - number.size(), u'0');
    else
        strip_zeros(number, number.size() - width);
}

std::u16string renumbered(const NamePart& part, std::u16string_view digits)
{
    const std::int64_t start = part.startNumber < 0 ? part.baseNumber : part.startNumber;
    const std::int64_t number = saturating_add(saturating_subtract(read_decimal(digits), part.baseNumber), start);
    return decimal_text(std::max<std::int64_t>(number, 0));
}

} // namespace

std::u16string formatNumberPart(const NamePart& part, std::u16string_view digits)
{
    if (part.clearText)
        return {};
    std::u16string number = part.renumber ? renumbered(part, digits) : std::u16string(digits);
    switch (part.leadingZeros) {
    case LeadingZerosMode::Unchanged:
        if (part.renumber && digits.starts_with(u'0'))
            set_width(number, static_cast<std::int64_t>(digits.size()));
        break;
    case LeadingZerosMode::FixedDigits: set_width(number, part.length); break;
    case LeadingZerosMode::RemoveZeros:
        strip_zeros(number, number.size());
        if (number.empty())
            number.push_back(u'0');
        break;
    }
    return number;
}

bool computeBaseNumbers(const FileSet& files, NamePattern& pattern)
{
    std::vector<std::int64_t> smallest;
    files.for_each_entry([&](const Filename& entry) {
        if (entry.not_listed)
            return;
        std::size_t slot = 0;
        for (const PartCapture& capture : matchName(described_name(pattern, entry.name), pattern.parts).captures) {
            if (capture.part->kind != NamePartKind::Number)
                continue;
            const std::int64_t number = read_decimal(capture.text);
            if (slot == smallest.size())
                smallest.push_back(number);
            smallest[slot] = std::min(smallest[slot], number);
            ++slot;
        }
    });
    bool changed = false;
    auto next = smallest.begin();
    for (NamePart& part : pattern.parts) {
        if (part.kind != NamePartKind::Number || next == smallest.end())
            continue;
        changed = changed || part.baseNumber != *next;
        part.baseNumber = *next++;
    }
    return changed;
}

} // namespace multirename
