// Part of every library of host tests: where host_test_runner enters it.

#include <gmock/gmock.h>

extern "C" __declspec(dllexport) int RunTests(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
