#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <span>
#include <type_traits>

namespace multirename {

/// A message as a handler sees it. Its parameter is the event it takes, made from the message's two words, so it cannot
/// be bound to another message. `c` is the notification code of WM_COMMAND and WM_NOTIFY.
template <UINT m, UINT c = 0>
struct Event {
    static constexpr UINT message = m;
    static constexpr UINT code = c;
};

template <UINT c>
struct CommandEvent : Event<WM_COMMAND, c> {
    HWND control; ///< the sender
    CommandEvent(WPARAM, LPARAM l) : control(reinterpret_cast<HWND>(l)) { }
};
struct Clicked : CommandEvent<BN_CLICKED> {
    using CommandEvent::CommandEvent;
};
struct EditChanged : CommandEvent<EN_CHANGE> {
    using CommandEvent::CommandEvent;
};
struct EditFocused : CommandEvent<EN_SETFOCUS> {
    using CommandEvent::CommandEvent;
};
struct SelectionChanged : CommandEvent<CBN_SELCHANGE> {
    using CommandEvent::CommandEvent;
};

/// A WM_NOTIFY event; `details` is what the control sent along and may be written to, until the handler returns.
template <UINT c, class Details>
struct NotifyEvent : Event<WM_NOTIFY, c> {
    Details& details;
    NotifyEvent(WPARAM, LPARAM l) : details(*reinterpret_cast<Details*>(l)) { }
};
struct ListItemWanted : NotifyEvent<LVN_GETDISPINFOW, NMLVDISPINFOW> {
    using NotifyEvent::NotifyEvent;
};
struct ListCustomDraw : NotifyEvent<NM_CUSTOMDRAW, NMLVCUSTOMDRAW> {
    using NotifyEvent::NotifyEvent;
};

/// A command of a menu.
struct Chosen : Event<WM_COMMAND> {
    Chosen(WPARAM, LPARAM) { }
};

struct Resized : Event<WM_SIZE> {
    SIZE client; ///< pixels
    bool is_minimised;
    Resized(WPARAM w, LPARAM l) : client{LOWORD(l), HIWORD(l)}, is_minimised(w == SIZE_MINIMIZED) { }
};
struct Sizing : Event<WM_SIZING> {
    UINT edge; ///< one of WMSZ_
    RECT& area; ///< the outer rectangle; may be changed
    Sizing(WPARAM w, LPARAM l) : edge(static_cast<UINT>(w)), area(*reinterpret_cast<RECT*>(l)) { }
};
struct HitTested : Event<WM_NCHITTEST> {
    HitTested(WPARAM, LPARAM) { }
};
struct FramePressed : Event<WM_NCLBUTTONDOWN> {
    WPARAM place; ///< one of HT
    LPARAM point;
    FramePressed(WPARAM w, LPARAM l) : place(w), point(l) { }
};

/// A right click, or the keyboard's key for it.
struct MenuWanted : Event<WM_CONTEXTMENU> {
    HWND window; ///< where it was
    POINT at; ///< on the screen; (-1, -1) from the keyboard
    MenuWanted(WPARAM w, LPARAM l) :
        window(reinterpret_cast<HWND>(w)), at{static_cast<short>(LOWORD(l)), static_cast<short>(HIWORD(l))}
    {
    }
    [[nodiscard]] bool is_from_keyboard() const noexcept { return at.x == -1 && at.y == -1; }
};
struct Destroyed : Event<WM_DESTROY> {
    Destroyed(WPARAM, LPARAM) { }
};

/// One line of a message map. Ids `first_id` to `last_id` are those of the controls; 0 stands for the window itself.
template <class W>
struct Route {
    UINT message;
    UINT code;
    WORD first_id;
    WORD last_id;
    LRESULT (*call)(W&, WPARAM, LPARAM);
};

template <auto handler, class W, class R, class E>
consteval Route<W> route(R (W::*)(E), WORD first_id, WORD last_id)
{
    static_assert(std::is_void_v<R> || std::is_same_v<R, LRESULT>, "a handler gives nothing or the message's result");
    return {E::message, E::code, first_id, last_id, [](W& window, WPARAM w, LPARAM l) -> LRESULT {
                if constexpr (std::is_void_v<R>) {
                    (window.*handler)(E(w, l));
                    return 0;
                } else {
                    return (window.*handler)(E(w, l));
                }
            }};
}

/// A line of a message map: `handler` gets the event it takes, from control `id` or, with 0, from the window itself.
template <auto handler>
consteval auto on(WORD id = 0)
{
    return route<handler>(handler, id, id);
}

/// The same for a run of controls with consecutive ids.
template <auto handler>
consteval auto on_range(WORD first_id, WORD last_id)
{
    return route<handler>(handler, first_id, last_id);
}

/// Runs the first line that fits and gives the message's result; nothing when none fits and the system's default is
/// wanted.
template <class W>
std::optional<LRESULT> dispatch(std::type_identity_t<std::span<const Route<W>>> map, W& window, UINT message, WPARAM w,
                                LPARAM l)
{
    UINT code = 0;
    WORD id = 0;
    if (message == WM_COMMAND) {
        code = HIWORD(w);
        id = LOWORD(w);
    } else if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(l);
        code = header.code;
        id = LOWORD(header.idFrom);
    }
    for (const Route<W>& r : map) {
        if (r.message == message && r.code == code && r.first_id <= id && id <= r.last_id)
            return r.call(window, w, l);
    }
    return std::nullopt;
}

} // namespace multirename
