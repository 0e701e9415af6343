#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace multirename {

/// The texts of the string table; the numbers are those of the table.
enum class MessageId : std::uint32_t {
#define MESSAGE(number, name, text) name = number, // NOLINT(bugprone-macro-parentheses): a name takes none
#include "run/messages.def"
#undef MESSAGE
};

/// Where a run takes its texts from: the module loads them from its string table.
using MessageSource = std::u16string (*)(MessageId);

/// The texts as they are compiled in, for programs without a string table; the same as in the table.
[[nodiscard]] std::u16string built_in_text(MessageId id);

/// `text` with each insert of the form %1!d! or %1!I64d! replaced by the value of that position, from 1. An insert
/// without a value stays as it stands.
[[nodiscard]] std::u16string with_inserts(std::u16string_view text, std::initializer_list<std::int64_t> values);

enum class MessageIcon { Exclamation, Information };

struct Message {
    std::u16string text;
    MessageIcon icon = MessageIcon::Exclamation;
};

} // namespace multirename
