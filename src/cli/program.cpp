// The way of a command: words -> request -> files -> run -> edits -> what the run says of it -> rename, if it is one ->
// text. Whatever goes wrong on the way before the rename is a Failure, which ends it with nothing renamed.

#include "cli/program.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "cli/batch_rename.h"
#include "cli/command_line.h"
#include "cli/edit_names.h"
#include "cli/edits.h"
#include "cli/help.h"
#include "cli/json_output.h"
#include "cli/printable.h"
#include "cli/progress_bar.h"
#include "cli/selection.h"
#include "cli/table_output.h"
#include "cli/undo.h"
#include "platform/error_text.h"
#include "platform/native_text.h"
#include "platform/rename_obstacles.h"
#include "platform/user_folders.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::size_t most_warnings = 10;

// Messages of the dialog have Windows' line ends.
std::string message_text(const Message& message)
{
    std::string text = to_bytes(message.text);
    std::erase(text, '\r');
    return text;
}

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

std::string counted(std::size_t count, std::string_view one, std::string_view many)
{
    return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

class Program {
public:
    Program(const Request& request, Console& console, Batches& batches) :
        request_(request), console_(console), batches_(batches)
    {
    }

    ExitStatus run()
    {
        switch (*request_.command) {
        case CommandId::Pattern: return pattern();
        case CommandId::Preview: return preview();
        case CommandId::Rename:
        case CommandId::Edit: return rename();
        case CommandId::Undo: return request_.list ? list_batches() : undo();
        }
        return ExitStatus::WrongCommandLine;
    }

private:
    // A run with all that must live as long as it.
    struct Session {
        SelectedFiles selected;
        RememberedBoxes boxes;
        RenameRun run;
        Session(const Request& request, Console& console) :
            selected(request.selection, console),
            boxes{request.extensions, request.numbers_as_text},
            run(selected.files(), boxes)
        {
        }
    };

    void note(const std::string& text) { console_.write_error("multirename: note: " + text + "\n"); }
    void warn(const std::string& text) { console_.write_error("multirename: warning: " + text + "\n"); }

    void note_options_without_effect(const RenameRun& run)
    {
        if (request_.extensions && !run.allow_extension_changes().checked)
            note("--extensions has no effect: none of these names has an extension.");
        if (request_.numbers_as_text && !run.numbers_as_text().checked)
            note("--numbers-as-text has no effect: there is no number in which these names differ.");
    }

    void warn_of_names_that_do_not_fit(const RenameRun& run, const NameBorder& border)
    {
        std::size_t count = 0;
        for (std::size_t row = 0; row < run.row_count(); ++row) {
            const Filename& entry = run.row_entry(row);
            if (!entry.in_scope || entry.manual_name || run.fits_pattern(row))
                continue;
            if (++count <= most_warnings)
                warn("\"" + printable(border.shown(entry.name)) +
                     "\" does not fit the pattern; its new name holds only what was read of it until then.");
        }
        if (count > most_warnings)
            warn("the same is true of " + std::to_string(count - most_warnings) + " more.");
    }

    void note_files_that_stay(const RenameRun& run)
    {
        std::size_t count = 0;
        for (std::size_t row = 0; row < run.row_count(); ++row)
            count += run.row_entry(row).in_scope ? 0U : 1U;
        if (count > 0)
            warn(counted(count, "file is", "files are") + " not covered by the pattern and " +
                 (count == 1 ? "keeps its name." : "keep their names."));
    }

    // What keeps the system from giving a name, as far as that can be known beforehand.
    Reasons obstacles(const Session& session) const
    {
        Reasons reasons;
        if (session.selected.are_names_only())
            return reasons;
        std::u16string typed;
        for (const Edit& edit : request_.edits)
            typed += session.selected.border().typed(edit.argument);
        RenameObstacles known;
        for (std::size_t row = 0; row < session.run.row_count(); ++row) {
            const Filename& entry = session.run.row_entry(row);
            if (!entry.in_scope || entry.status != Status::Ready || entry.new_name == entry.name)
                continue;
            // What came from the editor was typed, all of it.
            const std::u16string_view known_text = entry.manual_name ? std::u16string_view(entry.new_name) : typed;
            if (!can_be_written(entry.new_name, entry.name, known_text)) {
                reasons.emplace(&entry, "the new name cannot be written in the encoding of the file system");
                continue;
            }
            auto reason = known.find(native_from_path(entry.folder->path), native_from_name(entry.name),
                                     native_from_name(entry.new_name), entry.is_folder);
            if (reason)
                reasons.emplace(&entry, std::move(*reason));
        }
        return reasons;
    }

    void list_reasons(const Session& session, const Reasons& reasons, std::string_view what)
    {
        for (std::size_t row = 0; row < session.run.row_count(); ++row) {
            const Filename& entry = session.run.row_entry(row);
            const auto reason = reasons.find(&entry);
            if (reason == reasons.end())
                continue;
            const NameBorder& border = session.selected.border();
            console_.write_error("multirename: " + std::string(what) + " \"" +
                                 printable(shown_native_path(entry.folder->path)) +
                                 printable(border.shown(entry.name)) + "\" to \"" +
                                 printable(border.shown(entry.new_name)) + "\": " + reason->second + ".\n");
        }
    }

    void print(const std::string& text)
    {
        const bool is_paged = request_.pager && console_.output_is_terminal();
        if (is_paged && console_.pipe_to(console_.variable("PAGER").value_or("less -R"), text))
            return;
        if (!console_.write(text))
            throw Failure(ExitStatus::PartlyDone, "The output cannot be written.");
    }

    [[nodiscard]] TableStyle table_style()
    {
        TableStyle style;
        if (!console_.output_is_terminal())
            return style;
        style.colours = !console_.variable("NO_COLOR");
        style.columns = console_.columns();
        return style;
    }

    void print_files(const FilesReport& report)
    {
        switch (request_.format) {
        case OutputFormat::Table: print(files_as_table(report, table_style())); break;
        case OutputFormat::Tsv: print(files_as_tsv(report)); break;
        case OutputFormat::Json: print(files_as_json(report)); break;
        }
    }

    ExitStatus pattern()
    {
        Session session(request_, console_);
        note_options_without_effect(session.run);
        const NameBorder& border = session.selected.border();
        switch (request_.format) {
        case OutputFormat::Table: print(pattern_as_table(session.run, border)); break;
        case OutputFormat::Tsv: print(pattern_as_tsv(session.run, border)); break;
        case OutputFormat::Json: print(pattern_as_json(session.run, border)); break;
        }
        return ExitStatus::Done;
    }

    // Edits and everything that is said before the checks.
    void prepare(Session& session)
    {
        note_options_without_effect(session.run);
        apply_edits(session.run, request_.edits, session.selected.border());
        if (request_.command == CommandId::Edit)
            edit_names(session.run, session.selected.border(), console_);
        warn_of_names_that_do_not_fit(session.run, session.selected.border());
        note_files_that_stay(session.run);
    }

    [[nodiscard]] FilesReport report(const Session& session, const ProblemCounts& problems,
                                     const Reasons& reasons) const
    {
        return {session.run, problems, session.selected.border(), session.selected.are_names_only(), reasons, {}, {}};
    }

    ExitStatus refuse(const Session& session, const Verdict& verdict, const Reasons& reasons)
    {
        if (verdict.kind == Verdict::Kind::Refuse)
            console_.write_error(message_text(verdict.message) + "\n");
        list_reasons(session, reasons, "cannot rename");
        return ExitStatus::Refused;
    }

    ExitStatus preview()
    {
        Session session(request_, console_);
        prepare(session);
        const Verdict verdict = session.run.judge();
        const Reasons reasons = obstacles(session);
        const ProblemCounts problems = session.selected.files().count_problems();
        print_files(report(session, problems, reasons));
        if (verdict.kind == Verdict::Kind::Refuse || !reasons.empty())
            return refuse(session, verdict, reasons);
        return ExitStatus::Done;
    }

    ExitStatus rename()
    {
        Session session(request_, console_);
        prepare(session);
        const Verdict verdict = session.run.judge();
        const Reasons reasons = obstacles(session);
        const ProblemCounts problems = session.selected.files().count_problems();
        if (verdict.kind == Verdict::Kind::Refuse || !reasons.empty()) {
            print_files(report(session, problems, reasons));
            return refuse(session, verdict, reasons);
        }
        BatchRename batch(batches_, console_);
        if (verdict.kind == Verdict::Kind::Rename)
            session.run.rename(OwnerWindow::none, batch);
        else
            console_.write_error(message_text(verdict.message) + "\n");
        return tell_of_rename(session, problems, batch);
    }

    ExitStatus tell_of_rename(const Session& session, const ProblemCounts& problems, const BatchRename& batch)
    {
        const bool is_whole = batch.reasons().empty() && !batch.was_stopped();
        FilesReport told = report(session, problems, batch.reasons());
        told.renamed = batch.renamed();
        if (!batch.batch().empty())
            told.batch = batch.batch();
        if (request_.format != OutputFormat::Table || !is_whole)
            print_files(told);
        else if (told.batch)
            print(counted(batch.renamed(), "file", "files") + " renamed. \"multirename undo " + *told.batch +
                  "\" takes that back.\n");
        if (is_whole)
            return ExitStatus::Done;
        list_reasons(session, batch.reasons(), "could not rename");
        std::string text = batch.was_stopped() ? "Stopped: " : "";
        text += counted(batch.renamed(), "file was", "files were") + " renamed";
        if (told.batch)
            text += "; \"multirename undo " + *told.batch + "\" takes that back";
        console_.write_error("multirename: " + text + ".\n");
        return ExitStatus::PartlyDone;
    }

    ExitStatus list_batches()
    {
        const std::vector<BatchSummary> batches = batches_.summaries();
        switch (request_.format) {
        case OutputFormat::Table:
            print(batches.empty() ? "There is no batch that could be taken back.\n" : batches_as_table(batches));
            break;
        case OutputFormat::Tsv: print(batches_as_tsv(batches)); break;
        case OutputFormat::Json: print(batches_as_json(batches)); break;
        }
        return ExitStatus::Done;
    }

    Batch open_batch()
    {
        const std::vector<std::string> ids = batches_.ids();
        if (!request_.batch && ids.empty())
            throw Failure(ExitStatus::Refused, "There is no batch that could be taken back.");
        const std::string id = request_.batch ? *request_.batch : ids.front();
        Batch batch;
        const std::error_code error = batches_.open(id, batch);
        if (!error)
            return batch;
        if (error == std::errc::no_such_file_or_directory)
            throw WrongCommandLine("There is no batch " + id +
                                   R"( to take back; "multirename undo --list" shows those that there are.)");
        if (error == std::errc::device_or_resource_busy)
            throw Failure(ExitStatus::Refused, "Batch " + id + " is being worked on; wait until that has ended.");
        if (error == std::errc::bad_message)
            throw Failure(
                ExitStatus::PartlyDone,
                "The journal of batch " + id +
                    " is damaged from its start on, so that nothing can be taken back from it. It has been set "
                    "aside in " +
                    native_bytes(batches_.folder()) + "; the next undo takes the batch before.");
        throw Failure(ExitStatus::PartlyDone,
                      "The journal of batch " + id + " cannot be read: " + error_text(error) + ".");
    }

    ExitStatus undo()
    {
        Batch batch = open_batch();
        UndoReport report;
        {
            ProgressBar progress(console_, "Taking back", batch.entries().size());
            report = take_back(batch, progress);
        }
        for (const LeftEntry& left : report.left)
            console_.write_error("multirename: \"" + printable(left.entry.folder + left.entry.new_name) +
                                 "\" cannot be called \"" + printable(left.entry.old_name) +
                                 "\" again: " + left.reason + ".\n");
        if (report.unknown > 0)
            console_.write_error("multirename: the journal of this batch is damaged: what became of " +
                                 counted(report.unknown, "further name", "further names") + " is not known.\n");
        if (report.was_stopped)
            console_.write_error("multirename: Stopped; \"multirename undo " + report.id + "\" goes on with it.\n");
        switch (request_.format) {
        case OutputFormat::Table:
            print("Batch " + report.id + ": " +
                  counted(report.restored, "file has its old name", "files have their old names") + " again.\n");
            break;
        case OutputFormat::Tsv: print(undo_as_tsv(report)); break;
        case OutputFormat::Json: print(undo_as_json(report)); break;
        }
        const bool is_whole = report.left.empty() && report.unknown == 0 && !report.was_stopped;
        return is_whole ? ExitStatus::Done : ExitStatus::PartlyDone;
    }

    const Request& request_;
    Console& console_;
    Batches& batches_;
};

} // namespace

ExitStatus run_program(const std::vector<std::string>& words, Console& console, Batches batches)
{
    try {
        const Request request = parse_command_line(words);
        switch (request.kind) {
        case Request::Kind::Help: console.write(help_text(request.command)); return ExitStatus::Done;
        case Request::Kind::Version:
            console.write(std::string(program_name) + " " + std::string(program_version) + "\n");
            return ExitStatus::Done;
        case Request::Kind::Command: break;
        }
        return Program(request, console, batches).run();
    } catch (const Failure& failure) {
        console.write_error("multirename: " + printable_lines(failure.what()) + "\n");
        return failure.status;
    }
}

} // namespace multirename
