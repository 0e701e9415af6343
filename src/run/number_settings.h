#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "pattern/name_part.h"
#include "settings/change_number_settings.h"

namespace multirename {

/// What becomes of a number.
enum class NumberChoice { NoChange, ClearText, Renumber };

/// The choices for a number part while they are being made: what the Change Number dialog shows and allows.
class NumberSettings {
public:
    /// The limits of what can be typed, in characters.
    static constexpr unsigned start_limit = 20;
    static constexpr unsigned digits_limit = 3;

    /// Starts with the settings of the part, and with what is remembered where it has none.
    NumberSettings(const NamePart& part, const ChangeNumberDlgSettings& remembered);

    [[nodiscard]] NumberChoice number() const noexcept { return number_; }
    [[nodiscard]] LeadingZerosMode zeros() const noexcept { return zeros_; }
    /// What the two edits show at first; typing in them changes nothing until `store`.
    [[nodiscard]] std::u16string first_start_text() const;
    [[nodiscard]] std::u16string first_digits_text() const;

    [[nodiscard]] bool reset_enabled() const noexcept;
    [[nodiscard]] bool clear_text_enabled() const noexcept { return number_ != NumberChoice::ClearText; }
    [[nodiscard]] bool zeros_enabled() const noexcept { return number_ != NumberChoice::ClearText; }
    [[nodiscard]] bool start_enabled() const noexcept { return number_ == NumberChoice::Renumber; }
    /// Follows the mode alone, also while the modes themselves cannot be chosen.
    [[nodiscard]] bool digits_enabled() const noexcept { return zeros_ == LeadingZerosMode::FixedDigits; }

    void choose(NumberChoice number) noexcept { number_ = number; }
    void choose(LeadingZerosMode zeros) noexcept { zeros_ = zeros; }
    void reset() noexcept;
    /// The leading zeros keep their choice.
    void clear_text() noexcept { number_ = NumberChoice::ClearText; }

    /// Writes the choices and the texts of the two edits into the part, and remembers each value that is another than
    /// at first. The start is the part's only when it is renumbered; the digits are in every case.
    void store(std::u16string_view start_text, std::u16string_view digits_text, NamePart& part,
               ChangeNumberDlgSettings& remembered) const;

private:
    LeadingZerosMode first_mode_;
    std::int64_t first_start_;
    std::int32_t first_digits_;
    NumberChoice number_;
    LeadingZerosMode zeros_;
};

} // namespace multirename
