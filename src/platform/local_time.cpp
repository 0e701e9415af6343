#include "platform/local_time.h"

#include "platform/time_code.h"

namespace multirename {

std::u16string format_time(const std::tm& time, const std::string& format)
{
    constexpr std::size_t longest = 100;
    std::u16string text;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] != '%' || i + 1 == format.size()) {
            text.push_back(static_cast<unsigned char>(format[i]));
            continue;
        }
        const bool without_zeros = format[i + 1] == '#' && i + 2 < format.size();
        i += without_zeros ? 2 : 1;
        text += time_code_text(time, format[i], without_zeros);
    }
    if (text.size() > longest)
        text.resize(longest);
    return text;
}

} // namespace multirename
