#include "win32/dialog/pattern_controls.h"

#include <algorithm>

#include "run/dpi.h"
#include "win32/res/resource.h"

namespace multirename {

namespace {

constexpr UINT longest_text = 260;
constexpr WORD no_id = 0xFFFF;

void move_edit(const CEdit& edit, int x, int y, int width, int height)
{
    const TextSelection selection = edit.selection();
    edit.move(x, y, width, height);
    // Shows as much of the text as fits before the caret, whatever part of it was shown at the old width.
    edit.select({0, 0});
    edit.scroll_to_caret();
    edit.select(selection);
    edit.scroll_to_caret();
}

} // namespace

void PatternControls::clear() noexcept
{
    names_.clear();
    for (const auto& control : controls_) {
        if (control->handle() != nullptr)
            tooltips_.remove_tool(control->handle());
    }
    controls_.clear();
    labels_.clear();
    slots_.clear();
}

std::unique_ptr<CWnd> PatternControls::make_control(NamePartKind kind, std::u16string_view label, Fonts fonts) const
{
    if (kind == NamePartKind::Text) {
        auto edit = std::make_unique<Created<CEdit>>();
        edit->attach(create_control(
            dialog_.handle(),
            {WC_EDITW, WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, IDC_PART_EDIT, label}));
        edit->set_font(fonts.text);
        edit->set_limit(longest_text);
        return edit;
    }
    auto button = std::make_unique<Created<CNamePartButton>>(menus_);
    button->hook(
        create_control(dialog_.handle(), {WC_BUTTONW, WS_VISIBLE | WS_TABSTOP | BS_FLAT, 0, IDC_PART_BUTTON, label}),
        dialog_);
    button->set_font(fonts.buttons);
    tooltips_.add_tool(button->handle(), CNamePartButton::tooltip(kind));
    return button;
}

std::unique_ptr<CWnd> PatternControls::make_label(std::u16string_view text) const
{
    auto label = std::make_unique<Created<CWnd>>();
    label->attach(create_control(dialog_.handle(), {WC_STATICW, WS_VISIBLE | SS_NOPREFIX, 0, no_id, text}));
    return label;
}

void PatternControls::set_fonts(Fonts fonts) noexcept
{
    measured_font_ = fonts.text;
    for (std::size_t i = 0; i < slots_.size(); ++i)
        controls_[i]->set_font(slots_[i].kind == NamePartKind::Text ? fonts.text : fonts.buttons);
}

void PatternControls::build(const RenameRun& run, Fonts fonts, HWND after, int dpi)
{
    clear();
    ++generation_;
    measured_font_ = fonts.text;
    const CEdit* first_edit = nullptr;
    for (std::size_t part = 0; part < run.pattern().parts.size(); ++part) {
        const NamePartKind kind = run.pattern().parts[part].kind;
        slots_.push_back({kind, 0});
        controls_.push_back(make_control(kind, run.part_label(part), fonts));
        measure(run, part, dpi);
        const std::u16string description = run.part_description(part);
        labels_.push_back(make_label(description));
        names_.set(controls_.back()->handle(), description);
        for (const auto& window : {labels_.back()->handle(), controls_.back()->handle()}) {
            SetWindowPos(window, after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
            after = window;
        }
        if (first_edit == nullptr && kind == NamePartKind::Text)
            first_edit = &edit(part);
    }
    enable(run.pattern_controls_enabled());
    place(dpi);
    if (first_edit != nullptr) {
        first_edit->focus();
        first_edit->select_all();
    }
}

void PatternControls::measure(const RenameRun& run, std::size_t part, int dpi)
{
    slots_[part].text_width = unscaled(text_width(dialog_.handle(), measured_font_, run.part_label(part)), dpi);
}

void PatternControls::place(int dpi) const
{
    const int client_width = static_cast<int>(dialog_.client_size().cx);
    const std::vector<RowPlace> places = lay_out_row(slots_, client_width, dpi);
    const int top = scaled(row_top, dpi);
    const int height = scaled(row_height, dpi);
    const int edit_height = scaled(row_edit_height, dpi);
    for (std::size_t i = 0; i < places.size(); ++i) {
        if (slots_[i].kind == NamePartKind::Text)
            move_edit(edit(i), places[i].x, top + (height - edit_height) / 2, places[i].width, edit_height);
        else
            controls_[i]->move(places[i].x, top, places[i].width, height);
    }
    dialog_.repaint({0, top, client_width, top + height});
}

void PatternControls::enable(bool enabled) const noexcept
{
    for (const auto& control : controls_)
        control->enable(enabled);
}

std::optional<std::size_t> PatternControls::part_of(HWND control) const noexcept
{
    const auto found = std::ranges::find(controls_, control, [](const auto& candidate) { return candidate->handle(); });
    if (control == nullptr || found == controls_.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - controls_.begin());
}

} // namespace multirename
