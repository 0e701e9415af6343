#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/run_program.h"
#include "support/temporary_folder.h"

namespace multirename {

/// The path of a document that the build has made, by its path below "share".
[[nodiscard]] std::string document(std::string_view path);

/// A user's home with a folder of files in it, which is the working folder of all that runs here. The build's programs
/// are in PATH, batches are written down in the home, and no settings of the tests' own user count.
class Home {
public:
    Home();
    [[nodiscard]] const TemporaryFolder& folder() const noexcept { return folder_; }
    /// Runs a program; assignments to variables may stand in front of it.
    [[nodiscard]] ProgramResult run(const std::vector<std::string>& arguments, const std::string& input = {}) const;
    /// Makes a file in the working folder.
    void write(const std::string& name) const;
    /// Renames two files of the working folder and gives the id of the batch.
    [[nodiscard]] std::string make_batch() const;

private:
    TemporaryFolder folder_;
};

} // namespace multirename
