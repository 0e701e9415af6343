#include "win32/dialog/dialog_placement.h"

#include "platform/user_values.h"
#include "run/dialog_size.h"
#include "win32/framework/handles.h"

namespace multirename {

// In the dialog's client coordinates.
Area DialogPlacement::area_of(HWND control) const noexcept
{
    RECT area = CWnd(control).window_area();
    MapWindowPoints(nullptr, dialog_.handle(), reinterpret_cast<POINT*>(&area), 2);
    return {static_cast<int>(area.left), static_cast<int>(area.top), static_cast<int>(area.right),
            static_cast<int>(area.bottom)};
}

void DialogPlacement::shift(WORD id, int down, bool keeps_height) const
{
    const Area area = area_of(dialog_.item(id));
    const int height = keeps_height ? area.height() : area.height() - down;
    CWnd(dialog_.item(id)).move(area.left, area.top + down, area.width(), height);
}

void DialogPlacement::add(WORD id, HorizontalAnchor horizontal, VerticalAnchor vertical, int dpi)
{
    const HWND control = dialog_.item(id);
    if (control == nullptr)
        return;
    ids_.push_back(id);
    anchors_.push_back(anchor_control(horizontal, vertical, area_of(control), area_of(dialog_.handle()), dpi));
}

void DialogPlacement::apply(SIZE client, int dpi) const
{
    std::vector<Area> before;
    for (const WORD id : ids_)
        before.push_back(area_of(dialog_.item(id)));
    const std::vector<Area> after =
        anchored_places(anchors_, before, static_cast<int>(client.cx), static_cast<int>(client.cy), dpi);
    bool any_moved = false;
    for (std::size_t i = 0; i < ids_.size(); ++i) {
        const Area& place = after[i];
        if (place == before[i])
            continue;
        any_moved = true;
        SetWindowPos(dialog_.item(ids_[i]), nullptr, place.left, place.top, place.width(), place.height(),
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW);
    }
    // The dialog leaves its controls out when it paints, so they are told one by one.
    if (any_moved)
        RedrawWindow(dialog_.handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void DialogPlacement::restore_size(int dpi) const
{
    const Registry settings(system_user_values(), product_);
    const std::optional<DialogSize> size = remembered_size(settings, dpi);
    if (!size)
        return;
    SetWindowPos(dialog_.handle(), nullptr, 0, 0, size->width, size->height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogPlacement::save_size(int dpi) const
{
    const RECT area = dialog_.window_area();
    Registry settings(system_user_values(), product_);
    remember_size(settings, {static_cast<int>(area.right - area.left), static_cast<int>(area.bottom - area.top)}, dpi);
}

} // namespace multirename
