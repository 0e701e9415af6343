#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "cli/name_border.h"
#include "fileset/file_set.h"
#include "run/rename_run.h"

namespace multirename {

/// Why the system will not give an entry its new name, or did not, in words.
using Reasons = std::unordered_map<const Filename*, std::string>;

/// What there is to print about a run's files. Refers to all of it.
struct FilesReport {
    const RenameRun& run;
    const ProblemCounts& problems;
    const NameBorder& border;
    bool are_names_only = false;
    const Reasons& reasons;
    std::optional<std::size_t> renamed; ///< how many were; nothing when nothing was tried
    std::optional<std::string> batch; ///< what undo takes
};

/// The folder of an entry as it is printed: nothing for names that no disk holds.
[[nodiscard]] std::u16string shown_folder(const FilesReport& report, const Filename& entry);

/// The same in the form that an output gives it, made once for entries of one folder in a row.
class ShownFolder {
public:
    using Form = std::function<std::string(std::u16string_view)>;
    ShownFolder(const FilesReport& report, Form form) : report_(report), form_(std::move(form)) { }

    /// Holds until the next call.
    [[nodiscard]] const std::string& of(const Filename& entry);

private:
    const FilesReport& report_;
    Form form_;
    const RenameFolder* folder_ = nullptr;
    std::string shown_;
};

/// How many rows stand how: what the line below a table counts.
struct RowCounts {
    std::size_t to_rename = 0;
    std::size_t unchanged = 0;
    std::size_t not_covered = 0;
    std::size_t with_problem = 0; ///< of the names, or for the system
};
[[nodiscard]] RowCounts count_rows(const FilesReport& report);

/// Whether the row stands in the way of a rename, or was left behind by it.
[[nodiscard]] bool has_problem(const FilesReport& report, std::size_t row);

/// "text", "number" or "wild".
[[nodiscard]] std::string_view kind_word(NamePartKind kind);

} // namespace multirename
