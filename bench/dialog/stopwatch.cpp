#include "stopwatch.h"

#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cwchar>
#include <stdexcept>
#include <string>

#include "driver/dialog_driver.h"

namespace {

constexpr int repetitions = 21; // an odd number has a middle

LARGE_INTEGER now()
{
    LARGE_INTEGER moment = {};
    QueryPerformanceCounter(&moment);
    return moment;
}

double milliseconds_since(LARGE_INTEGER start)
{
    LARGE_INTEGER frequency = {};
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(now().QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

bool is_painted(HWND window)
{
    if (GetUpdateRect(window, nullptr, FALSE) != FALSE)
        return false;
    HWND child = GetWindow(window, GW_CHILD);
    while (child != nullptr && GetUpdateRect(child, nullptr, FALSE) == FALSE)
        child = GetWindow(child, GW_HWNDNEXT);
    return child == nullptr;
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

} // namespace

Stopwatch::Stopwatch() :
    owner_(CreateWindowExW(0, WC_STATICW, L"Owner", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                           nullptr))
{
    SetWindowLongPtrW(owner_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(owner_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure));
}

Stopwatch::~Stopwatch() { DestroyWindow(owner_); }

std::vector<double> Stopwatch::run(const std::function<void(HWND owner)>& open, std::vector<Step> steps,
                                   const Step& finish)
{
    steps_ = std::move(steps);
    finish_ = finish;
    times_.clear();
    is_done_ = false;
    start_ = now();
    open(owner_);
    if (!is_done_)
        throw std::runtime_error("the dialog was closed too early");
    return times_;
}

LRESULT CALLBACK Stopwatch::procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept
{
    if (message == WM_ENTERIDLE && w == MSGF_DIALOGBOX) {
        auto* const self = reinterpret_cast<Stopwatch*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        self->went_quiet(reinterpret_cast<HWND>(l));
        return 0;
    }
    return DefWindowProcW(window, message, w, l);
}

void Stopwatch::went_quiet(HWND dialog)
{
    const double time = milliseconds_since(start_);
    if (is_done_ || IsWindowVisible(dialog) == FALSE || !is_painted(dialog))
        return;
    times_.push_back(time);
    if (times_.size() <= steps_.size()) {
        start_ = now();
        steps_[times_.size() - 1](dialog);
        return;
    }
    is_done_ = true;
    if (finish_)
        finish_(dialog);
    PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
}

std::vector<std::wstring> arguments()
{
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> copies(words + 1, words + count);
    LocalFree(words);
    return copies;
}

std::wstring sample_name(int index)
{
    wchar_t name[32] = {};
    std::swprintf(name, 32, L"IMG_%06d.jpg", index + 1);
    return name;
}

int time_and_print(const std::function<void(HWND owner, int count)>& open, int count, int list_id,
                   const std::function<bool(HWND dialog)>& check)
{
    Stopwatch stopwatch;
    bool has_edit = false;
    stopwatch.run([&](HWND owner) { open(owner, 1); }, {},
                  [&](HWND dialog) { has_edit = !driver::part_edits(dialog).empty(); });

    std::vector<Stopwatch::Step> steps;
    for (int i = 0; i < repetitions; ++i)
        steps.emplace_back([=](HWND dialog) { PostMessageW(GetDlgItem(dialog, list_id), WM_VSCROLL, SB_PAGEDOWN, 0); });
    for (int i = 0; has_edit && i < repetitions; ++i)
        steps.emplace_back([=](HWND dialog) {
            PostMessageW(driver::part_edits(dialog).front(), WM_CHAR, static_cast<WPARAM>(L'a' + i), 1);
        });
    bool is_right = false;
    const std::vector<double> times =
        stopwatch.run([&](HWND owner) { open(owner, count); }, steps,
                      [&](HWND dialog) {
                          const auto rows = driver::ask(GetDlgItem(dialog, list_id), LVM_GETITEMCOUNT);
                          const auto top = driver::ask(GetDlgItem(dialog, list_id), LVM_GETTOPINDEX);
                          is_right = rows == count && top > 0 && check(dialog);
                      });
    if (!is_right) {
        std::fprintf(stderr, "The dialog does not show what it should.\n");
        return 1;
    }
    const auto scrolling = times.begin() + 1;
    const auto typing = scrolling + repetitions;
    std::printf("%.3f %.3f ", times.front(), median({scrolling, typing}));
    if (has_edit)
        std::printf("%.3f\n", median({typing, times.end()}));
    else
        std::printf("-\n");
    return 0;
}
