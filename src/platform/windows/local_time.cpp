#include "platform/local_time.h"

#include <windows.h>

#include <array>
#include <cwchar>

#include "platform/time_code.h"
#include "platform/windows/wide.h"

namespace multirename {

std::optional<std::tm> local_time(FileTime moment)
{
    const FILETIME file_time{static_cast<DWORD>(moment), static_cast<DWORD>(moment >> 32)};
    SYSTEMTIME universal{};
    SYSTEMTIME local{};
    if (!FileTimeToSystemTime(&file_time, &universal) || !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local))
        return std::nullopt;
    std::tm time{};
    time.tm_year = local.wYear - 1900;
    time.tm_mon = local.wMonth - 1;
    time.tm_mday = local.wDay;
    time.tm_wday = local.wDayOfWeek;
    time.tm_hour = local.wHour;
    time.tm_min = local.wMinute;
    time.tm_sec = local.wSecond;
    time.tm_isdst = -1;
    return time;
}

std::u16string time_code_text(const std::tm& time, char code, bool without_zeros)
{
    std::wstring format = without_zeros ? L"%#" : L"%";
    format.push_back(static_cast<wchar_t>(code));
    std::array<wchar_t, 101> buffer{};
    const std::size_t length = std::wcsftime(buffer.data(), buffer.size(), format.c_str(), &time);
    return from_wide({buffer.data(), length});
}

} // namespace multirename
