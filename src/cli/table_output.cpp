#include "cli/table_output.h"

#include <algorithm>
#include <span>
#include <utility>

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
    std::string shown(colour);
    const std::size_t columns = append_printable(shown, text);
    if (!colour.empty())
        shown.append(plain);
    return {std::move(shown), columns};
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

// How wide the columns of a table are: as the widest of their fields, but no wider than `widest`; longer ones push what
// follows to the right in their own line.
class Widths {
public:
    explicit Widths(std::size_t widest) : widest_(widest) { }

    void take(std::size_t place, std::size_t columns)
    {
        if (place >= widths_.size())
            widths_.resize(place + 1);
        widths_[place] = std::max(widths_[place], std::min(columns, widest_));
    }

    [[nodiscard]] std::size_t operator[](std::size_t place) const noexcept
    {
        return place < widths_.size() ? widths_[place] : 0;
    }

private:
    std::size_t widest_;
    std::vector<std::size_t> widths_;
};

// Appends one line, field by field.
class LineWriter {
public:
    LineWriter(std::string& text, const Widths& widths) : text_(text), widths_(widths) { }

    // `append` appends a field to the text and gives its columns; one without any leaves nothing behind.
    template <class Append>
    void add(Append append)
    {
        const std::size_t start = text_.size();
        text_.append(blanks_, ' ');
        const std::size_t columns = append(text_);
        if (columns > 0)
            blanks_ = 0;
        else
            text_.resize(start);
        const std::size_t width = widths_[place_++];
        blanks_ += gap + (columns < width ? width - columns : 0);
    }

    void add(const Cell& cell)
    {
        add([&cell](std::string& text) {
            text += cell.text;
            return cell.columns;
        });
    }

    void end() { text_.push_back('\n'); }

private:
    std::string& text_;
    const Widths& widths_;
    std::size_t place_ = 0;
    std::size_t blanks_ = 0;
};

std::string aligned(const std::vector<Line>& lines)
{
    Widths widths(SIZE_MAX);
    for (const Line& line : lines) {
        for (std::size_t i = 0; i < line.size(); ++i)
            widths.take(i, line[i].columns);
    }
    std::string text;
    for (const Line& line : lines) {
        LineWriter writer(text, widths);
        for (const Cell& cell : line)
            writer.add(cell);
        writer.end();
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
    const std::string_view word = report.renamed ? "renamed" : word_for(entry.status);
    return {std::string(word), word.size()};
}

// The table of a run's files, which may have very many rows: they are gone through once to see how wide the columns
// have to be, and once more to be written.
class FilesTable {
public:
    FilesTable(const FilesReport& report, const TableStyle& style, TextOutput& output) :
        report_(report), style_(style), output_(output), widths_(widest_name(style))
    {
    }

    void write()
    {
        measure();
        write_head();
        // Rows with a problem first.
        for (const bool with_problem : {true, false}) {
            for (std::size_t row = 0; row < report_.run.row_count(); ++row) {
                if (has_problem(report_, row) == with_problem)
                    write_row(row);
            }
        }
    }

private:
    static constexpr std::u16string_view heads[] = {u"Old name", u"New name", u"Folder"};

    static std::size_t widest_name(const TableStyle& style)
    {
        constexpr std::size_t status_columns = 20;
        if (style.columns == 0)
            return SIZE_MAX;
        return std::max(least_name_columns, (style.columns - std::min(style.columns, status_columns)) / 2 - gap);
    }

    // Nothing moves aside of what is printable ASCII, which most names are.
    [[nodiscard]] std::size_t columns_of_name(std::u16string_view name) const
    {
        return is_printable_ascii(name) ? name.size() : printable_columns(report_.border.shown(name));
    }

    std::size_t append_name(std::string& text, std::u16string_view name) const
    {
        return append_printable_ascii(text, name) ? name.size() : append_printable(text, report_.border.shown(name));
    }

    // Made once for entries of one folder in a row.
    const Cell& folder_cell(const Filename& entry)
    {
        if (std::exchange(folder_, entry.folder) != entry.folder)
            folder_cell_ = cell(shown_folder(report_, entry));
        return folder_cell_;
    }

    // The status, which is the last field, needs no width.
    void measure()
    {
        for (std::size_t place = 0; place < std::size(heads); ++place)
            widths_.take(place, heads[place].size());
        for (std::size_t row = 0; row < report_.run.row_count(); ++row) {
            const Filename& entry = report_.run.row_entry(row);
            widths_.take(0, columns_of_name(entry.name));
            widths_.take(1, columns_of_name(entry.new_name));
            if (report_.run.shows_folders())
                widths_.take(2, folder_cell(entry).columns);
        }
    }

    void write_head()
    {
        LineWriter line(output_.piece(), widths_);
        for (const std::u16string_view head : std::span(heads).first(report_.run.shows_folders() ? 3 : 2))
            line.add([head](std::string& text) { return append_printable(text, head); });
        line.add(cell("Status"));
        line.end();
    }

    void write_row(std::size_t row)
    {
        const Filename& entry = report_.run.row_entry(row);
        LineWriter line(output_.piece(), widths_);
        if (style_.colours && entry.in_scope && entry.status != Status::Unchanged) {
            const NameCells names = highlighted(report_.border.shown(entry.name), report_.border.shown(entry.new_name));
            line.add(names.old_name);
            line.add(names.new_name);
        } else {
            line.add([&](std::string& text) { return append_name(text, entry.name); });
            line.add([&](std::string& text) { return append_name(text, entry.new_name); });
        }
        if (report_.run.shows_folders())
            line.add(folder_cell(entry));
        line.add(status_cell(report_, row, style_));
        line.end();
        output_.pass_on_when_large();
    }

    const FilesReport& report_;
    const TableStyle& style_;
    TextOutput& output_;
    Widths widths_;
    const RenameFolder* folder_ = nullptr;
    Cell folder_cell_;
};

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
    return text + aligned(lines);
}

void write_files_as_table(const FilesReport& report, const TableStyle& style, TextOutput& output)
{
    FilesTable(report, style, output).write();
    output.piece().append("\n").append(count_line(report));
}

std::string batches_as_table(const std::vector<BatchSummary>& batches)
{
    std::vector<Line> lines{{cell("Batch"), cell("When"), cell("Names"), cell("Folder")}};
    for (const BatchSummary& batch : batches)
        lines.push_back({cell(batch.id), cell(local_text(batch.created)), cell(std::to_string(batch.names)),
                         cell(shown_native_path(path_from_native(batch.folder)))});
    return aligned(lines);
}

} // namespace multirename
