// The programs that a test program starts.
#pragma once

#include <windows.h>

namespace support {

// They end with this one, however it ends.
inline void EndChildrenWithThisProcess() {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    // The handle stays open until the process ends: closing it is what ends the children.
    const HANDLE job = CreateJobObjectA(nullptr, nullptr);
    SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
    AssignProcessToJobObject(job, GetCurrentProcess());
}

} // namespace support
