#include "run/wild_settings.h"

#include <algorithm>

#include "text/decimal.h"

namespace multirename {

namespace {

std::optional<CaseStyle> known_style(CaseStyle style)
{
    const auto has_style = [style](const CaseStyleLabel& label) { return label.style == style; };
    return std::ranges::any_of(case_style_labels, has_style) ? std::optional(style) : std::nullopt;
}

} // namespace

WildSettings::WildSettings(const NamePart& part) :
    style_(known_style(part.caseStyle)),
    truncates_(part.truncate),
    length_enabled_(part.truncate),
    length_text_(decimal_text(part.length))
{
}

bool WildSettings::reset_enabled() const noexcept
{
    return truncates_ || style_.value_or(CaseStyle::Unchanged) != CaseStyle::Unchanged;
}

bool WildSettings::clear_text_enabled() const noexcept { return !truncates_ || read_small_number(length_text_) != 0; }

void WildSettings::click_truncate(bool checked) noexcept
{
    truncates_ = checked;
    length_enabled_ = checked;
}

void WildSettings::reset() noexcept
{
    style_ = CaseStyle::Unchanged;
    truncates_ = false;
}

void WildSettings::clear_text()
{
    truncates_ = true;
    length_text_ = decimal_text(0);
}

void WildSettings::store(NamePart& part) const noexcept
{
    part.caseStyle = style_.value_or(CaseStyle::Unchanged);
    part.truncate = truncates_;
    part.length = read_small_number(length_text_);
}

} // namespace multirename
