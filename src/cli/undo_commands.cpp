#include "cli/undo_commands.h"

#include "cli/json_output.h"
#include "cli/printable.h"
#include "cli/printer.h"
#include "cli/progress_bar.h"
#include "cli/table_output.h"
#include "cli/tsv_output.h"
#include "cli/undo.h"
#include "platform/error_text.h"
#include "platform/user_folders.h"

namespace multirename {

namespace {

[[noreturn]] void refuse_batch(const std::string& id, const std::error_code& error, const Batches& batches)
{
    if (error == std::errc::no_such_file_or_directory)
        throw WrongCommandLine("There is no batch " + id +
                               R"( to take back; "multirename undo --list" shows those that there are.)");
    if (error == std::errc::device_or_resource_busy)
        throw Failure(ExitStatus::Refused, "Batch " + id + " is being worked on; wait until that has ended.");
    if (error == std::errc::bad_message)
        throw Failure(ExitStatus::PartlyDone,
                      "The journal of batch " + id +
                          " is damaged from its start on, so that nothing can be taken back from it. It has been set "
                          "aside in " +
                          native_bytes(batches.folder()) + "; the next undo takes the batch before.");
    if (error == std::errc::operation_not_permitted)
        throw Failure(ExitStatus::PartlyDone,
                      "The journal of batch " + id +
                          " is not this user's own; nothing is renamed because another user's journal says so.");
    throw Failure(ExitStatus::PartlyDone, "The journal of batch " + id + " cannot be read: " + error_text(error) + ".");
}

class UndoCommand {
public:
    UndoCommand(const Request& request, Console& console, Batches& batches) :
        request_(request), console_(console), batches_(batches), printer_(request, console)
    {
    }

    ExitStatus list_batches()
    {
        const std::vector<BatchSummary> batches = batches_.summaries();
        switch (printer_.format()) {
        case OutputFormat::Table:
            printer_.print(batches.empty() ? "There is no batch that could be taken back.\n"
                                           : batches_as_table(batches));
            break;
        case OutputFormat::Tsv: printer_.print(batches_as_tsv(batches)); break;
        case OutputFormat::Json: printer_.print(batches_as_json(batches)); break;
        }
        return ExitStatus::Done;
    }

    ExitStatus undo()
    {
        Batch batch = open_batch();
        UndoReport report;
        {
            ProgressBar progress(console_, "Taking back", batch.moves().size());
            report = take_back(batch, progress);
        }
        say_what_is_left(report);
        print(report);
        const bool is_whole = report.left.empty() && report.unknown == 0 && !report.was_stopped;
        return is_whole ? ExitStatus::Done : ExitStatus::PartlyDone;
    }

private:
    Batch open_batch() const
    {
        const std::vector<std::string> ids = batches_.ids();
        if (!request_.batch && ids.empty())
            throw Failure(ExitStatus::Refused, "There is no batch that could be taken back.");
        const std::string id = request_.batch ? *request_.batch : ids.front();
        Batch batch;
        if (const std::error_code error = batches_.open(id, batch))
            refuse_batch(id, error, batches_);
        return batch;
    }

    void say_what_is_left(const UndoReport& report)
    {
        for (const LeftEntry& left : report.left)
            printer_.say("\"" + printable(left.entry.folder + left.entry.new_name) + "\" cannot be called \"" +
                         printable(left.entry.old_name) + "\" again: " + left.reason + ".");
        if (report.unknown > 0)
            printer_.say("the journal of this batch is damaged: what became of " +
                         counted(report.unknown, "further name", "further names") + " is not known.");
        if (report.was_stopped)
            printer_.say("Stopped; \"multirename undo " + report.id + "\" goes on with it.");
    }

    void print(const UndoReport& report)
    {
        switch (printer_.format()) {
        case OutputFormat::Table:
            printer_.print("Batch " + report.id + ": " +
                           counted(report.restored, "file has its old name", "files have their old names") +
                           " again.\n");
            break;
        case OutputFormat::Tsv: printer_.print(undo_as_tsv(report)); break;
        case OutputFormat::Json: printer_.print(undo_as_json(report)); break;
        }
    }

    const Request& request_;
    Console& console_;
    Batches& batches_;
    Printer printer_;
};

} // namespace

ExitStatus run_undo_command(const Request& request, Console& console, Batches& batches)
{
    UndoCommand command(request, console, batches);
    return request.list ? command.list_batches() : command.undo();
}

} // namespace multirename
