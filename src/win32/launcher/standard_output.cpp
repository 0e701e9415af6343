#include "win32/launcher/standard_output.h"

#include <windows.h>

#include <string>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "text/utf8.h"

namespace multirename {

namespace {

// A program with windows gets no console of its own, not even that of the prompt where it was typed.
class BorrowedConsole {
public:
    BorrowedConsole() noexcept : is_attached_(AttachConsole(ATTACH_PARENT_PROCESS) != FALSE) { }
    BorrowedConsole(const BorrowedConsole&) = delete;
    BorrowedConsole& operator=(const BorrowedConsole&) = delete;
    ~BorrowedConsole()
    {
        if (is_attached_)
            FreeConsole();
    }

private:
    bool is_attached_;
};

std::u16string with_windows_line_ends(std::u16string_view text)
{
    std::u16string lines;
    for (const char16_t unit : text) {
        if (unit == u'\n')
            lines.push_back(u'\r');
        lines.push_back(unit);
    }
    return lines;
}

bool write(HANDLE output, std::u16string_view text)
{
    if (output == nullptr || output == INVALID_HANDLE_VALUE)
        return false;
    const std::u16string lines = with_windows_line_ends(text);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(output, &mode) != FALSE) {
        const std::wstring wide = to_wide(lines);
        return WriteConsoleW(output, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr) != FALSE;
    }
    const std::string bytes = to_bytes(lines);
    return WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != FALSE;
}

} // namespace

bool print(std::u16string_view text)
{
    if (write(GetStdHandle(STD_OUTPUT_HANDLE), text))
        return true;
    const BorrowedConsole console;
    const UniqueFile screen(CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                        nullptr, OPEN_EXISTING, 0, nullptr));
    return write(screen.get(), text);
}

} // namespace multirename
