#pragma once

#include <map>
#include <string>
#include <string_view>

/// A folder of a test's own, removed with all that is in it. Each file made here holds its first name as its contents,
/// so that a test can tell which file came to bear which name.
class TempFolder {
public:
    TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder();

    [[nodiscard]] const std::u16string& path() const noexcept { return path_; } ///< without a backslash at its end
    [[nodiscard]] std::u16string path_of(std::u16string_view name) const
    {
        return path_ + u"\\" + std::u16string(name);
    }

    /// Makes a file; `name` may have folders in front, which exist. Gives its path. Throws std::runtime_error when
    /// there is one already.
    std::u16string make_file(std::u16string_view name) const;
    /// Makes a file with just these bytes, in place of one that is there. Gives its path.
    std::u16string write_file(std::u16string_view name, std::string_view bytes) const;
    std::u16string make_folder(std::u16string_view name) const;

    /// Every file below, by its path from here on: what it holds. Folders stand with what they hold, and empty ones
    /// with "<folder>".
    [[nodiscard]] std::map<std::u16string, std::u16string> files() const;

private:
    std::u16string path_;
};

using Files = std::map<std::u16string, std::u16string>;

/// The contents of a file, as `make_file` wrote them; nothing when there is no such file.
[[nodiscard]] std::u16string contents_of(const std::u16string& path);
