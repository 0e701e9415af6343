#include "cli/manual.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <iterator>
#include <set>
#include <sstream>
#include <vector>

#include "cli/command_table.h"
#include "cli/testing/text_lines.h"
#include "fileset/tags.h"

namespace multirename {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;

void replace_all(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t i = 0; (i = text.find(from, i)) != std::string::npos; i += to.size())
        text.replace(i, from.size(), to);
}

// The page without its fonts and escapes, one blank between two words, so that texts can be looked for.
std::string plain_page()
{
    std::string text = manual_page();
    for (const std::string_view font : {"\\fB", "\\fI", "\\fR"})
        replace_all(text, font, "");
    replace_all(text, "\\-", "-");
    replace_all(text, "\\(aq", "'");
    replace_all(text, "\\e", "\\");
    return in_one_line(text);
}

// A text of the table as the page writes it.
std::string sentence(std::string_view text)
{
    std::string whole = in_one_line(text) + ".";
    whole.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(whole.front())));
    return whole;
}

testing::AssertionResult plain_page_says(const std::string& text)
{
    if (plain_page().find(text) != std::string::npos)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << "the page does not say: " << text;
}

// What stands between one ".TP" and the next item or heading.
std::string item_of(std::string_view head)
{
    const std::string page = manual_page();
    const std::size_t start = page.find(".TP\n" + std::string(head));
    if (start == std::string::npos)
        return {};
    const std::size_t end = std::min({page.find("\n.TP", start + 1), page.find("\n.S", start + 1)});
    return page.substr(start, end - start);
}

TEST(ManualTest, HasItsSectionsInTheUsualOrder)
{
    std::vector<std::string> sections;
    for (const std::string& line : lines_of(manual_page())) {
        if (line.starts_with(".SH "))
            sections.push_back(line.substr(4));
    }
    EXPECT_THAT(sections,
                ElementsAre("NAME", "SYNOPSIS", "DESCRIPTION", "COMMANDS", "OPTIONS", "TAGS", "EXIT STATUS",
                            "OUTPUT FORMATS", "ENVIRONMENT", "FILES", "NOTES", "EXAMPLES"));
}

TEST(ManualTest, IsNamedAfterTheProgramAndItsVersion)
{
    EXPECT_THAT(manual_page(), HasSubstr("\nmultirename \\- " + std::string(program_summary) + "\n"));
    EXPECT_THAT(manual_page(), HasSubstr("\"multirename " + std::string(program_version) + "\""));
}

TEST(ManualTest, BeginsNoLineLikeARequestThatIsNone)
{
    const std::set<std::string> known = {".\\\"", ".TH", ".SH", ".SS", ".TP", ".PP", ".br", ".B", ".BR", ".I", ".IR"};
    for (const std::string& line : lines_of(manual_page())) {
        EXPECT_FALSE(line.starts_with('\'')) << line;
        EXPECT_FALSE(line.empty());
        if (line.starts_with('.')) {
            EXPECT_THAT(known, Contains(line.substr(0, line.find(' '))));
        }
    }
}

