// host_test_runner TESTS.dll [GoogleTest argument...]: runs the tests that are in a library.

#include "support/job.h"

#include <windows.h>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: %s TESTS.dll [GoogleTest argument...]\n", argv[0]);
        return 2;
    }
    support::EndChildrenWithThisProcess();
    const HMODULE tests = LoadLibraryA(argv[1]);
    if (tests == nullptr) {
        std::fprintf(stderr, "%s cannot be loaded (error %lu)\n", argv[1], GetLastError());
        return 2;
    }
    using RunTests = int(int, char**);
    const auto runTests = reinterpret_cast<RunTests*>(GetProcAddress(tests, "RunTests"));
    if (runTests == nullptr) {
        std::fprintf(stderr, "%s has no tests\n", argv[1]);
        return 2;
    }
    return runTests(argc - 1, argv + 1);
}
