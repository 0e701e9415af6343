// The way of a command: files -> run -> edits -> what the run says of it -> rename, if it is one -> text. Whatever goes
// wrong on the way before the rename is a Failure, which ends it with nothing renamed.

#include "cli/file_commands.h"

#include <utility>

#include "cli/batch_rename.h"
#include "cli/edit_names.h"
#include "cli/edits.h"
#include "cli/json_output.h"
#include "cli/printable.h"
#include "cli/printer.h"
#include "cli/selection.h"
#include "cli/table_output.h"
#include "cli/tsv_output.h"
#include "platform/native_text.h"
#include "platform/rename_obstacles.h"
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

class FileCommand {
public:
    FileCommand(const Request& request, Console& console, Batches& batches) :
        request_(request), console_(console), batches_(batches), printer_(request, console)
    {
    }

    ExitStatus pattern()
    {
        Session session(request_, console_);
        note_options_without_effect(session.run);
        const NameBorder& border = session.selected.border();
        switch (printer_.format()) {
        case OutputFormat::Table: printer_.print(pattern_as_table(session.run, border)); break;
        case OutputFormat::Tsv: printer_.print(pattern_as_tsv(session.run, border)); break;
        case OutputFormat::Json: printer_.print(pattern_as_json(session.run, border)); break;
        }
        return ExitStatus::Done;
    }

    // Preview, rename and edit: the same checks, and the same text when one of them fails.
    ExitStatus rename()
    {
        Session session(request_, console_);
        prepare(session);
        const Verdict verdict = session.run.judge();
        const Reasons reasons = obstacles(session);
        const ProblemCounts problems = session.selected.files().count_problems();
        const bool is_refused = verdict.kind == Verdict::Kind::Refuse || !reasons.empty();
        if (is_refused || request_.command == CommandId::Preview)
            print_files(report(session, problems, reasons));
        if (is_refused)
            return refuse(session, verdict, reasons);
        if (request_.command == CommandId::Preview)
            return ExitStatus::Done;
        BatchRename batch(batches_, console_);
        if (verdict.kind == Verdict::Kind::Rename)
            session.run.rename(OwnerWindow::none, batch);
        else
            printer_.message(message_text(verdict.message));
        return tell_of_rename(session, problems, batch);
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

    void note_options_without_effect(const RenameRun& run)
    {
        if (request_.extensions && !run.allow_extension_changes().checked)
            printer_.note("--extensions has no effect: none of these names has an extension.");
        if (request_.numbers_as_text && !run.numbers_as_text().checked)
            printer_.note("--numbers-as-text has no effect: there is no number in which these names differ.");
    }

    void warn_of_names_that_do_not_fit(const RenameRun& run, const NameBorder& border)
    {
        std::size_t count = 0;
        for (std::size_t row = 0; row < run.row_count(); ++row) {
            const Filename& entry = run.row_entry(row);
            if (!entry.in_scope || entry.manual_name || run.fits_pattern(row))
                continue;
            if (++count <= most_warnings)
                printer_.warn("\"" + printable(border.shown(entry.name)) +
                              "\" does not fit the pattern; its new name holds only what was read of it until then.");
        }
        if (count > most_warnings)
            printer_.warn("the same is true of " + std::to_string(count - most_warnings) + " more.");
    }

    void warn_of_files_that_stay(const RenameRun& run)
    {
        std::size_t count = 0;
        for (std::size_t row = 0; row < run.row_count(); ++row)
            count += run.row_entry(row).in_scope ? 0U : 1U;
        if (count > 0)
            printer_.warn(counted(count, "file is", "files are") + " not covered by the pattern and " +
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
        const RenameFolder* folder = nullptr; // the one whose path these bytes are
        std::string path;
        std::string old_name;
        std::string new_name;
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
            if (std::exchange(folder, entry.folder) != entry.folder)
                path = native_from_path(entry.folder->path);
            native_from_name(entry.name, old_name);
            native_from_name(entry.new_name, new_name);
            // The system would cut such a name, or look for it in another folder.
            if (!is_native_name(new_name)) {
                reasons.emplace(&entry, "no file can have a name with a NUL character or a separator in it");
                continue;
            }
            auto reason = known.find(path, old_name, new_name, entry.is_folder);
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
            printer_.say(std::string(what) + " \"" + printable(shown_native_path(entry.folder->path)) +
                         printable(border.shown(entry.name)) + "\" to \"" + printable(border.shown(entry.new_name)) +
                         "\": " + reason->second + ".");
        }
    }

    void print_files(const FilesReport& report)
    {
        printer_.print([&](TextOutput& output) {
            switch (printer_.format()) {
            case OutputFormat::Table: write_files_as_table(report, printer_.table_style(), output); break;
            case OutputFormat::Tsv: write_files_as_tsv(report, output); break;
            case OutputFormat::Json: write_files_as_json(report, output); break;
            }
        });
    }

    // Edits and everything that is said before the checks.
    void prepare(Session& session)
    {
        apply_edits(session.run, request_.edits, session.selected.border());
        note_options_without_effect(session.run);
        if (request_.command == CommandId::Edit)
            edit_names(session.run, session.selected.border(), console_);
        warn_of_names_that_do_not_fit(session.run, session.selected.border());
        warn_of_files_that_stay(session.run);
    }

    [[nodiscard]] FilesReport report(const Session& session, const ProblemCounts& problems,
                                     const Reasons& reasons) const
    {
        return {session.run, problems, session.selected.border(), session.selected.are_names_only(), reasons, {}, {}};
    }

    ExitStatus refuse(const Session& session, const Verdict& verdict, const Reasons& reasons)
    {
        if (verdict.kind == Verdict::Kind::Refuse)
            printer_.message(message_text(verdict.message));
        list_reasons(session, reasons, "cannot rename");
        return ExitStatus::Refused;
    }

    ExitStatus tell_of_rename(const Session& session, const ProblemCounts& problems, const BatchRename& batch)
    {
        const bool is_whole = batch.reasons().empty();
        FilesReport told = report(session, problems, batch.reasons());
        told.renamed = batch.renamed();
        if (!batch.batch().empty())
            told.batch = batch.batch();
        if (printer_.format() != OutputFormat::Table || !is_whole)
            print_files(told);
        else if (told.batch)
            printer_.print(counted(batch.renamed(), "file", "files") + " renamed. \"multirename undo " + *told.batch +
                           "\" takes that back.\n");
        if (is_whole)
            return ExitStatus::Done;
        list_reasons(session, batch.reasons(), "could not rename");
        std::string text = batch.was_stopped() ? "Stopped: " : "";
        text += counted(batch.renamed(), "file was", "files were") + " renamed";
        if (told.batch)
            text += "; \"multirename undo " + *told.batch + "\" takes that back";
        printer_.say(text + ".");
        return ExitStatus::PartlyDone;
    }

    const Request& request_;
    Console& console_;
    Batches& batches_;
    Printer printer_;
};

} // namespace

ExitStatus run_file_command(const Request& request, Console& console, Batches& batches)
{
    FileCommand command(request, console, batches);
    return request.command == CommandId::Pattern ? command.pattern() : command.rename();
}

} // namespace multirename
