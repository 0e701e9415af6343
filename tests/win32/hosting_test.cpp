// What hosts rely on: their threads, messages, COM, resolutions and windows during the call and after it.

#include <windows.h>

#include <combaseapi.h>
#include <imm.h>

#include <algorithm>
#include <array>
#include <bit>
#include <functional>
#include <thread>

#include "platform/windows/file_handle.h"
#include "platform/windows/wide.h"
#include "support/story.h"
#include "win32/res/resource.h"

namespace {

using multirename::to_wide;
using testing::ElementsAre;

constexpr auto bound = static_cast<DWORD>(std::chrono::milliseconds(driver::patience).count());

using Task = std::function<void()>;
constexpr UINT task_message = WM_APP;

LRESULT CALLBACK host_procedure(HWND window, UINT message, WPARAM w, LPARAM l)
{
    if (message != task_message)
        return DefWindowProcW(window, message, w, l);
    (*reinterpret_cast<const Task*>(l))();
    return 1;
}

HWND make_host_window()
{
    WNDCLASSW kind = {};
    kind.lpfnWndProc = &host_procedure;
    kind.lpszClassName = L"HostingTest";
    RegisterClassW(&kind);
    return CreateWindowExW(0, kind.lpszClassName, L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                           nullptr, nullptr, nullptr);
}

/// A host's thread with a window, and its call of the module.
class HostThread {
public:
    /// Input methods may use COM on each thread that has windows.
    enum class Input { Usual, NoInputMethod };

    /// The thread carries out `life` with its window, in which it is to call the module, and ends.
    explicit HostThread(std::function<void(HWND)> life, Input input = Input::Usual)
    {
        thread_ = std::jthread([this, life = std::move(life), input] {
            if (input == Input::NoInputMethod)
                ImmDisableIME(GetCurrentThreadId());
            id_ = GetCurrentThreadId();
            window_ = make_host_window();
            SetEvent(started_.get());
            life(window_);
            DestroyWindow(window_);
            SetEvent(ended_.get());
        });
        WaitForSingleObject(started_.get(), bound);
    }

    HostThread(const HostThread&) = delete;
    HostThread& operator=(const HostThread&) = delete;
    /// Cancels the dialog when it is still open.
    ~HostThread()
    {
        const HWND open = has_ended() ? nullptr : driver::find_dialog(u"Multi Rename", id_);
        PostMessageW(open, WM_COMMAND, IDCANCEL, 0);
    }

    [[nodiscard]] HWND window() const noexcept { return window_; }
    [[nodiscard]] DWORD id() const noexcept { return id_; }

    [[nodiscard]] HWND dialog() const
    {
        HWND found = nullptr;
        EXPECT_TRUE(driver::wait_until([&] { return (found = driver::find_dialog(u"Multi Rename", id_)) != nullptr; }));
        return found;
    }

    /// Has the window's procedure carry out the task, and waits until it has.
    void carry_out(const Task& task) const
    {
        EXPECT_EQ(driver::ask(window_, task_message, 0, reinterpret_cast<LPARAM>(&task)), 1);
    }

