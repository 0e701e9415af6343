#include "cli/report.h"

#include <utility>

#include "platform/native_text.h"

namespace multirename {

std::u16string shown_folder(const FilesReport& report, const Filename& entry)
{
    return report.are_names_only ? std::u16string() : shown_native_path(entry.folder->path);
}

const std::string& ShownFolder::of(const Filename& entry)
{
    if (std::exchange(folder_, entry.folder) != entry.folder)
        shown_ = form_(shown_folder(report_, entry));
    return shown_;
}

bool has_problem(const FilesReport& report, std::size_t row)
{
    const Filename& entry = report.run.row_entry(row);
    return (entry.in_scope && entry.status >= Status::SameName) ||
        (!report.reasons.empty() && report.reasons.contains(&entry));
}

RowCounts count_rows(const FilesReport& report)
{
    RowCounts counts;
    for (std::size_t row = 0; row < report.run.row_count(); ++row) {
        const Filename& entry = report.run.row_entry(row);
        if (has_problem(report, row))
            ++counts.with_problem;
        else if (!entry.in_scope)
            ++counts.not_covered;
        else if (entry.status == Status::Unchanged)
            ++counts.unchanged;
        else
            ++counts.to_rename;
    }
    return counts;
}

std::string_view kind_word(NamePartKind kind)
{
    switch (kind) {
    case NamePartKind::Text: return "text";
    case NamePartKind::Number: return "number";
    case NamePartKind::Wild: return "wild";
    }
    return {};
}

} // namespace multirename
