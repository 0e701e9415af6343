#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <span>

#include "run/number_settings.h"
#include "win32/framework/cdialog.h"
#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// The dialog "Change Number": the settings of one number part, which only "OK" changes and remembers.
class CChangeNumberDlg final : public CDialog {
public:
    /// The part and the parent must outlive the dialog.
    CChangeNumberDlg(std::shared_ptr<ChangeNumberDlgSettings> remembered, NamePart& part, const CWnd& parent);

private:
    void DoDataExchange(const DataExchange& exchange) override;
    bool OnInitDialog() override;
    void OnOK() override;
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;

    static std::span<const Route<CChangeNumberDlg>> routes();
    void reset(Clicked);
    void clear_text(Clicked);
    void choice_clicked(Clicked);
    void read_choices();
    void show_choices() const;
    void update_controls() const;

    std::shared_ptr<ChangeNumberDlgSettings> remembered_;
    NamePart& part_;
    NumberSettings settings_;
    CButton reset_;
    CButton clear_text_;
    CEdit start_;
    CEdit digits_;
};

} // namespace multirename
