#include "cli/table_output.h"

#include <algorithm>
#include <span>

#include "cli/printable.h"
#include "platform/native_text.h"
#include "text/utf8.h"

namespace multirename {

namespace {

constexpr std::string_view red = "\x1b[31m";
constexpr std::string_view green = "\x1b[32m";
constexpr std::string_view faint = "\x1b[2m";
constexpr std::string_view alarm = "\x1b[1;31m";
constexpr std::string_view plain = "\x1b[0m";
constexpr std::size_t gap = 2; // columns between two fields
constexpr std::size_t least_name_columns = 20;

// A field of a table: what is printed, and how many columns of the terminal it takes.
struct Cell {
    std::string text;
    std::size_t columns = 0;
};

using Line = std::vector<Cell>;

std::size_t columns_of_all(std::span<const Glyph> all)
{
    std::size_t columns = 0;
    for (const Glyph& glyph : all)
        columns += glyph.columns;
    return columns;
}

std::string text_of(std::span<const Glyph> all)
{
    std::string text;
    for (const Glyph& glyph : all)
        text += glyph.bytes;
    return text;
}

Cell cell(std::u16string_view text, std::string_view colour = {})
{
    const std::vector<Glyph> all = glyphs(text);
    std::string shown = text_of(all);
    if (!colour.empty())
        shown = std::string(colour).append(shown).append(plain);
    return {std::move(shown), columns_of_all(all)};
}

Cell cell(std::string_view utf8, std::string_view colour = {}) { return cell(from_bytes(utf8), colour); }

// What the name does not have in common with the other one at both ends stands out.
Cell highlighted(std::span<const Glyph> all, std::size_t prefix, std::size_t suffix, std::string_view colour)
{
    const std::string middle = text_of(all.subspan(prefix, all.size() - prefix - suffix));
    std::string text = text_of(all.first(prefix));
    if (!middle.empty())
        text.append(colour).append(middle).append(plain);
    text.append(text_of(all.last(suffix)));
    return {std::move(text), columns_of_all(all)};
}

struct NameCells {
    Cell old_name;
    Cell new_name;
};

NameCells highlighted(std::u16string_view old_name, std::u16string_view new_name)
{
    const std::vector<Glyph> a = glyphs(old_name);
    const std::vector<Glyph> b = glyphs(new_name);
    const auto same = [](const Glyph& x, const Glyph& y) { return x.bytes == y.bytes; };
    const std::size_t shorter = std::min(a.size(), b.size());
    const auto first = std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(shorter), b.begin(), same);
    const auto prefix = static_cast<std::size_t>(first.first - a.begin());
    const auto last =
        std::mismatch(a.rbegin(), a.rbegin() + static_cast<std::ptrdiff_t>(shorter - prefix), b.rbegin(), same);
    const auto suffix = static_cast<std::size_t>(last.first - a.rbegin());
    return {highlighted(a, prefix, suffix, red), highlighted(b, prefix, suffix, green)};
}

// Lines of a table with each field as wide as the widest of its column, but no wider than `widest`: longer ones push
// what follows to the right in their own line.
std::string aligned(const std::vector<Line>& lines, std::size_t widest)
{
    std::vector<std::size_t> widths;
    for (const Line& line : lines) {
        widths.resize(std::max(widths.size(), line.size()));
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], std::min(line[i].columns, widest));
    }
    std::string text;
    for (const Line& line : lines) {
        std::size_t blanks = 0;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (line[i].columns > 0) {
                text.append(blanks, ' ').append(line[i].text);
                blanks = 0;
            }
            blanks += gap + (line[i].columns < widths[i] ? widths[i] - line[i].columns : 0);
        }
        text.push_back('\n');
    }
    return text;
}

std::string_view word_for(Status status)
{
    switch (status) {
    case Status::Pending:
    case Status::NotMade: return "waiting";
    case Status::Ready: return "rename";
    case Status::Unchanged: return "unchanged";
    case Status::SameName: return "same name twice";
    case Status::ExistingName: return "name exists";
    case Status::Empty: return "empty name";
    case Status::SpaceOrPeriod: return "space or period";
    case Status::TooLong: return "too long";
    case Status::Forbidden: return "forbidden character";
    }
    return {};
}

