#pragma once

#include <windows.h>

#include <exception>
#include <string_view>

#include "win32/framework/cwnd.h"

namespace multirename {

class CDialog;

/// Ties the controls of a dialog's template to the members that stand for them.
class DataExchange {
public:
    explicit DataExchange(CDialog& dialog) noexcept : dialog_(dialog) { }

    /// The template must have the control.
    void control(WORD id, CWnd& member) const noexcept;

    /// The same for a member that handles messages of its control.
    void hooked_control(WORD id, CWnd& member) const noexcept;

private:
    CDialog& dialog_;
};

/// A modal dialog from a template of the module.
///
/// What a handler throws, of the dialog or of a control hooked with the dialog as its sink, ends the dialog and comes
/// out of `DoModal`; no handler runs in between.
class CDialog : public CWnd, public FailureSink {
public:
    /// `parent` may be null or wrap no window; it must outlive the dialog.
    CDialog(WORD template_id, const CWnd* parent) noexcept : template_id_(template_id), parent_(parent) { }

    /// Shows the dialog and returns when it has been closed: the number that it was ended with; IDCANCEL too when its
    /// owner was destroyed. Throws std::system_error when the system cannot make it, as for a parent that is no window.
    INT_PTR DoModal();

    void fail(std::exception_ptr failure) noexcept override;

    [[nodiscard]] HWND item(WORD id) const noexcept { return GetDlgItem(handle(), id); }

protected:
    /// Binds the controls; the window exists, and `OnInitDialog` comes next.
    virtual void DoDataExchange(const DataExchange&) { }

    /// False when the handler has set the focus itself.
    virtual bool OnInitDialog() { return true; }
    virtual void OnOK() { end(IDOK); }
    virtual void OnCancel() { end(IDCANCEL); }

    /// Sees every message of the dialog's loop before it is processed.
    virtual void PreTranslateMessage(const MSG&) { }

    /// Closes the dialog as soon as the present handler returns.
    void end(INT_PTR result) noexcept;

    /// Moves the focus to the "OK" button when no control of the dialog has it, or one that takes no input: the
    /// keyboard would be dead.
    void leave_disabled_focus() const noexcept;

    /// A box on the dialog's behalf; `flags` are those of MessageBoxW. Gives the button pressed.
    int message_box(std::u16string_view text, std::u16string_view caption, UINT flags) const;

private:
    static INT_PTR CALLBACK dialog_procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
    static LRESULT CALLBACK message_filter(int code, WPARAM w, LPARAM l) noexcept;
    static CDialog* containing(HWND window) noexcept;
    bool initialise(HWND window);
    bool handle_message(UINT message, WPARAM w, LPARAM l);

    WORD template_id_;
    const CWnd* parent_;
    bool was_made_ = false;
    std::exception_ptr failure_;
};

} // namespace multirename
