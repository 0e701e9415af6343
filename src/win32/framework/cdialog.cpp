// The modal loop is the system's own. Its messages are seen first through a message-filter hook of the thread, which
// finds the dialog that a message belongs to by the dialog procedure among the window's ancestors.

#include "win32/framework/cdialog.h"

#include <cassert>
#include <system_error>
#include <utility>

#include "platform/windows/wide.h"
#include "win32/framework/handles.h"
#include "win32/framework/module.h"

namespace multirename {

void DataExchange::control(WORD id, CWnd& member) const noexcept
{
    assert(dialog_.item(id) != nullptr);
    member.attach(dialog_.item(id));
}

void DataExchange::hooked_control(WORD id, CWnd& member) const noexcept
{
    assert(dialog_.item(id) != nullptr);
    member.hook(dialog_.item(id), dialog_);
}

INT_PTR CDialog::DoModal()
{
    was_made_ = false;
    UniqueHook filter(SetWindowsHookExW(WH_MSGFILTER, &message_filter, nullptr, GetCurrentThreadId()));
    const HWND owner = parent_ != nullptr ? parent_->handle() : nullptr;
    const INT_PTR result = DialogBoxParamW(module_instance(), MAKEINTRESOURCEW(template_id_), owner, &dialog_procedure,
                                           reinterpret_cast<LPARAM>(this));
    const DWORD error = GetLastError();
    filter = UniqueHook();
    if (failure_ != nullptr)
        std::rethrow_exception(std::exchange(failure_, nullptr));
    if (!was_made_)
        throw std::system_error(static_cast<int>(error), std::system_category());
    return result > 0 ? result : IDCANCEL;
}

void CDialog::fail(std::exception_ptr failure) noexcept
{
    if (failure_ == nullptr)
        failure_ = std::move(failure);
    end(IDCANCEL);
}

void CDialog::end(INT_PTR result) noexcept
{
    EndMenu(); // a menu that is open would keep the dialog waiting, out of sight
    EndDialog(handle(), result);
}

void CDialog::leave_disabled_focus() const noexcept
{
    const HWND focused = GetFocus();
    if (IsChild(handle(), focused) == FALSE || IsWindowEnabled(focused) == FALSE)
        send(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(item(IDOK)), TRUE);
}

int CDialog::message_box(std::u16string_view text, std::u16string_view caption, UINT flags) const
{
    return MessageBoxW(handle(), to_wide(text).c_str(), to_wide(caption).c_str(), flags);
}

bool CDialog::initialise(HWND window)
{
    was_made_ = true;
    attach(window);
    DoDataExchange(DataExchange(*this));
    return OnInitDialog();
}

// True when the message was handled.
bool CDialog::handle_message(UINT message, WPARAM w, LPARAM l)
{
    const HWND window = handle();
    if (const std::optional<LRESULT> result = on_message(message, w, l)) {
        SetWindowLongPtrW(window, DWLP_MSGRESULT, *result);
        return true;
    }
    if (message != WM_COMMAND || HIWORD(w) != BN_CLICKED)
        return false;
    switch (LOWORD(w)) {
    case IDOK: OnOK(); return true;
    case IDCANCEL: OnCancel(); return true;
    default: return false;
    }
}

INT_PTR CALLBACK CDialog::dialog_procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept
{
    if (message == WM_INITDIALOG)
        SetWindowLongPtrW(window, DWLP_USER, l);
    auto* const self = reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (self == nullptr)
        return FALSE;
    if (message == WM_DESTROY)
        EndMenu();
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(window, DWLP_USER, 0);
        self->attach(nullptr);
        return FALSE;
    }
    if (self->failure_ != nullptr)
        return FALSE;
    try {
        const bool answer = message == WM_INITDIALOG ? self->initialise(window) : self->handle_message(message, w, l);
        return answer ? TRUE : FALSE;
    } catch (...) {
        self->fail(std::current_exception());
        return FALSE;
    }
}

CDialog* CDialog::containing(HWND window) noexcept
{
    for (; window != nullptr; window = GetAncestor(window, GA_PARENT)) {
        if (GetWindowLongPtrW(window, DWLP_DLGPROC) == reinterpret_cast<LONG_PTR>(&dialog_procedure))
            return reinterpret_cast<CDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    }
    return nullptr;
}

LRESULT CALLBACK CDialog::message_filter(int code, WPARAM w, LPARAM l) noexcept
{
    if (code == MSGF_DIALOGBOX) {
        const auto& message = *reinterpret_cast<const MSG*>(l);
        CDialog* const dialog = containing(message.hwnd);
        if (dialog != nullptr && dialog->failure_ == nullptr) {
            try {
                dialog->PreTranslateMessage(message);
            } catch (...) {
                dialog->fail(std::current_exception());
            }
        }
    }
    return CallNextHookEx(nullptr, code, w, l);
}

} // namespace multirename
