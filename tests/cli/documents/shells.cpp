#include "shells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "support/file_content.h"

namespace multirename {

namespace {

constexpr std::string_view line_mark = "line:";

// What reads its commands from a pipe, edits its lines all the same. Behind Tab follow the keys that write the line
// down and clear it.
constexpr std::string_view bash_settings = R"(unset HISTFILE
bind 'set enable-bracketed-paste off'
source "$COMPLETION"
recorded() {
    _multirename "$@"
    local status=$? candidate
    for candidate in "${COMPREPLY[@]}"; do
        printf '%s\n' "$candidate" >> "$ANSWER"
    done
    return $status
}
complete -F recorded multirename
write_down() { printf 'line:%s\n' "$READLINE_LINE" >> "$ANSWER"; }
bind -x '"\C-xp": write_down'
)";

// This shell edits lines only on a terminal, so one of its own modules gives it one.
constexpr std::string_view zsh_terminal = R"(zmodload zsh/zpty
zpty inner zsh -f -i
zpty -w inner "source '$SETTINGS'; print READ''Y"
zpty -r inner output '*READY*'
zpty -w -n inner "$LINE"$'\t\x18\x10'
zpty -r inner output '*ANSWERED*'
zpty -d inner
)";

constexpr std::string_view zsh_settings = R"(PS1=
fpath=(${COMPLETION:h} $fpath)
autoload -Uz compinit
compinit -D -u
bindkey -e
bindkey '^I' complete-word
setopt no_beep no_auto_list
compadd() {
    local -a found
    if [[ ${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
        builtin compadd -A found "$@"
        print -rl -- $found >> $ANSWER
    fi
    builtin compadd "$@"
}
write-down() {
    print -r -- "line:$BUFFER" >> $ANSWER
    BUFFER=
    zle -I
    print ANSWERED
}
zle -N write-down
bindkey '^X^P' write-down
)";

std::string plain_candidate(std::string text)
{
    text.erase(std::min(text.find('\t'), text.size())); // a description
    std::erase(text, '\\');
    if (text.ends_with('/'))
        text.pop_back();
    const std::size_t equals = text.rfind('=');
    return equals == std::string::npos ? text : text.substr(equals + 1);
}

Answer answer_in(const std::string& text)
{
    Answer answer;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.starts_with(line_mark))
            answer.line = line.substr(line_mark.size());
        else if (!line.empty())
            answer.candidates.push_back(plain_candidate(line));
    }
    std::ranges::sort(answer.candidates);
    answer.candidates.erase(std::unique(answer.candidates.begin(), answer.candidates.end()), answer.candidates.end());
    return answer;
}

std::string with(const std::string& name, const std::string& value) { return name + "=" + value; }

} // namespace

Answer ask_bash(const Home& home, const std::string& line)
{
    const std::string answer = home.folder().write("answer", "");
    const std::string settings = home.folder().write("settings", bash_settings);
    const ProgramResult result =
        home.run({with("COMPLETION", document("bash-completion/completions/multirename")), with("ANSWER", answer),
                  "INPUTRC=/dev/null", "bash", "--noprofile", "--rcfile", settings, "-i"},
                 line + "\t\x18p\x15" + "exit\n");
    EXPECT_EQ(result.errors.find("command not found"), std::string::npos) << result.errors;
    return answer_in(content_of(answer));
}

Answer ask_zsh(const Home& home, const std::string& line)
{
    const std::string answer = home.folder().write("answer", "");
    const std::string settings = home.folder().write("settings", zsh_settings);
    const std::string terminal = home.folder().write("terminal", zsh_terminal);
    const ProgramResult result =
        home.run({with("COMPLETION", document("zsh/site-functions/_multirename")), with("ANSWER", answer),
                  with("SETTINGS", settings), with("LINE", line), "zsh", "-f", terminal});
    EXPECT_EQ(result.errors, "");
    return answer_in(content_of(answer));
}

Answer ask_fish(const Home& home, const std::string& line)
{
    const ProgramResult result = home.run({"fish", "--no-config", "-c", "source $argv[1]; complete -C $argv[2]",
                                           document("fish/vendor_completions.d/multirename.fish"), line});
    EXPECT_EQ(result.errors, "");
    return answer_in(result.output);
}

} // namespace multirename
