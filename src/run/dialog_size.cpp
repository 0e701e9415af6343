#include "run/dialog_size.h"

#include <cstdint>
#include <string_view>

#include "run/dpi.h"

namespace multirename {

namespace {

constexpr std::u16string_view width_value = u"MultiRenameDlgWidth";
constexpr std::u16string_view height_value = u"MultiRenameDlgHeight";

// Enough for any screen; what lies beyond was not written by us and would overflow.
constexpr std::uint32_t longest_length = 100'000;

} // namespace

std::optional<DialogSize> remembered_size(const Registry& settings, int dpi)
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    if (!settings.read(width_value, width) || !settings.read(height_value, height))
        return std::nullopt;
    if (width == 0 || height == 0 || width > longest_length || height > longest_length)
        return std::nullopt;
    return DialogSize{scaled(static_cast<int>(width), dpi), scaled(static_cast<int>(height), dpi)};
}

void remember_size(Registry& settings, DialogSize size, int dpi)
{
    settings.write(width_value, static_cast<std::uint32_t>(unscaled(size.width, dpi)));
    settings.write(height_value, static_cast<std::uint32_t>(unscaled(size.height, dpi)));
}

} // namespace multirename