    void wait_until_ended() const { ASSERT_EQ(WaitForSingleObject(ended_.get(), bound), WAIT_OBJECT_0); }

private:
    [[nodiscard]] bool has_ended() const { return WaitForSingleObject(ended_.get(), 0) == WAIT_OBJECT_0; }
    static multirename::UniqueFile new_event()
    {
        return multirename::UniqueFile(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    }

    multirename::UniqueFile started_ = new_event();
    multirename::UniqueFile ended_ = new_event();
    DWORD id_ = 0;
    HWND window_ = nullptr;
    std::jthread thread_;
};

void cancel(HWND dialog) { EXPECT_TRUE(driver::press(GetDlgItem(dialog, IDCANCEL))); }

void rename_with_prefix(HWND dialog, std::u16string_view prefix)
{
    EXPECT_TRUE(driver::type_in_front(driver::part_edits(dialog).front(), prefix));
    EXPECT_TRUE(driver::press(GetDlgItem(dialog, IDOK)));
}

// Of two dialogs on two threads, the user works in that which is in front.
void rename_with_prefix_in_front(HWND dialog, std::u16string_view prefix)
{
    SetForegroundWindow(dialog);
    rename_with_prefix(dialog, prefix);
}

class Hosting : public Story {
protected:
    /// Calls the module, as hosts do, on one path.
    void call(HWND parent, const std::u16string& path) const
    {
        const std::wstring wide = to_wide(path);
        const wchar_t* const paths[] = {wide.c_str()};
        module.run()(parent, 1, paths, 0, nullptr);
    }
};

/// What COM says of the present thread. Without COM it is in no apartment, or counts as one of those that another
/// thread has made.
struct Apartment {
    HRESULT result = E_FAIL;
    int kind = APTTYPE_CURRENT;
    int qualifier = 0;
    bool operator==(const Apartment&) const = default;
    [[nodiscard]] bool is_none() const
    {
        constexpr int of_another_thread = 1;
        return result == CO_E_NOTINITIALIZED || qualifier == of_another_thread;
    }
};

Apartment apartment_of_thread()
{
    using Ask = HRESULT(WINAPI*)(int*, int*);
    const FARPROC ask = GetProcAddress(GetModuleHandleW(L"ole32.dll"), "CoGetApartmentType");
    Apartment apartment;
    apartment.result = std::bit_cast<Ask>(ask)(&apartment.kind, &apartment.qualifier);
    return apartment;
}

using Awareness = HANDLE;

/// Systems without the calls answer nothing.
template <class Function>
Function user_function(const char* name)
{
    return std::bit_cast<Function>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name));
}
Awareness set_thread_awareness(Awareness wanted)
{
    return user_function<Awareness(WINAPI*)(Awareness)>("SetThreadDpiAwarenessContext")(wanted);
}
Awareness thread_awareness() { return user_function<Awareness(WINAPI*)()>("GetThreadDpiAwarenessContext")(); }
Awareness awareness_of(HWND window)
{
    return user_function<Awareness(WINAPI*)(HWND)>("GetWindowDpiAwarenessContext")(window);
}
bool are_equal(Awareness one, Awareness other)
{
    return user_function<BOOL(WINAPI*)(Awareness, Awareness)>("AreDpiAwarenessContextsEqual")(one, other) != FALSE;
}

const std::initializer_list<std::intptr_t> unaware_system_and_per_monitor = {-1, -2, -3};

} // namespace

TEST_F(Hosting, TheHostsWindowsGetTheirMessagesMeanwhile)
{
    const std::u16string path = folder.make_file(u"a");
    const HostThread host([&](HWND window) { call(window, path); });
    const HWND dialog = host.dialog();
    int carried_out = 0;
    host.carry_out([&] { ++carried_out; });
    EXPECT_EQ(carried_out, 1);
    cancel(dialog);
    host.wait_until_ended();
}

TEST_F(Hosting, TheHostsTimersGoOnMeanwhile)
{
    const std::u16string path = folder.make_file(u"a");
    static int beats = 0;
    const HostThread host([&](HWND window) {
        SetTimer(window, 1, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++beats; });
        call(window, path);
    });
    const HWND dialog = host.dialog();
    int beats_so_far = 0;
    host.carry_out([&] { beats_so_far = beats; });
    EXPECT_TRUE(driver::wait_until([&] {
        int beats_now = 0;
        host.carry_out([&] { beats_now = beats; });
        return beats_now > beats_so_far;
    }));
    cancel(dialog);
    host.wait_until_ended();
}

TEST_F(Hosting, MessagesToTheHostsThreadThatAreForNoWindowAreLostMeanwhile)
{
    const std::u16string path = folder.make_file(u"a");
    bool came_later = true;
    const HostThread host([&](HWND window) {
        call(window, path);
        MSG message = {};
        came_later = PeekMessageW(&message, nullptr, WM_APP + 1, WM_APP + 1, PM_REMOVE) != FALSE;
    });
    const HWND dialog = host.dialog();
    EXPECT_NE(PostThreadMessageW(host.id(), WM_APP + 1, 0, 0), FALSE);
    cancel(dialog);
    host.wait_until_ended();
    EXPECT_FALSE(came_later);
}

TEST_F(Hosting, AHostsMessageFilterSeesTheDialogsMessages)
{
    const std::u16string path = folder.make_file(u"a");
    static int seen = 0;
    const HostThread host([&](HWND window) {
        const HHOOK filter = SetWindowsHookExW(
            WH_MSGFILTER,
            [](int code, WPARAM w, LPARAM l) {
                seen += code == MSGF_DIALOGBOX ? 1 : 0;
                return CallNextHookEx(nullptr, code, w, l);
            },
            nullptr, GetCurrentThreadId());
        call(window, path);
        UnhookWindowsHookEx(filter);
    });
    cancel(host.dialog());
    host.wait_until_ended();
    EXPECT_GT(seen, 0);
}

