// Names are almost all ASCII, and every new name is hashed and many are compared on every keystroke. So four units are
// taken at once as one 64-bit word; a word of ASCII alone is raised by arithmetic on all four, any other by the table.

#include "platform/name_key.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/upper_case_table.h"

namespace multirename {

namespace {

constexpr std::size_t units_per_word = 4;
static_assert(std::endian::native == std::endian::little, "the first unit of a word in memory is its lowest bits");

// The same number in each of the four units of a word.
constexpr std::uint64_t in_each(std::uint64_t unit) { return unit * 0x0001'0001'0001'0001U; }

// Made once: the system takes tens of calls for one name.
const UpperCaseTable& upper_case()
{
    static const UpperCaseTable table = make_upper_case_table();
    return table;
}

std::uint64_t word_at(const char16_t* units)
{
    std::uint64_t word = 0;
    std::memcpy(&word, units, sizeof(word));
    return word;
}

// Up to three units, and zeros behind them.
std::uint64_t last_word(std::u16string_view units)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < units.size(); ++i)
        word |= std::uint64_t{units[i]} << (16 * i);
    return word;
}

bool is_ascii(std::uint64_t word) { return (word & in_each(0xFF80)) == 0; }

std::uint64_t raised_ascii(std::uint64_t word)
{
    // With these sums the eighth bit of a unit says that it is "a" or above, and that it is above "z".
    const std::uint64_t from_a = word + in_each(0x80 - u'a');
    const std::uint64_t above_z = word + in_each(0x80 - (u'z' + 1));
    const std::uint64_t is_lower = from_a & ~above_z & in_each(0x80);
    return word - (is_lower >> 2); // 0x80 becomes 0x20, what lies between a letter's two cases
}

std::uint64_t raised(std::uint64_t word)
{
    if (is_ascii(word))
        return raised_ascii(word);
    const UpperCaseTable& table = upper_case();
    std::uint64_t result = 0;
    for (unsigned shift = 0; shift < 64; shift += 16)
        result |= std::uint64_t{table[word >> shift & 0xFFFF]} << shift;
    return result;
}

// A word in memory has its first unit lowest; as a number that sorts as the units do it has it highest.
std::uint64_t first_unit_in_front(std::uint64_t word)
{
    return word << 48 | (word & 0xFFFF'0000U) << 16 | (word >> 16 & 0xFFFF'0000U) | word >> 48;
}

std::uint64_t as_it_is(std::uint64_t word) { return word; }

template <std::uint64_t (*map)(std::uint64_t)>
std::uint64_t hash_of(std::u16string_view name)
{
    constexpr std::uint64_t odd = 0x9E37'79B9'7F4A'7C15U;
    std::uint64_t hash = name.size() * odd;
    const auto add = [&hash](std::uint64_t word) {
        hash = (hash ^ word) * odd;
        hash ^= hash >> 32;
    };
    for (; name.size() >= units_per_word; name.remove_prefix(units_per_word))
        add(map(word_at(name.data())));
    add(map(last_word(name)));
    return hash;
}

} // namespace

void name_key(std::u16string_view name, std::u16string& key)
{
    const UpperCaseTable& table = upper_case();
    key.resize(name.size());
    std::transform(name.begin(), name.end(), key.begin(), [&table](char16_t unit) { return table[unit]; });
}

std::u16string name_key(std::u16string_view name)
{
    std::u16string key;
    name_key(name, key);
    return key;
}

int compare_keys(std::u16string_view a, std::u16string_view b) noexcept
{
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t i = 0;
    for (; i + units_per_word <= shorter; i += units_per_word) {
        const std::uint64_t of_a = word_at(a.data() + i);
        const std::uint64_t of_b = word_at(b.data() + i);
        if (of_a != of_b && raised(of_a) != raised(of_b))
            return first_unit_in_front(raised(of_a)) < first_unit_in_front(raised(of_b)) ? -1 : 1;
    }
    const std::uint64_t end_of_a = key_word(a, i);
    const std::uint64_t end_of_b = key_word(b, i);
    if (end_of_a != end_of_b)
        return end_of_a < end_of_b ? -1 : 1;
    if (a.size() == b.size())
        return 0;
    return a.size() < b.size() ? -1 : 1;
}

std::uint64_t key_word(std::u16string_view name, std::size_t start) noexcept
{
    if (start >= name.size())
        return 0;
    const std::u16string_view rest = name.substr(start, units_per_word);
    return first_unit_in_front(raised(rest.size() == units_per_word ? word_at(rest.data()) : last_word(rest)));
}

bool have_one_key(std::u16string_view a, std::u16string_view b) noexcept
{
    return a.size() == b.size() && compare_keys(a, b) == 0;
}

std::uint64_t key_hash(std::u16string_view name) noexcept { return hash_of<raised>(name); }

std::uint64_t name_hash(std::u16string_view name) noexcept { return hash_of<as_it_is>(name); }

} // namespace multirename
