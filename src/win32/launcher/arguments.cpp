#include "win32/launcher/arguments.h"

#include <algorithm>
#include <string_view>

namespace multirename {

namespace {

struct Option {
    std::u16string_view word;
    Task task;
    bool stands_alone; // asked for by scripts: a second word is a mistake in the script and not to be passed over
    std::u16string_view explanation;
};

constexpr Option options[] = {
    {u"--install-sendto", Task::InstallSendTo, true,
     u"Adds Multi Rename to the \"Send to\" menu of your files and folders."},
    {u"--uninstall-sendto", Task::UninstallSendTo, true, u"Takes it out of that menu again."},
    {u"--help", Task::ShowHelp, false, u"Shows this text."},
    {u"--version", Task::ShowVersion, false, u"Shows the version."},
};

constexpr std::u16string_view end_of_options = u"--";

std::u16string in_quotes(std::u16string_view word) { return std::u16string(u"\"").append(word).append(u"\""); }

Problem unknown_option(std::u16string_view word)
{
    return {in_quotes(word) +
            u" is not an option of Multi Rename.\n\nThe option --help lists the options. A path that begins with \"-\" "
            u"goes behind the word \"--\"."};
}

Problem has_company(std::u16string_view word)
{
    return {std::u16string(word) +
            u" stands alone on the command line.\n\nStart Multi Rename once more for everything else."};
}

} // namespace

OrProblem<CommandLine> parse_arguments(std::span<const std::u16string> words)
{
    CommandLine line;
    bool are_paths_only = false;
    for (const std::u16string& word : words) {
        if (word.empty())
            return Problem{u"One of the paths is empty.\n\nCheck the quotation marks on the command line."};
        const bool is_option = word.starts_with(u'-');
        const bool is_list_file = word.starts_with(u'@');
        if (are_paths_only || (!is_option && !is_list_file)) {
            line.paths.push_back({word});
        } else if (is_list_file) {
            if (word.size() == 1)
                return Problem{u"\"@\" lacks the name of a list file.\n\nWrite it right behind the \"@\"."};
            line.paths.push_back({word.substr(1), true});
        } else if (word == end_of_options) {
            are_paths_only = true;
        } else {
            const auto* const option = std::ranges::find(options, word, &Option::word);
            if (option == std::end(options))
                return unknown_option(word);
            if (!option->stands_alone)
                return CommandLine{option->task, {}};
            if (words.size() > 1)
                return has_company(word);
            line.task = option->task;
        }
    }
    return line;
}

std::u16string help_text()
{
    std::u16string text = u"multirename-gui.exe [PATH...]\n"
                          u"Opens Multi Rename on files and folders. Without any, you choose the files first.\n"
                          u"\n"
                          u"@LIST.TXT\n"
                          u"    Stands for the paths in a list file: UTF-8 text, one path a line.\n"
                          u"--\n"
                          u"    Every word behind it is a path, even with \"-\" or \"@\" in front.\n";
    for (const Option& option : options)
        text.append(option.word).append(u"\n    ").append(option.explanation).append(u"\n");
    return text;
}

} // namespace multirename
