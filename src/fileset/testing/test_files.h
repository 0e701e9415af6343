#pragma once

#include <algorithm>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fileset/file_set.h"
#include "platform/testing/fake_disk.h"

namespace multirename {

inline constexpr std::u16string_view test_folder = u"C:\\T\\";

/// A file set over a disk in memory. A path without "\" is a name in `test_folder`; one that ends in "\" is a folder.
class TestFiles {
public:
    FakeDisk disk;
    FileSet files{disk};

    /// `listed` are the host's paths in their order, `beside` the further entries that exist.
    explicit TestFiles(const std::vector<std::u16string>& listed, const std::vector<std::u16string>& beside = {},
                       bool tells_case_apart = false)
    {
        disk.tells_case_apart = tells_case_apart;
        std::vector<std::u16string> paths;
        paths.reserve(listed.size());
        for (const std::u16string& path : listed)
            paths.push_back(put_on_disk(path));
        for (const std::u16string& path : beside)
            put_on_disk(path);
        files.add_paths(paths);
    }

    [[nodiscard]] Filename& entry(std::u16string_view name, std::u16string_view folder = test_folder)
    {
        const auto found = files.find_or_add_folder(folder)->find(name);
        if (found == nullptr)
            throw std::logic_error("A test asks for an entry that it did not make");
        return *found;
    }

private:
    std::u16string put_on_disk(std::u16string path)
    {
        const bool is_folder = path.ends_with(u'\\');
        if (is_folder)
            path.pop_back();
        const std::size_t name_start = path.rfind(u'\\') + 1;
        const std::u16string folder(name_start == 0 ? test_folder : std::u16string_view(path).substr(0, name_start));
        const std::u16string name = path.substr(name_start);
        const auto has_name = [&name](const DirectoryEntry& entry) { return entry.name == name; };
        if (!std::ranges::any_of(disk.folders[folder], has_name))
            disk.add(folder, name).is_folder = is_folder;
        return folder + name;
    }
};

} // namespace multirename
