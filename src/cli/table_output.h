#pragma once

#include <string>
#include <vector>

#include "cli/report.h"
#include "cli/undo.h"

namespace multirename {

/// How a table is to look where it goes.
struct TableStyle {
    bool colours = false;
    std::size_t columns = 0; ///< of the terminal; 0 for none, so that nothing limits how wide a table is
};

[[nodiscard]] std::string pattern_as_table(const RenameRun& run, const NameBorder& border);

/// Old and new names side by side, those with a problem first, then a line that counts them.
[[nodiscard]] std::string files_as_table(const FilesReport& report, const TableStyle& style);

[[nodiscard]] std::string batches_as_table(const std::vector<BatchSummary>& batches);

// The same for scripts: a line of column names, then one line each with tabs between the fields, in the order of the
// paths. A tab, line break or backslash in a field is written \t, \n, \r or \\.

[[nodiscard]] std::string pattern_as_tsv(const RenameRun& run, const NameBorder& border);
[[nodiscard]] std::string files_as_tsv(const FilesReport& report);
[[nodiscard]] std::string batches_as_tsv(const std::vector<BatchSummary>& batches);
[[nodiscard]] std::string undo_as_tsv(const UndoReport& report);

} // namespace multirename
