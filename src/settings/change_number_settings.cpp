#include "settings/change_number_settings.h"

#include <algorithm>
#include <iterator>
#include <limits>

namespace multirename {

namespace {

constexpr std::u16string_view mode_value = u"NumberDlg LeadZeros";
constexpr std::u16string_view start_value = u"NumberDlg Start";
constexpr std::u16string_view digits_value = u"NumberDlg NDigits";

struct StoredMode {
    LeadingZerosMode mode;
    std::uint32_t number;
};

constexpr StoredMode stored_modes[] = {
    {LeadingZerosMode::Unchanged, 0},
    {LeadingZerosMode::FixedDigits, 1},
    {LeadingZerosMode::RemoveZeros, 2},
};

std::uint32_t number_of(LeadingZerosMode mode)
{
    const auto* const row = std::ranges::find(stored_modes, mode, &StoredMode::mode);
    return row == std::end(stored_modes) ? 0 : row->number;
}

LeadingZerosMode mode_of(std::uint32_t number)
{
    const auto* const row = std::ranges::find(stored_modes, number, &StoredMode::number);
    return row == std::end(stored_modes) ? LeadingZerosMode::Unchanged : row->mode;
}

} // namespace

ChangeNumberDlgSettings::ChangeNumberDlgSettings(UserValues& store, std::u16string_view product_name) :
    Registry(store, product_name)
{
    std::uint32_t stored_mode = number_of(mode);
    read(mode_value, stored_mode);
    mode = mode_of(stored_mode);
    auto stored_start = static_cast<std::uint32_t>(start);
    read(start_value, stored_start);
    start = stored_start; // widened without sign: a stored -5 comes back as 4294967291
    auto stored_digits = static_cast<std::uint32_t>(digits);
    read(digits_value, stored_digits);
    digits = static_cast<std::int32_t>(stored_digits);
}

void ChangeNumberDlgSettings::remember_mode(LeadingZerosMode new_mode)
{
    mode = new_mode;
    write(mode_value, number_of(new_mode));
}

void ChangeNumberDlgSettings::remember_start(std::int64_t new_start)
{
    using Stored = std::numeric_limits<std::int32_t>;
    start = new_start;
    if (new_start >= Stored::min() && new_start <= Stored::max())
        write(start_value, static_cast<std::uint32_t>(new_start));
}

void ChangeNumberDlgSettings::remember_digits(std::int32_t new_digits)
{
    digits = new_digits;
    write(digits_value, static_cast<std::uint32_t>(new_digits));
}

} // namespace multirename
