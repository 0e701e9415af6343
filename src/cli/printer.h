#pragma once

#include <string>
#include <string_view>

#include "cli/command_line.h"
#include "cli/table_output.h"
#include "cli/text_output.h"
#include "platform/console.h"

namespace multirename {

/// Says what a command has to say, in the way that its request asks for.
class Printer {
public:
    Printer(const Request& request, Console& console) : request_(request), console_(console) { }

    /// Standard output, through the pager when that was asked for and a terminal is there. Throws Failure when it
    /// cannot be written.
    void print(const std::string& text);
    /// The same of a text that may be very long; it goes out while it is made, except through the pager.
    void print(const TextMaker& make);

    // Standard error, a line each; the text without the program's name or a line end.
    void say(const std::string& text);
    void note(const std::string& text) { say("note: " + text); }
    void warn(const std::string& text) { say("warning: " + text); }
    /// A text that stands for itself.
    void message(const std::string& text) { console_.write_error(text + "\n"); }

    [[nodiscard]] OutputFormat format() const noexcept { return request_.format; }
    /// How a table is to look on standard output as it is: colours, unless NO_COLOR is set, and a width only where that
    /// is a terminal.
    [[nodiscard]] TableStyle table_style();

private:
    const Request& request_;
    Console& console_;
};

/// Writes to standard output. Throws Failure when it cannot be written.
void write_output(Console& console, std::string_view text);

/// "1 file", "2 files"
[[nodiscard]] std::string counted(std::size_t count, std::string_view one, std::string_view many);

} // namespace multirename
