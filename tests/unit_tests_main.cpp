#include <gmock/gmock.h>

#include <clocale>

int main(int argc, char** argv)
{
    // Cases and letters beyond ASCII follow the process's locale. Where there is no such locale, as on Windows, the one
    // that a program starts with stays.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
