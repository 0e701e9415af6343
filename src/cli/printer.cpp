#include "cli/printer.h"

#include "cli/failure.h"

namespace multirename {

void Printer::print(const std::string& text)
{
    const bool is_paged = request_.pager && console_.output_is_terminal();
    if (!is_paged || !console_.pipe_to(console_.variable("PAGER").value_or("less -R"), text))
        write_output(console_, text);
}

void Printer::print(const TextMaker& make)
{
    if (request_.pager && console_.output_is_terminal()) {
        print(whole_text(make));
        return;
    }
    TextOutput output([this](std::string_view piece) { write_output(console_, piece); });
    make(output);
    output.pass_on();
}

void Printer::say(const std::string& text) { console_.write_error("multirename: " + text + "\n"); }

TableStyle Printer::table_style()
{
    TableStyle style;
    if (!console_.output_is_terminal())
        return style;
    style.colours = !console_.variable("NO_COLOR");
    style.columns = console_.columns();
    return style;
}

void write_output(Console& console, std::string_view text)
{
    if (!console.write(text))
        throw Failure(ExitStatus::PartlyDone, "The output cannot be written.");
}

std::string counted(std::size_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

} // namespace multirename
