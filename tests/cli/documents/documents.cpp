#include "documents.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/test_programs.h"

namespace multirename {

namespace {

constexpr std::string_view working_folder = "files";

} // namespace

std::string document(std::string_view path) { return build_folder() / "share" / path; }

Home::Home() { folder_.make_folder(working_folder); }

ProgramResult Home::run(const std::vector<std::string>& arguments, const std::string& input) const
{
    const char* path = std::getenv("PATH");
    // The program is looked for in the PATH that it gets, which only a program that has got it can do.
    std::vector<std::string> words{"env"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run_program(
        {.arguments = words,
         .environment = {{"HOME", folder_.path()},
                         {"LC_ALL", "C.UTF-8"},
                         {"MANWIDTH", "80"},
                         {"PATH", build_folder().string() + ":" + (path != nullptr ? path : "/usr/bin:/bin")},
                         {"TERM", "dumb"},
                         {"XDG_CONFIG_HOME", std::nullopt},
                         {"XDG_DATA_HOME", std::nullopt},
                         {"XDG_STATE_HOME", folder_.path_of("state")}},
         .input = input,
         .folder = folder_.path_of(working_folder)});
}

void Home::write(const std::string& name) const { folder_.write(std::string(working_folder) + "/" + name, ""); }

std::string Home::make_batch() const
{
    write("batch_1");
    write("batch_2");
    const ProgramResult renamed =
        run({"multirename", "rename", "batch_1", "batch_2", "--text", "1=done_", "--format", "json"});
    EXPECT_EQ(renamed.exit_status, 0) << renamed.errors;
    constexpr std::string_view key = R"("batch":")";
    const std::size_t start = renamed.output.find(key) + key.size();
    return renamed.output.substr(start, renamed.output.find('"', start) - start);
}

} // namespace multirename
