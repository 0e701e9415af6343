#include "run/number_settings.h"

#include "text/decimal.h"

namespace multirename {

namespace {

std::int64_t start_of(const NamePart& part, const ChangeNumberDlgSettings& remembered)
{
    return part.renumber ? part.renumbered_base() : remembered.start;
}

NumberChoice choice_of(const NamePart& part)
{
    if (part.clearText)
        return NumberChoice::ClearText;
    return part.renumber ? NumberChoice::Renumber : NumberChoice::NoChange;
}

LeadingZerosMode known_mode(LeadingZerosMode mode)
{
    const bool is_known = mode == LeadingZerosMode::FixedDigits || mode == LeadingZerosMode::RemoveZeros;
    return is_known ? mode : LeadingZerosMode::Unchanged;
}

} // namespace

NumberSettings::NumberSettings(const NamePart& part, const ChangeNumberDlgSettings& remembered) :
    first_mode_(part.leadingZeros),
    first_start_(start_of(part, remembered)),
    first_digits_(part.leadingZeros == LeadingZerosMode::FixedDigits ? part.length : remembered.digits),
    number_(choice_of(part)),
    zeros_(known_mode(part.leadingZeros))
{
}

std::u16string NumberSettings::first_start_text() const { return decimal_text(first_start_); }

std::u16string NumberSettings::first_digits_text() const { return decimal_text(first_digits_); }

bool NumberSettings::reset_enabled() const noexcept
{
    return number_ != NumberChoice::NoChange || zeros_ != LeadingZerosMode::Unchanged;
}

void NumberSettings::reset() noexcept
{
    number_ = NumberChoice::NoChange;
    zeros_ = LeadingZerosMode::Unchanged;
}

void NumberSettings::store(std::u16string_view start_text, std::u16string_view digits_text, NamePart& part,
                           ChangeNumberDlgSettings& remembered) const
{
    const std::int64_t start = read_decimal(start_text);
    const std::int32_t digits = read_small_number(digits_text);
    part.clearText = number_ == NumberChoice::ClearText;
    part.renumber = number_ == NumberChoice::Renumber;
    if (part.renumber)
        part.startNumber = start;
    part.leadingZeros = zeros_;
    part.length = digits;
    if (zeros_ != first_mode_)
        remembered.remember_mode(zeros_);
    if (start != first_start_)
        remembered.remember_start(start);
    if (digits != first_digits_)
        remembered.remember_digits(digits);
}

} // namespace multirename
