#include "cli/edit_names.h"

#include <filesystem>
#include <vector>

#include "cli/failure.h"
#include "cli/printable.h"
#include "platform/error_text.h"
#include "platform/native_text.h"
#include "platform/user_folders.h"
#include "run/pasted_names.h"
#include "text/posix_name.h"
#include "text/utf8.h"

namespace multirename {

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::u16string>;
using Rows = std::vector<std::size_t>;

// The user's lines on disk; gone with this object unless they are to be kept.
class Draft {
public:
    explicit Draft(std::string_view content)
    {
        if (const std::error_code error = make_draft(content, path_))
            throw Failure(ExitStatus::PartlyDone,
                          "No file can be made for the editor: " + error_text(error) + ". Nothing was renamed.");
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft()
    {
        std::error_code ignored;
        if (!is_kept_)
            fs::remove(path_, ignored);
    }

    [[nodiscard]] const fs::path& path() const noexcept { return path_; }
    void keep() noexcept { is_kept_ = true; }

private:
    fs::path path_;
    bool is_kept_ = false;
};

std::string editor(Console& console)
{
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        if (const auto command = console.variable(variable))
            return *command;
    }
    throw WrongCommandLine("edit needs an editor: set VISUAL or EDITOR to its name.");
}

// A file that the pattern does not cover has no new name, and would get none.
Rows rows_to_edit(const RenameRun& run)
{
    Rows rows;
    for (std::size_t row = 0; row < run.row_count(); ++row) {
        if (run.row_entry(row).in_scope)
            rows.push_back(row);
    }
    return rows;
}

// What goes to the editor: each row's new name as people see it.
Lines lines_for_editor(const RenameRun& run, const Rows& rows, const NameBorder& border)
{
    Lines lines;
    for (const std::size_t row : rows) {
        std::u16string line = border.shown(run.row_entry(row).new_name);
        if (line.find(u'\n') != std::u16string::npos)
            throw Failure(ExitStatus::Refused,
                          "\"" + printable(line) +
                              "\" holds a line break, so that it cannot be edited as a line. "
                              "Use rename for it. Nothing was renamed.");
        lines.push_back(std::move(line));
    }
    return lines;
}

// The line with those characters moved aside that the name holds moved aside already; all others were typed.
std::u16string with_characters_of(std::u16string_view name, std::u16string_view line)
{
    std::u16string result(line);
    for (char16_t& unit : result) {
        const std::u16string aside = name_from_bytes(to_bytes({&unit, 1}));
        if (unit < 0x80 && aside.front() != unit && name.find(aside) != std::u16string_view::npos)
            unit = aside.front();
    }
    return result;
}

// The lines as they are to be pasted: one for each row when there are as many, else just those there are.
std::u16string pasted_text(const RenameRun& run, const Rows& rows, const std::vector<std::u16string_view>& edited)
{
    std::u16string all_names;
    for (const std::size_t row : rows)
        all_names += run.row_entry(row).new_name;
    std::u16string text;
    for (std::size_t i = 0; i < edited.size(); ++i) {
        const bool is_paired = edited.size() == rows.size();
        text +=
            with_characters_of(is_paired ? run.row_entry(rows[i]).new_name : std::u16string_view(all_names), edited[i]);
        text.push_back(u'\n');
    }
    return text;
}

// The rows whose lines have come back as they went.
Rows untouched_rows(const Rows& rows, const Lines& sent, const std::vector<std::u16string_view>& edited,
                    const NameBorder& border)
{
    Rows untouched;
    for (std::size_t i = 0; i < rows.size() && edited.size() == rows.size(); ++i) {
        const std::u16string line = border.typed(to_bytes(sent[i]));
        const std::vector<std::u16string_view> pasted = pasted_lines(line);
        if (pasted.size() == 1 && pasted.front() == edited[i])
            untouched.push_back(rows[i]);
    }
    return untouched;
}

} // namespace

void edit_names(RenameRun& run, const NameBorder& border, Console& console)
{
    const std::string command = editor(console);
    const Rows rows = rows_to_edit(run);
    const Lines lines = lines_for_editor(run, rows, border);
    std::string content;
    for (const std::u16string& line : lines)
        content.append(to_bytes(line)).push_back('\n');
    Draft draft(content);
    const std::optional<int> status = console.run_on_file(command, native_bytes(draft.path()));
    if (!status || *status != 0)
        throw Failure(
            ExitStatus::Refused,
            "The editor \"" + command + "\" " +
                (status ? "ended with status " + std::to_string(*status) : std::string("could not be started")) +
                ". Nothing was renamed.");
    std::string edited_content;
    if (const std::error_code error = read_file(draft.path(), edited_content))
        throw Failure(ExitStatus::Refused,
                      "What the editor has written cannot be read: " + error_text(error) + ". Nothing was renamed.");
    if (edited_content == content)
        return;

    const std::u16string edited_text = border.typed(edited_content);
    const std::vector<std::u16string_view> edited = pasted_lines(edited_text);
    const Rows untouched = untouched_rows(rows, lines, edited, border);
    if (const auto problem = run.paste_names(pasted_text(run, rows, edited), rows)) {
        draft.keep();
        throw Failure(ExitStatus::Refused,
                      to_bytes(problem->text) + "\nNothing was renamed. Your lines are kept in " +
                          native_bytes(draft.path()) + ".");
    }
    run.reset_names(untouched);
}

} // namespace multirename
