#pragma once

#include <string>
#include <vector>

#include "pattern/name_part.h"
#include "run/messages.h"
#include "settings/change_number_settings.h"

namespace multirename {

/// The quick settings of a wild or number part.
enum class PartCommand { Reset, ClearText, Renumber };

struct PartMenuItem {
    PartCommand command = PartCommand::Reset;
    std::u16string text;
    bool is_enabled = true; ///< false for a choice that would change nothing
    bool starts_group = false; ///< a separator stands before it
};

/// The quick settings that the part offers, top to bottom; none for a text part. `remembered` says what renumbering
/// would be; null for start 1 and no fixed digits.
[[nodiscard]] std::vector<PartMenuItem> part_menu(const NamePart& part, const ChangeNumberDlgSettings* remembered,
                                                  MessageSource texts);

/// Makes the choice count in the part's settings.
void choose(PartCommand command, NamePart& part, const ChangeNumberDlgSettings* remembered);

} // namespace multirename
