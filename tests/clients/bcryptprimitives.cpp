// The one function of the system's library of this name that Go's run time asks for; Wine 8 lacks the library.
#include <windows.h>

extern "C" BOOLEAN NTAPI SystemFunction036(void* buffer, ULONG size); // RtlGenRandom

extern "C" __declspec(dllexport) BOOL WINAPI ProcessPrng(BYTE* buffer, SIZE_T size) {
    return SystemFunction036(buffer, static_cast<ULONG>(size));
}
