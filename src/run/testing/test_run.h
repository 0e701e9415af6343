#pragma once

#include <string>
#include <vector>

#include "fileset/testing/test_files.h"
#include "run/rename_run.h"

namespace multirename {

/// A run over a disk in memory; see TestFiles for how paths are written.
struct TestRun {
    TestFiles disk_files;
    RememberedBoxes remembered;
    RenameRun run;

    explicit TestRun(const std::vector<std::u16string>& listed, const std::vector<std::u16string>& beside = {},
                     RememberedBoxes boxes = {}) :
        disk_files(listed, beside), remembered(boxes), run(disk_files.files, remembered)
    {
    }

    [[nodiscard]] std::vector<std::u16string> new_names() const
    {
        std::vector<std::u16string> names;
        for (std::size_t row = 0; row < run.row_count(); ++row)
            names.emplace_back(run.row(row).new_name);
        return names;
    }

    [[nodiscard]] std::vector<Status> statuses() const
    {
        std::vector<Status> all;
        for (std::size_t row = 0; row < run.row_count(); ++row)
            all.push_back(run.row_entry(row).status);
        return all;
    }

    [[nodiscard]] Filename& entry(std::u16string_view name, std::u16string_view folder = test_folder)
    {
        return disk_files.entry(name, folder);
    }
};

} // namespace multirename
