// Each script is a frame in the shell's own language with lines made from the command table in the places that are
// marked with "@" and a name.

#include "cli/completions.h"

#include <cassert>
#include <initializer_list>
#include <string_view>
#include <vector>

#include "cli/command_table.h"
#include "cli/joined.h"

namespace multirename {

namespace {

struct Filling {
    std::string_view mark;
    std::string lines;
};

std::string filled(std::string_view frame, std::initializer_list<Filling> fillings)
{
    std::string script(frame);
    for (const Filling& filling : fillings) {
        const std::size_t place = script.find(filling.mark);
        assert(place != std::string::npos);
        script.replace(place, filling.mark.size(), filling.lines);
    }
    return script;
}

std::string long_form(const OptionInfo& option) { return "--" + std::string(option.name); }

std::vector<std::string_view> names_of_commands_that_take_paths()
{
    std::vector<std::string_view> names;
    for (const CommandInfo& command : all_commands()) {
        if (command.takes_paths)
            names.push_back(command.name);
    }
    return names;
}

// The text between quotation marks of a shell in which each of the characters is written as `prefix` and itself.
std::string escaped(std::string_view text, std::string_view characters, std::string_view prefix)
{
    std::string result;
    for (const char c : text) {
        if (characters.find(c) != std::string_view::npos)
            result.append(prefix);
        result.push_back(c);
    }
    return result;
}

// ---- bash

std::string long_forms(std::span<const OptionId> ids)
{
    std::vector<std::string> forms;
    for (const OptionId id : ids)
        forms.push_back(long_form(option_info(id)));
    return joined(forms, " ");
}

std::string bash_options_of_commands()
{
    std::string lines = "    '') options='" + long_forms(program_options()) + "' ;;\n";
    for (const CommandInfo& command : all_commands())
        lines.append("    ").append(command.name).append(") options='" + long_forms(command.options) + "' ;;\n");
    return lines;
}

std::string bash_options_with_value()
{
    std::vector<std::string> forms;
    for (const OptionInfo& option : all_options()) {
        if (!option.value.empty())
            forms.push_back(long_form(option));
    }
    return joined(forms, " | ");
}

std::string bash_values()
{
    std::string lines;
    for (const OptionInfo& option : all_options()) {
        std::string action;
        switch (option.kind) {
        case ValueKind::None:
        case ValueKind::Text: continue;
        case ValueKind::File: action = "_multirename_paths"; break;
        case ValueKind::Folder: action = "_multirename_paths folders"; break;
        case ValueKind::Choice: action = "_multirename_words '" + joined(option.choices, " ") + "'"; break;
        case ValueKind::PartAndChoice:
            action = "_multirename_words_of_part '" + joined(option.choices, " ") + "'";
            break;
        }
        lines.append("    ").append(long_form(option)).append(") ").append(action).append(" ;;\n");
    }
    return lines;
}

constexpr std::string_view bash_frame =
    R"script(# What bash needs to complete the words of multirename.
# Made from the program's table of commands and options.

# Sets "unquoted" to a word as the shell reads it, which may lack its closing quotation mark.
_multirename_unquote()
{
    local rest=$1 quote= c
    unquoted=
    while [[ $rest ]]; do
        c=${rest:0:1}
        rest=${rest:1}
        case $quote$c in
        "''" | '""') quote= ;;
        \' | \") quote=$c ;;
        \\)
            unquoted+=${rest:0:1}
            rest=${rest:1}
            ;;
        \"\\)
            if [[ $rest == [\$\`\"\\]* ]]; then
                unquoted+=${rest:0:1}
                rest=${rest:1}
            else
                unquoted+=$c
            fi
            ;;
        *) unquoted+=$c ;;
        esac
    done
}

# Sets "words" to the words up to the cursor. The shell breaks words at characters such as "="; here they are whole.
_multirename_join()
{
    local line=${COMP_LINE:0:COMP_POINT} rest word i
    words=()
    for ((i = 0; i <= COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        rest=${line#"${line%%[![:blank:]]*}"}
        if [[ $COMP_LINE ]] && ((i == COMP_CWORD)); then
            word=$rest
        fi
        if [[ $line && $rest == "$line" ]] && ((i > 0)); then
            words[-1]+=$word
        else
            words+=("$word")
        fi
        line=${rest#"$word"}
    done
}

# The functions below add to COMPREPLY what "typed" can become, each with "head" in front, as it stands in the word.

_multirename_words()
{
    local word IFS=$' \t\n'
    for word in $1; do
        if [[ $word == "$typed"* ]]; then
            COMPREPLY+=("$head$word")
        fi
    done
}

_multirename_words_of_part()
{
    if [[ $typed == *=* ]]; then
        head+=${typed%%=*}=
        typed=${typed#*=}
        _multirename_words "$1"
    fi
}

_multirename_paths()
{
    local path tail= paths=()
    if [[ ${1-} ]]; then
        tail=/
    fi
    mapfile -d '' -t paths < <(
        set +f
        GLOBIGNORE=
        shopt -s nullglob
        shopt -u failglob nocaseglob dotglob
        printf '%s\0' "$typed"*$tail
    )
    for path in "${paths[@]}"; do
        if [[ $path ]]; then
            COMPREPLY+=("$head${path%"$tail"}")
        fi
    done
    # Readline then writes blanks in names as the shell wants them; ~ and variables in them it reads itself.
    compopt -o filenames 2> /dev/null
    if ((${#COMPREPLY[@]} == 0)); then
        compopt -o default 2> /dev/null
    fi
}

_multirename_batches()
{
    local batch rest
    while IFS=$'\t' read -r batch rest; do
        if [[ $batch == "$typed"* ]]; then
            COMPREPLY+=("$head$batch")
        fi
    done < <(multirename undo --list --format tsv 2> /dev/null | tail -n +2)
    compopt -o nosort 2> /dev/null
}

_multirename()
{
    local words word unquoted raw typed head= options command= wanted= only_operands=
    # What readline puts the reply in place of: the end of the word, from the last character on that breaks words.
    local replaced=${2-${COMP_WORDS[COMP_CWORD]}}
    COMPREPLY=()
    _multirename_join
    for word in "${words[@]:1:${#words[@]}-2}"; do
        if [[ $wanted ]]; then
            wanted=
            continue
        fi
        case $only_operands$word in
        --) only_operands=yes ;;
        @VALUED) wanted=$word ;;
        -*) ;;
        *) command=${command:-$word} ;;
        esac
    done
    word=${words[-1]}
    raw=$word
    if [[ $wanted == '' && $only_operands == '' && $word == --*=* ]]; then
        wanted=${word%%=*}
        head=$wanted=
        raw=${word#*=}
    fi
    if [[ ${3-} == [\<\>]* ]]; then
        wanted='<'
        raw=$replaced
    fi
    _multirename_unquote "$raw"
    typed=$unquoted
    case $command in
@OPTIONS    *) return ;;
    esac
    case $wanted in
@VALUES    '<') _multirename_paths ;;
    '')
        case $only_operands$typed:$command in
        -*) _multirename_words "$options" ;;
        *:) _multirename_words '@COMMANDS' ;;
        @PATHS) _multirename_paths ;;
        *) _multirename_batches ;;
        esac
        ;;
    esac
    _multirename_unquote "${word%"$replaced"}"
    COMPREPLY=("${COMPREPLY[@]#"$unquoted"}")
}

complete -F _multirename multirename
)script";

// ---- zsh

// Within apostrophes.
std::string zsh_quoted(std::string_view text)
{
    std::string result = "'";
    for (const char c : text)
        result += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return result + "'";
}

std::string zsh_commands()
{
    std::string lines;
    for (const CommandInfo& command : all_commands())
        lines += "    " + zsh_quoted(std::string(command.name) + ":" + escaped(command.summary, "\\:", "\\")) + "\n";
    return lines;
}

std::string zsh_action(const OptionInfo& option)
{
    const std::string message = ":" + escaped(option.value, "\\:", "\\") + ":";
    switch (option.kind) {
    case ValueKind::None: return {};
    case ValueKind::Text: return message + " ";
    case ValueKind::File: return message + "_files";
    case ValueKind::Folder: return message + "_files -/";
    case ValueKind::Choice: return message + "(" + joined(option.choices, " ") + ")";
    case ValueKind::PartAndChoice: return message + "{_multirename_of_part " + joined(option.choices, " ") + "}";
    }
    return {};
}

// One line of _arguments. Edits can be given more than once; help and version stand alone.
std::string zsh_option(const OptionInfo& option)
{
    const bool stands_alone = option.group == OptionGroup::Other;
    const std::string end = "[" + escaped(option.help, "\\[]", "\\") + "]" + zsh_action(option);
    const std::string name = long_form(option) + (option.value.empty() ? "" : "=");
    if (option.letter == 0) {
        const std::string start = option.group == OptionGroup::Edits ? "*" : stands_alone ? "(- : *)" : "";
        return zsh_quoted(start + name + end);
    }
    const std::string letter = std::string("-") + option.letter;
    return zsh_quoted(stands_alone ? "(- : *)" : "(" + letter + " " + name + ")") + "{" + letter + "," + name + "}" +
        zsh_quoted(end);
}

std::string zsh_options(std::span<const OptionId> ids, std::string_view indent)
{
    std::string lines;
    for (const OptionId id : ids)
        lines.append(indent).append(zsh_option(option_info(id))).append(" \\\n");
    return lines;
}

std::string zsh_cases()
{
    std::string lines;
    for (const CommandInfo& command : all_commands()) {
        lines.append("    ").append(command.name).append(")\n        _arguments -s -S \\\n");
        lines += zsh_options(command.options, "            ");
        lines += command.takes_paths ? "            '*:path:_files' && ret=0\n"
                                     : "            '1:batch:_multirename_batches' && ret=0\n";
        lines += "        ;;\n";
    }
    return lines;
}

constexpr std::string_view zsh_frame = R"script(#compdef multirename
# What zsh needs to complete the words of multirename.
# Made from the program's table of commands and options.

_multirename_commands() {
    local -a commands
    commands=(
@COMMANDS    )
    _describe -t commands 'command' commands
}

# K=WORD with the words that are given.
_multirename_of_part() {
    if compset -P '*='; then
        local expl
        local -a choices=("$@")
        _wanted choices expl 'word' compadd -a choices
    else
        _message -e parts 'number of a part, then ='
    fi
}

_multirename_batches() {
    local -a batches fields lines
    local line
    lines=(${(f)"$(_call_program batches multirename undo --list --format tsv 2> /dev/null)"})
    for line in $lines[2,-1]; do
        fields=("${(@ps:\t:)line}")
        batches+=("$fields[1]:$fields[3] names, first in $fields[4]")
    done
    _describe -V -t batches 'batch' batches
}

_multirename() {
    local curcontext=$curcontext ret=1
    local -a line state
    local -A opt_args

    _arguments -C \
@PROGRAM        '1:command:_multirename_commands' \
        '*::argument:->arguments' && return
    [[ $state == arguments ]] || return

    curcontext=${curcontext%:*:*}:multirename-$words[1]:
    case $words[1] in
@CASES    esac
    return ret
}

_multirename "$@"
)script";

// ---- fish

std::string fish_quoted(std::string_view text) { return "'" + escaped(text, "\\'", "\\") + "'"; }

std::string fish_action(const OptionInfo& option)
{
    switch (option.kind) {
    case ValueKind::None: return {};
    case ValueKind::Text: return " -x";
    case ValueKind::File: return " -r -F";
    case ValueKind::Folder: return " -x -a '(__fish_complete_directories (__multirename_value))'";
    case ValueKind::Choice: return " -x -a " + fish_quoted(joined(option.choices, " "));
    case ValueKind::PartAndChoice:
        return " -x -a " + fish_quoted("(__multirename_of_part " + joined(option.choices, " ") + ")");
    }
    return {};
}

std::string fish_option(const OptionInfo& option, const std::string& condition)
{
    std::string line = "complete -c multirename -n " + fish_quoted(condition);
    if (option.letter != 0)
        line += std::string(" -s ") + option.letter;
    line.append(" -l ").append(option.name).append(fish_action(option));
    return line + " -d " + fish_quoted(option.help) + "\n";
}

std::string fish_commands()
{
    std::string lines;
    for (const CommandInfo& command : all_commands()) {
        lines.append("complete -c multirename -n 'not __multirename_command' -a ").append(command.name);
        lines.append(" -d ").append(fish_quoted(command.summary)).append("\n");
    }
    return lines;
}

std::string fish_options()
{
    std::string lines;
    for (const OptionId id : program_options())
        lines += fish_option(option_info(id), "not __multirename_command");
    for (const OptionInfo& option : all_options()) {
        const std::vector<std::string_view> commands = names_of_commands_that_take(option.id);
        if (!commands.empty())
            lines += fish_option(option, "__multirename_has " + joined(commands, " "));
    }
    return lines;
}

std::string fish_operands()
{
    return "complete -c multirename -n '__multirename_has " + joined(names_of_commands_that_take_paths(), " ") +
        "' -F\n"
        "complete -c multirename -n '__multirename_has undo' -k -a '(__multirename_batches)'\n";
}

constexpr std::string_view fish_frame =
    R"script(# What fish needs to complete the words of multirename.
# Made from the program's table of commands and options.

# Prints the command that was typed; fails when there is none.
function __multirename_command
    for word in (commandline -opc)[2..]
        if not string match -q -- '-*' $word
            echo $word
            return 0
        end
    end
    return 1
end

function __multirename_has
    contains -- (__multirename_command; or echo -) $argv
end

# What was typed of an option's value.
function __multirename_value
    string replace -r -- '^--[a-z-]+=' '' (commandline -ct)
end

# K=WORD with the words that are given.
function __multirename_of_part
    set -l part (string match -r -- '^[^=]*=' (__multirename_value))
    and printf '%s\n' $part$argv
end

function __multirename_batches
    multirename undo --list --format tsv 2>/dev/null | tail -n +2 | while read -l -d \t batch time names folder
        printf '%s\t%s names, first in %s\n' $batch $names $folder
    end
end

complete -c multirename -f

@COMMANDS
@OPTIONS
@OPERANDS)script";

} // namespace

std::string bash_completion()
{
    return filled(bash_frame,
                  {{"@VALUED", bash_options_with_value()},
                   {"@OPTIONS", bash_options_of_commands()},
                   {"@VALUES", bash_values()},
                   {"@COMMANDS", joined(command_names(), " ")},
                   {"@PATHS", "*:" + joined(names_of_commands_that_take_paths(), " | *:")}});
}

std::string zsh_completion()
{
    return filled(zsh_frame,
                  {{"@COMMANDS", zsh_commands()},
                   {"@PROGRAM", zsh_options(program_options(), "        ")},
                   {"@CASES", zsh_cases()}});
}

std::string fish_completion()
{
    return filled(fish_frame,
                  {{"@COMMANDS", fish_commands()}, {"@OPTIONS", fish_options()}, {"@OPERANDS", fish_operands()}});
}

} // namespace multirename
