#include "win32/framework/cdialog.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <vector>

#include "win32/framework/controls.h"
#include "win32/framework/message_map.h"

namespace multirename {
namespace {

constexpr WORD small_dialog = 100;
constexpr WORD first_button = 10;
constexpr WORD last_button = 11;
constexpr WORD edit_id = 12;
constexpr UINT question = WM_APP + 1;

struct Asked : Event<question> {
    WPARAM number;
    Asked(WPARAM w, LPARAM) : number(w) { }
};

/// A button that throws when it is asked.
class CThrowingButton : public CButton {
    std::optional<LRESULT> on_message(UINT message, WPARAM, LPARAM) override
    {
        if (message == question)
            throw std::runtime_error("button");
        return std::nullopt;
    }
};

/// Does what a test wants as soon as it is open.
class CSmallDialog : public CDialog {
public:
    explicit CSmallDialog(std::function<void(CSmallDialog&)> when_open, const CWnd* parent = nullptr) :
        CDialog(small_dialog, parent), when_open_(std::move(when_open))
    {
    }
    using CDialog::end;

    std::vector<HWND> clicked;
    std::vector<std::u16string> edited;
    CThrowingButton button;
    CEdit edit;
    bool has_thrown = false;
    int messages_after_throwing = 0;

private:
    void DoDataExchange(const DataExchange& exchange) override
    {
        exchange.hooked_control(first_button, button);
        exchange.control(edit_id, edit);
    }
    bool OnInitDialog() override
    {
        when_open_(*this);
        return true;
    }
    std::optional<LRESULT> on_message(UINT message, WPARAM w, LPARAM l) override
    {
        messages_after_throwing += has_thrown ? 1 : 0;
        static constexpr Route<CSmallDialog> map[] = {
            on_range<&CSmallDialog::button_clicked>(first_button, last_button),
            on<&CSmallDialog::text_changed>(edit_id),
            on<&CSmallDialog::asked>(),
        };
        return dispatch(map, *this, message, w, l);
    }
    void button_clicked(Clicked event) { clicked.push_back(event.control); }
    void text_changed(EditChanged) { edited.push_back(edit.text()); }
    LRESULT asked(Asked event)
    {
        if (event.number == 0) {
            has_thrown = true;
            throw std::runtime_error("dialog");
        }
        return static_cast<LRESULT>(event.number) * 2;
    }

    std::function<void(CSmallDialog&)> when_open_;
};

void click(const CSmallDialog& dialog, WORD id) { SendMessageW(dialog.item(id), BM_CLICK, 0, 0); }

} // namespace

TEST(CDialogTest, EndsWithTheNumberItIsGiven)
{
    CSmallDialog dialog([](CSmallDialog& d) { d.end(42); });
    EXPECT_EQ(dialog.DoModal(), 42);
    EXPECT_EQ(dialog.handle(), nullptr);
}

TEST(CDialogTest, EndsWithOkByItself)
{
    CSmallDialog dialog([](CSmallDialog& d) { PostMessageW(d.handle(), WM_COMMAND, IDOK, 0); });
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(CDialogTest, OpensAgain)
{
    CSmallDialog dialog([](CSmallDialog& d) { d.end(IDOK); });
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(CDialogTest, BringsEventsOfARunOfControlsToOneHandler)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        click(d, first_button);
        click(d, last_button);
        EXPECT_THAT(d.clicked, testing::ElementsAre(d.item(first_button), d.item(last_button)));
        d.end(IDOK);
    });
    dialog.DoModal();
}

TEST(CDialogTest, BringsEachCodeToItsOwnHandler)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        SetFocus(d.item(edit_id)); // another code of the same control
        d.edit.set_text(u"new");
        EXPECT_THAT(d.edited, testing::ElementsAre(u"new"));
        d.end(IDOK);
    });
    dialog.DoModal();
}

TEST(CDialogTest, AnswersWithWhatTheHandlerGives)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        EXPECT_EQ(d.send(question, 21), 42);
        d.end(IDOK);
    });
    dialog.DoModal();
}

TEST(CDialogTest, ThrowsToTheCallerWhatOpeningThrew)
{
    CSmallDialog dialog([](CSmallDialog&) { throw std::length_error("opening"); });
    EXPECT_THROW(dialog.DoModal(), std::length_error);
    EXPECT_EQ(dialog.handle(), nullptr);
}

TEST(CDialogTest, ThrowsToTheCallerWhatAHandlerThrewAndRunsNoOther)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        d.send(question, 0);
        EXPECT_EQ(d.send(question, 21), 0);
    });
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
    EXPECT_EQ(dialog.messages_after_throwing, 0);
}

TEST(CDialogTest, ThrowsToTheCallerWhatAHookedControlThrew)
{
    CSmallDialog dialog([](CSmallDialog& d) { d.button.send(question); });
    EXPECT_THROW(dialog.DoModal(), std::runtime_error);
}

TEST(CDialogTest, BringsAFailureThroughADialogOnTopOfAnother)
{
    CSmallDialog outer([](CSmallDialog& d) {
        CSmallDialog inner([](CSmallDialog&) { throw std::length_error("inner"); }, &d);
        inner.DoModal();
    });
    EXPECT_THROW(outer.DoModal(), std::length_error);
}

TEST(CDialogTest, OpensAgainAfterAFailure)
{
    bool fails = true;
    CSmallDialog dialog([&fails](CSmallDialog& d) {
        if (std::exchange(fails, false))
            throw std::length_error("once");
        d.end(IDOK);
    });
    EXPECT_THROW(dialog.DoModal(), std::length_error);
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(CDialogTest, ThrowsWhenThereIsNoSuchTemplate)
{
    class CMissing : public CDialog {
    public:
        CMissing() : CDialog(4711, nullptr) { }
    };
    CMissing dialog;
    EXPECT_THROW(dialog.DoModal(), std::system_error);
}

TEST(CDialogTest, ThrowsWhenTheParentIsNoWindow)
{
    const CWnd gone(reinterpret_cast<HWND>(std::uintptr_t{0xFFFE}));
    CSmallDialog dialog([](CSmallDialog& d) { d.end(IDOK); }, &gone);
    EXPECT_THROW(dialog.DoModal(), std::system_error);
}

TEST(CDialogTest, ForgetsAControlThatTheSystemDestroyed)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        Created<CButton> button;
        button.hook(create_control(d.handle(), {WC_BUTTONW, 0, 0, 99, u"made"}), d);
        EXPECT_EQ(button.text(), u"made");
        DestroyWindow(button.handle());
        EXPECT_EQ(button.handle(), nullptr);
        d.end(IDOK);
    });
    dialog.DoModal();
}

TEST(CDialogTest, DestroysAMadeControlWithItsObject)
{
    CSmallDialog dialog([](CSmallDialog& d) {
        HWND window = nullptr;
        {
            Created<CButton> button;
            button.attach(create_control(d.handle(), {WC_BUTTONW, 0, 0, 99, u"made"}));
            window = button.handle();
            EXPECT_TRUE(IsWindow(window));
        }
        EXPECT_FALSE(IsWindow(window));
        d.end(IDOK);
    });
    dialog.DoModal();
}

} // namespace multirename
