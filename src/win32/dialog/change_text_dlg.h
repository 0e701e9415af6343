#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "run/rename_run.h"
#include "settings/change_number_settings.h"
#include "win32/controls/name_part_button.h"
#include "win32/controls/names_list_ctrl.h"
#include "win32/controls/size_grip.h"
#include "win32/dialog/dialog_placement.h"
#include "win32/dialog/pattern_controls.h"
#include "win32/dialog/screen_dpi.h"
#include "win32/framework/cdialog.h"
#include "win32/framework/com.h"
#include "win32/framework/controls.h"
#include "win32/framework/handles.h"
#include "win32/framework/message_map.h"

namespace multirename {

/// The dialog "Multi Rename": the window of one rename run.
class ChangeTextDlg final : public CDialog,
                            private ScreenDpi::ScreenDpiWatcher,
                            private CNamesListCtrl::Owner,
                            private CNamePartButton::Owner {
public:
    /// Analyses the listed names. `parent` and `files` must outlive the dialog; the records of `files` are changed. The
    /// host's flag and text are copied and change nothing.
    ChangeTextDlg(std::u16string_view product_name, const CWnd& parent, FileSet& files, bool host_flag,
                  std::u16string_view host_text);

private:
    void DoDataExchange(const DataExchange& exchange) override;
    bool OnInitDialog() override;
    void OnOK() override;
    void PreTranslateMessage(const MSG& message) override;
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override;
    void dpi_changed(int old_dpi, int new_dpi) override;
    void copy_names(const Rows& rows) override;
    void paste_names(const Rows& rows) override;
    void reset_names(const Rows& rows) override;
    void remove_files(const Rows& rows) override;
    void part_menu_wanted(HWND button, POINT at) override;

    struct FontsChanged : Event<WM_APP> {
        FontsChanged(WPARAM, LPARAM) { }
    };
    static std::span<const Route<ChangeTextDlg>> routes();
    void resized(Resized event);
    void sizing(Sizing event);
    void destroyed(Destroyed);
    void fonts_changed(FontsChanged);
    void part_focused(EditFocused event);
    void part_edited(EditChanged event);
    void part_clicked(Clicked event);
    void extension_box_clicked(Clicked);
    void numbers_box_clicked(Clicked);
    void reset(Clicked);
    void copy_all_names(Clicked);
    void paste_all_names(Clicked);
    void list_item_wanted(ListItemWanted event);
    LRESULT list_drawn(ListCustomDraw event);

    void close_up_to_row() const;
    void place_controls(SIZE client) const;
    void make_fonts();
    void set_icon();
    void build_row();
    void show_boxes() const;
    void show_everything();
    void show_names_and_enabling();
    void refresh_names();
    void change_part(HWND button, const std::function<bool(NamePart&)>& edit);
    void copy(const std::u16string& names);
    void show_pasted(const std::optional<Message>& problem);
    void show(const Message& message) const;

    bool host_flag_; // this and the text are kept for the host, as multirename.h says; nothing depends on them
    std::u16string host_text_;
    ComApartment com_;
    ScreenDpi dpi_;
    DialogPlacement placement_;
    CSizeGrip size_grip_;
    RememberedBoxes boxes_; // of this run; the ones before it decide how they start
    std::optional<RenameRun> run_; // always there once constructed
    std::shared_ptr<ChangeNumberDlgSettings> number_settings_;

    UniqueIcon icon_;
    UniqueImageList state_images_;
    UniqueFont bold_font_;
    UniqueFont part_font_;
    CNamesListCtrl names_list_;
    CButton extension_box_;
    CButton numbers_box_;
    CToolTipCtrl tooltips_;
    PatternControls row_;
    bool edit_notifications_live_ = false;
};

} // namespace multirename
