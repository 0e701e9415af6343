#include "win32/launcher/system_text.h"

#include <array>

#include "platform/windows/wide.h"

namespace multirename {

namespace {

std::u16string with_subject(std::u16string text, std::u16string_view subject)
{
    constexpr std::u16string_view room = u"%1";
    const std::size_t place = text.find(room);
    if (place != std::u16string::npos)
        text.replace(place, room.size(), subject);
    return text;
}

} // namespace

std::u16string system_text(DWORD error, std::u16string_view subject)
{
    std::array<wchar_t, 512> buffer{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                        buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    std::wstring_view text(buffer.data(), length);
    while (text.ends_with(L'\n') || text.ends_with(L'\r') || text.ends_with(L' '))
        text.remove_suffix(1);
    if (!text.empty())
        return with_subject(from_wide(text), subject);
    std::array<wchar_t, 32> number{};
    wsprintfW(number.data(), L"Error 0x%08lX.", error);
    return from_wide(number.data());
}

} // namespace multirename
