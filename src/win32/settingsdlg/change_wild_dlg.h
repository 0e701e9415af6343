#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "run/wild_settings.h"
#include "win32/framework/cdialog.h"
#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// The dialog "Change Wild": the settings of one wild part, which only "OK" changes.
class CChangeWildDlg final : public CDialog {
public:
    /// Both must outlive the dialog.
    CChangeWildDlg(NamePart& part, const CWnd& parent);

private:
    void DoDataExchange(const DataExchange& exchange) override;
    bool OnInitDialog() override;
    void OnOK() override;
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;

    static std::span<const Route<CChangeWildDlg>> routes();
    void reset(Clicked);
    void clear_text(Clicked);
    void truncate_clicked(Clicked);
    void style_selected(SelectionChanged);
    void length_edited(EditChanged);
    void read_controls();
    void show_settings();
    void update_controls() const;

    NamePart& part_;
    WildSettings settings_;
    CButton reset_;
    CButton clear_text_;
    CButton truncate_;
    CEdit length_;
    CComboBox style_;
};

} // namespace multirename
