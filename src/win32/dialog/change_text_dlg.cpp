#include "win32/dialog/change_text_dlg.h"

#include <atomic>

#include "platform/user_values.h"
#include "run/dialog_layout.h"
#include "run/dpi.h"
#include "win32/controls/string_table.h"
#include "win32/dialog/rename_progress_dlg.h"
#include "win32/framework/clipboard.h"
#include "win32/framework/cwinapp.h"
#include "win32/framework/module.h"
#include "win32/res/resource.h"
#include "win32/settingsdlg/change_number_dlg.h"
#include "win32/settingsdlg/change_wild_dlg.h"

namespace multirename {

namespace {

constexpr LONG bold_weight = 700;
constexpr int small_icon_length = 16;
constexpr int gap_below_row = 14; // to the buttons, at 96 dots per inch
constexpr SIZE state_image_size = {16, 16}; // pixels at every resolution

// The last states of the check boxes, for as long as the library is loaded, whatever runs come and go. Hosts may have
// dialogs on two threads.
std::atomic<bool> remembered_extension_changes = false;
std::atomic<bool> remembered_numbers_as_text = false;

struct FollowingControl {
    WORD id;
    HorizontalAnchor horizontal;
    VerticalAnchor vertical;
};
constexpr FollowingControl following_controls[] = {
    {IDOK, HorizontalAnchor::Move, VerticalAnchor::Move},
    {IDCANCEL, HorizontalAnchor::Move, VerticalAnchor::Move},
    {IDC_NAMES_LIST, HorizontalAnchor::Stretch, VerticalAnchor::Stretch},
    {IDC_RESET, HorizontalAnchor::Centre, VerticalAnchor::Fixed},
    {IDC_COPY_NAMES, HorizontalAnchor::Centre, VerticalAnchor::Fixed},
    {IDC_PASTE_NAMES, HorizontalAnchor::Centre, VerticalAnchor::Fixed},
};

} // namespace

ChangeTextDlg::ChangeTextDlg(std::u16string_view product_name, const CWnd& parent, FileSet& files, bool host_flag,
                             std::u16string_view host_text) :
    CDialog(IDD_MULTI_RENAME, &parent),
    host_flag_(host_flag),
    host_text_(host_text),
    placement_(*this, product_name),
    boxes_{remembered_extension_changes, remembered_numbers_as_text},
    number_settings_(std::make_shared<ChangeNumberDlgSettings>(system_user_values(), product_name)),
    names_list_(*this),
    row_(*this, *this, tooltips_)
{
    const WaitCursor wait;
    run_.emplace(files, boxes_, &string_table_text);
}

std::span<const Route<ChangeTextDlg>> ChangeTextDlg::routes()
{
    using Me = ChangeTextDlg;
    static constexpr Route<Me> map[] = {
        on<&Me::resized>(),
        on<&Me::sizing>(),
        on<&Me::destroyed>(),
        on<&Me::fonts_changed>(),
        on<&Me::list_drawn>(IDC_NAMES_LIST),
        on<&Me::list_item_wanted>(IDC_NAMES_LIST),
        on<&Me::reset>(IDC_RESET),
        on<&Me::copy_all_names>(IDC_COPY_NAMES),
        on<&Me::paste_all_names>(IDC_PASTE_NAMES),
        on<&Me::extension_box_clicked>(IDC_ALLOW_EXTENSION_CHANGES),
        on<&Me::numbers_box_clicked>(IDC_NUMBERS_AS_TEXT),
        on<&Me::part_clicked>(IDC_PART_BUTTON),
        on<&Me::part_focused>(IDC_PART_EDIT),
        on<&Me::part_edited>(IDC_PART_EDIT),
    };
    return map;
}

std::optional<LRESULT> ChangeTextDlg::on_message(UINT message, WPARAM w, LPARAM l)
{
    return dispatch(routes(), *this, message, w, l);
}

void ChangeTextDlg::PreTranslateMessage(const MSG& message) { tooltips_.relay(message); }

void ChangeTextDlg::DoDataExchange(const DataExchange& exchange)
{
    exchange.hooked_control(IDC_NAMES_LIST, names_list_);
    exchange.control(IDC_ALLOW_EXTENSION_CHANGES, extension_box_);
    exchange.control(IDC_NUMBERS_AS_TEXT, numbers_box_);
}

bool ChangeTextDlg::OnInitDialog()
{
    const WaitCursor wait;
    dpi_.update(handle());
    close_up_to_row();
    for (const FollowingControl& control : following_controls)
        placement_.add(control.id, control.horizontal, control.vertical, dpi_.dpi());
    size_grip_.create(*this);
    set_icon();
    make_fonts();
    tooltips_.create(handle());
    show_boxes();
    placement_.restore_size(dpi_.dpi());
    place_controls(client_size());
    state_images_ = load_images(IDB_STATUS_READY, IDB_STATUS_INVALID, state_image_size);
    names_list_.set_state_images(state_images_.get());
    names_list_.fill(*run_, dpi_.dpi());
    build_row();
    dpi_.watch(*this);
    edit_notifications_live_ = true;
    return false;
}

// The row's place is given in pixels, the template's in dialog units, which depend on the font.
void ChangeTextDlg::close_up_to_row() const
{
    const int wanted = scaled(row_top + row_height + gap_below_row, dpi_.dpi());
    const int down = wanted - placement_.top_of(IDC_RESET);
    constexpr WORD below_row[] = {IDC_RESET, IDC_COPY_NAMES, IDC_PASTE_NAMES, IDC_NAMES_LABEL};
    for (const WORD id : below_row)
        placement_.shift(id, down, true);
    placement_.shift(IDC_NAMES_LIST, down, false);
}

void ChangeTextDlg::place_controls(SIZE client) const
{
    placement_.apply(client, dpi_.dpi());
    size_grip_.place(dpi_.dpi());
}

void ChangeTextDlg::make_fonts()
{
    bold_font_ = UniqueFont(create_font_like(font(), bold_weight));
    part_font_ = UniqueFont(create_font_like(font(), std::nullopt, 4, 3));
}

void ChangeTextDlg::set_icon()
{
    const LONG length = scaled(small_icon_length, dpi_.dpi());
    icon_ = load_icon(IDI_MULTI_RENAME, {length, length});
    send(WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(icon_.get()));
}

void ChangeTextDlg::build_row()
{
    edit_notifications_live_ = false;
    row_.build(*run_, {font(), part_font_.get()}, numbers_box_.handle(), dpi_.dpi());
    edit_notifications_live_ = true;
}

void ChangeTextDlg::show_boxes() const
{
    const bool enabled = run_->pattern_controls_enabled();
    const CheckBox extensions = run_->allow_extension_changes();
    const CheckBox numbers = run_->numbers_as_text();
    extension_box_.set_checked(extensions.checked);
    extension_box_.enable(extensions.enabled && enabled);
    numbers_box_.set_checked(numbers.checked);
    numbers_box_.enable(numbers.enabled && enabled);
}

void ChangeTextDlg::show_everything()
{
    show_boxes();
    build_row();
    names_list_.repaint();
    leave_disabled_focus();
}

void ChangeTextDlg::show(const Message& message) const
{
    const UINT icon = message.icon == MessageIcon::Information ? MB_ICONINFORMATION : MB_ICONEXCLAMATION;
    message_box(message.text, string_table_text(MessageId::Caption), icon);
}

void ChangeTextDlg::resized(Resized event)
{
    if (event.is_minimised)
        return;
    dpi_.update(handle());
    place_controls(event.client);
    row_.place(dpi_.dpi());
    if (names_list_.column_count() > 0)
        names_list_.fill_width(dpi_.dpi());
}

void ChangeTextDlg::sizing(Sizing event)
{
    const Area dragged = {static_cast<int>(event.area.left), static_cast<int>(event.area.top),
                          static_cast<int>(event.area.right), static_cast<int>(event.area.bottom)};
    const Area allowed = with_minimum_size(dragged, static_cast<DraggedEdge>(event.edge), dpi_.dpi());
    event.area = {allowed.left, allowed.top, allowed.right, allowed.bottom};
}

void ChangeTextDlg::destroyed(Destroyed)
{
    placement_.save_size(dpi_.dpi());
    row_.release_names();
}

void ChangeTextDlg::dpi_changed(int, int new_dpi)
{
    row_.place(new_dpi);
    names_list_.size_columns(new_dpi);
    set_icon();
    // The system may give the dialog another font only after this, so ours follow when all is done.
    PostMessageW(handle(), FontsChanged::message, 0, 0);
}

void ChangeTextDlg::fonts_changed(FontsChanged)
{
    // The old ones live on until nothing uses them.
    const UniqueFont old_bold = std::exchange(bold_font_, UniqueFont());
    const UniqueFont old_part = std::exchange(part_font_, UniqueFont());
    make_fonts();
    row_.set_fonts({font(), part_font_.get()});
}

void ChangeTextDlg::part_focused(EditFocused event)
{
    const CEdit edit(event.control);
    edit.select_nothing();
    edit.scroll_to_caret();
}

void ChangeTextDlg::part_edited(EditChanged event)
{
    const std::optional<std::size_t> part = row_.part_of(event.control);
    if (!edit_notifications_live_ || !part || !run_->set_part_text(*part, row_.edit(*part).text()))
        return;
    names_list_.repaint();
    row_.measure(*run_, *part, dpi_.dpi());
    row_.place(dpi_.dpi());
}

// While a dialog or a menu is open, messages go on: the row may be another one afterwards, or gone. So a copy is
// edited, and it counts only if the part is still there.
void ChangeTextDlg::change_part(HWND button, const std::function<bool(NamePart&)>& edit)
{
    const std::optional<std::size_t> index = row_.part_of(button);
    if (!index)
        return;
    const unsigned generation = row_.generation();
    NamePart part = run_->part(*index);
    if (!edit(part) || row_.generation() != generation)
        return;
    run_->part(*index) = part;
    refresh_names();
}

void ChangeTextDlg::part_clicked(Clicked event)
{
    change_part(event.control, [this](NamePart& part) {
        switch (part.kind) {
        case NamePartKind::Wild: return CChangeWildDlg(part, *this).DoModal() == IDOK;
        case NamePartKind::Number: return CChangeNumberDlg(number_settings_, part, *this).DoModal() == IDOK;
        case NamePartKind::Text: break;
        }
        return false;
    });
}

void ChangeTextDlg::part_menu_wanted(HWND button, POINT at)
{
    change_part(button,
                [this, at](NamePart& part) { return show_part_menu(number_settings_.get(), part, handle(), at); });
}

void ChangeTextDlg::refresh_names()
{
    run_->refresh_names();
    names_list_.repaint();
}

void ChangeTextDlg::extension_box_clicked(Clicked)
{
    run_->set_allow_extension_changes(extension_box_.is_checked());
    remembered_extension_changes = boxes_.allow_extension_changes;
    show_everything();
}

void ChangeTextDlg::numbers_box_clicked(Clicked)
{
    run_->set_numbers_as_text(numbers_box_.is_checked());
    remembered_numbers_as_text = boxes_.numbers_as_text;
    show_everything();
}

void ChangeTextDlg::reset(Clicked)
{
    const WaitCursor wait;
    run_->reset();
    show_everything();
}

void ChangeTextDlg::show_names_and_enabling()
{
    show_boxes();
    row_.enable(run_->pattern_controls_enabled());
    names_list_.repaint();
    leave_disabled_focus();
}

void ChangeTextDlg::copy_all_names(Clicked) { copy(run_->copied_names()); }

void ChangeTextDlg::copy_names(const Rows& rows) { copy(run_->copied_names(rows)); }

void ChangeTextDlg::copy(const std::u16string& names)
{
    if (Clipboard().set_text(names))
        show(run_->copied_message());
}

void ChangeTextDlg::paste_all_names(Clicked)
{
    if (const auto text = Clipboard().text())
        show_pasted(run_->paste_names(*text));
}

void ChangeTextDlg::paste_names(const Rows& rows)
{
    if (const auto text = Clipboard().text())
        show_pasted(run_->paste_names(*text, rows));
}

void ChangeTextDlg::show_pasted(const std::optional<Message>& problem)
{
    if (problem)
        show(*problem);
    else
        show_names_and_enabling();
}

void ChangeTextDlg::reset_names(const Rows& rows)
{
    run_->reset_names(rows);
    if (!rows.empty())
        show_names_and_enabling();
}

void ChangeTextDlg::remove_files(const Rows& rows)
{
    if (const auto problem = run_->remove_rows(rows)) {
        show(*problem);
        return;
    }
    names_list_.remove_missing_rows(*run_);
    show_names_and_enabling();
}

void ChangeTextDlg::list_item_wanted(ListItemWanted event) { names_list_.answer(*run_, event.details.item); }

LRESULT ChangeTextDlg::list_drawn(ListCustomDraw event)
{
    return names_list_.draw(*run_, event.details, bold_font_.get());
}

void ChangeTextDlg::OnOK()
{
    const Verdict verdict = run_->judge_for_rename();
    switch (verdict.kind) {
    case Verdict::Kind::Refuse:
        names_list_.repaint(); // the last look at the disk may have changed what the rows show
        show(verdict.message);
        return;
    case Verdict::Kind::NothingToDo: show(verdict.message); break;
    case Verdict::Kind::Rename: {
        RenameProgressDlg progress;
        run_->rename(OwnerWindow{reinterpret_cast<std::uintptr_t>(handle())}, progress);
        break;
    }
    }
    end(IDOK);
}

} // namespace multirename