Cell status_cell(const FilesReport& report, std::size_t row, const TableStyle& style)
{
    const Filename& entry = report.run.row_entry(row);
    const auto reason = report.reasons.find(&entry);
    if (reason != report.reasons.end())
        return cell((report.renamed ? "not renamed: " : "cannot be renamed: ") + reason->second,
                    style.colours ? alarm : std::string_view());
    if (!entry.in_scope)
        return cell("not covered by the pattern, stays", style.colours ? faint : std::string_view());
    if (has_problem(report, row))
        return cell(word_for(entry.status), style.colours ? alarm : std::string_view());
    if (entry.status == Status::Unchanged)
        return cell(word_for(entry.status), style.colours ? faint : std::string_view());
    return cell(report.renamed ? "renamed" : word_for(entry.status));
}

Line file_line(const FilesReport& report, std::size_t row, const TableStyle& style)
{
    const Filename& entry = report.run.row_entry(row);
    const std::u16string old_name = report.border.shown(entry.name);
    const std::u16string new_name = report.border.shown(entry.new_name);
    NameCells names{cell(old_name), cell(new_name)};
    if (style.colours && entry.in_scope && entry.status != Status::Unchanged)
        names = highlighted(old_name, new_name);
    Line line{std::move(names.old_name), std::move(names.new_name)};
    if (report.run.shows_folders())
        line.push_back(cell(shown_folder(report, entry)));
    line.push_back(status_cell(report, row, style));
    return line;
}

std::vector<std::size_t> problems_first(const FilesReport& report)
{
    std::vector<std::size_t> rows(report.run.row_count());
    for (std::size_t row = 0; row < rows.size(); ++row)
        rows[row] = row;
    std::stable_partition(rows.begin(), rows.end(), [&report](std::size_t row) { return has_problem(report, row); });
    return rows;
}

std::string count_line(const FilesReport& report)
{
    const RowCounts counts = count_rows(report);
    const std::size_t files = report.run.row_count();
    std::string line = std::to_string(files) + (files == 1 ? " file: " : " files: ") +
        std::to_string(counts.to_rename) + (report.renamed ? " renamed" : " to rename");
    const auto add = [&line](std::size_t count, std::string_view what) {
        if (count > 0)
            line.append(", ").append(std::to_string(count)).append(what);
    };
    add(counts.unchanged, " unchanged");
    add(counts.not_covered, " not covered by the pattern");
    add(counts.with_problem,
        report.renamed                 ? " not renamed"
            : counts.with_problem == 1 ? " with a problem"
                                       : " with problems");
    return line + ".\n";
}

// What a person should know of a part beside its text.
std::string remark(const NamePart& part)
{
    if (part.kind == NamePartKind::Number)
        return "from " + std::to_string(part.baseNumber) + " on";
    if (part.mustStartWithDot)
        return "the extension";
    return {};
}

} // namespace

std::string pattern_as_table(const RenameRun& run, const NameBorder& border)
{
    std::string text = "Pattern: " + printable(border.shown(run.pattern().patternText)) + "\n\n";
    std::vector<Line> lines{{cell("Part"), cell("Kind"), cell("Text"), cell("")}};
    for (std::size_t i = 0; i < run.pattern().parts.size(); ++i) {
        const NamePart& part = run.pattern().parts[i];
        lines.push_back({cell(std::to_string(i + 1)), cell(kind_word(part.kind)), cell(border.shown(run.part_label(i))),
                         cell(remark(part))});
    }
    return text + aligned(lines, SIZE_MAX);
}

std::string files_as_table(const FilesReport& report, const TableStyle& style)
{
    constexpr std::size_t status_columns = 20;
    std::size_t widest = SIZE_MAX;
    if (style.columns > 0)
        widest = std::max(least_name_columns, (style.columns - std::min(style.columns, status_columns)) / 2 - gap);
    std::vector<Line> lines;
    Line head{cell("Old name"), cell("New name")};
    if (report.run.shows_folders())
        head.push_back(cell("Folder"));
    head.push_back(cell("Status"));
    lines.push_back(std::move(head));
    for (const std::size_t row : problems_first(report))
        lines.push_back(file_line(report, row, style));
    return aligned(lines, widest) + "\n" + count_line(report);
}

std::string batches_as_table(const std::vector<BatchSummary>& batches)
{
    std::vector<Line> lines{{cell("Batch"), cell("When"), cell("Names"), cell("Folder")}};
    for (const BatchSummary& batch : batches)
        lines.push_back({cell(batch.id), cell(local_text(batch.created)), cell(std::to_string(batch.names)),
                         cell(shown_native_path(path_from_native(batch.folder)))});
    return aligned(lines, SIZE_MAX);
}

} // namespace multirename
