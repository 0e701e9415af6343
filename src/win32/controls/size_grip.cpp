#include "win32/controls/size_grip.h"

#include "run/dpi.h"

namespace multirename {

void CSizeGrip::create(CDialog& dialog)
{
    hook(create_control(dialog.handle(), {WC_SCROLLBARW, WS_CLIPSIBLINGS | SBS_SIZEGRIP, 0, 0, u""}), dialog);
}

void CSizeGrip::place(int dpi) const noexcept
{
    if (handle() == nullptr)
        return;
    const CWnd dialog(GetParent(handle()));
    const SIZE client = dialog.client_size();
    const int width = scaled(GetSystemMetrics(SM_CXVSCROLL), dpi);
    const int height = scaled(GetSystemMetrics(SM_CYHSCROLL), dpi);
    SetWindowPos(handle(), HWND_BOTTOM, static_cast<int>(client.cx) - width, static_cast<int>(client.cy) - height,
                 width, height, SWP_NOACTIVATE);
    const bool usable = IsZoomed(dialog.handle()) == FALSE;
    show(usable);
    enable(usable);
}

std::optional<LRESULT> CSizeGrip::on_message(UINT message, WPARAM w, LPARAM l)
{
    static constexpr Route<CSizeGrip> map[] = {on<&CSizeGrip::hit_tested>(), on<&CSizeGrip::pressed>()};
    return dispatch(map, *this, message, w, l);
}

// It is the dialog that the system is to resize, not the grip.
void CSizeGrip::pressed(FramePressed event)
{
    CWnd(GetParent(handle())).send(WM_NCLBUTTONDOWN, event.place, event.point);
}

} // namespace multirename
