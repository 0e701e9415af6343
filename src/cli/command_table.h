#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace multirename {

// The commands and options of the program: the one table that the parser, the help, the manual page, the completions
// and their tests read.

enum class CommandId { Pattern, Preview, Rename, Edit, Undo };

enum class OptionId {
    From,
    NulEnded,
    In,
    Folders,
    Hidden,
    Names,
    Listed,
    NumbersAsText,
    Extensions,
    Text,
    Case,
    Truncate,
    Replace,
    Renumber,
    Digits,
    StripZeros,
    Clear,
    Format,
    Pager,
    List,
    Help,
    Version,
};

enum class OptionGroup { Files, Modes, Edits, Output, Undo, Other };

/// What the value of an option is, for completions.
enum class ValueKind { None, Text, File, Folder, Choice, PartAndChoice };

// The members of a row stand in the order in which the table is read.
// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): there are few rows
struct OptionInfo {
    OptionId id;
    OptionGroup group;
    std::string_view name; ///< without the dashes
    char letter; ///< the short form, 0 for none
    std::string_view value; ///< what the help calls the value; empty for a switch
    ValueKind kind;
    std::span<const std::string_view> choices; ///< of the value, or of what follows "K=" in it
    std::string_view help; ///< one sentence without a capital or a period
};

struct Example {
    std::string_view words; ///< after the program's name
    std::string_view explanation;
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): there are few rows
struct CommandInfo {
    CommandId id;
    std::string_view name;
    std::string_view operands; ///< what the usage line shows beside the options
    bool takes_paths;
    std::string_view summary;
    std::string_view description;
    std::span<const OptionId> options;
    std::span<const Example> examples;
};

/// What may stand in the text of a text part.
struct TagInfo {
    std::string_view forms;
    std::string_view meaning;
};

[[nodiscard]] std::span<const CommandInfo> all_commands() noexcept;
/// Group by group.
[[nodiscard]] std::span<const OptionInfo> all_options() noexcept;
[[nodiscard]] std::span<const TagInfo> all_tags() noexcept;
/// What the program takes when no command is named.
[[nodiscard]] std::span<const OptionId> program_options() noexcept;
/// The first steps, in order.
[[nodiscard]] std::span<const Example> program_examples() noexcept;
[[nodiscard]] const CommandInfo& command_info(CommandId command) noexcept;
[[nodiscard]] const OptionInfo& option_info(OptionId option) noexcept;
[[nodiscard]] bool takes_option(const CommandInfo& command, OptionId option) noexcept;
/// Their names, in the order of the commands.
[[nodiscard]] std::vector<std::string_view> command_names();
[[nodiscard]] std::vector<std::string_view> names_of_commands_that_take(OptionId option);
[[nodiscard]] std::string_view group_title(OptionGroup group) noexcept;

/// The style names of --case, in the order of the styles' numbers.
[[nodiscard]] std::span<const std::string_view> style_names() noexcept;

inline constexpr std::string_view program_name = "multirename";
inline constexpr std::string_view program_summary = "renames many files at once by the pattern that their names share";
inline constexpr std::string_view program_version = MULTIRENAME_VERSION;

} // namespace multirename
