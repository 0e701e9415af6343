#include <gmock/gmock.h>

#include <clocale>
#include <csignal>

namespace {

// Who starts the tests in the background may have told them to ignore these, and programs pass that on.
void take_signals_as_usual()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
#ifdef SIGHUP
    std::signal(SIGHUP, SIG_DFL);
#endif
}

} // namespace

int main(int argc, char** argv)
{
    take_signals_as_usual();
    // Cases and letters beyond ASCII follow the process's locale. Where there is no such locale, as on Windows, the one
    // that a program starts with stays.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
