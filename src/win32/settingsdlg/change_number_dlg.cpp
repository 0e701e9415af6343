#include "win32/settingsdlg/change_number_dlg.h"

#include <utility>

#include "win32/res/resource.h"

namespace multirename {

namespace {

// The radio buttons and the choices that they stand for.
constexpr std::pair<WORD, NumberChoice> number_buttons[] = {
    {IDC_NUMBER_NO_CHANGE, NumberChoice::NoChange},
    {IDC_NUMBER_CLEAR, NumberChoice::ClearText},
    {IDC_NUMBER_RENUMBER, NumberChoice::Renumber},
};
constexpr std::pair<WORD, LeadingZerosMode> zeros_buttons[] = {
    {IDC_ZEROS_NO_CHANGE, LeadingZerosMode::Unchanged},
    {IDC_ZEROS_REMOVE, LeadingZerosMode::RemoveZeros},
    {IDC_ZEROS_FIXED_DIGITS, LeadingZerosMode::FixedDigits},
};

} // namespace

CChangeNumberDlg::CChangeNumberDlg(std::shared_ptr<ChangeNumberDlgSettings> remembered, NamePart& part,
                                   const CWnd& parent) :
    CDialog(IDD_CHANGE_NUMBER, &parent), remembered_(std::move(remembered)), part_(part), settings_(part, *remembered_)
{
}

std::span<const Route<CChangeNumberDlg>> CChangeNumberDlg::routes()
{
    using Me = CChangeNumberDlg;
    static constexpr Route<Me> map[] = {
        on<&Me::reset>(IDC_NUMBER_RESET),
        on<&Me::clear_text>(IDC_NUMBER_CLEAR_TEXT),
        on_range<&Me::choice_clicked>(IDC_ZEROS_NO_CHANGE, IDC_NUMBER_RENUMBER),
    };
    return map;
}

std::optional<LRESULT> CChangeNumberDlg::on_message(UINT message, WPARAM w, LPARAM l)
{
    return dispatch(routes(), *this, message, w, l);
}

void CChangeNumberDlg::DoDataExchange(const DataExchange& exchange)
{
    exchange.control(IDC_NUMBER_RESET, reset_);
    exchange.control(IDC_NUMBER_CLEAR_TEXT, clear_text_);
    exchange.control(IDC_START, start_);
    exchange.control(IDC_DIGITS, digits_);
}

bool CChangeNumberDlg::OnInitDialog()
{
    start_.set_text(settings_.first_start_text());
    start_.set_limit(NumberSettings::start_limit);
    digits_.set_text(settings_.first_digits_text());
    digits_.set_limit(NumberSettings::digits_limit);
    show_choices();
    return false;
}

void CChangeNumberDlg::show_choices() const
{
    for (const auto& [id, choice] : number_buttons)
        CButton(item(id)).set_checked(choice == settings_.number());
    for (const auto& [id, choice] : zeros_buttons)
        CButton(item(id)).set_checked(choice == settings_.zeros());
    update_controls();
}

void CChangeNumberDlg::update_controls() const
{
    reset_.enable(settings_.reset_enabled());
    clear_text_.enable(settings_.clear_text_enabled());
    for (const auto& [id, choice] : zeros_buttons)
        CButton(item(id)).enable(settings_.zeros_enabled());
    start_.enable(settings_.start_enabled());
    digits_.enable(settings_.digits_enabled());
    leave_disabled_focus();
}

// The choices are what the controls show, however they came to show it.
void CChangeNumberDlg::read_choices()
{
    for (const auto& [id, choice] : number_buttons) {
        if (CButton(item(id)).is_checked())
            settings_.choose(choice);
    }
    for (const auto& [id, choice] : zeros_buttons) {
        if (CButton(item(id)).is_checked())
            settings_.choose(choice);
    }
}

void CChangeNumberDlg::choice_clicked(Clicked)
{
    read_choices();
    update_controls();
}

void CChangeNumberDlg::reset(Clicked)
{
    settings_.reset();
    show_choices();
}

void CChangeNumberDlg::clear_text(Clicked)
{
    read_choices();
    settings_.clear_text();
    show_choices();
}

void CChangeNumberDlg::OnOK()
{
    read_choices();
    settings_.store(start_.text(), digits_.text(), part_, *remembered_);
    end(IDOK);
}

} // namespace multirename
