#include "cli/tsv_output.h"

#include <initializer_list>

#include "cli/escapes.h"
#include "platform/native_text.h"

namespace multirename {

namespace {

char letter_for(char16_t unit)
{
    switch (unit) {
    case u'\t': return 't';
    case u'\n': return 'n';
    case u'\r': return 'r';
    case u'\\': return '\\';
    default: return '\0';
    }
}

// Stray bytes are themselves; a half of a pair has no bytes.
std::string field(std::u16string_view text)
{
    const auto is_special = [](char16_t unit, bool is_lone_half) {
        return unit == u'\\' || (is_lone_half && !stands_for_byte(unit));
    };
    std::string escaped;
    append_with_escapes(escaped, text, is_special, letter_for);
    return escaped;
}

std::string field(std::string_view bytes) { return field(from_bytes(bytes)); }

std::string tsv_line(std::initializer_list<std::string> fields)
{
    std::string line;
    for (const std::string& each : fields)
        line.append(&each == fields.begin() ? "" : "\t").append(each);
    return line + "\n";
}

std::string_view truth(bool value) { return value ? "true" : "false"; }

// Names and a tab behind them.
void append_name(std::string& line, std::u16string_view name, const NameBorder& border)
{
    const bool is_plain = name.find(u'\\') == std::u16string_view::npos && append_printable_ascii(line, name);
    if (!is_plain)
        line += field(border.shown(name));
    line.push_back('\t');
}

} // namespace

std::string pattern_as_tsv(const RenameRun& run, const NameBorder& border)
{
    std::string text = "part\tkind\ttext\tsmallest\n";
    for (std::size_t i = 0; i < run.pattern().parts.size(); ++i) {
        const NamePart& part = run.pattern().parts[i];
        const bool is_number = part.kind == NamePartKind::Number;
        text +=
            tsv_line({std::to_string(i + 1), std::string(kind_word(part.kind)), field(border.shown(run.part_label(i))),
                      is_number ? std::to_string(part.baseNumber) : std::string()});
    }
    return text;
}

void write_files_as_tsv(const FilesReport& report, TextOutput& output)
{
    std::string& text = output.piece();
    text += "old\tnew\tfolder\tstatus\tinScope\tmatched\n";
    ShownFolder folder(report, [](std::u16string_view shown) { return field(shown); });
    for (std::size_t row = 0; row < report.run.row_count(); ++row) {
        const Filename& entry = report.run.row_entry(row);
        append_name(text, entry.name, report.border);
        append_name(text, entry.new_name, report.border);
        text.append(folder.of(entry)).push_back('\t');
        text.append(std::to_string(static_cast<std::uint32_t>(entry.status))).push_back('\t');
        text.append(truth(entry.in_scope)).push_back('\t');
        text.append(truth(report.run.fits_pattern(row))).push_back('\n');
        output.pass_on_when_large();
    }
}

std::string batches_as_tsv(const std::vector<BatchSummary>& batches)
{
    std::string text = "batch\ttime\tnames\tfolder\n";
    for (const BatchSummary& batch : batches)
        text += tsv_line({batch.id, utc_text(batch.created), std::to_string(batch.names),
                          field(shown_native_path(path_from_native(batch.folder)))});
    return text;
}

std::string undo_as_tsv(const UndoReport& report)
{
    std::string text = "folder\told\tnew\treason\n";
    for (const LeftEntry& left : report.left)
        text += tsv_line({field(shown_native_path(path_from_native(left.entry.folder))),
                          field(shown_native_name(name_from_native(left.entry.old_name))),
                          field(shown_native_name(name_from_native(left.entry.new_name))), field(left.reason)});
    return text;
}

} // namespace multirename
