#include "platform/rename_obstacles.h"

#include "platform/device_name.h"
#include "platform/windows/full_path.h"
#include "text/wtf8.h"

namespace multirename {

std::optional<std::string> RenameObstacles::find(std::string_view folder, std::string_view, std::string_view new_name,
                                                 bool)
{
    const std::u16string name = from_wtf8(new_name);
    if (is_device_name(name))
        return "Windows keeps this name for a device";
    const std::size_t length = from_wtf8(folder).size() + name.size();
    if (length < first_too_long_path)
        return std::nullopt;
    return "the path with the new name has " + std::to_string(length) + " characters, and Windows takes at most " +
        std::to_string(first_too_long_path - 1);
}

} // namespace multirename