TEST(ManualTest, NeedsNothingBeyondAscii)
{
    const std::string page = manual_page();
    EXPECT_TRUE(std::ranges::all_of(page, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
}

TEST(ManualTest, DescribesEveryCommand)
{
    for (const CommandInfo& command : all_commands()) {
        const std::string operands = " " + std::string(command.operands) + " ";
        EXPECT_TRUE(plain_page_says("multirename " + std::string(command.name) + " [OPTION...]" + operands + ".br"));
        EXPECT_TRUE(plain_page_says(".TP " + std::string(command.name) + operands + in_one_line(command.description)));
    }
}

TEST(ManualTest, DescribesEveryOption)
{
    for (const OptionInfo& option : all_options()) {
        const std::string value = option.value.empty() ? "" : " " + std::string(option.value);
        EXPECT_TRUE(plain_page_says("--" + std::string(option.name) + value + " " + sentence(option.help)));
        for (const std::string_view choice : option.choices)
            EXPECT_TRUE(plain_page_says(std::string(choice)));
    }
}

TEST(ManualTest, ListsTheChoicesOfAnOption)
{
    EXPECT_TRUE(plain_page_says("STYLE is one of unchanged, upper, lower, "));
    EXPECT_TRUE(plain_page_says(", kebab and kebab-upper."));
    EXPECT_TRUE(plain_page_says("FORMAT is one of table, tsv and json."));
}

TEST(ManualTest, SaysWhichCommandsTakeAnOptionWhereItsGroupDoesNotTell)
{
    const std::string only = "\nOnly with \\fBpattern\\fR and \\fBpreview\\fR.";
    EXPECT_THAT(item_of("\\fB\\-\\-names"), HasSubstr(only));
    EXPECT_THAT(item_of("\\fB\\-\\-pager"), HasSubstr(only));
    EXPECT_EQ(item_of("\\fB\\-\\-from").find("Only"), std::string::npos);
    EXPECT_THAT(manual_page(),
                HasSubstr("\nWith \\fBpreview\\fR, \\fBrename\\fR and \\fBedit\\fR:\n.TP\n\\fB\\-\\-text"));
    EXPECT_THAT(manual_page(), HasSubstr("\nWith \\fBundo\\fR:\n.TP\n\\fB\\-\\-list"));
    EXPECT_THAT(manual_page(), HasSubstr(".SS \"Output\"\n.TP\n\\fB\\-\\-format"));
    EXPECT_THAT(item_of("\\fB\\-\\-version"), HasSubstr("\nWithout a command."));
}

TEST(ManualTest, SetsOptionsAndValuesInTheirFonts)
{
    EXPECT_THAT(item_of("\\fB\\-\\-from"), HasSubstr("\\fB\\-\\-from\\fR \\fIFILE\\fR\n"));
    EXPECT_THAT(item_of("\\fB\\-\\-from"), HasSubstr("from \\fIFILE\\fR, one a line; \\fB\\-\\fR is"));
    EXPECT_THAT(item_of("\\fB\\-\\-folders"), HasSubstr("With \\fB\\-\\-in\\fR: takes"));
    EXPECT_THAT(item_of("\\fB\\-0"), HasSubstr("\\fB\\-0\\fR, \\fB\\-\\-null\\fR\n"));
    EXPECT_THAT(item_of("\\fB\\-\\-digits"), HasSubstr("part \\fIN\\fR digits"));
}

TEST(ManualTest, DescribesEveryTag)
{
    for (const TagInfo& tag : all_tags())
        EXPECT_TRUE(plain_page_says(".TP " + std::string(tag.forms) + " " + sentence(tag.meaning)));
}

TEST(ManualTest, ListsTheKeywordsOfDatesAndNothingElseAsSuch)
{
    std::set<std::string> listed;
    const std::string page = manual_page();
    const std::size_t start = page.find(".BR yyyymmdd .\n");
    std::istringstream section(page.substr(start, page.find(".SH EXIT") - start));
    for (std::string line; std::getline(section, line);) {
        if (!line.starts_with(".BR ") || line.find("yyyymmdd") != std::string::npos)
            continue;
        replace_all(line, "\", \"", " ");
        std::istringstream words(line.substr(4));
        listed.insert(std::istream_iterator<std::string>(words), {});
    }
    EXPECT_THAT(listed,
                ElementsAre("d", "day", "dd", "ddd", "hour", "m", "min", "mm", "mmm", "month", "sec", "time", "timehms",
                            "y", "yy", "yyyy"));
    for (const std::string& word : listed) {
        const std::string format = date_format(std::u16string(word.begin(), word.end()));
        EXPECT_TRUE(format.starts_with('%')) << word << " is " << format;
    }
}

TEST(ManualTest, ShowsEveryExampleOnce)
{
    const std::string page = plain_page();
    const auto count = [&page](const Example& example) {
        const std::string wanted = ".TP multirename " + in_one_line(example.words) + " ";
        std::size_t found = 0;
        for (std::size_t i = 0; (i = page.find(wanted, i)) != std::string::npos; ++i)
            found += std::isupper(static_cast<unsigned char>(page[i + wanted.size()])) != 0 ? 1U : 0U;
        return found;
    };
    for (const Example& example : program_examples())
        EXPECT_EQ(count(example), 1U) << example.words;
    for (const CommandInfo& command : all_commands()) {
        for (const Example& example : command.examples)
            EXPECT_EQ(count(example), 1U) << example.words;
    }
}

} // namespace
} // namespace multirename
