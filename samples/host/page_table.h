// The table of pages: everything of the host that opens by a command or by --page NAME.
//
// To add a page: write pages/<name>.cpp with one function that opens it (most use OpenMdiPage or
// one of the dialog functions), give it a command in host_ids.h, and add its line to page_table.cpp.
#pragma once

#include <span>
#include <string_view>

namespace sample_host {

struct Page {
    std::string_view name; // for --page
    unsigned command;      // WM_COMMAND to the frame
    const char* menuText;  // in the menu "&Pages"
    void (*open)();
};

std::span<const Page> Pages();

// False when no page has that name or command.
bool OpenPage(std::string_view name);
bool OpenPage(unsigned command);

} // namespace sample_host
