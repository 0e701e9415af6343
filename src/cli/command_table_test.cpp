#include "cli/command_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "transforms/case_style.h"

namespace multirename {
namespace {

TEST(CommandTableTest, KeepsTheOptionsOfAGroupTogether)
{
    for (const CommandInfo& command : all_commands()) {
        std::vector<OptionGroup> groups;
        for (const OptionId id : command.options) {
            if (groups.empty() || groups.back() != option_info(id).group)
                groups.push_back(option_info(id).group);
        }
        std::vector<OptionGroup> sorted = groups;
        std::ranges::sort(sorted);
        EXPECT_EQ(std::ranges::adjacent_find(sorted), sorted.end()) << command.name;
    }
}

TEST(CommandTableTest, HasTextsThatBecomeSentences)
{
    std::vector<std::string_view> texts;
    for (const OptionInfo& option : all_options())
        texts.push_back(option.help);
    for (const TagInfo& tag : all_tags())
        texts.push_back(tag.meaning);
    for (const std::string_view text : texts) {
        EXPECT_FALSE(text.ends_with('.')) << text;
        EXPECT_TRUE(text.front() >= 'a' && text.front() <= 'z') << text;
    }
}

TEST(CommandTableTest, HasChoicesWhereTheValueIsOneOfThem)
{
    for (const OptionInfo& option : all_options()) {
        const bool is_choice = option.kind == ValueKind::Choice || option.kind == ValueKind::PartAndChoice;
        EXPECT_EQ(option.choices.empty(), !is_choice) << option.name;
        EXPECT_EQ(option.value.empty(), option.kind == ValueKind::None) << option.name;
    }
}

TEST(CommandTableTest, NamesEveryCaseStyle) { EXPECT_EQ(style_names().size(), case_style_labels.size()); }

} // namespace
} // namespace multirename
