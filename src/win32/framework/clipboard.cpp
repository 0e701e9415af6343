#include "win32/framework/clipboard.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/wide.h"
#include "win32/framework/handles.h"

namespace multirename {

namespace {

/// A view of a global memory block while it is locked.
class LockedBlock {
public:
    explicit LockedBlock(HGLOBAL block) noexcept : block_(block), text_(static_cast<wchar_t*>(GlobalLock(block))) { }
    LockedBlock(const LockedBlock&) = delete;
    LockedBlock& operator=(const LockedBlock&) = delete;
    ~LockedBlock()
    {
        if (text_ != nullptr)
            GlobalUnlock(block_);
    }
    [[nodiscard]] wchar_t* begin() const noexcept { return text_; }
    [[nodiscard]] wchar_t* end() const noexcept { return text_ + GlobalSize(block_) / sizeof(wchar_t); }

private:
    HGLOBAL block_;
    wchar_t* text_;
};

} // namespace

Clipboard::Clipboard() noexcept : is_open_(OpenClipboard(nullptr) != FALSE) { }

Clipboard::~Clipboard()
{
    if (is_open_)
        CloseClipboard();
}

std::optional<std::u16string> Clipboard::text() const
{
    const HANDLE block = is_open_ ? GetClipboardData(CF_UNICODETEXT) : nullptr;
    if (block == nullptr)
        return std::nullopt;
    const LockedBlock locked(block);
    if (locked.begin() == nullptr)
        return std::nullopt;
    const wchar_t* const text_end = std::find(locked.begin(), locked.end(), L'\0');
    return from_wide({locked.begin(), static_cast<std::size_t>(text_end - locked.begin())});
}

bool Clipboard::set_text(std::u16string_view text) noexcept
{
    if (!is_open_)
        return false;
    EmptyClipboard();
    if (text.empty())
        return false;
    UniqueGlobal block(GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, (text.size() + 1) * sizeof(wchar_t)));
    if (!block)
        return false;
    {
        const LockedBlock locked(block.get());
        if (locked.begin() == nullptr)
            return false;
        std::copy(text.begin(), text.end(), locked.begin());
    }
    if (SetClipboardData(CF_UNICODETEXT, block.get()) == nullptr)
        return false;
    static_cast<void>(block.release()); // the clipboard's from now on
    return true;
}

} // namespace multirename
