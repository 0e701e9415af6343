#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace multirename {

/// What Windows says about an error code or an HRESULT, in the user's language, without a line end; the bare number
/// when it has no words for it. Where the text leaves room for a name, `subject` is put.
[[nodiscard]] std::u16string system_text(DWORD error, std::u16string_view subject = u"This");

} // namespace multirename
