#include <windows.h>

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    SetProcessDPIAware(); // so that the system's resolution reaches the windows, whatever it is
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
