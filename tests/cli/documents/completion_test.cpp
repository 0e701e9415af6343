#include <gmock/gmock.h>

#include <algorithm>
#include <span>
#include <tuple>

#include "cli/command_table.h"
#include "shells.h"

namespace multirename {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

using Words = std::vector<std::string>;

struct Shell {
    std::string name;
    Answer (*ask)(const Home& home, const std::string& line);
    friend void PrintTo(const Shell& shell, std::ostream* stream) { *stream << shell.name; }
};

const Shell bash{"Bash", ask_bash};
const Shell zsh{"Zsh", ask_zsh};
const Shell fish{"Fish", ask_fish};

void write_files(const Home& home)
{
    for (const char* name : {"my file.txt", "my other.txt", "my folder/inner 1", "other.txt", "a=b c"})
        home.write(name);
}

Words long_forms(std::span<const OptionId> ids)
{
    Words words;
    for (const OptionId id : ids)
        words.push_back("--" + std::string(option_info(id).name));
    std::ranges::sort(words);
    return words;
}

Words sorted(std::span<const std::string_view> names)
{
    Words words(names.begin(), names.end());
    std::ranges::sort(words);
    return words;
}

Words names_of_commands()
{
    Words words;
    for (const CommandInfo& command : all_commands())
        words.emplace_back(command.name);
    std::ranges::sort(words);
    return words;
}

Words options_of(CommandId command) { return long_forms(command_info(command).options); }

// ---- what is offered, in every shell

struct Row {
    const char* sentence;
    std::string line; ///< behind the program's name
    Words offered;
    friend void PrintTo(const Row& row, std::ostream* stream) { *stream << row.line; }
};

class CompletionRow : public testing::TestWithParam<std::tuple<Shell, Row>> { };

TEST_P(CompletionRow, Holds)
{
    const auto& [shell, row] = GetParam();
    const Home home;
    write_files(home);
    EXPECT_THAT(shell.ask(home, "multirename " + row.line).candidates, ElementsAreArray(row.offered));
}

std::string name_of(const testing::TestParamInfo<std::tuple<Shell, Row>>& info)
{
    return std::get<Shell>(info.param).name + std::get<Row>(info.param).sentence;
}

INSTANTIATE_TEST_SUITE_P(
    Offers, CompletionRow,
    testing::Combine(
        testing::Values(bash, zsh, fish),
        testing::Values(Row{"AllCommands", "", names_of_commands()}, Row{"TheCommandThatIsBegun", "ren", {"rename"}},
                        Row{"TheOptionsWithoutACommand", "--", long_forms(program_options())},
                        Row{"NoFilesWithoutACommand", "my", {}}, Row{"NothingForAnUnknownCommand", "bogus ", {}},
                        Row{"TheOptionsOfPattern", "pattern --", options_of(CommandId::Pattern)},
                        Row{"TheOptionsOfPreview", "preview --", options_of(CommandId::Preview)},
                        Row{"TheOptionsOfRename", "rename --", options_of(CommandId::Rename)},
                        Row{"TheOptionsOfEdit", "edit --", options_of(CommandId::Edit)},
                        Row{"TheOptionsOfUndo", "undo --", options_of(CommandId::Undo)},
                        Row{"NoOptionOfAnotherCommand", "rename --pa", {}},
                        Row{"OptionsOfTheFirstCommandWord", "preview undo --lis", {"--listed"}},
                        Row{"OptionsBehindPaths", "rename other.txt --fold", {"--folders"}},
                        Row{"NoOptionsBehindTwoDashes", "rename -- --fold", {}},
                        Row{"AllStyles", "rename --case 2=", sorted(style_names())},
                        Row{"TheStylesThatAreBegun", "rename --case 2=sn", {"snake", "snake-upper"}},
                        Row{"StylesBehindAnEqualsSign", "edit --case=12=ke", {"kebab", "kebab-upper"}},
                        Row{"NoStylesBeforeAPartIsNamed", "rename --case ", {}},
                        Row{"AllFormats", "preview --format ", {"json", "table", "tsv"}},
                        Row{"TheFormatThatIsBegun", "undo --format js", {"json"}},
                        Row{"FormatsBehindAnEqualsSign", "undo --format=t", {"table", "tsv"}},
                        Row{"NothingForATextThatOnlyTheUserKnows", "rename --text 1=my", {}},
                        Row{"FilesWithBlanks", "preview my", {"my file.txt", "my folder", "my other.txt"}},
                        Row{"FilesWithBlanksInQuotationMarks", "rename \"my f", {"my file.txt", "my folder"}},
                        Row{"FilesWithBlanksInApostrophes", "edit 'my o", {"my other.txt"}},
                        Row{"FilesWithBlanksBehindBackslashes", R"(pattern my\ fi)", {"my file.txt"}},
                        Row{"FilesBehindFiles", R"(rename my\ file.txt ot)", {"other.txt"}},
                        Row{"FilesBehindTwoDashes", "rename -- ot", {"other.txt"}},
                        Row{"FilesBehindAnEmptyText", "rename --text 1= ot", {"other.txt"}},
                        Row{"FilesForFrom", R"(rename --from my\ o)", {"my other.txt"}},
                        Row{"FilesForFromBehindAnEqualsSign", R"(rename --from=my\ o)", {"my other.txt"}},
                        Row{"FilesForNames", "pattern --names ot", {"other.txt"}},
                        Row{"FilesForListed", "preview --listed ot", {"other.txt"}},
                        Row{"FoldersForIn", "rename --in my", {"my folder"}},
                        Row{"FoldersForInBehindAnEqualsSign", "rename --in=my", {"my folder"}},
                        Row{"NoBatchesWhereThereAreNone", "undo ", {}})),
    name_of);

class Completion : public testing::TestWithParam<Shell> {
protected:
    [[nodiscard]] Answer ask(const Home& home, const std::string& line) const { return GetParam().ask(home, line); }
};

TEST_P(Completion, OffersTheBatchesThatCanBeTakenBack)
{
    const Home home;
    const std::string batch = home.make_batch();
    EXPECT_THAT(ask(home, "multirename undo ").candidates, ElementsAre(batch));
    EXPECT_THAT(ask(home, "multirename undo " + batch.substr(0, 4)).candidates, ElementsAre(batch));
    EXPECT_THAT(ask(home, "multirename undo @@").candidates, ElementsAre());
}

INSTANTIATE_TEST_SUITE_P(In, Completion, testing::Values(bash, zsh, fish),
                         [](const auto& test) { return test.param.name; });

// ---- what a line becomes, in the shells that tell

struct LineRow {
    const char* sentence;
    Shell shell;
    std::string line;
    std::string completed;
    friend void PrintTo(const LineRow& row, std::ostream* stream) { *stream << row.line; }
};

class CompletedLine : public testing::TestWithParam<LineRow> { };

TEST_P(CompletedLine, Holds)
{
    const LineRow& row = GetParam();
    const Home home;
    write_files(home);
    EXPECT_EQ(row.shell.ask(home, "multirename " + row.line).line, "multirename " + row.completed);
}

INSTANTIATE_TEST_SUITE_P(
    Is, CompletedLine,
    testing::Values(LineRow{"ACommandAndABlank", bash, "ren", "rename "},
                    LineRow{"AStyleInPlaceOfItsBeginning", bash, "rename --case 2=ti", "rename --case 2=title "},
                    LineRow{"AsFarAsStylesAgree", bash, "rename --case=2=sn", "rename --case=2=snake"},
                    LineRow{"AFormatBehindItsEqualsSign", bash, "undo --format=js", "undo --format=json "},
                    LineRow{"AFileWithItsBlanksEscaped", bash, "rename my\\ fi", "rename my\\ file.txt "},
                    LineRow{"AFileWithinItsQuotationMarks", bash, "rename \"my fi", "rename \"my file.txt\" "},
                    LineRow{"AFileWithinItsApostrophes", bash, "rename 'my fi", "rename 'my file.txt' "},
                    LineRow{"AFolderThatMayGoOn", bash, "rename --in my", "rename --in my\\ folder/"},
                    LineRow{"AFileInAFolder", bash, "rename my\\ folder/", "rename my\\ folder/inner\\ 1 "},
                    LineRow{"AFileBehindAnEqualsSign", bash, "rename --from=my\\ o", "rename --from=my\\ other.txt "},
                    LineRow{"AFileWithAnEqualsSign", bash, "rename a=", "rename a=b\\ c "},
                    LineRow{"AFileInTheHome", bash, "rename ~/files/ot", "rename ~/files/other.txt "},
                    LineRow{"AFileBehindAVariable", bash, "rename $HOME/files/ot", "rename $HOME/files/other.txt "},
                    LineRow{"AFileToWriteTo", bash, "undo --list > ot", "undo --list > other.txt "},
                    LineRow{"ACommandAndABlankInZsh", zsh, "ren", "rename "},
                    LineRow{"AStyleInZsh", zsh, "rename --case 2=ti", "rename --case 2=title "},
                    LineRow{"AFileWithItsBlanksEscapedInZsh", zsh, "rename my\\ fi", "rename my\\ file.txt "},
                    LineRow{"AFolderThatMayGoOnInZsh", zsh, "rename --in my", "rename --in my\\ folder/"}),
    [](const auto& test) { return std::string(test.param.sentence); });

// ---- the scripts themselves

constexpr const char* call_by_hand = R"(source "$1"
COMP_WORDS=("${@:2}") COMP_CWORD=$(($# - 2)) COMP_LINE= COMP_POINT=0
_multirename
printf '<%s>' "${COMPREPLY[@]}")";

TEST(CompletionScript, ForBashNeedsNothingButItsVariables)
{
    const Home home;
    write_files(home);
    const ProgramResult result =
        home.run({"bash", "--noprofile", "--norc", "-uc", call_by_hand, "-",
                  document("bash-completion/completions/multirename"), "multirename", "preview", "my"});
    EXPECT_EQ(result.output, "<my file.txt><my folder><my other.txt>");
    EXPECT_EQ(result.errors, "");
}

TEST(CompletionScript, IsFreeOfMistakesThatItsShellSees)
{
    const Home home;
    const ProgramResult in_bash = home.run({"bash", "-n", document("bash-completion/completions/multirename")});
    EXPECT_EQ(in_bash.errors + in_bash.output, "");
    const ProgramResult in_zsh = home.run({"zsh", "-f", "-n", document("zsh/site-functions/_multirename")});
    EXPECT_EQ(in_zsh.errors + in_zsh.output, "");
    const ProgramResult in_fish = home.run({"fish", "-n", document("fish/vendor_completions.d/multirename.fish")});
    EXPECT_EQ(in_fish.errors + in_fish.output, "");
}

constexpr const char* list_new_variables = R"(known=$(compgen -v)
source "$1"
_multirename
compgen -v | grep -vxF -e "$known" -e known -e PIPESTATUS)";

TEST(CompletionScript, LeavesNothingBehindInBashButItsOwnFunctions)
{
    const Home home;
    const ProgramResult result = home.run({"bash", "--noprofile", "--norc", "-c", list_new_variables, "-",
                                           document("bash-completion/completions/multirename")});
    EXPECT_EQ(result.output, "COMPREPLY\n");
}

} // namespace
} // namespace multirename
