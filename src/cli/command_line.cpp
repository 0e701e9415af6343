#include "cli/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>

#include "cli/failure.h"
#include "cli/joined.h"

namespace multirename {

namespace {

using ParsedOptions = std::map<const CLI::Option*, OptionId>;

constexpr const char* operands_name = "PATH";

// The parser takes an operand in brackets for a list of operands. Every word that begins like one goes through it with
// a character in front that no option begins with.
constexpr char guard = '\x01';

std::string guarded(const std::string& word)
{
    return word.starts_with('[') || word.starts_with(guard) ? guard + word : word;
}

std::string unguarded(const std::string& word) { return word.starts_with(guard) ? word.substr(1) : word; }

std::string spelling(const OptionInfo& option)
{
    const std::string name = "--" + std::string(option.name);
    return option.letter == 0 ? name : std::string("-") + option.letter + "," + name;
}

CLI::Option* add(CLI::App& app, const OptionInfo& option)
{
    if (option.value.empty())
        return app.add_flag(spelling(option));
    CLI::Option* added = app.add_option(spelling(option), "");
    return added->take_all()->expected(1)->allow_extra_args(false);
}

// Words of one command and what the parser made of them.
struct CommandParser {
    const CommandInfo* command = nullptr;
    CLI::App* app = nullptr;
    ParsedOptions options;
    CLI::Option* operands = nullptr;

    CommandParser(CLI::App& program, const CommandInfo& info) :
        command(&info), app(program.add_subcommand(std::string(info.name)))
    {
        app->set_help_flag();
        app->allow_windows_style_options(false);
        for (const OptionId id : info.options)
            options.emplace(add(*app, option_info(id)), id);
        operands = app->add_option(operands_name, "")->take_all()->expected(info.takes_paths ? -1 : 1);
    }
};

std::optional<std::string> last_of(const std::vector<std::string>& values)
{
    return values.empty() ? std::nullopt : std::optional(values.back());
}

OutputFormat format_named(const std::string& name)
{
    const auto names = option_info(OptionId::Format).choices;
    const auto found = std::ranges::find(names, name);
    if (found == names.end())
        throw WrongCommandLine("--format " + name + ": the formats are " + joined(names, ", ", " and ") + ".");
    return static_cast<OutputFormat>(found - names.begin());
}

void take(Request& request, OptionId id, const std::string& value)
{
    Selection& files = request.selection;
    switch (id) {
    case OptionId::From: files.from = value; break;
    case OptionId::NulEnded: files.nul_ended = true; break;
    case OptionId::In: files.in = value; break;
    case OptionId::Folders: files.folders = true; break;
    case OptionId::Hidden: files.hidden = true; break;
    case OptionId::Names: files.names = value; break;
    case OptionId::Listed: files.listed = value; break;
    case OptionId::NumbersAsText: request.numbers_as_text = true; break;
    case OptionId::Extensions: request.extensions = true; break;
    case OptionId::Text:
    case OptionId::Case:
    case OptionId::Truncate:
    case OptionId::Replace:
    case OptionId::Renumber:
    case OptionId::Digits:
    case OptionId::StripZeros:
    case OptionId::Clear: request.edits.push_back({id, value}); break;
    case OptionId::Format: request.format = format_named(value); break;
    case OptionId::Pager: request.pager = true; break;
    case OptionId::List: request.list = true; break;
    case OptionId::Help: request.kind = Request::Kind::Help; break;
    case OptionId::Version: request.kind = Request::Kind::Version; break;
    }
}

void refuse(bool is_wrong, const char* text)
{
    if (is_wrong)
        throw WrongCommandLine(text);
}

// What no table of options tells: which of them go together.
void check(const Request& request)
{
    const Selection& files = request.selection;
    const bool has_files = !files.paths.empty() || files.from || files.in;
    const std::string name(command_info(*request.command).name);
    refuse(files.names && has_files, "--names touches no disk: leave the paths, --from and --in out.");
    refuse(files.listed && !files.names, "--listed goes with --names only.");
    refuse((files.folders || files.hidden) && !files.in, "--folders and --hidden go with --in only.");
    refuse(files.nul_ended && !files.from && !files.names, "-0 goes with --from or --names only.");
    refuse(request.list && request.batch, "undo --list lists all batches: leave the batch out.");
    if (command_info(*request.command).takes_paths && !has_files && !files.names)
        throw WrongCommandLine(name + " needs files: name them, or use --in or --from. \"multirename " + name +
                               " --help\" shows examples.");
}

Request read(const CommandParser& parser)
{
    Request request;
    request.command = parser.command->id;
    std::map<const CLI::Option*, std::size_t> taken;
    for (const CLI::Option* option : parser.app->parse_order()) {
        const auto found = parser.options.find(option);
        if (found == parser.options.end())
            continue;
        const bool is_switch = option_info(found->second).value.empty();
        take(request, found->second, is_switch ? std::string() : unguarded(option->results()[taken[option]++]));
    }
    std::vector<std::string> operands = parser.operands->results();
    std::ranges::transform(operands, operands.begin(), unguarded);
    if (parser.command->takes_paths)
        request.selection.paths = std::move(operands);
    else
        request.batch = last_of(operands);
    return request;
}

std::string first_line(const std::string& text)
{
    std::string line = text.substr(0, text.find('\n'));
    if (!line.empty() && line.back() != '.')
        line.push_back('.');
    return line;
}

} // namespace

Request parse_command_line(const std::vector<std::string>& words)
{
    CLI::App program;
    program.set_help_flag();
    program.allow_windows_style_options(false);
    program.require_subcommand(0, 1);
    const CLI::Option* help = add(program, option_info(OptionId::Help));
    const CLI::Option* version = add(program, option_info(OptionId::Version));
    std::vector<CommandParser> parsers;
    for (const CommandInfo& command : all_commands())
        parsers.emplace_back(program, command);

    std::vector<std::string> from_the_back;
    std::transform(words.rbegin(), words.rend(), std::back_inserter(from_the_back), guarded);
    try {
        program.parse(from_the_back);
    } catch (const CLI::ParseError& error) {
        throw WrongCommandLine(first_line(error.what()) + " \"multirename --help\" shows what there is.");
    }
    Request request;
    if (version->count() > 0) {
        request.kind = Request::Kind::Version;
        return request;
    }
    for (const CommandParser& parser : parsers) {
        if (parser.app->parsed())
            request = read(parser);
    }
    if (help->count() > 0)
        request.kind = Request::Kind::Help;
    if (request.kind == Request::Kind::Command && !request.command)
        throw WrongCommandLine("say what to do: " + joined(command_names(), ", ", " or ") +
                               ". \"multirename --help\" shows how.");
    if (request.kind == Request::Kind::Command)
        check(request);
    return request;
}

} // namespace multirename
