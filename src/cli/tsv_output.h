#pragma once

#include <string>
#include <vector>

#include "cli/batches.h"
#include "cli/report.h"
#include "cli/text_output.h"
#include "cli/undo.h"

namespace multirename {

// For scripts: a line of column names, then one line each with tabs between the fields, in the order of the paths. A
// tab, line break or backslash in a field is written \t, \n, \r or \\, and a half of a surrogate pair \ud83d; bytes
// that are not UTF-8 stand as they are.

[[nodiscard]] std::string pattern_as_tsv(const RenameRun& run, const NameBorder& border);
void write_files_as_tsv(const FilesReport& report, TextOutput& output);
[[nodiscard]] std::string batches_as_tsv(const std::vector<BatchSummary>& batches);
[[nodiscard]] std::string undo_as_tsv(const UndoReport& report);

} // namespace multirename
