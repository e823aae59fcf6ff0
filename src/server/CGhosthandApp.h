// The server in the process that has loaded its module.
#pragma once

#include <windows.h>

class CGhosthandApp {
public:
    // Called once, when the module is loaded, under the loader lock. False: the module cannot be used.
    bool InitInstance(HINSTANCE instance) noexcept;
};
