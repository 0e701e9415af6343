#include "win32/settingsdlg/change_wild_dlg.h"

#include "win32/res/resource.h"

namespace multirename {

CChangeWildDlg::CChangeWildDlg(NamePart& part, const CWnd& parent) :
    CDialog(IDD_CHANGE_WILD, &parent), part_(part), settings_(part)
{
}

std::span<const Route<CChangeWildDlg>> CChangeWildDlg::routes()
{
    using Me = CChangeWildDlg;
    static constexpr Route<Me> map[] = {
        on<&Me::reset>(IDC_WILD_RESET),          on<&Me::clear_text>(IDC_WILD_CLEAR_TEXT),
        on<&Me::truncate_clicked>(IDC_TRUNCATE), on<&Me::style_selected>(IDC_CASE_STYLE),
        on<&Me::length_edited>(IDC_LENGTH),
    };
    return map;
}

std::optional<LRESULT> CChangeWildDlg::on_message(UINT message, WPARAM w, LPARAM l)
{
    return dispatch(routes(), *this, message, w, l);
}

void CChangeWildDlg::DoDataExchange(const DataExchange& exchange)
{
    exchange.control(IDC_WILD_RESET, reset_);
    exchange.control(IDC_WILD_CLEAR_TEXT, clear_text_);
    exchange.control(IDC_TRUNCATE, truncate_);
    exchange.control(IDC_LENGTH, length_);
    exchange.control(IDC_CASE_STYLE, style_);
}

bool CChangeWildDlg::OnInitDialog()
{
    for (const CaseStyleLabel& label : case_style_labels)
        style_.append(label.label, static_cast<LPARAM>(label.style));
    show_settings();
    return false;
}

// The choices are what the controls show, however they came to show it.
void CChangeWildDlg::read_controls()
{
    const std::optional<LPARAM> selected = style_.selected_data();
    settings_.select_style(selected ? std::optional(static_cast<CaseStyle>(*selected)) : std::nullopt);
    settings_.set_truncates(truncate_.is_checked());
    settings_.set_length_text(length_.text());
}

void CChangeWildDlg::show_settings()
{
    const std::optional<CaseStyle> style = settings_.style();
    style_.select_data(style ? std::optional(static_cast<LPARAM>(*style)) : std::nullopt);
    truncate_.set_checked(settings_.truncates());
    // Last, since the edit's notification has the controls read again.
    if (const std::u16string length = settings_.length_text(); length_.text() != length)
        length_.set_text(length);
    update_controls();
}

void CChangeWildDlg::update_controls() const
{
    length_.enable(settings_.length_enabled());
    reset_.enable(settings_.reset_enabled());
    clear_text_.enable(settings_.clear_text_enabled());
    leave_disabled_focus();
}

void CChangeWildDlg::reset(Clicked)
{
    read_controls();
    settings_.reset();
    show_settings();
}

void CChangeWildDlg::clear_text(Clicked)
{
    read_controls();
    settings_.clear_text();
    show_settings();
}

void CChangeWildDlg::truncate_clicked(Clicked)
{
    read_controls();
    settings_.click_truncate(truncate_.is_checked());
    update_controls();
}

void CChangeWildDlg::style_selected(SelectionChanged)
{
    read_controls();
    update_controls();
}

void CChangeWildDlg::length_edited(EditChanged)
{
    read_controls();
    update_controls();
}

void CChangeWildDlg::OnOK()
{
    read_controls();
    settings_.store(part_);
    end(IDOK);
}

} // namespace multirename
