// A library that a hook carries into a program nobody here wrote. It runs a script there, on a thread of its
// own: under Wine a menu handle is good in its own process only.
//
// The program finds in its environment:
//   GHOSTHAND_SCRIPT         the VBScript file, ASCII
//   GHOSTHAND_SCRIPT_OUTPUT  the file that gets what the script writes, and then "Ended"
#include "script_engine.h"

#include <windows.h>

#include <objbase.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace {

void RunScript() {
    const std::string file = std::getenv("GHOSTHAND_SCRIPT");
    std::ifstream stream(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    std::ofstream output(std::getenv("GHOSTHAND_SCRIPT_OUTPUT"), std::ios::binary);
    sample_host::RunScriptText(L"VBScript", file, {text.begin(), text.end()}, [&](const std::string& line) {
        output << line << "\n" << std::flush;
    });
    output << "Ended\n" << std::flush;
}

DWORD WINAPI ScriptThread(void*) {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    RunScript();
    CoUninitialize();
    return 0;
}

// The library stays when the hook goes: the script goes on.
void StartScript() {
    HMODULE pinned = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                       reinterpret_cast<LPCSTR>(&ScriptThread), &pinned);
    CloseHandle(CreateThread(nullptr, 0, ScriptThread, nullptr, 0, nullptr));
}

} // namespace

// The procedure of a WH_GETMESSAGE hook on the program's GUI thread.
extern "C" __declspec(dllexport) LRESULT CALLBACK
    StartScriptProcedure(int code, WPARAM wParam, LPARAM lParam) {
    static bool started = false;
    if (code >= 0 && !started) {
        started = true;
        StartScript();
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}
