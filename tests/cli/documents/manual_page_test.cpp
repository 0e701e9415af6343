#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <set>
#include <sstream>

#include "cli/command_table.h"
#include "documents.h"
#include "support/file_content.h"

namespace multirename {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsSupersetOf;

std::string page() { return document("man/man1/multirename.1"); }

std::size_t columns(const std::string& line)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(line, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

TEST(ManualPage, IsShownByManWithoutAWarning)
{
    const ProgramResult result = Home().run({"man", "-l", "--warnings", page()});
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(result.output,
                AllOf(HasSubstr("\nNAME\n       multirename"), HasSubstr("\nEXIT STATUS\n"),
                      HasSubstr("\n       --case K=STYLE\n"), HasSubstr(R"(\ : * ? " < > |)"),
                      HasSubstr("multirename rename *.jpg --text '1=<C:yyyy-mm-dd> '\n"),
                      HasSubstr("\n       -0, --null\n")));
}

TEST(ManualPage, FitsIntoEightyColumns)
{
    std::istringstream stream(Home().run({"man", "-l", page()}).output);
    for (std::string line; std::getline(stream, line);)
        EXPECT_LE(columns(line), 80U) << line;
}

TEST(ManualPage, IsFormattedWithoutAWarning)
{
    const ProgramResult result = Home().run({"groff", "-man", "-ww", "-z", "-Tutf8", page()});
    EXPECT_EQ(result.errors + result.output, "");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(ManualPage, GivesLintNothingToWarnOf)
{
    const ProgramResult result = Home().run({"mandoc", "-T", "lint", "-W", "warning", page()});
    EXPECT_EQ(result.output + result.errors, "");
    EXPECT_EQ(result.exit_status, 0);
}

TEST(ManualPage, CanBeFoundByWhatTheProgramDoes)
{
    EXPECT_EQ(Home().run({"lexgrog", page()}).output,
              page() + ": \"multirename - " + std::string(program_summary) + "\"\n");
}

// ---- what it says of output

using Names = std::set<std::string>;

Names words_of_section(std::string_view heading)
{
    const std::string text = content_of(page());
    const std::size_t start = text.find("\n.SS " + std::string(heading) + "\n");
    EXPECT_NE(start, std::string::npos) << heading;
    const std::size_t end = std::min(text.find("\n.SS", start + 1), text.find("\n.SH", start + 1));
    Names words;
    std::string word;
    for (const char c : text.substr(start, end - start)) {
        if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
            word.push_back(c);
            continue;
        }
        words.insert(word);
        word.clear();
    }
    return words;
}

Names columns_of(const std::string& tsv)
{
    Names names;
    std::istringstream stream(tsv.substr(0, tsv.find('\n')));
    for (std::string name; std::getline(stream, name, '\t');)
        names.insert(name);
    return names;
}

Names keys_of(const std::string& json)
{
    Names names;
    for (std::size_t end = 0; (end = json.find("\":", end)) != std::string::npos; ++end)
        names.insert(json.substr(json.rfind('"', end - 1) + 1, end - json.rfind('"', end - 1) - 1));
    return names;
}

// What all commands print in a format, each with something in every list.
std::vector<std::string> outputs(const std::string& format)
{
    const Home home;
    home.write("one 1.jpg");
    home.write("one 2.png");
    std::vector<std::string> all;
    const auto add = [&](std::vector<std::string> words) {
        words.insert(words.begin(), "multirename");
        words.insert(words.end(), {"--format", format});
        all.push_back(home.run(words).output);
    };
    add({"pattern", "--in", ".", "--extensions"});
    add({"preview", "--in", "."});
    add({"rename", "--in", ".", "--text", "1=two "});
    add({"undo", "--list"});
    std::filesystem::remove(home.folder().path_of("files/two 1.jpg"));
    add({"undo"});
    return all;
}

TEST(ManualPage, NamesEveryColumn)
{
    const Names words = words_of_section("tsv");
    for (const std::string& output : outputs("tsv")) {
        EXPECT_GE(columns_of(output).size(), 4U) << output;
        EXPECT_THAT(words, IsSupersetOf(columns_of(output)));
    }
}

TEST(ManualPage, NamesEveryKey)
{
    const Names words = words_of_section("json");
    Names keys;
    for (const std::string& output : outputs("json"))
        keys.merge(keys_of(output));
    EXPECT_THAT(keys, IsSupersetOf({"mustStartWithDot", "smallest", "spaceOrPeriod", "reason", "names", "restored"}));
    EXPECT_THAT(words, IsSupersetOf(keys));
}

// ---- the program that writes it

TEST(DocumentsProgram, WantsOneFolder)
{
    const ProgramResult result = Home().run({"multirename_documents"});
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_EQ(result.errors, "Usage: multirename_documents FOLDER\n");
}

TEST(DocumentsProgram, WritesTheSameAgain)
{
    const Home home;
    EXPECT_EQ(home.run({"multirename_documents", "share"}).exit_status, 0);
    for (const std::string path : {"man/man1/multirename.1", "bash-completion/completions/multirename",
                                   "zsh/site-functions/_multirename", "fish/vendor_completions.d/multirename.fish"})
        EXPECT_EQ(content_of(home.folder().path_of("files/share/" + path)), content_of(document(path))) << path;
}

TEST(DocumentsProgram, SaysWhatItCannotWrite)
{
    const Home home;
    home.write("share");
    const ProgramResult result = home.run({"multirename_documents", "share"});
    EXPECT_EQ(result.exit_status, 1);
    EXPECT_THAT(result.errors, HasSubstr("multirename_documents: "));
}

} // namespace
} // namespace multirename