TEST_F(Hosting, TheEndOfTheHostsLoopEndsTheCallAndIsStillThereForTheHost)
{
    const std::u16string path = folder.make_file(u"a");
    MSG last = {};
    BOOL got = TRUE;
    const HostThread host([&](HWND window) {
        call(window, path);
        got = GetMessageW(&last, nullptr, 0, 0);
    });
    static_cast<void>(host.dialog());
    host.carry_out([] { PostQuitMessage(7); });
    host.wait_until_ended();
    EXPECT_EQ(got, FALSE);
    EXPECT_EQ(last.wParam, 7U);
    EXPECT_EQ(folder.files(), (Files{{u"a", u"a"}}));
}

TEST_F(Hosting, MayCallAgainFromItsWindowProcedureMeanwhile)
{
    const std::u16string first_path = folder.make_file(u"a");
    const std::u16string second_path = folder.make_file(u"b");
    const HostThread host([&](HWND window) { call(window, first_path); });
    const HWND first = host.dialog();
    const Task call_again = [&] { call(first, second_path); };
    PostMessageW(host.window(), task_message, 0, reinterpret_cast<LPARAM>(&call_again));
    HWND second = nullptr;
    EXPECT_TRUE(driver::wait_until([&] { return (second = host.dialog()) != first; }));
    EXPECT_FALSE(IsWindowEnabled(first));
    rename_with_prefix(second, u"new ");
    EXPECT_TRUE(driver::wait_until([first] { return IsWindowEnabled(first) != FALSE; }));
    EXPECT_FALSE(IsWindowEnabled(host.window()));
    rename_with_prefix(first, u"old ");
    host.wait_until_ended();
    EXPECT_EQ(folder.files(), (Files{{u"new b", u"b"}, {u"old a", u"a"}}));
}

TEST_F(Hosting, EachOfTwoThreadsMayHaveADialog)
{
    const std::u16string first_path = folder.make_file(u"a");
    const std::u16string second_path = folder.make_file(u"b");
    const HostThread first([&](HWND window) { call(window, first_path); });
    const HostThread second([&](HWND window) { call(window, second_path); });
    const HWND first_dialog = first.dialog();
    rename_with_prefix_in_front(second.dialog(), u"2 ");
    second.wait_until_ended();
    rename_with_prefix_in_front(first_dialog, u"1 ");
    first.wait_until_ended();
    EXPECT_EQ(folder.files(), (Files{{u"1 a", u"a"}, {u"2 b", u"b"}}));
}

TEST_F(Hosting, MayChangeItsPathsOnceTheDialogIsThere)
{
    std::wstring path = to_wide(folder.make_file(u"a"));
    const wchar_t* paths[] = {path.c_str()};
    const HostThread host([&](HWND window) { module.run()(window, 1, paths, 0, nullptr); });
    const HWND dialog = host.dialog();
    driver::ask(dialog, WM_NULL); // it is there once it answers
    path.assign(path.size(), L'?');
    paths[0] = nullptr;
    rename_with_prefix(dialog, u"b");
    host.wait_until_ended();
    EXPECT_EQ(folder.files(), (Files{{u"ba", u"a"}}));
}

TEST_F(Hosting, TheHostsWindowIsActiveAgainAfterwards)
{
    const std::u16string path = folder.make_file(u"a");
    HWND active = nullptr;
    const HostThread host([&](HWND window) {
        call(window, path);
        active = GetActiveWindow();
    });
    cancel(host.dialog());
    host.wait_until_ended();
    EXPECT_EQ(active, host.window());
}

TEST_F(Hosting, AChildWindowAsParentStandsForItsTopLevelWindow)
{
    const std::u16string path = folder.make_file(u"a");
    const HostThread host([&](HWND window) {
        call(CreateWindowExW(0, L"STATIC", L"", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, window, nullptr, nullptr, nullptr),
             path);
    });
    const HWND dialog = host.dialog();
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), host.window());
    EXPECT_FALSE(IsWindowEnabled(host.window()));
    cancel(dialog);
    host.wait_until_ended();
}

TEST_F(Hosting, AParentThatIsNoWindowAnyMoreEndsTheCallAtOnce)
{
    const std::u16string path = folder.make_file(u"a");
    const HostThread host([&](HWND) {
        const HWND gone = make_host_window();
        DestroyWindow(gone);
        call(gone, path);
    });
    host.wait_until_ended();
    EXPECT_EQ(folder.files(), (Files{{u"a", u"a"}}));
}

TEST_F(Hosting, AThreadWithoutComStaysWithoutIt)
{
    const std::u16string path = folder.make_file(u"a");
    Apartment before;
    Apartment after;
    const HostThread host(
        [&](HWND) {
            before = apartment_of_thread();
            call(nullptr, path);
            after = apartment_of_thread();
        },
        HostThread::Input::NoInputMethod);
    rename_with_prefix(host.dialog(), u"b");
    host.wait_until_ended();
    EXPECT_TRUE(before.is_none());
    EXPECT_TRUE(after.is_none());
    EXPECT_EQ(folder.files(), (Files{{u"ba", u"a"}}));
}

