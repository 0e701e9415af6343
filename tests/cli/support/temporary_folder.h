#pragma once

#include <string>
#include <string_view>

namespace multirename {

/// A folder of a test's own under $TMPDIR, or /tmp without one, removed with all that is in it, whatever the modes of
/// what is in it have become and whether or not the test acts as another user by then.
///
/// Names are bytes: any but '/' and NUL. Relative paths may have folders in front, and those that are missing are made.
/// Every user may look into the folder, so that programs can be run in it as another user; only the test's own writes.
/// All members but the destructor throw std::system_error.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] const std::string& path() const noexcept { return path_; } ///< absolute, without a '/' at its end
    [[nodiscard]] std::string path_of(std::string_view relative_path) const;

    /// Makes a file that holds `content`, or gives that content to the file that is there. Gives the absolute path.
    std::string write(std::string_view relative_path, std::string_view content) const;
    /// Makes a folder, unless it is there. Gives the absolute path.
    std::string make_folder(std::string_view relative_path) const;
    /// Makes a symbolic link with `target` as its text. Gives the absolute path of the link.
    std::string make_link(std::string_view relative_path, std::string_view target) const;

private:
    std::string path_;
};

} // namespace multirename
