#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

namespace multirename {

/// The folder in which this user's programs keep what they must remember from run to run, with a part of it for this
/// program: $XDG_STATE_HOME/multirename, or ~/.local/state/multirename when that is not set; on Windows "multirename"
/// in the local application data. It need not exist. Empty when the user has no such place.
[[nodiscard]] std::filesystem::path user_state_folder();

/// Makes the folder and those above it, for its owner alone where they are new.
[[nodiscard]] std::error_code make_private_folder(const std::filesystem::path& folder);

/// A new file for this user's eyes alone, with this content, where the system keeps what may vanish; its name ends in
/// ".txt". On an error `path` is left alone.
[[nodiscard]] std::error_code make_draft(std::string_view content, std::filesystem::path& path);

/// What the file holds now.
[[nodiscard]] std::error_code read_file(const std::filesystem::path& path, std::string& content);

/// The path in the bytes in which this system gives paths to programs, and the other way round.
[[nodiscard]] std::string native_bytes(const std::filesystem::path& path);
[[nodiscard]] std::filesystem::path path_of_native_bytes(std::string_view bytes);

} // namespace multirename
