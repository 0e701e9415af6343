#pragma once

#include <string>
#include <vector>

#include "cli/batches.h"
#include "cli/report.h"
#include "cli/text_output.h"

namespace multirename {

/// How a table is to look where it goes.
struct TableStyle {
    bool colours = false;
    std::size_t columns = 0; ///< of the terminal; 0 for none, so that nothing limits how wide a table is
};

[[nodiscard]] std::string pattern_as_table(const RenameRun& run, const NameBorder& border);

/// Old and new names side by side, those with a problem first, then a line that counts them.
void write_files_as_table(const FilesReport& report, const TableStyle& style, TextOutput& output);

[[nodiscard]] std::string batches_as_table(const std::vector<BatchSummary>& batches);

} // namespace multirename
