#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "pattern/name_part.h"

namespace multirename {

/// The choices for a wild part while they are being made: what the Change Wild dialog shows and allows.
class WildSettings {
public:
    /// Starts with the settings of the part. A style that is none of the known ones leaves nothing selected.
    explicit WildSettings(const NamePart& part);

    [[nodiscard]] std::optional<CaseStyle> style() const noexcept { return style_; }
    [[nodiscard]] bool truncates() const noexcept { return truncates_; }
    [[nodiscard]] const std::u16string& length_text() const noexcept { return length_text_; }

    /// Follows clicks on the truncation's check box alone: `reset` and `clear_text` change the box, yet leave the
    /// length as open to typing as it was.
    [[nodiscard]] bool length_enabled() const noexcept { return length_enabled_; }
    [[nodiscard]] bool reset_enabled() const noexcept;
    /// False exactly when the part would already give no text.
    [[nodiscard]] bool clear_text_enabled() const noexcept;

    void select_style(std::optional<CaseStyle> style) noexcept { style_ = style; }
    void set_truncates(bool truncates) noexcept { truncates_ = truncates; }
    void set_length_text(std::u16string_view text) { length_text_ = text; }
    void click_truncate(bool checked) noexcept;
    void reset() noexcept;
    void clear_text();

    /// Writes the choices into the part, the length too when nothing is truncated.
    void store(NamePart& part) const noexcept;

private:
    std::optional<CaseStyle> style_;
    bool truncates_;
    bool length_enabled_;
    std::u16string length_text_;
};

} // namespace multirename