TEST_F(Hosting, AThreadMayHaveComOfEitherKindAndKeepsIt)
{
    std::u16string path = folder.make_file(u"a");
    for (const DWORD wanted : {COINIT_APARTMENTTHREADED, COINIT_MULTITHREADED}) {
        Apartment before;
        Apartment after;
        const HostThread host([&](HWND window) {
            CoInitializeEx(nullptr, wanted);
            before = apartment_of_thread();
            call(window, path);
            after = apartment_of_thread();
            CoUninitialize();
        });
        rename_with_prefix(host.dialog(), u"b");
        host.wait_until_ended();
        EXPECT_FALSE(before.is_none());
        EXPECT_EQ(before, after);
        path.insert(folder.path_of(u"").size(), u"b");
        EXPECT_EQ(contents_of(path), u"a");
    }
}

TEST_F(Hosting, TheDialogHasTheDpiAwarenessOfTheHostsThreadWhichKeepsIt)
{
    const std::u16string path = folder.make_file(u"a");
    for (const std::intptr_t number : unaware_system_and_per_monitor) {
        const auto wanted = reinterpret_cast<Awareness>(number);
        Awareness after = nullptr;
        const HostThread host([&](HWND window) {
            set_thread_awareness(wanted);
            call(window, path);
            after = thread_awareness();
        });
        const HWND dialog = host.dialog();
        EXPECT_TRUE(are_equal(awareness_of(dialog), wanted)) << number;
        cancel(dialog);
        host.wait_until_ended();
        EXPECT_TRUE(are_equal(after, wanted)) << number;
    }
}

TEST_F(Hosting, AWatchOnTheFolderSeesTheRename)
{
    const std::u16string path = folder.make_file(u"a");
    const HANDLE change =
        FindFirstChangeNotificationW(to_wide(folder.path()).c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME);
    const HostThread host([&](HWND window) { call(window, path); });
    const HWND dialog = host.dialog();
    EXPECT_EQ(WaitForSingleObject(change, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    rename_with_prefix(dialog, u"b");
    host.wait_until_ended();
    EXPECT_EQ(WaitForSingleObject(change, bound), WAIT_OBJECT_0);
    FindCloseChangeNotification(change);
}

TEST_F(Hosting, PathsHaveBackslashesAndNoneAtTheirEnd)
{
    std::u16string with_slashes = folder.make_file(u"a");
    std::ranges::replace(with_slashes, u'\\', u'/');
    const std::u16string ended = folder.make_folder(u"sub") + u"\\";
    OpenDialog dialog(module, {with_slashes, ended, folder.make_file(u"b")});
    EXPECT_THAT(dialog.new_names(), ElementsAre(u"b"));
}

TEST_F(Hosting, KeepsItsWorkingFolder)
{
    std::array<wchar_t, MAX_PATH> before = {};
    std::array<wchar_t, MAX_PATH> after = {};
    GetCurrentDirectoryW(MAX_PATH, before.data());
    const std::u16string path = folder.make_file(u"a");
    const HostThread host([&](HWND window) { call(window, path); });
    rename_with_prefix(host.dialog(), u"b");
    host.wait_until_ended();
    GetCurrentDirectoryW(MAX_PATH, after.data());
    EXPECT_EQ(std::wstring(before.data()), after.data());
}

TEST_F(Hosting, NothingOfTheModuleIsLeftInTheProcessOnceItIsUnloaded)
{
    // A copy, since the tests themselves have the module loaded.
    std::array<wchar_t, MAX_PATH> place = {};
    GetModuleFileNameW(module.handle(), place.data(), MAX_PATH);
    const std::wstring copy = to_wide(folder.path_of(u"copy.dll"));
    ASSERT_NE(CopyFileW(place.data(), copy.c_str(), TRUE), FALSE);
    const HMODULE loaded = LoadLibraryW(copy.c_str());
    const auto run = std::bit_cast<decltype(&run_multirename)>(GetProcAddress(loaded, "run_multirename"));
    const HostThread host([&](HWND window) { run(window, 0, nullptr, 0, nullptr); });
    cancel(host.dialog());
    host.wait_until_ended();
    EXPECT_NE(GetModuleHandleW(L"copy.dll"), nullptr);
    FreeLibrary(loaded);
    EXPECT_EQ(GetModuleHandleW(L"copy.dll"), nullptr);
}
