#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "win32/framework/cwnd.h"
#include "win32/framework/handles.h"

namespace multirename {

/// A child window made in code, which is destroyed with its object at the latest.
template <class Control>
class Created : public Control {
public:
    using Control::Control;
    ~Created() override
    {
        if (this->handle() != nullptr)
            DestroyWindow(this->handle());
    }
};

/// A control made in code. Positions come later; it starts at no size.
struct ControlRequest {
    const wchar_t* window_class;
    DWORD style; ///< besides WS_CHILD
    DWORD extended_style = 0;
    WORD id;
    std::u16string_view text;
};

/// Makes the control in the parent. Throws std::system_error when the system refuses.
[[nodiscard]] HWND create_control(HWND parent, const ControlRequest& request);

/// A push button or a check box.
class CButton : public CWnd {
public:
    using CWnd::CWnd;
    [[nodiscard]] bool is_checked() const noexcept;
    void set_checked(bool checked) const noexcept;
};

/// A selection of the text of an edit, in code units; an empty one is where the caret stands.
struct TextSelection {
    DWORD first = 0;
    DWORD last = 0;
};

class CEdit : public CWnd {
public:
    using CWnd::CWnd;
    /// The most characters that can be typed.
    void set_limit(UINT characters) const noexcept;
    [[nodiscard]] TextSelection selection() const noexcept;
    void select(TextSelection selection) const noexcept;
    void select_all() const noexcept;
    void select_nothing() const noexcept;
    void scroll_to_caret() const noexcept;
};

/// A drop-down list to choose from.
class CComboBox : public CWnd {
public:
    using CWnd::CWnd;
    void append(std::u16string_view text, LPARAM item_data) const;
    /// The first item with these data; with nothing, or when none has them, no item is selected.
    void select_data(std::optional<LPARAM> item_data) const noexcept;
    /// The data of the selected item; nothing when none is selected.
    [[nodiscard]] std::optional<LPARAM> selected_data() const noexcept;
};

class CListCtrl : public CWnd {
public:
    using CWnd::CWnd;
    void set_extended_style(DWORD style) const noexcept;
    void insert_column(int column, std::u16string_view title, int width) const;
    void set_column_width(int column, int width) const noexcept;
    [[nodiscard]] int column_width(int column) const noexcept;
    /// Wide enough for every text of the column. The control asks for the texts of all rows and measures each.
    void fit_column(int column) const noexcept;
    /// Makes the first column as wide as `fit_column` will once the list has rows, of which none has a wider text than
    /// this one. Only for a list without rows; it has none afterwards.
    void fit_first_column(std::u16string_view widest_text) const;
    /// Takes the room that the other columns leave; only the last column can.
    void fill_with_column(int column) const noexcept;
    /// Makes room for so many rows at once.
    void reserve_rows(std::size_t count) const noexcept;
    /// Adds a row at this place, the texts and the state image of which are asked for when they are needed. `columns`
    /// is how many columns the list has, so that it need not be asked again for every row.
    void insert_row(int row, int columns, LPARAM row_data) const noexcept;
    void set_state_images(HIMAGELIST images) const noexcept;
    [[nodiscard]] LPARAM row_data(int row) const noexcept;
    [[nodiscard]] int row_count() const noexcept;
    [[nodiscard]] int column_count() const noexcept;
    void delete_row(int row) const noexcept;
    [[nodiscard]] bool is_selected(int row) const noexcept;
    void select(int row, bool selected) const noexcept;
    void select_all() const noexcept;
    [[nodiscard]] int selected_count() const noexcept;
    /// From top to bottom.
    [[nodiscard]] std::vector<std::size_t> selected_rows() const;
};

/// Tooltips for the controls of one dialog.
class CToolTipCtrl : public CWnd {
public:
    using CWnd::CWnd;
    void create(HWND owner);
    /// The text is copied. Remove the tool before its control goes.
    void add_tool(HWND control, std::u16string_view text) const;
    void remove_tool(HWND control) const noexcept;
    void relay(const MSG& message) const noexcept;
};

} // namespace multirename
