#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace multirename {

/// A user without rights, as uid and gid. Only root can run programs as one.
constexpr unsigned nobody = 65534;

/// The folder in which the tests, and all programs of this build, lie.
inline std::filesystem::path build_folder() { return std::filesystem::read_symlink("/proc/self/exe").parent_path(); }

/// What runs `exact_calls` with these words; it lies beside the tests.
inline std::vector<std::string> exact_calls(const std::vector<std::string>& words)
{
    std::vector<std::string> arguments = {build_folder() / "cli_exact_calls"};
    arguments.insert(arguments.end(), words.begin(), words.end());
    return arguments;
}

inline std::vector<std::string> shell(const std::string& script) { return {"/bin/sh", "-c", script}; }

} // namespace multirename
