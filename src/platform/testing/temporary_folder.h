#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace multirename {

/// A new folder for files of a test, gone at the end with all that it holds by then. Everybody may enter it.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        namespace fs = std::filesystem;
        std::random_device random;
        path_ = fs::canonical(fs::temp_directory_path()).make_preferred() /
            ("multirename_test_" + std::to_string(random()) + std::to_string(random()));
        fs::create_directory(path_);
        fs::permissions(path_, fs::perms::group_exec | fs::perms::others_exec, fs::perm_options::add);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        namespace fs = std::filesystem;
        std::error_code error;
        for (fs::recursive_directory_iterator entry(path_, error), end; !error && entry != end;
             entry.increment(error)) {
            std::error_code ignored;
            if (!entry->is_symlink(ignored))
                fs::permissions(entry->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
        }
        fs::remove_all(path_, error);
    }

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return path_; }

    void write(const std::string& name, std::string_view content) const
    {
        std::ofstream(path_ / name, std::ios::binary) << content;
    }

    [[nodiscard]] std::string content(const std::string& name) const
    {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The names in the folder, in order.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> all;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            all.push_back(entry.path().filename().string());
        std::sort(all.begin(), all.end());
        return all;
    }

private:
    std::filesystem::path path_;
};

/// The working directory, put back at the end.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::filesystem::path& path) { std::filesystem::current_path(path); }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;
    ~WorkingDirectory()
    {
        std::error_code error;
        std::filesystem::current_path(before_, error);
    }

private:
    std::filesystem::path before_ = std::filesystem::current_path();
};

} // namespace multirename
