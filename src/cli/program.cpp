#include "cli/program.h"

#include "cli/command_line.h"
#include "cli/file_commands.h"
#include "cli/help.h"
#include "cli/printable.h"
#include "cli/printer.h"
#include "cli/undo_commands.h"

namespace multirename {

namespace {

// What is said may name paths of any characters; only its own line ends are meant.
std::string printable_lines(std::string_view text)
{
    std::string result;
    while (true) {
        const std::size_t end = text.find('\n');
        result += printable(text.substr(0, end));
        if (end == std::string_view::npos)
            return result;
        result.push_back('\n');
        text.remove_prefix(end + 1);
    }
}

ExitStatus run_command(const Request& request, Console& console, Batches& batches)
{
    return request.command == CommandId::Undo ? run_undo_command(request, console, batches)
                                              : run_file_command(request, console, batches);
}

} // namespace

ExitStatus run_program(const std::vector<std::string>& words, Console& console, Batches batches)
{
    try {
        const Request request = parse_command_line(words);
        switch (request.kind) {
        case Request::Kind::Help: write_output(console, help_text(request.command)); return ExitStatus::Done;
        case Request::Kind::Version:
            write_output(console, std::string(program_name) + " " + std::string(program_version) + "\n");
            return ExitStatus::Done;
        case Request::Kind::Command: break;
        }
        return run_command(request, console, batches);
    } catch (const Failure& failure) {
        console.write_error("multirename: " + printable_lines(failure.what()) + "\n");
        return failure.status;
    }
}

} // namespace multirename
