#pragma once

#include <string>

#include "cli/report.h"
#include "cli/text_output.h"
#include "cli/undo.h"

namespace multirename {

// Every text is one JSON object in UTF-8 and a line end. A code unit that is half of a surrogate pair, or stands for a
// byte that is not UTF-8, is written as its escape.

[[nodiscard]] std::string pattern_as_json(const RenameRun& run, const NameBorder& border);
void write_files_as_json(const FilesReport& report, TextOutput& output);
[[nodiscard]] std::string batches_as_json(const std::vector<BatchSummary>& batches);
[[nodiscard]] std::string undo_as_json(const UndoReport& report);

} // namespace multirename
