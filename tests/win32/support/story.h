#pragma once

#include <gmock/gmock.h>

#include <initializer_list>
#include <string>
#include <vector>

#include "driver/dialog_driver.h"
#include "support/open_dialog.h"
#include "support/temp_folder.h"
#include "support/user_store.h"
#include "win32/res/resource.h"

/// A test with a folder and a user's registry of its own and a module that remembers nothing from other tests.
class Story : public testing::Test {
protected:
    /// Makes the files and opens the dialog on them, in this order.
    [[nodiscard]] std::vector<std::u16string> made(std::initializer_list<std::u16string_view> names) const
    {
        std::vector<std::u16string> paths;
        for (const std::u16string_view name : names)
            paths.push_back(folder.make_file(name));
        return paths;
    }

    /// Waits until the list shows these new names.
    static void expect_names(const OpenDialog& dialog, const std::vector<std::u16string>& expected)
    {
        EXPECT_TRUE(driver::wait_until([&] { return dialog.new_names() == expected; }));
        EXPECT_EQ(dialog.new_names(), expected);
    }

    /// Pastes one name a line for all files and waits until the list shows these new names.
    static void paste(const OpenDialog& dialog, std::u16string_view lines, const std::vector<std::u16string>& expected)
    {
        put_on_clipboard(lines);
        dialog.press(IDC_PASTE_NAMES);
        expect_names(dialog, expected);
    }

    TempFolder folder;
    EmptyUserStore user_store;
    Module module;
};
