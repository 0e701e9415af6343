#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace multirename {

/// The bytes of a file; none when it cannot be read.
[[nodiscard]] inline std::string content_of(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace multirename
