#include "win32/dialog/change_text_dlg.h"

#include "platform/user_values.h"
#include "run/dpi.h"
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
constexpr SIZE state_image_size = {16, 16}; // pixels at every resolution

// For as long as the library is loaded, whatever runs come and go.
RememberedBoxes remembered_boxes;

std::u16string string_table_text(MessageId id) { return load_text(static_cast<UINT>(id)); }

} // namespace

ChangeTextDlg::ChangeTextDlg(std::u16string_view product_name, const CWnd& parent, FileSet& files, bool host_flag,
                             std::u16string_view host_text) :
    CDialog(IDD_MULTI_RENAME, &parent),
    product_name_(product_name),
    host_flag_(host_flag),
    host_text_(host_text),
    number_settings_(std::make_shared<ChangeNumberDlgSettings>(system_user_values(), product_name)),
    row_(*this, tooltips_)
{
    const WaitCursor wait;
    run_.emplace(files, remembered_boxes, &string_table_text);
}

std::span<const Route<ChangeTextDlg>> ChangeTextDlg::routes()
{
    using Me = ChangeTextDlg;
    static constexpr Route<Me> map[] = {
        on<&Me::resized>(),
        on<&Me::list_drawn>(IDC_NAMES_LIST),
        on<&Me::list_item_wanted>(IDC_NAMES_LIST),
        on<&Me::reset>(IDC_RESET),
        on<&Me::copy_names>(IDC_COPY_NAMES),
        on<&Me::paste_names>(IDC_PASTE_NAMES),
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
    exchange.control(IDC_NAMES_LIST, names_list_);
    exchange.control(IDC_ALLOW_EXTENSION_CHANGES, extension_box_);
    exchange.control(IDC_NUMBERS_AS_TEXT, numbers_box_);
}

bool ChangeTextDlg::OnInitDialog()
{
    dpi_.update(handle());
    set_icon();
    make_fonts();
    tooltips_.create(handle());
    state_images_ = load_images(IDB_STATUS_READY, IDB_STATUS_INVALID, state_image_size);
    names_list_.set_state_images(state_images_.get());
    names_list_.fill(*run_);
    names_list_.size_columns(run_->shows_folders(), dpi_.dpi());
    show_boxes();
    build_row();
    dpi_.watch(*this);
    edit_notifications_live_ = true;
    return false;
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

void ChangeTextDlg::resized(Resized)
{
    dpi_.update(handle());
    row_.place(dpi_.dpi());
}

void ChangeTextDlg::dpi_changed(int, int new_dpi)
{
    row_.place(new_dpi);
    names_list_.size_columns(run_->shows_folders(), new_dpi);
    set_icon();
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

void ChangeTextDlg::part_clicked(Clicked event)
{
    const std::optional<std::size_t> index = row_.part_of(event.control);
    if (!index)
        return;
    NamePart& part = run_->part(*index);
    INT_PTR result = IDCANCEL;
    if (part.kind == NamePartKind::Wild)
        result = CChangeWildDlg(part, *this).DoModal();
    else if (part.kind == NamePartKind::Number)
        result = CChangeNumberDlg(number_settings_, part, *this).DoModal();
    if (result == IDOK)
        refresh_names();
}

void ChangeTextDlg::refresh_names()
{
    run_->refresh_names();
    names_list_.repaint();
}

void ChangeTextDlg::extension_box_clicked(Clicked)
{
    run_->set_allow_extension_changes(extension_box_.is_checked());
    show_everything();
}

void ChangeTextDlg::numbers_box_clicked(Clicked)
{
    run_->set_numbers_as_text(numbers_box_.is_checked());
    show_everything();
}

void ChangeTextDlg::reset(Clicked)
{
    const WaitCursor wait;
    run_->reset();
    show_everything();
}

void ChangeTextDlg::copy_names(Clicked)
{
    bool is_copied = false;
    {
        Clipboard clipboard;
        is_copied = clipboard.set_text(run_->copied_names());
    }
    if (is_copied)
        show(run_->copied_message());
}

void ChangeTextDlg::paste_names(Clicked)
{
    const Clipboard clipboard;
    const std::optional<std::u16string> text = clipboard.text();
    if (!text)
        return;
    if (const std::optional<Message> problem = run_->paste_names(*text)) {
        show(*problem);
        return;
    }
    show_boxes();
    row_.enable(run_->pattern_controls_enabled());
    names_list_.repaint();
    leave_disabled_focus();
}

void ChangeTextDlg::list_item_wanted(ListItemWanted event) { names_list_.answer(*run_, event.details.item); }

LRESULT ChangeTextDlg::list_drawn(ListCustomDraw event)
{
    return names_list_.draw(*run_, event.details, bold_font_.get());
}

void ChangeTextDlg::OnOK()
{
    const Verdict verdict = run_->judge();
    switch (verdict.kind) {
    case Verdict::Kind::Refuse: show(verdict.message); return;
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
