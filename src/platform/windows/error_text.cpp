#include "platform/error_text.h"

#include <windows.h>

#include <array>
#include <string_view>

#include "platform/windows/wide.h"
#include "text/wtf8.h"

namespace multirename {

namespace {

// The library's own message is in the code page of the system, in which not every language can be printed.
std::string system_words(DWORD code)
{
    std::array<wchar_t, 1024> buffer{};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                       nullptr, code, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    return to_wtf8(from_wide({buffer.data(), length}));
}

} // namespace

std::string error_text(const std::error_code& error)
{
    std::string text =
        error.category() == std::system_category() ? system_words(static_cast<DWORD>(error.value())) : error.message();
    while (!text.empty() && std::string_view(" .\r\n").find(text.back()) != std::string_view::npos)
        text.pop_back();
    return text.empty() ? "error " + std::to_string(error.value()) : text;
}

} // namespace multirename
