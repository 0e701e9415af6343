#include "platform/local_time.h"

#include <array>
#include <cwchar>

#include "platform/time_code.h"

namespace multirename {

std::optional<std::tm> local_time(FileTime moment)
{
    constexpr FileTime units_per_second = 10'000'000;
    constexpr std::time_t seconds_1601_to_1970 = 11'644'473'600;
    constexpr FileTime first_that_no_system_converts = FileTime{1} << 63;
    if (moment >= first_that_no_system_converts)
        return std::nullopt;
    const std::time_t seconds = static_cast<std::time_t>(moment / units_per_second) - seconds_1601_to_1970;
    std::tm time{};
    if (localtime_r(&seconds, &time) == nullptr)
        return std::nullopt;
    return time;
}

std::u16string time_code_text(const std::tm& time, char code, bool without_zeros)
{
    std::wstring format = without_zeros ? L"%-" : L"%";
    format.push_back(static_cast<wchar_t>(code));
    std::array<wchar_t, 101> buffer{};
    const std::size_t length = std::wcsftime(buffer.data(), buffer.size(), format.c_str(), &time);
    std::u16string text;
    for (std::size_t i = 0; i < length; ++i)
        text.push_back(static_cast<char16_t>(buffer[i])); // names of months and days lie below U+10000
    return text;
}

} // namespace multirename
