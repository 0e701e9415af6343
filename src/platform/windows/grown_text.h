#pragma once

#include <windows.h>

#include <string>

namespace multirename {

/// The text that `call(buffer, size)` gives, of any length, where the call follows the custom of Windows: it returns
/// the length of the text without the zero behind it, or the size that it needs when the buffer is too small. Empty
/// when it fails; GetLastError() tells why.
template <class Call>
[[nodiscard]] std::wstring grown_text(Call call)
{
    std::wstring text(MAX_PATH, L'\0');
    while (true) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(length);
        if (fits)
            return text;
    }
}

} // namespace multirename
