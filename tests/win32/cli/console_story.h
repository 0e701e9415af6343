#pragma once

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "cli/console_program.h"
#include "support/temp_folder.h"

/// A user at a prompt in a folder of the test's own. What a test has renamed it takes back, or forgets with its folder.
class ConsoleStory : public testing::Test {
protected:
    ConsoleResult run(const std::vector<std::u16string>& words, const std::string& input = {}) const
    {
        return run_console_program({words, folder.path(), input, {}, {}});
    }

    /// Has the user edit the names of these files in an editor that is a batch file; %1 is the file of the names.
    [[nodiscard]] ConsoleResult edit(std::vector<std::u16string> files, const std::string& script) const
    {
        const std::u16string editor = folder.write_file(u"editor.cmd", script);
        files.insert(files.begin(), u"edit");
        return run_console_program({std::move(files), folder.path(), {}, {{u"EDITOR", editor}}, {}});
    }

    TempFolder folder;
};

/// Exit statuses, by what they say.
inline constexpr unsigned done = 0;
inline constexpr unsigned refused = 1;
inline constexpr unsigned wrong_command_line = 2;
inline constexpr unsigned partly_done = 3;
