// ghosthand_bench [NAME]: runs the benchmarks, or those whose name contains NAME.
//
// They are in a library, because only the code of a library can be mapped into the sample host.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

// Unless the caller has set them: where this build has what the benchmarks drive.
void DescribeBuild() {
    if (std::getenv("GHOSTHAND_DLL") == nullptr) {
        _putenv("GHOSTHAND_DLL=" BENCH_MODULE);
    }
    if (std::getenv("GHOSTHAND_SAMPLE_HOST") == nullptr) {
        _putenv("GHOSTHAND_SAMPLE_HOST=" BENCH_SAMPLE_HOST);
    }
}

// The programs that the benchmarks start end with this one, however it ends.
void EndChildrenWithThisProcess() {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    const HANDLE job = CreateJobObjectA(nullptr, nullptr);
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, GetCurrentProcess());
}

} // namespace

int main(int argc, char** argv) {
    DescribeBuild();
    EndChildrenWithThisProcess();
    const HMODULE cases = LoadLibraryA(BENCH_CASES);
    const auto run = reinterpret_cast<int (*)(const char*)>(
        reinterpret_cast<void*>(cases == nullptr ? nullptr : GetProcAddress(cases, "RunBenchmarks")));
    if (run == nullptr) {
        std::fprintf(stderr, "%s cannot be loaded (error %lu)\n", BENCH_CASES, GetLastError());
        return 2;
    }
    return run(argc > 1 ? argv[1] : "");
}
